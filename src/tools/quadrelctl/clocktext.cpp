// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "clocktext.h"

#include "tool.h"

#include <QtCore/QRegularExpression>

#include <cstdlib>

QDateTime unitTime(const QString& text)
{
    // The year of a text lacks the zero of 2001 to 2009.
    static const QRegularExpression form(
        QStringLiteral("^20(\\d{1,3})/(\\d+)/(\\d+) (\\d+):(\\d+):(\\d+)$"));
    const QRegularExpressionMatch match = form.match(text);
    const auto number = [&match](int group) { return match.captured(group).toInt(); };
    const QDate date(2000 + number(1), number(2), number(3));
    const QTime time(number(4), number(5), number(6));
    return match.hasMatch() && date.isValid() && time.isValid() ? QDateTime(date, time)
                                                                : QDateTime();
}

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
    const QDateTime time = unitTime(text);
    const qint64 difference = QDateTime::currentDateTime().secsTo(time);
    return QStringLiteral("%1  (%2)")
        .arg(text, time.isValid() ? describeDifference(difference) : Tool::tr("not a real time"));
}

QJsonObject clockToJson(const QString& text)
{
    QJsonObject object{{QStringLiteral("clock"), text}};
    const QDateTime time = unitTime(text);
    if (time.isValid())
        object.insert(
            QStringLiteral("differenceSeconds"), QDateTime::currentDateTime().secsTo(time));
    return object;
}
