// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QObject>
#include <QtCore/QString>

#include "quadrelbll_global.h"

/**
 * One thing that a unit does when a trigger fires: it sends a command, or it waits.
 *
 * @code
 * EventInfo on;
 * on.setEventId(3);
 * on.setEventProtocol("4c 01 00 25 10 01 52 01 10 00 03 4f 4e 0d");
 * on.setEventInstruction("Projector on");
 * @endcode
 *
 * | Field          | Default      | Meaning                                                   |
 * |----------------|--------------|-----------------------------------------------------------|
 * | `id`           | 1            | number of the event; a block holds its low 8 bits         |
 * | `name`         | "事件名称01" | shown name                                                |
 * | `eventtype`    | EVENT_TYPE_0 | kind of event                                             |
 * | `protocoltype` | true         | `protocol` is hexadecimal text; false: plain (ASCII) text |
 * | `protocol`     | empty        | command bytes as hexadecimal text, or the text of a delay |
 * | `instruction`  | empty        | free description                                          |
 *
 * The text of a delay is its length in units of 10 milliseconds followed by "*10ms": 25*10ms waits
 * a quarter of a second. The default name is the same whatever the id: a caller renames the event.
 *
 * Nothing is validated and nothing is cut when an event is written; a read tests:
 *
 * - a command of more than 319 bytes makes the whole read fail, with "有效数据长度超出范围！";
 * - of a description of more than 127 UTF-16 code units only the low 8 bits of its length in bytes
 *   are written, and it reads back as short as that says;
 * - a block has 512 bytes: 4, the command and 2 for each code unit of the description. A longer one
 *   is written whole and shifts the blocks after it in the same write.
 *
 * The record is a value: a copy has no parent. The properties are bound to
 * the fields, with no notification. The record has no lock; copies may go to other threads.
 */
class QUADRELBLL_EXPORT EventInfo : public QObject {
    Q_OBJECT
    ///@{
    /** The field of this name. */
    Q_PROPERTY(int id MEMBER id)
    Q_PROPERTY(EventType eventtype MEMBER eventtype)
    Q_PROPERTY(bool protocoltype MEMBER protocoltype)
    Q_PROPERTY(QString protocol MEMBER protocol)
    Q_PROPERTY(QString instruction MEMBER instruction)
    Q_PROPERTY(QString name MEMBER name)
    ///@}

public:
    /**
     * The kind of an event, by the record that a unit stores. The values are the contract; the keys
     * have no text form.
     */
    enum EventType : int {
        EVENT_TYPE_0 = 0, /**< a command of record class 0x25, kind 1 */
        EVENT_TYPE_1 = 1, /**< a command of record class 0x25, kind 2 */
        EVENT_TYPE_2 = 2, /**< a command of record class 0x24, subclass 0x17 */
        EVENT_TYPE_3 = 3, /**< a command of record class 0x24, subclass 0xA7, or of class 0x20 */
        EVENT_TYPE_4 = 4, /**< a command of record class 0x24, subclass 0x18 */
        EVENT_DELAY = 5,  /**< a delay; the only kind whose `protocol` is not hexadecimal text */
        EVENT_TYPE_6 = 6  /**< a command of record class 0xA5, subclass 2 */
    };

    /**
     * A record with the defaults of the table and no parent. The first one registers the meta-type
     * "EventType", so that a QVariant carries it.
     */
    EventInfo();
    /** Copies the six fields of `other`; the copy has no parent. */
    EventInfo(const EventInfo& other);
    /** Copies the six fields of `other`; parent, object name and connections stay. */
    EventInfo& operator=(const EventInfo& other);
    /** True when all six fields are equal; texts compare exactly, in their case too. */
    bool operator==(const EventInfo& other) const;

    ///@{
    /** The event's number. */
    void setEventId(int id);
    int getEventId();
    ///@}

    ///@{
    /** The kind of event. */
    void setEventType(EventInfo::EventType type);
    EventInfo::EventType getEventType() { return eventtype; }
    ///@}

    ///@{
    /** Whether the protocol is hexadecimal text (true) or plain text (false). */
    void setEventProtocolType(bool hexadecimal);
    bool getEventProtocolType();
    ///@}

    ///@{
    /** The text of the command or of the delay. */
    void setEventProtocol(QString protocol);
    QString getEventProtocal();
    ///@}

    ///@{
    /** The free description. */
    void setEventInstruction(QString instruction);
    QString getEventInstruction();
    ///@}

    ///@{
    /** The shown name. */
    void setEventName(QString name);
    QString getEventName();
    ///@}

private:
    int id = 1;
    QString name = QStringLiteral("事件名称01");
    EventType eventtype = EVENT_TYPE_0;
    bool protocoltype = true;
    QString protocol;
    QString instruction;
};

Q_DECLARE_METATYPE(EventInfo::EventType)
