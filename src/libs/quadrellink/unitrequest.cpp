// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitrequest.h"

#include "requestinputs.h"

#include <utility>

UnitRequest::UnitRequest(Kind kind)
    : UnitRequest(kind, Inputs())
{
}

UnitRequest::UnitRequest(Kind kind, Inputs inputs)
    : m_kind(kind)
    , m_inputs(std::make_shared<const Inputs>(std::move(inputs)))
{
}

UnitRequest::Kind UnitRequest::kind() const
{
    return m_kind;
}

UnitRequest UnitRequest::readDevice()
{
    return UnitRequest(ReadDevice);
}

UnitRequest UnitRequest::readAll()
{
    return UnitRequest(ReadAll);
}

UnitRequest UnitRequest::writeConfig(const SystemModel& config)
{
    Inputs inputs;
    inputs.config = config;
    return {WriteConfig, inputs};
}

UnitRequest UnitRequest::writeEvents(const EventModel& events)
{
    Inputs inputs;
    inputs.events = events;
    return {WriteEvents, inputs};
}

UnitRequest UnitRequest::writeTriggers(
    const TriggerModel& triggers, const TriggerTimeModel& timeTriggers)
{
    Inputs inputs;
    inputs.triggers = triggers;
    inputs.timeTriggers = timeTriggers;
    return {WriteTriggers, inputs};
}

UnitRequest UnitRequest::readClock()
{
    return UnitRequest(ReadClock);
}

UnitRequest UnitRequest::setClock(const QDateTime& time)
{
    Inputs inputs;
    inputs.time = time;
    return {SetClock, inputs};
}

UnitRequest UnitRequest::setNetwork(const QString& ip, const QString& mask, const QString& gateway)
{
    Inputs inputs;
    inputs.ip = ip;
    inputs.mask = mask;
    inputs.gateway = gateway;
    return {SetNetwork, inputs};
}

UnitRequest UnitRequest::reset(bool keepsAddress)
{
    Inputs inputs;
    inputs.keepsAddress = keepsAddress;
    return {Reset, inputs};
}

UnitRequest UnitRequest::upgrade(const QByteArray& streamed, const QByteArray& addressed)
{
    Inputs inputs;
    inputs.streamed = streamed;
    inputs.addressed = addressed;
    return {Upgrade, inputs};
}

UnitRequest UnitRequest::writeRemark(const QByteArray& streamed)
{
    Inputs inputs;
    inputs.streamed = streamed;
    return {WriteRemark, inputs};
}
