// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "triggermodel.h"

#include <utility>

#include "listoperations.h"

TriggerModel::TriggerModel() = default;

TriggerModel::TriggerModel(const TriggerModel& other)
    : QObject(nullptr)
    , m_triggers(other.m_triggers)
{
}

TriggerModel& TriggerModel::operator=(const TriggerModel& other)
{
    m_triggers = other.m_triggers;
    return *this;
}

bool TriggerModel::operator==(const TriggerModel& other) const
{
    return m_triggers == other.m_triggers;
}

int TriggerModel::size()
{
    return m_triggers.size();
}

TriggerInfo TriggerModel::at(int index)
{
    return m_triggers.at(index);
}

void TriggerModel::clear()
{
    m_triggers.clear();
}

QList<TriggerInfo> TriggerModel::getTriggerInfo()
{
    return m_triggers;
}

void TriggerModel::setTriggerInfo(QList<TriggerInfo> triggers)
{
    m_triggers = std::move(triggers);
}

void TriggerModel::push_back(TriggerInfo trigger)
{
    m_triggers.push_back(trigger);
}

void TriggerModel::insert(int index, TriggerInfo trigger)
{
    ListOperations::insert(m_triggers, index, trigger);
}

void TriggerModel::removeAt(int index)
{
    ListOperations::removeAt(m_triggers, index);
}

void TriggerModel::replace(int index, TriggerInfo trigger)
{
    m_triggers.replace(index, trigger);
}
