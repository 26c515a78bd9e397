// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitcontents.h>

/**
 * As many events and triggers as a unit has room for: half of the triggers at times of day, each of
 * which fires every day at the same time, and each trigger with `eventsOfTrigger` events.
 */
inline QuadrelDocument::Contents fullUnit(int eventsOfTrigger)
{
    using namespace QuadrelDocument;
    QVector<Event> events;
    for (int id = 0; id < Limit::events; ++id) {
        Event event;
        event.id = id;
        event.name = QStringLiteral("Event number %1").arg(id);
        event.command = QByteArray::fromHex("4c010024180152800001");
        events.append(event);
    }
    QVector<int> ids;
    for (int id = 0; id < eventsOfTrigger; ++id)
        ids.append(id);
    QVector<Trigger> triggers;
    QVector<TimeTrigger> timeTriggers;
    for (int i = 0; i < Limit::tableEntries / 2; ++i) {
        Trigger trigger;
        trigger.line = i % triggerLineCount;
        trigger.parameter = "PANEL";
        trigger.eventIds = ids;
        triggers.append(trigger);
        TimeTrigger timeTrigger;
        timeTrigger.startDate = QStringLiteral("2024/01/01");
        timeTrigger.time = QStringLiteral("08:05");
        timeTrigger.eventIds = ids;
        timeTriggers.append(timeTrigger);
    }
    Contents contents;
    contents.events = events;
    contents.triggers = triggers;
    contents.timeTriggers = timeTriggers;
    return contents;
}
