// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "packagetimetrigger.h"

#include "bcd.h"
#include "eventidlist.h"
#include "recordblock.h"
#include "replyframe.h"
#include "triggerblock.h"
#include "triggertimemodel.h"

#include <QtCore/QRegExp>
#include <QtCore/QStringList>

namespace {

constexpr TriggerBlock::FaultTexts blockFaults = {
    QT_TRANSLATE_NOOP("PackageTimeTrigger", "触发事件个数已超出最大个数，最大为128个事件！"),
    QT_TRANSLATE_NOOP("PackageTimeTrigger", "描述信息数长度有误！"),
};
constexpr TriggerBlock::EventWords eventWords = {
    QT_TRANSLATE_NOOP("PackageTimeTrigger", "(ID:"),
    QT_TRANSLATE_NOOP("PackageTimeTrigger", ")"),
    QT_TRANSLATE_NOOP("PackageTimeTrigger", ";"),
};

constexpr ReplyFrame::FaultTexts frameFaults = {
    QT_TRANSLATE_NOOP("PackageTimeTrigger", "数据包长度小于最小数据包长度！"),
    QT_TRANSLATE_NOOP("PackageTimeTrigger", "请求数据类型与返回数据类型不一致！"),
    QT_TRANSLATE_NOOP("PackageTimeTrigger", "数据包长度与实际的数据包长度不一致！"),
};

constexpr RecordClass timeClass = {0xA5, 0x04};

constexpr int modeOffset = 7;
constexpr int startDateOffset = 8;
constexpr int startTimeOffset = 11;
constexpr int endDateOffset = 13;
constexpr int endTimeOffset = 16;
constexpr int weekBitsOffset = 18;
constexpr int bodyLength = weekBitsOffset + 1 - TriggerBlock::bodyOffset;

/** The tail of the list form is two bytes too early. */
constexpr int listTailOffset = 17;

constexpr int countOffset = 0;

constexpr quint8 onceByte = 0;
constexpr quint8 everydayByte = 1;
constexpr quint8 weeklyByte = 2;

constexpr quint8 noEndByte = 0xFF;

QString noEndText()
{
    return QStringLiteral("永久有效");
}

quint8 modeByte(TriggerTimeInfo::RepetMode mode)
{
    switch (mode) {
    case TriggerTimeInfo::ONCE:
        return onceByte;
    case TriggerTimeInfo::EVERYDAY:
        return everydayByte;
    case TriggerTimeInfo::WEEKLY:
        return weeklyByte;
    }
    return 0;
}

TriggerTimeInfo::RepetMode modeOf(quint8 byte)
{
    switch (byte) {
    case onceByte:
        return TriggerTimeInfo::ONCE;
    case weeklyByte:
        return TriggerTimeInfo::WEEKLY;
    default:
        return TriggerTimeInfo::EVERYDAY;
    }
}

quint8 bcdOf(const QStringRef& number)
{
    return Bcd::fromNumber(number.toInt());
}

/** The century has no place in the block. */
void storeDate(RecordBlock& block, int offset, const QString& date)
{
    const QVector<QStringRef> items = date.splitRef(QLatin1Char('/'));
    const quint8 year = bcdOf(items.value(0).mid(2, 2));
    block.storeBytes(offset, {year, bcdOf(items.value(1)), bcdOf(items.value(2))});
}

void storeEndDate(RecordBlock& block, const QString& date)
{
    if (date.splitRef(QLatin1Char('/')).first() == noEndText())
        block.storeBytes(endDateOffset, {noEndByte, noEndByte, noEndByte});
    else
        storeDate(block, endDateOffset, date);
}

/** The one time of day of a trigger is in both stamps. */
void storeTime(RecordBlock& block, const QString& time)
{
    const QVector<QStringRef> items = time.splitRef(QLatin1Char(':'));
    const quint8 hour = bcdOf(items.value(0));
    const quint8 minute = bcdOf(items.value(1));
    block.storeBytes(startTimeOffset, {hour, minute});
    block.storeBytes(endTimeOffset, {hour, minute});
}

/** Everything but the body's length and the tail. */
void storeSchedule(RecordBlock& block, TriggerTimeInfo& trigger)
{
    TriggerBlock::storeHead(block, timeClass);
    block.storeByte(modeOffset, modeByte(trigger.getTriggerType()));
    storeDate(block, startDateOffset, trigger.getStartDate());
    storeEndDate(block, trigger.getEndDate());
    storeTime(block, trigger.getTriggerTime());
    block.storeByte(
        weekBitsOffset, PackageTimeTrigger::weeklyTextToBits(trigger.getSelectWeekly()));
}

/** The date with the century that the block has no room for. */
QString dateText(const ReplyFrame& frame, int offset)
{
    const QLatin1Char slash('/');
    return Bcd::yearText(frame.payloadByte(offset)) + slash
        + Bcd::twoDigits(frame.payloadByte(offset + 1)) + slash
        + Bcd::twoDigits(frame.payloadByte(offset + 2));
}

QString endDateText(const ReplyFrame& frame)
{
    const bool noEnd = frame.payloadByte(endDateOffset) == noEndByte
        && frame.payloadByte(endDateOffset + 1) == noEndByte
        && frame.payloadByte(endDateOffset + 2) == noEndByte;
    return noEnd ? noEndText() : dateText(frame, endDateOffset);
}

QString timeText(const ReplyFrame& frame, int offset)
{
    return Bcd::twoDigits(frame.payloadByte(offset)) + QLatin1Char(':')
        + Bcd::twoDigits(frame.payloadByte(offset + 1));
}

/** The bits up to the highest that is set, the lowest first; "0" if none is. */
QString weeklyText(quint8 bits)
{
    QString text;
    do {
        text += QLatin1Char((bits & 1) != 0 ? '1' : '0');
        bits >>= 1;
    } while (bits != 0);
    return text;
}

/** The ids by the rule of the list form: what is left of an item without these characters. */
QByteArray listEventIds(const QString& text)
{
    const QRegExp wording(QStringLiteral("[事件(ID:)]"));
    QByteArray ids;
    const QStringList items = text.split(QLatin1Char(';'));
    for (QString item : items)
        ids.append(static_cast<char>(item.remove(wording).toInt()));
    return ids;
}

} // namespace

PackageTimeTrigger::PackageTimeTrigger(QObject* parent)
    : QObject(parent)
{
}

QByteArray PackageTimeTrigger::createTimeTriggerPackage(TriggerTimeInfo trigger)
{
    RecordBlock block;
    storeSchedule(block, trigger);
    block.storeWord(TriggerBlock::bodyLengthOffset, bodyLength);
    TriggerBlock::store(block, TriggerBlock::offsetBehind(bodyLength),
        EventIdList::fromText(trigger.getTriggerEvent()), trigger.getTriggerInstruction());
    return block.bytes();
}

QByteArray PackageTimeTrigger::createTimeTriggerListPackage(TriggerTimeModel model)
{
    QList<TriggerTimeInfo> triggers = model.getTriggerInfo();
    QByteArray package(1, static_cast<char>(triggers.size()));
    for (TriggerTimeInfo& trigger : triggers) {
        RecordBlock block;
        storeSchedule(block, trigger);
        TriggerBlock::store(block, listTailOffset, listEventIds(trigger.getTriggerEvent()),
            trigger.getTriggerInstruction());
        package += block.bytes();
    }
    return package;
}

bool PackageTimeTrigger::parseTimeTriggerCount(
    uint dataType, QByteArray package, int dataLength, int& count, QString& error)
{
    const ReplyFrame frame(package);
    if (!frame.accept(dataType, dataLength, staticMetaObject, frameFaults, error))
        return false;
    count = frame.payloadByte(countOffset);
    return true;
}

bool PackageTimeTrigger::parseTimeTriggerPackage(
    uint dataType, QByteArray package, int dataLength, TriggerTimeModel& model, QString& error)
{
    const ReplyFrame frame(package);
    if (!frame.accept(dataType, dataLength, staticMetaObject, frameFaults, error))
        return false;

    // Before the class is looked at: an erased slot, all 0xFF, is a fault.
    const int length = frame.payloadWord(TriggerBlock::bodyLengthOffset);
    if (length > TriggerBlock::maximumBodyLength) {
        error = tr("触发数据超出最大范围，最多为316个字节！");
        return false;
    }
    if (!(TriggerBlock::recordClassOf(frame) == timeClass))
        return true;

    const TriggerBlock block(frame, TriggerBlock::offsetBehind(length));
    if (!block.accept(staticMetaObject, blockFaults, error))
        return false;

    TriggerTimeInfo trigger;
    readTrigger(frame, block, trigger);
    model.push_back(trigger);
    return true;
}

void PackageTimeTrigger::readTrigger(
    const ReplyFrame& frame, const TriggerBlock& block, TriggerTimeInfo& trigger)
{
    const TriggerTimeInfo::RepetMode mode = modeOf(frame.payloadByte(modeOffset));
    const QString startDate = dateText(frame, startDateOffset);
    trigger.setTriggerType(mode);
    trigger.setStartDate(startDate);
    trigger.setEndDate(mode == TriggerTimeInfo::ONCE ? startDate : endDateText(frame));
    trigger.setTriggerTime(timeText(frame, startTimeOffset));
    trigger.setSelectWeekly(weeklyText(frame.payloadByte(weekBitsOffset)));
    trigger.setTriggerEvent(block.events(staticMetaObject, eventWords));
    trigger.setTriggerInstruction(block.description());
}

int PackageTimeTrigger::weeklyTextToBits(QString text)
{
    // Unsigned, so that a text without end wraps instead of overflowing.
    quint32 bits = 0;
    quint32 weight = 1;
    for (const QChar character : qAsConst(text)) {
        if (character >= QLatin1Char('0') && character <= QLatin1Char('9'))
            bits += weight * (character.unicode() - '0');
        weight *= 2;
    }
    return static_cast<int>(bits);
}
