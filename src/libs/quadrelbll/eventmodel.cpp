// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "eventmodel.h"

#include <utility>

#include "listoperations.h"

EventModel::EventModel() = default;

EventModel::EventModel(const EventModel& other)
    : QObject(nullptr)
    , m_events(other.m_events)
{
}

EventModel& EventModel::operator=(const EventModel& other)
{
    m_events = other.m_events;
    return *this;
}

bool EventModel::operator==(const EventModel& other) const
{
    return m_events == other.m_events;
}

int EventModel::size()
{
    return m_events.size();
}

EventInfo EventModel::at(int index)
{
    return m_events.at(index);
}

void EventModel::clear()
{
    m_events.clear();
}

QList<EventInfo> EventModel::getEventInfo()
{
    return m_events;
}

void EventModel::setEventInfo(QList<EventInfo> events)
{
    m_events = std::move(events);
}

void EventModel::push_back(EventInfo event)
{
    m_events.push_back(event);
}

void EventModel::insert(int index, EventInfo event)
{
    ListOperations::insert(m_events, index, event);
}

void EventModel::removeAt(int index)
{
    ListOperations::removeAt(m_events, index);
}

void EventModel::replace(int index, EventInfo event)
{
    m_events.replace(index, event);
}
