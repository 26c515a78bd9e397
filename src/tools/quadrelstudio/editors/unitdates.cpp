// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitdates.h"

#include <unitcontents.h>

#include <QtCore/QStringList>

namespace UnitDates {

QDate dateOf(const QString& text)
{
    const std::optional<QString> normal = QuadrelDocument::normalDate(text);
    if (!normal)
        return {};
    const QStringList parts = normal->split(QLatin1Char('/'));
    const int yearOfCentury = parts.at(0).midRef(2).toInt();
    return {firstYear + yearOfCentury, parts.at(1).toInt(), parts.at(2).toInt()};
}

QString textOf(const QDate& date)
{
    const QString text =
        QStringLiteral("20%1/%2/%3").arg(date.year() - firstYear).arg(date.month()).arg(date.day());
    return QuadrelDocument::normalDate(text).value_or(QString());
}

QTime timeOf(const QString& text)
{
    const std::optional<QString> normal = QuadrelDocument::normalTime(text);
    return normal ? QTime::fromString(*normal, QStringLiteral("HH:mm")) : QTime();
}

QString textOf(const QTime& time)
{
    return time.toString(QStringLiteral("HH:mm"));
}

} // namespace UnitDates
