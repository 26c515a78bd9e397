// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QObject>
#include <QtCore/QString>

#include "quadrelbll_global.h"

/**
 * Makes a unit run a list of events at a time of day: every day, on days of the week, or once,
 * within a span of dates.
 *
 * | Field          | Default  | Meaning                                                 |
 * |----------------|----------|---------------------------------------------------------|
 * | `triggerId`    | -1       | position in the list; not stored, readers number from 0 |
 * | `triggerType`  | EVERYDAY | how the trigger repeats                                 |
 * | `startDate`    | empty    | year, month and day joined by "/", as 2024/03/07        |
 * | `endDate`      | empty    | the same form, or "永久有效" (valid for ever)           |
 * | `selectWeekly` | empty    | days of the week, one digit each, as 0110001            |
 * | `triggerTime`  | empty    | hour and minute joined by ":", as 08:05                 |
 * | `events`       | empty    | events to run                                           |
 * | `instruction`  | empty    | free description, at most 32 UTF-16 code units          |
 *
 * The week selection is a digit 0 or 1 for each day, the first for bit 0 of the unit's week byte
 * and so on. Which bit is which day is settled between the unit and the application. The events are
 * items joined by ";", each with an event's id after "ID:" and before ")".
 *
 * A record read from a unit has months, days, hours and minutes padded to two digits. Its year is
 * "20" and the number that follows, so that a year before 2010 lacks a digit. Its week selection
 * stops at the highest set bit and is "0" for no day at all.
 *
 * Nothing is validated and nothing is cut when an entry is written; a read tests, and its first
 * entry beyond a limit makes the whole read fail:
 *
 * - more than 128 events: "触发事件个数已超出最大个数，最大为128个事件！". Of 256 and more only the
 * low 8 bits of the number are written;
 * - a description of more than 32 UTF-16 code units, which are 64 bytes: "描述信息数长度有误！". Of
 *   more than 127 only the low 8 bits of the length in bytes are written.
 *
 * A block has 512 bytes, which entries within the limits never exceed. A longer one is written
 * whole and shifts the blocks after it in the same write.
 *
 * What is sent to a unit must have the forms of the table, which is not tested either. The record
 * is a value: a copy has no parent. The properties are bound to the fields, with no notification.
 * The record has no lock; copies may go to other threads.
 */
class QUADRELBLL_EXPORT TriggerTimeInfo : public QObject {
    Q_OBJECT
    ///@{
    /** The field of this name. */
    Q_PROPERTY(int triggerId MEMBER triggerId)
    Q_PROPERTY(RepetMode triggerType MEMBER triggerType)
    Q_PROPERTY(QString startDate MEMBER startDate)
    Q_PROPERTY(QString endDate MEMBER endDate)
    Q_PROPERTY(QString selectWeekly MEMBER selectWeekly)
    Q_PROPERTY(QString triggerTime MEMBER triggerTime)
    Q_PROPERTY(QString events MEMBER events)
    Q_PROPERTY(QString instruction MEMBER instruction)
    ///@}

public:
    /** How a time trigger repeats. */
    enum RepetMode : int {
        EVERYDAY = 0, /**< every day in the span of dates */
        WEEKLY = 1,   /**< on the selected days of the week in the span of dates */
        ONCE = 2      /**< once, on the start date */
    };
    Q_ENUM(RepetMode)

    /**
     * A record with the defaults of the table and no parent. The first one registers the meta-type
     * "RepetMode", so that a QVariant carries it.
     */
    TriggerTimeInfo();
    /** Copies the eight fields of `other`; the copy has no parent. */
    TriggerTimeInfo(const TriggerTimeInfo& other);
    /** Copies the eight fields of `other`; parent, object name and connections stay. */
    TriggerTimeInfo& operator=(const TriggerTimeInfo& other);
    /** True when all eight fields are equal; texts compare exactly, so 2024/3/7 is not 2024/03/07.
     */
    bool operator==(const TriggerTimeInfo& other) const;

    ///@{
    /** The position in the list; -1 while it has none. */
    void setTriggerId(int id);
    int getTriggerId();
    ///@}

    ///@{
    /** How the trigger repeats. */
    void setTriggerType(TriggerTimeInfo::RepetMode mode);
    TriggerTimeInfo::RepetMode getTriggerType() { return triggerType; }
    ///@}

    ///@{
    /** The first day. */
    void setStartDate(QString date);
    QString getStartDate();
    ///@}

    ///@{
    /** The last day. */
    void setEndDate(QString date);
    QString getEndDate();
    ///@}

    ///@{
    /** The days of the week, one digit a day. */
    void setSelectWeekly(QString days);
    QString getSelectWeekly();
    ///@}

    ///@{
    /** The time of day. */
    void setTriggerTime(QString time);
    QString getTriggerTime();
    ///@}

    ///@{
    /** The list of events to run. */
    void setTriggerEvent(QString events);
    QString getTriggerEvent();
    ///@}

    ///@{
    /** The free description. */
    void setTriggerInstruction(QString instruction);
    QString getTriggerInstruction();
    ///@}

private:
    int triggerId = -1;
    RepetMode triggerType = EVERYDAY;
    QString startDate;
    QString endDate;
    QString selectWeekly;
    QString triggerTime;
    QString events;
    QString instruction;
};

Q_DECLARE_METATYPE(TriggerTimeInfo::RepetMode)
