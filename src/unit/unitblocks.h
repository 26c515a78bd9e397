// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDate>
#include <QtCore/QString>
#include <QtCore/QTime>

#include <vector>

/** The records that a unit keeps in its memory, made from what they mean. */
namespace QuadrelUnit {

enum class Parity : quint8 { None = 0, First = 1, Second = 2 };

struct SerialPort {
    quint32 baudRate = 115200;
    quint8 dataBits = 8;
    quint8 stopBits = 1;
    Parity parity = Parity::None;
};

/** The three settings of an IO line, in the order of their numbers. */
enum class IoSetting { First, Second, Third };

/** 7 bytes. */
QByteArray serialPortRecord(const SerialPort& port);
/** 2 bytes. */
QByteArray ioLineRecord(IoSetting setting);

using EventIds = std::vector<quint8>;

struct EventRecord {
    quint8 id;
    QByteArray command;
    /** At most 127 characters; a name may follow after "$$". */
    QString description;

    /** 512 bytes. */
    QByteArray block() const;
};

/** The command that waits for `milliseconds`. */
QByteArray delayCommand(quint16 milliseconds);
/** The command that sends `data` on serial line `line`, 0 for A-1 to 15 for D-4. */
QByteArray serialCommand(int line, bool isModbus, const QByteArray& data);

struct SerialTriggerRecord {
    /** 0 for A-1 to 15 for D-4. */
    int line;
    bool isModbus;
    /** The bytes to wait for, at most 255. */
    QByteArray data;
    EventIds events;
    /** At most 32 characters. */
    QString description;

    /** 512 bytes. */
    QByteArray block() const;
};

struct IoTriggerRecord {
    /** 0 for A-1 to 15 for D-4. */
    int line;
    bool isHigh;
    EventIds events;
    /** At most 32 characters. */
    QString description;

    /** 512 bytes. */
    QByteArray block() const;
};

enum class Repeat : quint8 { Once = 0, EveryDay = 1, Weekly = 2 };

struct TimeTriggerRecord {
    Repeat repeat;
    QDate start;
    /** No valid date: for ever. */
    QDate end;
    QTime time;
    /** Bit 0 is the first day. */
    quint8 days;
    EventIds events;
    /** At most 32 characters. */
    QString description;

    /** 512 bytes. */
    QByteArray block() const;
};

} // namespace QuadrelUnit
