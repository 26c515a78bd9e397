// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "triggerinfo.h"

#include <utility>

namespace {

bool registerEnumerations()
{
    qRegisterMetaType<TriggerInfo::TriggerType>("TriggerType");
    qRegisterMetaType<COMSelect>("COMSelect");
    qRegisterMetaType<IOSelect>("IOSelect");
    return true;
}

} // namespace

TriggerInfo::TriggerInfo()
{
    static const bool registered = registerEnumerations();
    Q_UNUSED(registered)
}

TriggerInfo::TriggerInfo(const TriggerInfo& other)
    : QObject(nullptr)
    , triggerId(other.triggerId)
    , triggertype(other.triggertype)
    , comSelect(other.comSelect)
    , ioSelect(other.ioSelect)
    , protocoltype(other.protocoltype)
    , parameter(other.parameter)
    , events(other.events)
    , instruction(other.instruction)
{
}

TriggerInfo& TriggerInfo::operator=(const TriggerInfo& other)
{
    if (this == &other)
        return *this;
    triggerId = other.triggerId;
    triggertype = other.triggertype;
    comSelect = other.comSelect;
    ioSelect = other.ioSelect;
    protocoltype = other.protocoltype;
    parameter = other.parameter;
    events = other.events;
    instruction = other.instruction;
    return *this;
}

bool TriggerInfo::operator==(const TriggerInfo& other) const
{
    return triggerId == other.triggerId && triggertype == other.triggertype
        && events == other.events && comSelect == other.comSelect && ioSelect == other.ioSelect
        && protocoltype == other.protocoltype && parameter == other.parameter
        && instruction == other.instruction;
}

void TriggerInfo::setTriggerId(int id)
{
    triggerId = id;
}

int TriggerInfo::getTriggerId()
{
    return triggerId;
}

void TriggerInfo::setTriggerType(TriggerInfo::TriggerType type)
{
    triggertype = type;
}

void TriggerInfo::setCOMSelect(COMSelect line)
{
    comSelect = line;
}

COMSelect TriggerInfo::getCOMSelect()
{
    return comSelect;
}

void TriggerInfo::setIOSelect(IOSelect line)
{
    ioSelect = line;
}

IOSelect TriggerInfo::getIOSelect()
{
    return ioSelect;
}

void TriggerInfo::setTriggerProtocolType(bool hexadecimal)
{
    protocoltype = hexadecimal;
}

bool TriggerInfo::getTriggerProtocolType()
{
    return protocoltype;
}

void TriggerInfo::setTriggerParameter(QString text)
{
    parameter = std::move(text);
}

QString TriggerInfo::getTriggerParameter()
{
    return parameter;
}

void TriggerInfo::setTriggerEvent(QString eventIds)
{
    events = std::move(eventIds);
}

QString TriggerInfo::getTriggerEvent()
{
    return events;
}

void TriggerInfo::setTriggerInstruction(QString description)
{
    instruction = std::move(description);
}

QString TriggerInfo::getTriggerInstruction()
{
    return instruction;
}
