// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>

#include "eventinfo.h"
#include "quadrelbll_global.h"

/**
 * The events of one unit, in the order in which the unit keeps them.
 *
 * The list does not sort, and does not care whether two events have the same id.
 *
 * The model is a value: a copy has no parent and shares the list until one side writes. A bad index
 * is ignored by removeAt(), clamped by insert() and the caller's fault in at() and replace(). The
 * model has no lock; copies may go to other threads.
 */
class QUADRELBLL_EXPORT EventModel : public QObject {
    Q_OBJECT

public:
    /** An empty list with no parent. */
    EventModel();
    /** Shares the list of `other`; the copy has no parent. */
    EventModel(const EventModel& other);
    /** Shares the list of `other`; does nothing when it is shared already. */
    EventModel& operator=(const EventModel& other);
    /** True when both share one list, or hold equal events in the same order. */
    bool operator==(const EventModel& other) const;

    /** The number of events. */
    int size();
    /** A copy of the event at `index`, not tested: it must lie within 0 to size() - 1. */
    EventInfo at(int index);
    /** Removes all events. */
    void clear();
    /** The list, shared until one side writes. */
    QList<EventInfo> getEventInfo();
    /** Replaces the list. */
    void setEventInfo(QList<EventInfo> events);
    /** Appends a copy. */
    void push_back(EventInfo event);
    /** Inserts a copy before `index`; at or below 0 means the front, at or past size() the end. */
    void insert(int index, EventInfo event);
    /** Removes the event at `index`; an index outside the list is ignored. */
    void removeAt(int index);
    /** Assigns to the event at `index`, not tested: it must lie within 0 to size() - 1. */
    void replace(int index, EventInfo event);

private:
    QList<EventInfo> m_events;
};
