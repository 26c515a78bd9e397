// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "eventinfo.h"

#include <utility>

EventInfo::EventInfo()
{
    static const int registered = qRegisterMetaType<EventType>("EventType");
    Q_UNUSED(registered)
}

EventInfo::EventInfo(const EventInfo& other)
    : QObject(nullptr)
    , id(other.id)
    , name(other.name)
    , eventtype(other.eventtype)
    , protocoltype(other.protocoltype)
    , protocol(other.protocol)
    , instruction(other.instruction)
{
}

EventInfo& EventInfo::operator=(const EventInfo& other)
{
    if (this == &other)
        return *this;
    id = other.id;
    name = other.name;
    eventtype = other.eventtype;
    protocoltype = other.protocoltype;
    protocol = other.protocol;
    instruction = other.instruction;
    return *this;
}

bool EventInfo::operator==(const EventInfo& other) const
{
    return id == other.id && eventtype == other.eventtype && protocol == other.protocol
        && protocoltype == other.protocoltype && instruction == other.instruction
        && name == other.name;
}

void EventInfo::setEventId(int number)
{
    id = number;
}

int EventInfo::getEventId()
{
    return id;
}

void EventInfo::setEventType(EventInfo::EventType type)
{
    eventtype = type;
}

void EventInfo::setEventProtocolType(bool hexadecimal)
{
    protocoltype = hexadecimal;
}

bool EventInfo::getEventProtocolType()
{
    return protocoltype;
}

void EventInfo::setEventProtocol(QString command)
{
    protocol = std::move(command);
}

QString EventInfo::getEventProtocal()
{
    return protocol;
}

void EventInfo::setEventInstruction(QString description)
{
    instruction = std::move(description);
}

QString EventInfo::getEventInstruction()
{
    return instruction;
}

void EventInfo::setEventName(QString text)
{
    name = std::move(text);
}

QString EventInfo::getEventName()
{
    return name;
}
