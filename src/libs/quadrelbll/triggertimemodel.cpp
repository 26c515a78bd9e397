// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "triggertimemodel.h"

#include <utility>

#include "listoperations.h"

TriggerTimeModel::TriggerTimeModel() = default;

TriggerTimeModel::TriggerTimeModel(const TriggerTimeModel& other)
    : QObject(nullptr)
    , m_triggers(other.m_triggers)
{
}

TriggerTimeModel& TriggerTimeModel::operator=(const TriggerTimeModel& other)
{
    m_triggers = other.m_triggers;
    return *this;
}

bool TriggerTimeModel::operator==(const TriggerTimeModel& other) const
{
    return m_triggers == other.m_triggers;
}

int TriggerTimeModel::size()
{
    return m_triggers.size();
}

TriggerTimeInfo TriggerTimeModel::at(int index)
{
    return m_triggers.at(index);
}

void TriggerTimeModel::clear()
{
    m_triggers.clear();
}

QList<TriggerTimeInfo> TriggerTimeModel::getTriggerInfo()
{
    return m_triggers;
}

void TriggerTimeModel::setTriggerInfo(QList<TriggerTimeInfo> triggers)
{
    m_triggers = std::move(triggers);
}

void TriggerTimeModel::push_back(TriggerTimeInfo trigger)
{
    m_triggers.push_back(trigger);
}

void TriggerTimeModel::insert(int index, TriggerTimeInfo trigger)
{
    ListOperations::insert(m_triggers, index, trigger);
}

void TriggerTimeModel::removeAt(int index)
{
    ListOperations::removeAt(m_triggers, index);
}

void TriggerTimeModel::replace(int index, TriggerTimeInfo trigger)
{
    m_triggers.replace(index, trigger);
}
