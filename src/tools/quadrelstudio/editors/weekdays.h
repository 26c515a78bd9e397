// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>
#include <QtCore/Qt>

/** The weekdays of a unit, which are numbers from 1; see QuadrelDocument::TimeTrigger::weekdays. */
namespace Weekdays {

constexpr int daysOfWeek = 7;

/** Whether the number is one of the seven days. A unit has an eighth, which is no day. */
bool isDay(int number);
/** The day of a number that isDay(), where number 1 is `first`. */
Qt::DayOfWeek dayOf(int number, Qt::DayOfWeek first);
/** The inverse of dayOf(). */
int numberOf(Qt::DayOfWeek day, Qt::DayOfWeek first);

/** "Mon", in the language of the application. */
QString shortName(Qt::DayOfWeek day);
/** "Monday". */
QString longName(Qt::DayOfWeek day);

} // namespace Weekdays
