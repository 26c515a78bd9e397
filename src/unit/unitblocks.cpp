// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitblocks.h"

#include "unitaddresses.h"
#include "unitbytes.h"

namespace QuadrelUnit {

namespace {

QByteArray oneByte(int value)
{
    return QByteArray(1, static_cast<char>(value));
}

QByteArray bcd(int value)
{
    return QByteArray(1, toBcd(value));
}

/** Number of bytes, then UTF-16 with the high byte of each code unit first. */
QByteArray lengthAndText(const QString& text)
{
    QByteArray bytes = oneByte(2 * text.size());
    for (const QChar unit : text) {
        bytes.append(static_cast<char>(unit.row()));
        bytes.append(static_cast<char>(unit.cell()));
    }
    return bytes;
}

QByteArray countAndIds(const EventIds& ids)
{
    QByteArray bytes = oneByte(static_cast<int>(ids.size()));
    for (const quint8 id : ids)
        bytes.append(static_cast<char>(id));
    return bytes;
}

/** Two bytes with one bit for a line: a nibble for each group, group A highest. */
QByteArray lineMask(int line)
{
    const int group = line / 4;
    const int bit = 1 << line % 4;
    const int byte = group % 2 == 0 ? bit << 4 : bit;
    return group < 2 ? oneByte(byte) + oneByte(0) : oneByte(0) + oneByte(byte);
}

/** The head of every command and trigger: three constant bytes, class and subclass. */
QByteArray head(int recordClass, int subclass)
{
    return QByteArray::fromHex("4c0100") + oneByte(recordClass) + oneByte(subclass);
}

QByteArray padded(const QByteArray& record)
{
    return record.leftJustified(Address::recordLength, '\0');
}

QByteArray triggerBlock(const QByteArray& body, const EventIds& events, const QString& description)
{
    return padded(littleEndian(static_cast<quint16>(body.size())) + body + countAndIds(events)
        + lengthAndText(description));
}

QByteArray stamp(const QDate& date, const QTime& time)
{
    const QByteArray day = date.isValid()
        ? bcd(date.year() % 100) + bcd(date.month()) + bcd(date.day())
        : QByteArray(3, '\xFF');
    return day + bcd(time.hour()) + bcd(time.minute());
}

constexpr int plainData = 1;
constexpr int modbusData = 2;

int serialKind(bool isModbus)
{
    return isModbus ? modbusData : plainData;
}

} // namespace

QByteArray serialPortRecord(const SerialPort& port)
{
    return littleEndian(port.baudRate) + oneByte(port.dataBits) + oneByte(port.stopBits)
        + oneByte(static_cast<int>(port.parity));
}

QByteArray ioLineRecord(IoSetting setting)
{
    return oneByte(setting == IoSetting::First ? 1 : 0)
        + oneByte(setting == IoSetting::Second ? 1 : 0);
}

QByteArray EventRecord::block() const
{
    return padded(oneByte(id) + littleEndian(static_cast<quint16>(command.size())) + command
        + lengthAndText(description));
}

QByteArray delayCommand(quint16 milliseconds)
{
    return head(0xA5, 0xA5) + oneByte(milliseconds >> 8) + oneByte(milliseconds);
}

QByteArray serialCommand(int line, bool isModbus, const QByteArray& data)
{
    return head(0x25, 0x10) + QByteArray::fromHex("0152") + oneByte(serialKind(isModbus))
        + lineMask(line) + oneByte(data.size()) + data;
}

QByteArray SerialTriggerRecord::block() const
{
    const QByteArray body = head(0x25, 0x10) + QByteArray::fromHex("0352")
        + oneByte(serialKind(isModbus)) + lineMask(line) + oneByte(data.size()) + data;
    return triggerBlock(body, events, description);
}

QByteArray IoTriggerRecord::block() const
{
    const QByteArray body =
        head(0x24, 0x17) + QByteArray::fromHex("0252") + lineMask(line) + oneByte(isHigh ? 1 : 0);
    return triggerBlock(body, events, description);
}

QByteArray TimeTriggerRecord::block() const
{
    const QByteArray body = head(0xA5, 0x04) + oneByte(static_cast<int>(repeat))
        + stamp(start, time) + stamp(end, time) + oneByte(days);
    return triggerBlock(body, events, description);
}

} // namespace QuadrelUnit
