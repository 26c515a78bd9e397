// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "operation.h"

#include "scriptedunit.h"
#include "signallog.h"

QString closingSignalOfOperation(Unit unit)
{
    UnPackage& operations = *UnPackage::Instance();
    SignalLog log(operations);
    ScriptedUnit transport(operations, [unit](const QByteArray&, int) {
        return unit == Unit::Answers ? ScriptedUnit::reply(QByteArray(20, '\0'))
                                     : ScriptedUnit::silence();
    });
    operations.setTimingCheck(QStringLiteral("2026/11/14  06:05:49"));
    operations.slot_runReadPackage(BackwordWriteType);
    transport.operationClosed();
    return log.entries.last();
}
