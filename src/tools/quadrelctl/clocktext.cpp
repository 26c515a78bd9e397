// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "clocktext.h"

#include "tool.h"

#include <clocktime.h>

#include <cstdlib>

QString describeDifference(qint64 seconds)
{
    if (seconds == 0)
        return Tool::tr("the same as this machine's");
    constexpr qint64 secondsPerDay = 86400;
    const qint64 amount = std::abs(seconds);
    const qint64 days = amount / secondsPerDay;
    const QString time = QTime(0, 0)
                             .addSecs(static_cast<int>(amount % secondsPerDay))
                             .toString(QStringLiteral("hh:mm:ss"));
    const QString length =
        days == 0 ? time : Tool::tr("%n day(s) %1", nullptr, static_cast<int>(days)).arg(time);
    return (
        seconds > 0 ? Tool::tr("%1 ahead of this machine's") : Tool::tr("%1 behind this machine's"))
        .arg(length);
}

QString clockLine(const QString& text)
{
    const QDateTime time = QuadrelWorkspace::clockTime(text);
    const qint64 difference = QDateTime::currentDateTime().secsTo(time);
    return QStringLiteral("%1  (%2)")
        .arg(text, time.isValid() ? describeDifference(difference) : Tool::tr("not a real time"));
}

QJsonObject clockToJson(const QString& text)
{
    QJsonObject object{{QStringLiteral("clock"), text}};
    const QDateTime time = QuadrelWorkspace::clockTime(text);
    if (time.isValid())
        object.insert(
            QStringLiteral("differenceSeconds"), QDateTime::currentDateTime().secsTo(time));
    return object;
}
