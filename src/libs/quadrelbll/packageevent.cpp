// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "packageevent.h"

#include "descriptiontext.h"
#include "eventmodel.h"
#include "recordblock.h"
#include "recordclass.h"
#include "replyframe.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr ReplyFrame::FaultTexts frameFaults = {
    QT_TRANSLATE_NOOP("PackageEvent", "数据包长度小于最小数据包长度！"),
    QT_TRANSLATE_NOOP("PackageEvent", "请求数据类型与返回数据类型不一致！"),
    QT_TRANSLATE_NOOP("PackageEvent", "数据包长度与实际的数据包长度不一致！"),
};

constexpr int idOffset = 0;
constexpr int commandLengthOffset = 1;
constexpr int commandOffset = 3;
constexpr int maximumCommandLength = 319;

constexpr int countOffset = 0;
constexpr int firstBlockOffset = 1;

// Within a command.
constexpr int recordClassOffset = 3;
constexpr int delayOffset = 5;
constexpr int kindOffset = 7;

constexpr RecordClass delayClass = {0xA5, 0xA5};
constexpr RecordClass type3Classes[] = {{0x24, 0xA7}, {0x20, 0xA5}, {0x20, 0xA6}};
constexpr RecordClass type4Class = {0x24, 0x18};
constexpr RecordClass type6Class = {0xA5, 0x02};
constexpr quint8 serialKindOfType0 = 1;
constexpr quint8 serialKindOfType1 = 2;
constexpr int delayCommandLength = 7;

/** A delay counts in units of 10 ms. */
constexpr int delayUnit = 10;

QString delaySuffix()
{
    return QStringLiteral("*10ms");
}

quint16 delayMilliseconds(const QString& protocol)
{
    const QStringRef units = protocol.leftRef(protocol.size() - delaySuffix().size());
    return static_cast<quint16>(units.toUShort() * delayUnit);
}

/** The units of a delay with the fraction that they may have, and the suffix. */
QString delayText(quint16 milliseconds)
{
    QString text = QString::number(milliseconds / delayUnit);
    const int fraction = milliseconds % delayUnit;
    if (fraction != 0)
        text += QLatin1Char('.') + QString::number(fraction);
    return text + delaySuffix();
}

QByteArray delayCommand(quint16 milliseconds)
{
    const auto [first, second, third] = recordHead;
    const uchar command[delayCommandLength] = {first, second, third, delayClass.first,
        delayClass.second, static_cast<uchar>(milliseconds >> 8), static_cast<uchar>(milliseconds)};
    return QByteArray(reinterpret_cast<const char*>(command), delayCommandLength);
}

bool hasCommand(EventInfo::EventType type)
{
    return type >= EventInfo::EVENT_TYPE_0 && type <= EventInfo::EVENT_TYPE_6;
}

/** The protocol is taken for hexadecimal text whatever the event's protocol type says. */
QByteArray commandOf(EventInfo& event)
{
    const QString protocol = event.getEventProtocal();
    if (event.getEventType() == EventInfo::EVENT_DELAY)
        return delayCommand(delayMilliseconds(protocol));
    return QByteArray::fromHex(protocol.toLatin1());
}

QByteArray eventBlock(EventInfo& event)
{
    RecordBlock block;
    block.storeByte(idOffset, event.getEventId());

    // Without a command the description has nothing to follow, and overwrites the id.
    int descriptionOffset = 0;
    if (hasCommand(event.getEventType())) {
        const QByteArray command = commandOf(event);
        block.storeWord(commandLengthOffset, command.size());
        block.storeBytes(commandOffset, command);
        descriptionOffset = commandOffset + command.size();
    }
    DescriptionText::store(
        block, descriptionOffset, DescriptionText::untilNul(event.getEventInstruction()));
    return block.bytes();
}

/** The command of a block in a reply. */
struct Command {
    const ReplyFrame& frame;
    int start;
    int length;

    /** 0 after the command's end. */
    quint8 byteAt(int offset) const
    {
        return offset < length ? frame.payloadByte(start + offset) : 0;
    }
};

/** The kind of event that a command makes; the first condition that holds decides. */
EventInfo::EventType typeOf(const Command& command)
{
    if (command.length < delayCommandLength)
        return EventInfo::EVENT_TYPE_0;

    const RecordClass recordClass = {
        command.byteAt(recordClassOffset), command.byteAt(recordClassOffset + 1)};
    const quint8 kind = command.byteAt(kindOffset);

    if (command.length == delayCommandLength && recordClass == delayClass)
        return EventInfo::EVENT_DELAY;
    if (recordClass == type6Class)
        return EventInfo::EVENT_TYPE_6;
    if (recordClass == serialClass && kind == serialKindOfType0)
        return EventInfo::EVENT_TYPE_0;
    if (recordClass == serialClass && kind == serialKindOfType1)
        return EventInfo::EVENT_TYPE_1;
    if (recordClass == lineClass)
        return EventInfo::EVENT_TYPE_2;
    if (recordClass == type4Class)
        return EventInfo::EVENT_TYPE_4;
    if (std::find(std::begin(type3Classes), std::end(type3Classes), recordClass)
        != std::end(type3Classes))
        return EventInfo::EVENT_TYPE_3;
    return EventInfo::EVENT_TYPE_0;
}

QString protocolOf(EventInfo::EventType type, const Command& command)
{
    if (type != EventInfo::EVENT_DELAY)
        return command.frame.payloadHexText(command.start, command.length);
    const int milliseconds = command.byteAt(delayOffset) << 8 | command.byteAt(delayOffset + 1);
    return delayText(static_cast<quint16>(milliseconds));
}

/** Takes "instruction$$name" apart; what a second "$$" parts off is dropped. */
void setDescription(EventInfo& event, QString description)
{
    const QString separator = QStringLiteral("$$");
    const int instructionEnd = description.indexOf(separator);
    if (instructionEnd < 0) {
        event.setEventInstruction(std::move(description));
        return;
    }
    const int nameStart = instructionEnd + separator.size();
    const int nameEnd = description.indexOf(separator, nameStart);
    event.setEventInstruction(description.left(instructionEnd));
    event.setEventName(description.mid(nameStart, nameEnd < 0 ? -1 : nameEnd - nameStart));
}

/** The event of the block that starts at the payload's offset `block`. */
EventInfo eventAt(const ReplyFrame& frame, int block)
{
    const Command command = {
        frame, block + commandOffset, frame.payloadWord(block + commandLengthOffset)};
    const int descriptionOffset = command.start + command.length;
    const int descriptionLength = frame.payloadByte(descriptionOffset);
    const EventInfo::EventType type = typeOf(command);

    EventInfo event;
    event.setEventId(frame.payloadByte(block + idOffset));
    event.setEventProtocolType(true);
    event.setEventType(type);
    event.setEventProtocol(protocolOf(type, command));
    setDescription(event, DescriptionText::read(frame, descriptionOffset + 1, descriptionLength));
    return event;
}

} // namespace

PackageEvent::PackageEvent(QObject* parent)
    : QObject(parent)
{
}

QByteArray PackageEvent::createEventPackage(EventInfo event)
{
    return eventBlock(event);
}

QByteArray PackageEvent::createEventListPackage(EventModel model)
{
    return createEventListPackage(model.getEventInfo());
}

QByteArray PackageEvent::createEventListPackage(QList<EventInfo> events)
{
    QByteArray package(1, static_cast<char>(events.size()));
    for (int i = 0; i < events.size(); ++i)
        package.insert(firstBlockOffset + i * RecordBlock::slotSize, eventBlock(events[i]));
    return package;
}

bool PackageEvent::parseEventCount(
    uint dataType, QByteArray package, uint dataLength, int& count, QString& error)
{
    const ReplyFrame frame(package);
    if (!frame.accept(dataType, dataLength, staticMetaObject, frameFaults, error))
        return false;
    count = frame.payloadByte(countOffset);
    return true;
}

bool PackageEvent::parseEventPackage(
    uint dataType, QByteArray package, uint dataLength, EventModel& model, QString& error)
{
    const ReplyFrame frame(package);
    if (!frame.accept(dataType, dataLength, staticMetaObject, frameFaults, error))
        return false;
    if (frame.payloadWord(commandLengthOffset) > maximumCommandLength) {
        error = tr("有效数据长度超出范围！");
        return false;
    }
    model.push_back(eventAt(frame, 0));
    return true;
}

bool PackageEvent::parseEventListPackage(
    uint dataType, QByteArray package, uint dataLength, EventModel& model, QString& error)
{
    const ReplyFrame frame(package);
    if (!frame.accept(dataType, dataLength, staticMetaObject, frameFaults, error))
        return false;
    if (dataLength % RecordBlock::slotSize != firstBlockOffset) {
        error = tr("数据包不完整！");
        return false;
    }
    const int count = frame.payloadByte(countOffset);
    for (int i = 0; i < count; ++i)
        model.push_back(eventAt(frame, firstBlockOffset + i * RecordBlock::slotSize));
    return true;
}
