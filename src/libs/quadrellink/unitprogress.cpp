// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitprogress.h"

QString UnitProgress::text() const
{
    const auto counted = [this](const QString& text) {
        return text.arg(QString::number(done), QString::number(total));
    };
    switch (part) {
    case Device:
        return tr("device information");
    case SerialPorts:
        return tr("serial ports");
    case IoLines:
        return tr("IO lines");
    case Events:
        return counted(tr("event %1 of %2"));
    case Triggers:
        return counted(tr("trigger %1 of %2"));
    case TimeTriggers:
        return counted(tr("time triggers: entry %1 of %2"));
    case Clock:
        return tr("clock");
    case Upgrade:
        return tr("%1 % sent").arg(total == 0 ? 100 : done * 100 / total);
    }
    return {};
}
