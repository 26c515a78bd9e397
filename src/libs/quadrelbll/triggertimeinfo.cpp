// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "triggertimeinfo.h"

#include <utility>

TriggerTimeInfo::TriggerTimeInfo()
{
    static const int registered = qRegisterMetaType<RepetMode>("RepetMode");
    Q_UNUSED(registered)
}

TriggerTimeInfo::TriggerTimeInfo(const TriggerTimeInfo& other)
    : QObject(nullptr)
    , triggerId(other.triggerId)
    , triggerType(other.triggerType)
    , startDate(other.startDate)
    , endDate(other.endDate)
    , selectWeekly(other.selectWeekly)
    , triggerTime(other.triggerTime)
    , events(other.events)
    , instruction(other.instruction)
{
}

TriggerTimeInfo& TriggerTimeInfo::operator=(const TriggerTimeInfo& other)
{
    if (this == &other)
        return *this;
    triggerId = other.triggerId;
    triggerType = other.triggerType;
    startDate = other.startDate;
    endDate = other.endDate;
    selectWeekly = other.selectWeekly;
    triggerTime = other.triggerTime;
    events = other.events;
    instruction = other.instruction;
    return *this;
}

bool TriggerTimeInfo::operator==(const TriggerTimeInfo& other) const
{
    return triggerId == other.triggerId && triggerType == other.triggerType
        && startDate == other.startDate && endDate == other.endDate
        && selectWeekly == other.selectWeekly && triggerTime == other.triggerTime
        && events == other.events && instruction == other.instruction;
}

void TriggerTimeInfo::setTriggerId(int id)
{
    triggerId = id;
}

int TriggerTimeInfo::getTriggerId()
{
    return triggerId;
}

void TriggerTimeInfo::setTriggerType(TriggerTimeInfo::RepetMode mode)
{
    triggerType = mode;
}

void TriggerTimeInfo::setStartDate(QString date)
{
    startDate = std::move(date);
}

QString TriggerTimeInfo::getStartDate()
{
    return startDate;
}

void TriggerTimeInfo::setEndDate(QString date)
{
    endDate = std::move(date);
}

QString TriggerTimeInfo::getEndDate()
{
    return endDate;
}

void TriggerTimeInfo::setSelectWeekly(QString days)
{
    selectWeekly = std::move(days);
}

QString TriggerTimeInfo::getSelectWeekly()
{
    return selectWeekly;
}

void TriggerTimeInfo::setTriggerTime(QString time)
{
    triggerTime = std::move(time);
}

QString TriggerTimeInfo::getTriggerTime()
{
    return triggerTime;
}

void TriggerTimeInfo::setTriggerEvent(QString eventIds)
{
    events = std::move(eventIds);
}

QString TriggerTimeInfo::getTriggerEvent()
{
    return events;
}

void TriggerTimeInfo::setTriggerInstruction(QString description)
{
    instruction = std::move(description);
}

QString TriggerTimeInfo::getTriggerInstruction()
{
    return instruction;
}
