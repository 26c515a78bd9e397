// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QDate>
#include <QtCore/QString>
#include <QtCore/QTime>

/** Dates and times of day as a unit reports them. */
namespace UnitDates {

/** The days that a unit can store. */
constexpr int firstYear = 2000;
constexpr int lastYear = 2099;

/** "2024/03/07", or "206/09/27" in the year 2006; an invalid date if there is no such day. */
QDate dateOf(const QString& text);
QString textOf(const QDate& date);

/** "08:05"; an invalid time if there is no such time. */
QTime timeOf(const QString& text);
QString textOf(const QTime& time);

} // namespace UnitDates
