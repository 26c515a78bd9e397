// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitcontents.h"

#include <QtCore/QDate>
#include <QtCore/QRegularExpression>

#include <tuple>

namespace QuadrelDocument {

namespace {

constexpr int delayCommandLength = 7;

int byteAt(const QByteArray& bytes, int offset)
{
    return offset < bytes.size() ? static_cast<quint8>(bytes.at(offset)) : 0;
}

QByteArray delayHead()
{
    return QByteArray::fromHex("4c0100a5a5");
}

/** What follows a backslash for a character that has a letter of its own; 0 for others. */
char escapeLetter(char character)
{
    switch (character) {
    case '\\':
        return '\\';
    case '\r':
        return 'r';
    case '\n':
        return 'n';
    case '\t':
        return 't';
    case '\0':
        return '0';
    default:
        return 0;
    }
}

/** The inverse of escapeLetter(). */
std::optional<char> escapedCharacter(QChar letter)
{
    for (const char character : {'\\', '\r', '\n', '\t', '\0'}) {
        if (letter == QLatin1Char(escapeLetter(character)))
            return character;
    }
    return std::nullopt;
}

/** The byte of the escape whose letter is at `position`, which moves to the last of it. */
std::optional<char> escapeAt(const QString& text, int& position)
{
    if (position >= text.size())
        return std::nullopt;
    if (text.at(position) != QLatin1Char('x'))
        return escapedCharacter(text.at(position));
    const std::optional<QByteArray> bytes = bytesOfHex(text.mid(position + 1, 2));
    if (!bytes || bytes->size() != 1)
        return std::nullopt;
    position += 2;
    return bytes->at(0);
}

} // namespace

QString modelText(int modelId)
{
    return QStringLiteral("0x%1").arg(modelId, 4, 16, QLatin1Char('0'));
}

bool operator==(const Device& left, const Device& right)
{
    const auto fields = [](const Device& device) {
        return std::tie(device.modelId, device.serialNumber, device.version, device.dhcp, device.ip,
            device.mask, device.gateway, device.ethernetLink, device.serialPortCount,
            device.ioLineCount, device.relayCount, device.infraredPortCount);
    };
    return fields(left) == fields(right);
}

bool operator==(const SerialPort& left, const SerialPort& right)
{
    const auto fields = [](const SerialPort& port) {
        return std::tie(port.baudRate, port.dataBits, port.stopBits, port.inspection);
    };
    return fields(left) == fields(right);
}

bool operator==(const IoLine& left, const IoLine& right)
{
    return left.type == right.type;
}

int Event::type() const
{
    if (delay || isDelayCommand(command))
        return 5;
    if (command.size() < delayCommandLength)
        return 0;
    const int recordClass = byteAt(command, 3);
    const int subclass = byteAt(command, 4);
    if (recordClass == 0xA5 && subclass == 0x02)
        return 6;
    if (recordClass == 0x25 && subclass == 0x10 && byteAt(command, 7) == 2)
        return 1;
    if (recordClass == 0x24 && subclass == 0x17)
        return 2;
    if (recordClass == 0x24 && subclass == 0xA7)
        return 3;
    if (recordClass == 0x24 && subclass == 0x18)
        return 4;
    if (recordClass == 0x20 && (subclass == 0xA5 || subclass == 0xA6))
        return 3;
    return 0;
}

bool operator==(const Event& left, const Event& right)
{
    const auto fields = [](const Event& event) {
        return std::tie(event.id, event.name, event.delay, event.command, event.description);
    };
    return fields(left) == fields(right);
}

Event normalEvent(Event event)
{
    const bool isDelay = isDelayCommand(event.command) && event.command.startsWith(delayHead());
    if (!isDelay)
        return event;
    event.delay = byteAt(event.command, 5) << 8 | byteAt(event.command, 6);
    event.command.clear();
    return event;
}

bool operator==(const Trigger& left, const Trigger& right)
{
    const auto fields = [](const Trigger& trigger) {
        return std::tie(trigger.id, trigger.kind, trigger.line, trigger.parameter, trigger.level,
            trigger.eventIds, trigger.description);
    };
    return fields(left) == fields(right);
}

bool operator==(const TimeTrigger& left, const TimeTrigger& right)
{
    const auto fields = [](const TimeTrigger& trigger) {
        return std::tie(trigger.id, trigger.repeat, trigger.startDate, trigger.endDate,
            trigger.weekdays, trigger.time, trigger.eventIds, trigger.description);
    };
    return fields(left) == fields(right);
}

bool operator==(const Contents& left, const Contents& right)
{
    const auto fields = [](const Contents& contents) {
        return std::tie(contents.device, contents.serialPorts, contents.ioLines, contents.events,
            contents.triggers, contents.timeTriggers, contents.clock);
    };
    return fields(left) == fields(right);
}

bool operator!=(const Contents& left, const Contents& right)
{
    return !(left == right);
}

QString lineKind(TriggerKind kind)
{
    return kind == TriggerKind::Io ? QStringLiteral("IO") : QStringLiteral("COM");
}

QString lineLabel(TriggerKind kind, int line)
{
    if (line < 0 || line >= triggerLineCount)
        return {};
    const QChar group = QLatin1Char("ABCD"[line / 4]);
    return QStringLiteral("%1 %2-%3").arg(lineKind(kind), group, QString::number(line % 4 + 1));
}

QString kindWord(TriggerKind kind)
{
    switch (kind) {
    case TriggerKind::Com:
        return QStringLiteral("COM");
    case TriggerKind::ComModbus:
        return QStringLiteral("COM_MODBUS");
    case TriggerKind::Io:
        return QStringLiteral("IO");
    }
    Q_UNREACHABLE();
}

QString repeatWord(Repeat repeat)
{
    switch (repeat) {
    case Repeat::EveryDay:
        return QStringLiteral("EVERYDAY");
    case Repeat::Weekly:
        return QStringLiteral("WEEKLY");
    case Repeat::Once:
        return QStringLiteral("ONCE");
    }
    Q_UNREACHABLE();
}

QString levelWord(Level level)
{
    return level == Level::High ? QStringLiteral("high") : QStringLiteral("low");
}

QByteArray delayCommand(int milliseconds)
{
    return delayHead() + static_cast<char>(milliseconds >> 8) + static_cast<char>(milliseconds);
}

bool isDelayCommand(const QByteArray& command)
{
    return command.size() == delayCommandLength && byteAt(command, 3) == 0xA5
        && byteAt(command, 4) == 0xA5;
}

QString hexText(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex(' '));
}

std::optional<QByteArray> bytesOfHex(const QString& text)
{
    static const QRegularExpression pairs(QStringLiteral("\\A\\s*+(?:[0-9a-fA-F]{2}\\s*+)*+\\z"),
        QRegularExpression::DontCaptureOption);
    if (!pairs.match(text).hasMatch())
        return std::nullopt;
    return QByteArray::fromHex(text.toLatin1());
}

QString escapedText(const QByteArray& bytes)
{
    QString text;
    for (const char byte : bytes) {
        const char letter = escapeLetter(byte);
        if (letter != 0)
            text += QStringLiteral("\\%1").arg(QLatin1Char(letter));
        else if (byte >= ' ' && byte <= '~')
            text += QLatin1Char(byte);
        else
            text += QStringLiteral("\\x") + QString::fromLatin1(QByteArray(1, byte).toHex());
    }
    return text;
}

std::optional<QByteArray> bytesOfEscapedText(const QString& text)
{
    QByteArray bytes;
    for (int i = 0; i < text.size(); ++i) {
        std::optional<char> byte;
        if (text.at(i) == QLatin1Char('\\'))
            byte = escapeAt(text, ++i);
        else if (text.at(i).unicode() <= 0xFF)
            byte = text.at(i).toLatin1();
        if (!byte)
            return std::nullopt;
        bytes.append(*byte);
    }
    return bytes;
}

std::optional<QString> normalDate(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("\\A20([0-9]{1,2})/([0-9]{1,2})/([0-9]{1,2})\\z"));
    const QRegularExpressionMatch match = form.match(text);
    const int year = match.captured(1).toInt();
    const int month = match.captured(2).toInt();
    const int day = match.captured(3).toInt();
    if (!match.hasMatch() || !QDate::isValid(2000 + year, month, day))
        return std::nullopt;
    return QStringLiteral("20%1/%2/%3")
        .arg(year)
        .arg(month, 2, 10, QLatin1Char('0'))
        .arg(day, 2, 10, QLatin1Char('0'));
}

std::optional<QString> normalTime(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("\\A([0-9]{1,2}):([0-9]{1,2})\\z"));
    const QRegularExpressionMatch match = form.match(text);
    const int hour = match.captured(1).toInt();
    const int minute = match.captured(2).toInt();
    if (!match.hasMatch() || hour > 23 || minute > 59)
        return std::nullopt;
    return QStringLiteral("%1:%2")
        .arg(hour, 2, 10, QLatin1Char('0'))
        .arg(minute, 2, 10, QLatin1Char('0'));
}

} // namespace QuadrelDocument
