// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include "eventinfo.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QObject>

class EventModel;
class ReplyFrame;

/**
 * The event block, 512 bytes an event, after one count byte for the whole table.
 *
 * | Offset | Width | Field |
 * |---|---|---|
 * | 0 | 1 | id |
 * | 1 | 2 | `L`, number of command bytes, little-endian |
 * | 3 | `L` | command |
 * | 3 + `L` | 1 | `D`, number of description bytes |
 * | 4 + `L` | `D` | description, see DescriptionText |
 *
 * An event's kind is not stored: the reader works it out from the command. The name is not stored
 * either, but the reader takes "instruction$$name" apart, for callers that write it so.
 */
class PackageEvent : public QObject {
    Q_OBJECT

public:
    explicit PackageEvent(QObject* parent = nullptr);

    /** One block; longer than 512 bytes if command or description need it. */
    static QByteArray createEventPackage(EventInfo event);

    /** The count byte, and block `i` at 1 + 512 times `i`. */
    static QByteArray createEventListPackage(EventModel model);
    static QByteArray createEventListPackage(QList<EventInfo> events);

    static bool parseEventCount(
        uint dataType, QByteArray package, uint dataLength, int& count, QString& error);

    /** Appends the event of one block. A command of more than 319 bytes is a fault. */
    static bool parseEventPackage(
        uint dataType, QByteArray package, uint dataLength, EventModel& model, QString& error);

    /** Appends the events of a whole table, whose commands may have any length. */
    static bool parseEventListPackage(
        uint dataType, QByteArray package, uint dataLength, EventModel& model, QString& error);

private:
};
