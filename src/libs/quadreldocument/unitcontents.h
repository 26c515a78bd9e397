// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QVector>

#include <optional>

/**
 * What a unit stores as one value, apart from programs and sockets: contents, their documents, what
 * is wrong with them, how two of them differ, and what has to be written to turn one into the
 * other.
 *
 * Everything here is a plain value or a function of its arguments. Nothing keeps a state, so that
 * each thread may call anything.
 */
namespace QuadrelDocument {

/** Who the unit is and how it is reached. A unit is never written from this. */
struct Device {
    /** 0 to 65535. */
    int modelId = 0;
    quint64 serialNumber = 0; ///< each unit has another one
    /** Four decimals joined by dots, like the three addresses. */
    QString version;
    bool dhcp = false;         ///< whether the address comes from a DHCP server
    QString ip;                ///< the unit's address
    QString mask;              ///< the subnet mask
    QString gateway;           ///< the gateway; 0.0.0.0 for none
    bool ethernetLink = false; ///< whether the Ethernet link is up
    int serialPortCount = 0;   ///< 0 to 255
    int ioLineCount = 0;       ///< 0 to 255
    int relayCount = 0;        ///< 0 to 255
    int infraredPortCount = 0; ///< 0 to 255
};
/** Equal in every field. */
bool operator==(const Device& left, const Device& right);
/** As people write a model: "0x7209". */
QString modelText(int modelId);

/** The settings of a serial port; its place in the list is its number, the first is port 1. */
struct SerialPort {
    /** Bits per second; the 32 bits of the unit are signed here. */
    int baudRate = 115200;
    /** -128 to 127, as a unit reports them. */
    int dataBits = 8;
    /** -128 to 127, as a unit reports them. */
    int stopBits = 1;
    /** 0, 1, or 2 for none. */
    int inspection = 2;
};
/** Equal in every field. */
bool operator==(const SerialPort& left, const SerialPort& right);

/** The setting of an IO line; its place in the list is its number, the first is line 1. */
struct IoLine {
    /** 0, 1 or 2. */
    int type = 0;
};
/** Equal in every field. */
bool operator==(const IoLine& left, const IoLine& right);

/** One thing that a unit does when a trigger fires: it sends a command, or it waits. */
struct Event {
    /** 0 to 255. */
    int id = 0;
    /** Absent if the unit has none. */
    std::optional<QString> name;
    /** Milliseconds, 0 to 65535. An event with a delay has no command. */
    std::optional<int> delay;
    /** At most 319 bytes. */
    QByteArray command;
    QString description; ///< for people; see Limit::eventText

    /** The number of the kind, which follows from the bytes: 0 to 6, and 5 for a delay. */
    int type() const;
};
/** Equal in every field. */
bool operator==(const Event& left, const Event& right);
/** The event with a delay in place of the command that delayCommand() makes. */
Event normalEvent(Event event);

/** What a trigger waits for: bytes on a serial line, a Modbus reply on one, or an IO level. */
enum class TriggerKind { Com, ComModbus, Io };
/** The level of an IO input. */
enum class Level { Low, High };

/** The line of a trigger that its source does not give; see Trigger::line. */
constexpr int unknownLine = -1;
/** The lines of each kind: A-1 to D-4. */
constexpr int triggerLineCount = 16;

/** Runs events when bytes arrive on a serial line, or when an IO input reaches a level. */
struct Trigger {
    /** A number to call it by. A unit does not store it: whoever reads one counts from 0. */
    int id = 0;
    TriggerKind kind = TriggerKind::Com; ///< what the trigger waits for
    /**
     * 0 for A-1 to 15 for D-4 of the serial lines, or of the IO lines for the kind Io. unknownLine
     * for a Modbus trigger of a project file, which has no place for it.
     */
    int line = 0;
    /** The bytes to wait for, at most 305; empty for the kind Io. */
    QByteArray parameter;
    /** For the kind Io; absent if the unit holds neither. */
    std::optional<Level> level;
    /** 0 to 255 each, in the order in which they run. */
    QVector<int> eventIds;
    QString description; ///< for people; see Limit::triggerDescription
};
/** Equal in every field. */
bool operator==(const Trigger& left, const Trigger& right);

/** How often a time trigger runs. */
enum class Repeat { EveryDay, Weekly, Once };

/** Runs events at a time of day. */
struct TimeTrigger {
    /** A number to call it by, counted apart from the triggers. A unit does not store it. */
    int id = 0;
    Repeat repeat = Repeat::EveryDay; ///< how often it runs
    /** As a unit reports it: "2024/03/07", and "206/09/27" in the year 2006. */
    QString startDate;
    /** Like startDate; absent: for ever. */
    std::optional<QString> endDate;
    /**
     * 1 to 8, ascending: the bits of the unit, lowest first. Which day is the first is agreed
     * between unit and application.
     */
    QVector<int> weekdays;
    /** Such as "08:05". */
    QString time;
    /** 0 to 255 each, in the order in which they run. */
    QVector<int> eventIds;
    QString description; ///< for people; see Limit::triggerDescription
};
/** Equal in every field. */
bool operator==(const TimeTrigger& left, const TimeTrigger& right);

/** What a unit stores, or as much of it as a file says: what is absent is not described. */
struct Contents {
    std::optional<Device> device;                     ///< the unit itself
    std::optional<QVector<SerialPort>> serialPorts;   ///< in the order of the unit
    std::optional<QVector<IoLine>> ioLines;           ///< in the order of the unit
    std::optional<QVector<Event>> events;             ///< at most Limit::events
    std::optional<QVector<Trigger>> triggers;         ///< see Limit::tableEntries
    std::optional<QVector<TimeTrigger>> timeTriggers; ///< see Limit::tableEntries
    /** The unit's clock as the library words it; saved documents leave it out. */
    std::optional<QString> clock;
};
/** Equal in every field. */
bool operator==(const Contents& left, const Contents& right);
/** Different in some field. */
bool operator!=(const Contents& left, const Contents& right);

/** What a unit has room for. */
namespace Limit {
constexpr int events = 128; ///< events of a unit
/** Triggers and time triggers share one table. */
constexpr int tableEntries = 64;
constexpr int id = 255;              ///< the highest id of an event
constexpr int commandBytes = 319;    ///< bytes of an event's command
constexpr int parameterBytes = 305;  ///< bytes of a trigger's parameter
constexpr int eventsOfTrigger = 128; ///< events that one trigger runs
/** UTF-16 units. */
constexpr int triggerDescription = 32;
/** UTF-16 units of description and name together, with the two characters between them. */
constexpr int eventText = 127;
/** Bytes of an event's command and its text together: its block less the head. */
constexpr int eventBytes = 508;
constexpr int delay = 65535; ///< milliseconds of a delay
constexpr int weekdays = 8;  ///< bits for days of the week
} // namespace Limit

/** "COM" for a serial kind, "IO" for the other. */
QString lineKind(TriggerKind kind);
/** "COM A-1" to "IO D-4"; an empty text for a line that there is not. */
QString lineLabel(TriggerKind kind, int line);
/** "COM", "COM_MODBUS" or "IO". */
QString kindWord(TriggerKind kind);
/** "EVERYDAY", "WEEKLY" or "ONCE". */
QString repeatWord(Repeat repeat);
/** "high" or "low". */
QString levelWord(Level level);

/** The command that waits for so many milliseconds. */
QByteArray delayCommand(int milliseconds);
/** Whether a unit takes the command for a delay, whatever its first three bytes are. */
bool isDelayCommand(const QByteArray& command);

/** Pairs of lower-case digits with a blank between them. */
QString hexText(const QByteArray& bytes);
/** The bytes of pairs of hexadecimal digits, with or without blanks between them. */
std::optional<QByteArray> bytesOfHex(const QString& text);

/**
 * The bytes as text: Latin-1 with the escapes `\\`, `\r`, `\n`, `\t`, `\0` and `\xHH` for what is
 * not printable ASCII.
 */
QString escapedText(const QByteArray& bytes);
/** The bytes of such a text, in which other characters up to U+00FF may be as they are. */
std::optional<QByteArray> bytesOfEscapedText(const QString& text);

/** The date as a unit reports it; nothing if it does not exist or lies outside 2000 to 2099. */
std::optional<QString> normalDate(const QString& text);
/** The time of day with two digits each; nothing if there is no such time. */
std::optional<QString> normalTime(const QString& text);

} // namespace QuadrelDocument
