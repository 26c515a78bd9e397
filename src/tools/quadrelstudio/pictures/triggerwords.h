// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "triggermap.h"
#include "weekplan.h"

#include "editors/eventnames.h"

/** What pictures say of triggers and events, in the language of the application. */
namespace TriggerWords {

/** "every day", "Mon, Wed" or "once". */
QString days(const QuadrelDocument::TimeTrigger& trigger, Qt::DayOfWeek firstWeekday);
/** "from 2024-03-07", "from … until …" or the day of a trigger that runs once. */
QString range(const QuadrelDocument::TimeTrigger& trigger);
/** What it is called: its description, or else its events. */
QString title(const QuadrelDocument::TimeTrigger& trigger, const EventNames& names);
/** Everything about it, in lines. */
QString toolTip(const QuadrelDocument::TimeTrigger& trigger, const EventNames& names,
    Qt::DayOfWeek firstWeekday);

/** "COM A-1" or "IO A-1 high". */
QString cause(const QuadrelDocument::Trigger& trigger);
/** Its description, or else what it waits for. */
QString detail(const QuadrelDocument::Trigger& trigger);
QString toolTip(const QuadrelDocument::Trigger& trigger, const EventNames& names);

/** What the event does: "waits 500 ms", or its command as text. */
QString action(const QuadrelDocument::Event& event);
QString toolTip(const QuadrelDocument::Event& event);

/** "Relays". */
QString drive(TriggerMap::Drive drive);

/** Why a trigger does not fire in a week, as half a sentence. */
QString reason(WeekPlan::Reason reason, const QuadrelDocument::TimeTrigger& trigger);

} // namespace TriggerWords
