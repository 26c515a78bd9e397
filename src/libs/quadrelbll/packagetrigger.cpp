// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "packagetrigger.h"

#include "eventidlist.h"
#include "recordblock.h"
#include "replyframe.h"
#include "selectormask.h"
#include "triggerblock.h"
#include "triggermodel.h"

namespace {

constexpr TriggerBlock::FaultTexts blockFaults = {
    QT_TRANSLATE_NOOP("PackageTrigger", "触发事件个数已超出最大个数，最大为128个事件！"),
    QT_TRANSLATE_NOOP("PackageTrigger", "描述信息数长度有误！"),
};
constexpr TriggerBlock::EventWords eventWords = {
    QT_TRANSLATE_NOOP("PackageTrigger", "(ID:"),
    QT_TRANSLATE_NOOP("PackageTrigger", ")"),
    QT_TRANSLATE_NOOP("PackageTrigger", ";"),
};

constexpr ReplyFrame::FaultTexts frameFaults = {
    QT_TRANSLATE_NOOP("PackageTrigger", "数据包长度小于最小数据包长度！"),
    QT_TRANSLATE_NOOP("PackageTrigger", "请求数据类型与返回数据类型不一致！"),
    QT_TRANSLATE_NOOP("PackageTrigger", "数据包长度与实际的数据包长度不一致！"),
};

// The two bytes after the record class.
constexpr quint8 serialClassByte = 0x03;
constexpr quint8 inputClassByte = 0x02;
constexpr quint8 bodyMark = 0x52;

constexpr int serialKindOffset = 9;
constexpr int portMaskOffset = 10;
constexpr int parameterLengthOffset = 12;
constexpr int parameterOffset = 13;

constexpr int inputMaskOffset = 9;
constexpr int levelOffset = 11;

/** The body without the parameter of a serial trigger. */
constexpr int serialBodyLength = parameterOffset - TriggerBlock::bodyOffset;
constexpr int inputBodyLength = levelOffset + 1 - TriggerBlock::bodyOffset;

constexpr quint8 plainKind = 1;
constexpr quint8 modbusKind = 2;

constexpr quint8 lowLevel = 0;
constexpr quint8 highLevel = 1;

constexpr int countOffset = 0;

SelectorMask maskAt(const ReplyFrame& frame, int offset)
{
    return {frame.payloadByte(offset), frame.payloadByte(offset + 1)};
}

void storeMask(RecordBlock& block, int offset, int line)
{
    const SelectorMask mask = SelectorMask::ofLine(line);
    block.storeBytes(offset, {mask.first, mask.second});
}

QByteArray parameterBytes(TriggerInfo& trigger)
{
    const QByteArray parameter = trigger.getTriggerParameter().toLatin1();
    return trigger.getTriggerProtocolType() ? QByteArray::fromHex(parameter) : parameter;
}

/** Stores the body of a serial trigger after its length, which is the result. */
int storeSerialBody(RecordBlock& block, TriggerInfo& trigger)
{
    const bool modbus = trigger.getTriggerType() == TriggerInfo::COM_MODBUS;
    const QByteArray parameter = parameterBytes(trigger);
    TriggerBlock::storeHead(block, serialClass);
    block.storeBytes(TriggerBlock::kindOffset, {serialClassByte, bodyMark});
    block.storeByte(serialKindOffset, modbus ? modbusKind : plainKind);
    storeMask(block, portMaskOffset, trigger.getCOMSelect());
    block.storeByte(parameterLengthOffset, parameter.size());
    block.storeBytes(parameterOffset, parameter);
    return serialBodyLength + parameter.size();
}

/** Stores the body of an IO trigger after its length, which is the result. */
int storeInputBody(RecordBlock& block, TriggerInfo& trigger, const QString& highLevelText)
{
    const bool high = trigger.getTriggerParameter() == highLevelText;
    TriggerBlock::storeHead(block, lineClass);
    block.storeBytes(TriggerBlock::kindOffset, {inputClassByte, bodyMark});
    storeMask(block, inputMaskOffset, trigger.getIOSelect());
    block.storeByte(levelOffset, high ? highLevel : lowLevel);
    return inputBodyLength;
}

void readSerialBody(const ReplyFrame& frame, int bodyLength, TriggerInfo& trigger)
{
    // The parameter's own length byte is of no use: it wraps, and the body's length does not.
    const int parameterLength = bodyLength - serialBodyLength;
    const bool modbus = frame.payloadByte(serialKindOffset) == modbusKind;
    trigger.setTriggerType(modbus ? TriggerInfo::COM_MODBUS : TriggerInfo::COM);
    trigger.setCOMSelect(static_cast<COMSelect>(maskAt(frame, portMaskOffset).serialLine()));
    trigger.setTriggerParameter(frame.payloadHexText(parameterOffset, parameterLength));
}

} // namespace

PackageTrigger::PackageTrigger(QObject* parent)
    : QObject(parent)
{
}

QByteArray PackageTrigger::createTriggerPackage(TriggerInfo trigger)
{
    RecordBlock block;
    int bodyLength = 0;
    switch (trigger.getTriggerType()) {
    case TriggerInfo::COM:
    case TriggerInfo::COM_MODBUS:
        bodyLength = storeSerialBody(block, trigger);
        break;
    case TriggerInfo::IO:
        bodyLength = storeInputBody(block, trigger, highLevelText());
        break;
    }
    block.storeWord(TriggerBlock::bodyLengthOffset, bodyLength);
    TriggerBlock::store(block, TriggerBlock::offsetBehind(bodyLength),
        EventIdList::fromText(trigger.getTriggerEvent()), trigger.getTriggerInstruction());
    return block.bytes();
}

QByteArray PackageTrigger::createTriggerListPackage(TriggerModel model)
{
    const QList<TriggerInfo> triggers = model.getTriggerInfo();
    QByteArray package(1, static_cast<char>(triggers.size()));
    for (const TriggerInfo& trigger : triggers)
        package += createTriggerPackage(trigger);
    return package;
}

bool PackageTrigger::parseTriggerCount(
    uint dataType, QByteArray package, int dataLength, int& count, QString& error)
{
    const ReplyFrame frame(package);
    if (!frame.accept(dataType, dataLength, staticMetaObject, frameFaults, error))
        return false;
    count = frame.payloadByte(countOffset);
    return true;
}

bool PackageTrigger::parseTriggerPackage(
    uint dataType, QByteArray package, int dataLength, TriggerModel& model, QString& error)
{
    const ReplyFrame frame(package);
    if (!frame.accept(dataType, dataLength, staticMetaObject, frameFaults, error))
        return false;

    // Before the class is looked at: an erased slot, all 0xFF, is a fault.
    const int bodyLength = frame.payloadWord(TriggerBlock::bodyLengthOffset);
    if (bodyLength > TriggerBlock::maximumBodyLength) {
        error = tr("触发数据超出最大范围，最多为316个字节！");
        return false;
    }

    const RecordClass recordClass = TriggerBlock::recordClassOf(frame);
    const bool serial = recordClass == serialClass;
    const bool input = recordClass == lineClass;
    if (!serial && !input)
        return true;

    const TriggerBlock block(frame, TriggerBlock::offsetBehind(bodyLength));
    if (!block.accept(staticMetaObject, blockFaults, error))
        return false;

    TriggerInfo trigger;
    trigger.setTriggerProtocolType(true);
    if (serial)
        readSerialBody(frame, bodyLength, trigger);
    else
        readInputBody(frame, trigger);
    trigger.setTriggerEvent(block.events(staticMetaObject, eventWords));
    trigger.setTriggerInstruction(block.description());
    model.push_back(trigger);
    return true;
}

void PackageTrigger::readInputBody(const ReplyFrame& frame, TriggerInfo& trigger)
{
    trigger.setTriggerType(TriggerInfo::IO);
    trigger.setIOSelect(static_cast<IOSelect>(maskAt(frame, inputMaskOffset).inputLine()));
    switch (frame.payloadByte(levelOffset)) {
    case lowLevel:
        trigger.setTriggerParameter(lowLevelText());
        break;
    case highLevel:
        trigger.setTriggerParameter(highLevelText());
        break;
    default:
        break;
    }
}

QString PackageTrigger::lowLevelText()
{
    return tr("输入-低电平");
}

QString PackageTrigger::highLevelText()
{
    return tr("输入-高电平");
}
