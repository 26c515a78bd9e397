// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "studiotest.h"

namespace {

QtMessageHandler former = nullptr;

void endAtWarning(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (text.contains(QLatin1String("does not support propagateSizeHints")))
        return;
    if (type == QtWarningMsg || type == QtCriticalMsg)
        qFatal("%s", qPrintable(text));
    former(type, context, text);
}

} // namespace

void StudioTest::initTestCase()
{
    former = qInstallMessageHandler(&endAtWarning);
}

void StudioTest::cleanupTestCase()
{
    qInstallMessageHandler(former);
}
