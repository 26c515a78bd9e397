// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "weekplan.h"

#include "editors/unitdates.h"
#include "editors/weekdays.h"

#include <algorithm>
#include <optional>
#include <tuple>

using namespace QuadrelDocument;

namespace {

using Reason = WeekPlan::Reason;

/** A trigger with its stamps as days and times. */
struct Schedule {
    QDate start;
    /** Absent: for ever. */
    std::optional<QDate> end;
    QTime time;
};

Schedule scheduleOf(const TimeTrigger& trigger)
{
    Schedule schedule{
        UnitDates::dateOf(trigger.startDate), std::nullopt, UnitDates::timeOf(trigger.time)};
    if (trigger.repeat == Repeat::Once)
        schedule.end = schedule.start;
    else if (trigger.endDate)
        schedule.end = UnitDates::dateOf(*trigger.endDate);
    return schedule;
}

bool hasDay(const TimeTrigger& trigger)
{
    return std::any_of(trigger.weekdays.begin(), trigger.weekdays.end(), Weekdays::isDay);
}

/** Why it fires in no week at all. */
std::optional<Reason> reasonForNever(const TimeTrigger& trigger, const Schedule& schedule)
{
    if (!schedule.time.isValid())
        return Reason::NoSuchTime;
    if (!schedule.start.isValid())
        return Reason::NoSuchStart;
    if (schedule.end && !schedule.end->isValid())
        return Reason::NoSuchEnd;
    if (schedule.end && *schedule.end < schedule.start)
        return Reason::EndsBeforeItBegins;
    if (trigger.repeat == Repeat::Weekly && !hasDay(trigger))
        return Reason::NoWeekday;
    return std::nullopt;
}

/** Why a trigger that fires in some week does not in this one. */
Reason reasonForThisWeek(const Schedule& schedule, const WeekPlan& plan)
{
    if (schedule.start > plan.dayAt(WeekPlan::days - 1))
        return Reason::BeginsLater;
    return schedule.end && *schedule.end < plan.firstDay ? Reason::HasEnded : Reason::OtherDays;
}

bool firesOn(const TimeTrigger& trigger, const Schedule& schedule, const QDate& date, int weekday)
{
    if (date < schedule.start || (schedule.end && date > *schedule.end))
        return false;
    return trigger.repeat != Repeat::Weekly || trigger.weekdays.contains(weekday);
}

/** Whether it fires at all. */
bool addFirings(WeekPlan& plan, int index, const TimeTrigger& trigger, const Schedule& schedule)
{
    const int before = plan.firings.size();
    for (int day = 0; day < WeekPlan::days; ++day) {
        if (firesOn(trigger, schedule, plan.dayAt(day), day + 1))
            plan.firings.append({index, day, schedule.time.hour() * 60 + schedule.time.minute()});
    }
    return plan.firings.size() > before;
}

/** Firings from `first` to before `end` have overlapping blocks: gives each its lane. */
void shareLanes(QVector<Lane>& lanes, const QVector<WeekPlan::Firing>& firings, int first, int end,
    int blockMinutes)
{
    QVector<int> minuteFree;
    for (int i = first; i < end; ++i) {
        const int minute = firings.at(i).minute;
        const auto free = std::find_if(minuteFree.begin(), minuteFree.end(),
            [minute](int freeFrom) { return freeFrom <= minute; });
        lanes[i].lane = static_cast<int>(free - minuteFree.begin());
        if (free == minuteFree.end())
            minuteFree.append(0);
        minuteFree[lanes.at(i).lane] = minute + blockMinutes;
    }
    for (int i = first; i < end; ++i)
        lanes[i].lanes = minuteFree.size();
}

} // namespace

bool operator==(const WeekPlan::Firing& left, const WeekPlan::Firing& right)
{
    return std::tie(left.trigger, left.day, left.minute)
        == std::tie(right.trigger, right.day, right.minute);
}

bool operator==(const WeekPlan::Silence& left, const WeekPlan::Silence& right)
{
    return left.trigger == right.trigger && left.reason == right.reason;
}

WeekPlan weekPlan(
    const QVector<TimeTrigger>& triggers, const QDate& date, Qt::DayOfWeek firstWeekday)
{
    WeekPlan plan;
    const auto weekday = static_cast<Qt::DayOfWeek>(date.dayOfWeek());
    plan.firstDay = date.addDays(1 - Weekdays::numberOf(weekday, firstWeekday));
    for (int i = 0; i < triggers.size(); ++i) {
        const Schedule schedule = scheduleOf(triggers.at(i));
        const std::optional<Reason> never = reasonForNever(triggers.at(i), schedule);
        if (never)
            plan.silences.append({i, *never});
        else if (!addFirings(plan, i, triggers.at(i), schedule))
            plan.silences.append({i, reasonForThisWeek(schedule, plan)});
    }
    std::stable_sort(plan.firings.begin(), plan.firings.end(),
        [](const WeekPlan::Firing& left, const WeekPlan::Firing& right) {
            return std::tie(left.day, left.minute) < std::tie(right.day, right.minute);
        });
    return plan;
}

QVector<Lane> lanesOf(const QVector<WeekPlan::Firing>& firings, int blockMinutes)
{
    QVector<Lane> lanes(firings.size());
    int first = 0;
    while (first < firings.size()) {
        int end = first + 1;
        int busyUntil = firings.at(first).minute + blockMinutes;
        while (end < firings.size() && firings.at(end).day == firings.at(first).day
            && firings.at(end).minute < busyUntil) {
            busyUntil = firings.at(end).minute + blockMinutes;
            ++end;
        }
        shareLanes(lanes, firings, first, end, blockMinutes);
        first = end;
    }
    return lanes;
}
