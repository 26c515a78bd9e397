// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitcontents.h>

#include <QtCore/QDate>
#include <QtCore/QVector>

/** What the time triggers of a unit do in one week. */
struct WeekPlan {
    static constexpr int days = 7;
    static constexpr int minutesOfDay = 24 * 60;

    /** A trigger fires. */
    struct Firing {
        /** The trigger's place in its list. */
        int trigger = 0;
        /** Days after the first of the week, 0 to 6. */
        int day = 0;
        /** Minutes after midnight, 0 to 1439. */
        int minute = 0;
    };

    enum class Reason {
        NoSuchTime,
        NoSuchStart,
        NoSuchEnd,
        EndsBeforeItBegins,
        NoWeekday,
        BeginsLater,
        HasEnded,
        /** It is in force in the week, but on none of its weekdays. */
        OtherDays
    };
    /** A trigger does not fire in the week. */
    struct Silence {
        int trigger = 0;
        Reason reason = Reason::NoSuchTime;
    };

    QDate firstDay;
    /** By day, then by minute, then in the order of the list. */
    QVector<Firing> firings;
    /** In the order of the list. */
    QVector<Silence> silences;

    QDate dayAt(int day) const { return firstDay.addDays(day); }
};
bool operator==(const WeekPlan::Firing& left, const WeekPlan::Firing& right);
bool operator==(const WeekPlan::Silence& left, const WeekPlan::Silence& right);

/**
 * The plan of the week that holds the date. A week begins with `firstWeekday`, which is the day of
 * a unit's weekday 1.
 */
WeekPlan weekPlan(const QVector<QuadrelDocument::TimeTrigger>& triggers, const QDate& date,
    Qt::DayOfWeek firstWeekday);

/** Where the block of a firing is, if blocks that would overlap are side by side. */
struct Lane {
    /** From 0. */
    int lane = 0;
    /** How many lanes its day has where it is; at least 1. */
    int lanes = 1;
};
/** For each of the firings, which are those of a plan; a block takes so many minutes. */
QVector<Lane> lanesOf(const QVector<WeekPlan::Firing>& firings, int blockMinutes);
