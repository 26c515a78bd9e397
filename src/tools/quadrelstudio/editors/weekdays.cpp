// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "weekdays.h"

#include <QtCore/QCoreApplication>

namespace Weekdays {

namespace {

class Names {
    Q_DECLARE_TR_FUNCTIONS(Weekdays)
};

} // namespace

bool isDay(int number)
{
    return number >= 1 && number <= daysOfWeek;
}

Qt::DayOfWeek dayOf(int number, Qt::DayOfWeek first)
{
    return static_cast<Qt::DayOfWeek>((first - 1 + number - 1) % daysOfWeek + 1);
}

int numberOf(Qt::DayOfWeek day, Qt::DayOfWeek first)
{
    return (day - first + daysOfWeek) % daysOfWeek + 1;
}

QString shortName(Qt::DayOfWeek day)
{
    const QString names[daysOfWeek] = {Names::tr("Mon"), Names::tr("Tue"), Names::tr("Wed"),
        Names::tr("Thu"), Names::tr("Fri"), Names::tr("Sat"), Names::tr("Sun")};
    return names[day - Qt::Monday];
}

QString longName(Qt::DayOfWeek day)
{
    const QString names[daysOfWeek] = {Names::tr("Monday"), Names::tr("Tuesday"),
        Names::tr("Wednesday"), Names::tr("Thursday"), Names::tr("Friday"), Names::tr("Saturday"),
        Names::tr("Sunday")};
    return names[day - Qt::Monday];
}

} // namespace Weekdays
