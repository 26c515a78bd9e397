// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "clockcell.h"

#include "bcd.h"
#include "replyframe.h"

#include <QtCore/QStringList>

QString ClockCell::text(const ReplyFrame& frame)
{
    const auto field = [&](int offset) { return Bcd::twoDigits(frame.payloadByte(offset)); };
    const QLatin1Char slash('/');
    const QLatin1Char colon(':');
    return Bcd::yearText(frame.payloadByte(0)) + slash + field(1) + slash + field(2)
        + QLatin1Char(' ') + field(3) + colon + field(4) + colon + field(5);
}

QByteArray ClockCell::fromText(const QString& text)
{
    const QStringList halves = text.split(QStringLiteral("  "));
    const QStringList date = halves.value(0).split(QLatin1Char('/'));
    const QStringList time = halves.value(1).split(QLatin1Char(':'));
    const QString fields[] = {date.value(0).mid(2, 2), date.value(1), date.value(2), time.value(0),
        time.value(1), time.value(2)};
    QByteArray cell;
    for (const QString& field : fields)
        cell.append(static_cast<char>(Bcd::fromNumber(field.toInt())));
    return cell;
}
