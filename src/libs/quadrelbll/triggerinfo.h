// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QObject>
#include <QtCore/QString>

#include "quadrelbll_global.h"

/** The serial line that a trigger watches, by its position; each is next to its label. */
enum COMSelect : int {
    COM_A_1 = 0,  /**< "COM A-1" */
    COM_A_2 = 1,  /**< "COM A-2" */
    COM_A_3 = 2,  /**< "COM A-3" */
    COM_A_4 = 3,  /**< "COM A-4" */
    COM_B_1 = 4,  /**< "COM B-1" */
    COM_B_2 = 5,  /**< "COM B-2" */
    COM_B_3 = 6,  /**< "COM B-3" */
    COM_B_4 = 7,  /**< "COM B-4" */
    COM_C_1 = 8,  /**< "COM C-1" */
    COM_C_2 = 9,  /**< "COM C-2" */
    COM_C_3 = 10, /**< "COM C-3" */
    COM_C_4 = 11, /**< "COM C-4" */
    COM_D_1 = 12, /**< "COM D-1" */
    COM_D_2 = 13, /**< "COM D-2" */
    COM_D_3 = 14, /**< "COM D-3" */
    COM_D_4 = 15  /**< "COM D-4" */
};
Q_DECLARE_METATYPE(COMSelect)

/** The IO line that a trigger watches, by its position; each is next to its label. */
enum IOSelect : int {
    IO_A_1 = 0,  /**< "IO A-1" */
    IO_A_2 = 1,  /**< "IO A-2" */
    IO_A_3 = 2,  /**< "IO A-3" */
    IO_A_4 = 3,  /**< "IO A-4" */
    IO_B_1 = 4,  /**< "IO B-1" */
    IO_B_2 = 5,  /**< "IO B-2" */
    IO_B_3 = 6,  /**< "IO B-3" */
    IO_B_4 = 7,  /**< "IO B-4" */
    IO_C_1 = 8,  /**< "IO C-1" */
    IO_C_2 = 9,  /**< "IO C-2" */
    IO_C_3 = 10, /**< "IO C-3" */
    IO_C_4 = 11, /**< "IO C-4" */
    IO_D_1 = 12, /**< "IO D-1" */
    IO_D_2 = 13, /**< "IO D-2" */
    IO_D_3 = 14, /**< "IO D-3" */
    IO_D_4 = 15  /**< "IO D-4" */
};
Q_DECLARE_METATYPE(IOSelect)

/**
 * Makes a unit run a list of events when given bytes arrive on a serial line, or when an IO
 * input goes to a given level.
 *
 * | Field          | Default | Meaning                                                    |
 * |----------------|---------|------------------------------------------------------------|
 * | `triggerId`    | -1      | position in the list; not stored, readers number from 0    |
 * | `triggertype`  | COM     | what fires the trigger                                     |
 * | `comSelect`    | COM_A_1 | serial line, for the kinds COM and COM_MODBUS              |
 * | `ioSelect`     | IO_A_1  | IO line, for the kind IO                                   |
 * | `protocoltype` | true    | `parameter` is hexadecimal text; false: plain (ASCII) text |
 * | `parameter`    | empty   | bytes to wait for, or the level of the IO line             |
 * | `events`       | empty   | events to run                                              |
 * | `instruction`  | empty   | free description, at most 32 UTF-16 code units             |
 *
 * The parameter of a serial trigger is the bytes to wait for. That of an IO trigger is one of the
 * texts "输入-高电平" (input, high level) and "输入-低电平" (input, low level).
 *
 * The events are items joined by ";", each with an event's id after "ID:" and before ")".
 *
 * Nothing is validated and nothing is cut when an entry is written; a read tests, and its first
 * entry beyond a limit makes the whole read fail:
 *
 * - a parameter of more than 305 bytes: "触发数据超出最大范围，最多为316个字节！", by the 11 bytes
 *   before it;
 * - more than 128 events: "触发事件个数已超出最大个数，最大为128个事件！". Of 256 and more only the
 * low 8 bits of the number are written;
 * - a description of more than 32 UTF-16 code units, which are 64 bytes: "描述信息数长度有误！". Of
 *   more than 127 only the low 8 bits of the length in bytes are written.
 *
 * A block has 512 bytes, which entries within the limits never exceed. A longer one is written
 * whole and shifts the blocks after it in the same write.
 *
 * The record is a value: a copy has no parent. The properties are bound to
 * the fields, with no notification. The record has no lock; copies may go to other threads.
 */
class QUADRELBLL_EXPORT TriggerInfo : public QObject {
    Q_OBJECT
    ///@{
    /** The field of this name. */
    Q_PROPERTY(int triggerId MEMBER triggerId)
    Q_PROPERTY(TriggerType triggertype MEMBER triggertype)
    Q_PROPERTY(COMSelect comSelect MEMBER comSelect)
    Q_PROPERTY(IOSelect ioSelect MEMBER ioSelect)
    Q_PROPERTY(bool protocoltype MEMBER protocoltype)
    Q_PROPERTY(QString parameter MEMBER parameter)
    Q_PROPERTY(QString events MEMBER events)
    Q_PROPERTY(QString instruction MEMBER instruction)
    ///@}

public:
    /** What fires a trigger. */
    enum TriggerType : int {
        COM = 0,        /**< a serial line, plain data */
        COM_MODBUS = 1, /**< a serial line, Modbus */
        IO = 2          /**< an IO input */
    };
    Q_ENUM(TriggerType)

    /**
     * A record with the defaults of the table and no parent. The first one registers the meta-types
     * "TriggerType", "COMSelect" and "IOSelect", so that a QVariant carries them.
     */
    TriggerInfo();
    /** Copies the eight fields of `other`; the copy has no parent. */
    TriggerInfo(const TriggerInfo& other);
    /** Copies the eight fields of `other`; parent, object name and connections stay. */
    TriggerInfo& operator=(const TriggerInfo& other);
    /**
     * True when all eight fields are equal, the line that the kind ignores too; texts compare
     * exactly, in their case too.
     */
    bool operator==(const TriggerInfo& other) const;

    ///@{
    /** The position in the list; -1 while it has none. */
    void setTriggerId(int id);
    int getTriggerId();
    ///@}

    ///@{
    /** What fires the trigger. */
    void setTriggerType(TriggerInfo::TriggerType type);
    TriggerInfo::TriggerType getTriggerType() { return triggertype; }
    ///@}

    ///@{
    /** The serial line to watch. */
    void setCOMSelect(COMSelect line);
    COMSelect getCOMSelect();
    ///@}

    ///@{
    /** The IO line to watch. */
    void setIOSelect(IOSelect line);
    IOSelect getIOSelect();
    ///@}

    ///@{
    /** Whether the parameter is hexadecimal text (true) or plain text (false). */
    void setTriggerProtocolType(bool hexadecimal);
    bool getTriggerProtocolType();
    ///@}

    ///@{
    /** The bytes to wait for, or the level text of an IO input. */
    void setTriggerParameter(QString parameter);
    QString getTriggerParameter();
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
    TriggerType triggertype = COM;
    COMSelect comSelect = COM_A_1;
    IOSelect ioSelect = IO_A_1;
    bool protocoltype = true;
    QString parameter;
    QString events;
    QString instruction;
};

Q_DECLARE_METATYPE(TriggerInfo::TriggerType)
