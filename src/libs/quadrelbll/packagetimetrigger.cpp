#include "packagetimetrigger.h"

#include "bcd.h"
#include "decimaltext.h"
#include "eventidlist.h"
#include "listoperations.h"
#include "recordblock.h"
#include "replyframe.h"
#include "textitems.h"
#include "textwriter.h"
#include "triggertail.h"
#include "triggertimemodel.h"

#include <QtCore/QRegExp>
#include <QtCore/QStringList>

namespace {

constexpr int modeOffset = 7;
constexpr int startDateOffset = 8;
constexpr int startTimeOffset = 11;
constexpr int endDateOffset = 13;
constexpr int endTimeOffset = 16;
constexpr int weekBitsOffset = 18;
constexpr int bodyLength = weekBitsOffset + 1 - TriggerTail::bodyOffset;

/** The tail of the list form is two bytes too early. */
constexpr int listTailOffset = 17;

constexpr int countOffset = 0;

constexpr quint8 onceByte = 0;
constexpr quint8 everydayByte = 1;
constexpr quint8 weeklyByte = 2;

constexpr quint8 noEndByte = 0xFF;

/** The first two digits of every year; the block has room for the last two only. */
constexpr quint8 century = 20;

// A byte of 0xFF is no error: it reads as 165.
constexpr int longestDate = sizeof("20165/165/165") - 1;
constexpr int longestTime = sizeof("165:165") - 1;

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

quint8 bcdOf(QStringView number)
{
    return Bcd::fromNumber(decimalNumber(number));
}

void storeDate(RecordBlock& block, int offset, const QString& date)
{
    TextItems items(date, QLatin1Char('/'));
    const quint8 year = Bcd::fromNumber(decimalNumber(items.next(), 2, 2));
    const quint8 month = bcdOf(items.next());
    const quint8 day = bcdOf(items.next());
    block.storeBytes(offset, {year, month, day});
}

void storeEndDate(RecordBlock& block, const QString& date)
{
    if (TextItems(date, QLatin1Char('/')).next() == noEndText())
        block.storeBytes(endDateOffset, {noEndByte, noEndByte, noEndByte});
    else
        storeDate(block, endDateOffset, date);
}

/** The one time of day of a trigger stands in both stamps. */
void storeTime(RecordBlock& block, const QString& time)
{
    TextItems items(time, QLatin1Char(':'));
    const quint8 hour = bcdOf(items.next());
    const quint8 minute = bcdOf(items.next());
    block.storeBytes(startTimeOffset, {hour, minute});
    block.storeBytes(endTimeOffset, {hour, minute});
}

/** Everything but the body's length and the tail. */
void storeSchedule(RecordBlock& block, TriggerTimeInfo& trigger)
{
    block.storeBytes(TriggerTail::bodyOffset, {0x4C, 0x01, 0x00, 0xA5, 0x04});
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
    TextWriter writer(longestDate);
    writer.addDecimal(century);
    writer.addDecimal(Bcd::toNumber(frame.payloadByte(offset)));
    writer.add(QLatin1Char('/'));
    writer.addTwoDigits(Bcd::toNumber(frame.payloadByte(offset + 1)));
    writer.add(QLatin1Char('/'));
    writer.addTwoDigits(Bcd::toNumber(frame.payloadByte(offset + 2)));
    return writer.text();
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
    TextWriter writer(longestTime);
    writer.addTwoDigits(Bcd::toNumber(frame.payloadByte(offset)));
    writer.add(QLatin1Char(':'));
    writer.addTwoDigits(Bcd::toNumber(frame.payloadByte(offset + 1)));
    return writer.text();
}

/** The bits up to the highest that is set, the lowest first; "0" if none is. */
QString weeklyText(quint8 bits)
{
    constexpr int maximumSize = 8;
    TextWriter writer(maximumSize);
    do {
        writer.add(bits & 1 ? QLatin1Char('1') : QLatin1Char('0'));
        bits >>= 1;
    } while (bits != 0);
    return writer.text();
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
    block.storeWord(TriggerTail::bodyLengthOffset, bodyLength);
    TriggerTail::store(block, TriggerTail::offsetBehind(bodyLength),
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
        TriggerTail::store(block, listTailOffset, listEventIds(trigger.getTriggerEvent()),
            trigger.getTriggerInstruction());
        package += block.bytes();
    }
    return package;
}

bool PackageTimeTrigger::parseTimeTriggerCount(
    uint dataType, QByteArray package, int dataLength, int& count, QString& error)
{
    const ReplyFrame frame(package);
    if (!acceptFrame(frame, dataType, dataLength, error))
        return false;
    count = frame.payloadByte(countOffset);
    return true;
}

bool PackageTimeTrigger::parseTimeTriggerPackage(
    uint dataType, QByteArray package, int dataLength, TriggerTimeModel& model, QString& error)
{
    const ReplyFrame frame(package);
    if (!acceptFrame(frame, dataType, dataLength, error))
        return false;

    // Before the class is looked at: an erased slot, all 0xFF, is a fault.
    const int length = frame.payloadWord(TriggerTail::bodyLengthOffset);
    if (length > TriggerTail::maximumBodyLength) {
        error = tr("触发数据超出最大范围，最多为316个字节！");
        return false;
    }
    if (frame.payloadByte(TriggerTail::recordClassOffset) != 0xA5
        || frame.payloadByte(TriggerTail::recordSubclassOffset) != 0x04)
        return true;

    const TriggerTail tail(frame, TriggerTail::offsetBehind(length));
    if (!acceptTail(tail, error))
        return false;

    readTrigger(frame, tail, ListOperations::appendBlank(model.m_triggers));
    return true;
}

void PackageTimeTrigger::readTrigger(
    const ReplyFrame& frame, const TriggerTail& tail, TriggerTimeInfo& trigger)
{
    const TriggerTimeInfo::RepetMode mode = modeOf(frame.payloadByte(modeOffset));
    const QString startDate = dateText(frame, startDateOffset);
    trigger.setTriggerType(mode);
    trigger.setStartDate(startDate);
    trigger.setEndDate(mode == TriggerTimeInfo::ONCE ? startDate : endDateText(frame));
    trigger.setTriggerTime(timeText(frame, startTimeOffset));
    trigger.setSelectWeekly(weeklyText(frame.payloadByte(weekBitsOffset)));
    trigger.setTriggerEvent(eventText(tail));
    trigger.setTriggerInstruction(tail.description());
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

QString PackageTimeTrigger::eventText(const TriggerTail& tail)
{
    // Each look-up costs more than the rest of a short text.
    if (tail.eventCount() == 0)
        return {};
    return tail.events({tr("(ID:"), tr(")"), tail.eventCount() > 1 ? tr(";") : QString()});
}

bool PackageTimeTrigger::acceptFrame(
    const ReplyFrame& frame, uint dataType, int dataLength, QString& error)
{
    switch (frame.check(dataType, dataLength)) {
    case ReplyFrame::Fault::None:
        return true;
    case ReplyFrame::Fault::TooShort:
        error = tr("数据包长度小于最小数据包长度！");
        return false;
    case ReplyFrame::Fault::OtherDataType:
        error = tr("请求数据类型与返回数据类型不一致！");
        return false;
    case ReplyFrame::Fault::OtherDataLength:
        error = tr("数据包长度与实际的数据包长度不一致！");
        return false;
    }
    Q_UNREACHABLE();
}

bool PackageTimeTrigger::acceptTail(const TriggerTail& tail, QString& error)
{
    switch (tail.check()) {
    case TriggerTail::Fault::None:
        return true;
    case TriggerTail::Fault::TooManyEvents:
        error = tr("触发事件个数已超出最大个数，最大为128个事件！");
        return false;
    case TriggerTail::Fault::DescriptionTooLong:
        error = tr("描述信息数长度有误！");
        return false;
    }
    Q_UNREACHABLE();
}
