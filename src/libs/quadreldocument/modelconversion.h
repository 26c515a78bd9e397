// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitcontents.h"

#include "devicemodel.h"
#include "eventmodel.h"
#include "systemmodel.h"
#include "triggermodel.h"
#include "triggertimemodel.h"

/**
 * Contents from the library's models and back.
 *
 * There are two ways back. asRead() gives the models that a read of a unit with these contents
 * fills, for the library's files and for tables. toSend() gives those that make the library write a
 * unit that reads back as these contents: a name is sent after the description, and a delay off
 * the grid of 10 ms as its command bytes.
 */
namespace QuadrelDocument {

/** The device as the library has read it. */
Device deviceOf(DeviceModel model);
/** The serial ports of a configuration, the first is port 1. */
QVector<SerialPort> serialPortsOf(SystemModel model);
/** The IO lines of a configuration, the first is line 1. */
QVector<IoLine> ioLinesOf(SystemModel model);
/** The library's name of a new event counts as none. */
QVector<Event> eventsOf(EventModel model);
/** A trigger without an id, as a project file gives it, gets its place in the list. */
QVector<Trigger> triggersOf(TriggerModel model);
/** The time triggers, with their ids. */
QVector<TimeTrigger> timeTriggersOf(TriggerTimeModel model);

/** The device as a read gives it. */
DeviceModel asRead(const Device& device);
/** A list that is absent counts as empty. */
SystemModel asRead(
    const std::optional<QVector<SerialPort>>& ports, const std::optional<QVector<IoLine>>& lines);
/** The events as a read gives them. */
EventModel asRead(const QVector<Event>& events);
/** The triggers as a read gives them. */
TriggerModel asRead(const QVector<Trigger>& triggers);
/** The time triggers as a read gives them. */
TriggerTimeModel asRead(const QVector<TimeTrigger>& triggers);

// Serial ports and IO lines are sent as they are read.
/** The events as the library has to send them. */
EventModel toSend(const QVector<Event>& events);
/** The triggers as the library has to send them. */
TriggerModel toSend(const QVector<Trigger>& triggers);
/** The time triggers as the library has to send them. */
TriggerTimeModel toSend(const QVector<TimeTrigger>& triggers);

} // namespace QuadrelDocument
