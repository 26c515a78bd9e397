// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "eventmodel.h"
#include "modelmanagement.h"
#include "packageevent.h"
#include "packagetimetrigger.h"
#include "packagetrigger.h"
#include "randomreplies.h"
#include "triggermodel.h"
#include "triggertimemodel.h"

#include <QtCore/QRegExp>
#include <QtCore/QTextCodec>
#include <QtTest/QTest>

/**
 * The codecs' results in the plainest steps, one framework call after the other, without a thought
 * for speed. The codecs take shorter ways; whatever the texts and bytes, these are the results.
 */
namespace Plain {

const QTextCodec& utf8()
{
    return *QTextCodec::codecForName("utf-8");
}

void put(QByteArray& bytes, int offset, int value)
{
    while (bytes.size() <= offset)
        bytes.append('\0');
    bytes[offset] = static_cast<char>(value);
}

void put(QByteArray& bytes, int offset, std::initializer_list<int> values)
{
    for (const int value : values)
        put(bytes, offset++, value);
}

int byteOf(const QByteArray& frame, int offset)
{
    return offset < frame.size() ? static_cast<uchar>(frame.at(offset)) : 0;
}

QByteArray bytesOf(const QByteArray& frame, int offset, int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes.append(static_cast<char>(byteOf(frame, offset + i)));
    return bytes;
}

void putDescription(QByteArray& block, int offset, const QString& text)
{
    put(block, offset++, 2 * text.size());
    for (const QChar unit : text) {
        put(block, offset++, unit.unicode() >> 8);
        put(block, offset++, unit.unicode() & 0xFF);
    }
}

QString description(const QByteArray& bytes)
{
    const QString digits = QString::fromLatin1(bytes.toHex());
    QString text;
    for (int i = 0; i < digits.size(); i += 4)
        text.append(QChar(digits.mid(i, 4).toUShort(nullptr, 16)));
    return QString::fromUtf8(utf8().fromUnicode(text).constData());
}

/** The text between the first "ID:" and the first ")" after it, with no test of the searches. */
int idOf(const QString& item)
{
    const int start = item.indexOf(QStringLiteral("ID:"), 0, Qt::CaseSensitive);
    const int end = item.indexOf(QStringLiteral(")"), start, Qt::CaseSensitive);
    return item.mid(start + 3, end - start - 3).toInt();
}

QStringList itemsOf(const QString& text, const char* separator)
{
    return text.split(QString::fromLatin1(separator), Qt::KeepEmptyParts, Qt::CaseSensitive);
}

void putTail(QByteArray& block, int offset, const QList<int>& ids, const QString& instruction)
{
    put(block, offset++, ids.size());
    for (const int id : ids)
        put(block, offset++, id);
    putDescription(block, offset, utf8().toUnicode(instruction.toUtf8()));
}

QList<int> idsOf(const QString& events)
{
    QList<int> ids;
    for (const QString& item : itemsOf(events, ";"))
        ids.append(idOf(item));
    return ids;
}

QString eventsOf(const QByteArray& ids)
{
    QStringList items;
    for (const char id : ids)
        items.append(QStringLiteral("(ID:%1)").arg(static_cast<uchar>(id)));
    return items.join(QLatin1Char(';'));
}

QByteArray eventBlock(EventInfo event)
{
    QByteArray block(512, '\0');
    put(block, 0, event.getEventId());
    const QString protocol = event.getEventProtocal();
    const int type = event.getEventType();
    int position = 0;
    if (type == 5) {
        put(block, 1, {7, 0, 0x4C, 0x01, 0x00, 0xA5, 0xA5});
        const ushort units = protocol.left(protocol.size() - 5).toUShort(nullptr, 10);
        put(block, 8, {units * 10 >> 8, units * 10});
        position = 10;
    } else if (type >= 0 && type <= 6) {
        const QByteArray command = QByteArray::fromHex(protocol.toLatin1());
        put(block, 1, {command.size(), command.size() >> 8});
        block.replace(3, command.size(), command);
        position = 3 + command.size();
    }
    const QByteArray instruction = event.getEventInstruction().toUtf8();
    putDescription(block, position, utf8().toUnicode(instruction.constData()));
    return block;
}

QByteArray eventList(const QList<EventInfo>& events)
{
    QByteArray bytes;
    bytes.append(static_cast<char>(events.size()));
    for (int i = 0; i < events.size(); ++i)
        bytes.insert(1 + 512 * i, eventBlock(events.at(i)));
    return bytes;
}

int eventType(const QByteArray& command)
{
    const int n = command.size();
    const auto d = [&](int i) { return byteOf(command, i); };
    if (n < 7)
        return 0;
    if (n == 7 && d(3) == 0xA5 && d(4) == 0xA5)
        return 5;
    if (d(3) == 0xA5 && d(4) == 2)
        return 6;
    if (d(3) == 0x25 && d(4) == 0x10 && d(7) == 1)
        return 0;
    if (d(3) == 0x25 && d(4) == 0x10 && d(7) == 2)
        return 1;
    if (d(3) == 0x24 && d(4) == 0x17)
        return 2;
    if (d(3) == 0x24 && d(4) == 0xA7)
        return 3;
    if (d(3) == 0x24 && d(4) == 0x18)
        return 4;
    if (d(3) == 0x20 && (d(4) == 0xA5 || d(4) == 0xA6))
        return 3;
    return 0;
}

/** The event of the block at the given offset of the frame. */
EventInfo event(const QByteArray& frame, int block)
{
    const int length = byteOf(frame, block + 1) | byteOf(frame, block + 2) << 8;
    const QByteArray command = bytesOf(frame, block + 3, length);
    const int type = eventType(command);
    const double milliseconds = byteOf(command, 5) << 8 | byteOf(command, 6);
    const QByteArray text = bytesOf(frame, block + 4 + length, byteOf(frame, block + 3 + length));
    const QStringList parts = itemsOf(description(text), "$$");

    EventInfo event;
    event.setEventId(byteOf(frame, block));
    event.setEventType(static_cast<EventInfo::EventType>(type));
    event.setEventProtocol(type == 5
            ? QString::number(milliseconds / 10.0, 'g', 6) + QStringLiteral("*10ms")
            : QString::fromLatin1(command.toHex(' ')));
    event.setEventInstruction(parts.at(0));
    if (parts.size() >= 2)
        event.setEventName(parts.at(1));
    return event;
}

void putMask(QByteArray& block, int offset, int line)
{
    const int firsts[] = {0x10, 0x20, 0x40, 0x80, 1, 2, 4, 8, 0, 0, 0, 0, 0, 0, 0, 0};
    const int seconds[] = {0, 0, 0, 0, 0, 0, 0, 0, 0x10, 0x20, 0x40, 0x80, 1, 2, 4, 8};
    const bool known = line >= 0 && line < 16;
    put(block, offset, {known ? firsts[line] : 0, known ? seconds[line] : 0});
}

int lineOf(int first, int second, bool serial)
{
    if (serial && first == 0 && (second == 3 || second == 4))
        return second == 3 ? 14 : 15;
    for (int line = 0; line < (serial ? 14 : 16); ++line) {
        QByteArray mask;
        putMask(mask, 0, line);
        if (byteOf(mask, 0) == first && byteOf(mask, 1) == second)
            return line;
    }
    return 0;
}

QByteArray triggerBlock(TriggerInfo trigger)
{
    QByteArray block(512, '\0');
    const int kind = trigger.getTriggerType();
    int n = 0;
    if (kind == TriggerInfo::COM || kind == TriggerInfo::COM_MODBUS) {
        put(block, 2, {0x4C, 0x01, 0x00, 0x25, 0x10, 0x03, 0x52});
        put(block, 9, kind == TriggerInfo::COM ? 1 : 2);
        putMask(block, 10, trigger.getCOMSelect());
        QByteArray parameter = trigger.getTriggerParameter().toLatin1();
        if (trigger.getTriggerProtocolType())
            parameter = QByteArray::fromHex(parameter);
        put(block, 12, parameter.size());
        block.replace(13, parameter.size(), parameter);
        n = parameter.size() + 11;
    } else if (kind == TriggerInfo::IO) {
        put(block, 2, {0x4C, 0x01, 0x00, 0x24, 0x17, 0x02, 0x52});
        putMask(block, 9, trigger.getIOSelect());
        put(block, 11, trigger.getTriggerParameter() == QStringLiteral("输入-高电平") ? 1 : 0);
        n = 10;
    }
    put(block, 0, {n, n >> 8});
    putTail(block, n + 2, idsOf(trigger.getTriggerEvent()), trigger.getTriggerInstruction());
    return block;
}

TriggerInfo trigger(const QByteArray& frame)
{
    const auto f = [&](int offset) { return byteOf(frame, offset); };
    const int n = f(18) | f(19) << 8;
    const int count = f(n + 20);
    TriggerInfo trigger;
    if (f(23) == 0x25) {
        trigger.setTriggerType(f(27) == 2 ? TriggerInfo::COM_MODBUS : TriggerInfo::COM);
        trigger.setCOMSelect(static_cast<COMSelect>(lineOf(f(28), f(29), true)));
        trigger.setTriggerParameter(QString::fromLatin1(bytesOf(frame, 31, n - 11).toHex(' ')));
    } else {
        trigger.setTriggerType(TriggerInfo::IO);
        trigger.setIOSelect(static_cast<IOSelect>(lineOf(f(27), f(28), false)));
        if (f(29) == 0)
            trigger.setTriggerParameter(QStringLiteral("输入-低电平"));
        if (f(29) == 1)
            trigger.setTriggerParameter(QStringLiteral("输入-高电平"));
    }
    trigger.setTriggerEvent(eventsOf(bytesOf(frame, n + 21, count)));
    trigger.setTriggerInstruction(description(bytesOf(frame, n + 22 + count, f(n + 21 + count))));
    return trigger;
}

void putBcd(QByteArray& block, int offset, const QString& number)
{
    const qint64 value = number.toInt(nullptr, 10);
    put(block, offset, static_cast<int>((value + 6 * (value / 10)) & 0xFF));
}

void putDate(QByteArray& block, int offset, const QStringList& items)
{
    putBcd(block, offset, items.value(0).mid(2, 2));
    putBcd(block, offset + 1, items.value(1));
    putBcd(block, offset + 2, items.value(2));
}

int weekBits(const QString& days)
{
    uint bits = 0;
    uint weight = 1;
    for (const QChar day : days) {
        bits += QString(day).toUInt(nullptr, 10) * weight;
        weight *= 2;
    }
    return static_cast<int>(bits);
}

/** A time trigger's block up to its tail. */
QByteArray schedule(TriggerTimeInfo trigger)
{
    QByteArray block(512, '\0');
    put(block, 2, {0x4C, 0x01, 0x00, 0xA5, 0x04});
    if (trigger.getTriggerType() == TriggerTimeInfo::EVERYDAY)
        put(block, 7, 1);
    if (trigger.getTriggerType() == TriggerTimeInfo::WEEKLY)
        put(block, 7, 2);
    const QStringList start = itemsOf(trigger.getStartDate(), "/");
    const QStringList end = itemsOf(trigger.getEndDate(), "/");
    const QStringList time = itemsOf(trigger.getTriggerTime(), ":");
    putDate(block, 8, start);
    if (end.at(0) == QStringLiteral("永久有效"))
        put(block, 13, {0xFF, 0xFF, 0xFF});
    else
        putDate(block, 13, end);
    for (const int offset : {11, 16}) {
        putBcd(block, offset, time.value(0));
        putBcd(block, offset + 1, time.value(1));
    }
    put(block, 18, weekBits(trigger.getSelectWeekly()));
    return block;
}

QByteArray timeTriggerBlock(TriggerTimeInfo trigger)
{
    QByteArray block = schedule(trigger);
    put(block, 0, {17, 0});
    putTail(block, 19, idsOf(trigger.getTriggerEvent()), trigger.getTriggerInstruction());
    return block;
}

QByteArray timeTriggerList(TriggerTimeModel& model)
{
    QByteArray bytes(1, static_cast<char>(model.size()));
    for (TriggerTimeInfo trigger : model.getTriggerInfo()) {
        QList<int> ids;
        for (QString item : itemsOf(trigger.getTriggerEvent(), ";"))
            ids.append(item.replace(QRegExp(QStringLiteral("[事件(ID:)]")), QString()).toInt());
        QByteArray block = schedule(trigger);
        putTail(block, 17, ids, trigger.getTriggerInstruction());
        bytes += block;
    }
    return bytes;
}

QString number(int bcd, int width)
{
    const auto value = static_cast<uchar>(bcd - 6 * (bcd >> 4));
    return QStringLiteral("%1").arg(value, width, 10, QLatin1Char('0'));
}

QString date(const QByteArray& frame, int offset)
{
    return QStringLiteral("20") + number(byteOf(frame, offset), 1) + QLatin1Char('/')
        + number(byteOf(frame, offset + 1), 2) + QLatin1Char('/')
        + number(byteOf(frame, offset + 2), 2);
}

TriggerTimeInfo timeTrigger(const QByteArray& frame)
{
    const auto f = [&](int offset) { return byteOf(frame, offset); };
    const int n = f(18) | f(19) << 8;
    const int count = f(n + 20);
    TriggerTimeInfo trigger;
    if (f(25) == 0)
        trigger.setTriggerType(TriggerTimeInfo::ONCE);
    if (f(25) == 2)
        trigger.setTriggerType(TriggerTimeInfo::WEEKLY);
    trigger.setStartDate(date(frame, 26));
    trigger.setTriggerTime(number(f(29), 2) + QLatin1Char(':') + number(f(30), 2));
    trigger.setEndDate(date(frame, 31));
    if (f(31) == 0xFF && f(32) == 0xFF && f(33) == 0xFF)
        trigger.setEndDate(QStringLiteral("永久有效"));
    if (trigger.getTriggerType() == TriggerTimeInfo::ONCE)
        trigger.setEndDate(trigger.getStartDate());
    QString days;
    for (const QChar day : QString::number(f(36), 2))
        days.prepend(day);
    trigger.setSelectWeekly(days);
    trigger.setTriggerEvent(eventsOf(bytesOf(frame, n + 21, count)));
    trigger.setTriggerInstruction(description(bytesOf(frame, n + 22 + count, f(n + 21 + count))));
    return trigger;
}

/** Whether the limits of both trigger blocks let a frame pass; its parts are tested in order. */
bool withinTriggerLimits(const QByteArray& frame, QString& error)
{
    const int n = byteOf(frame, 18) | byteOf(frame, 19) << 8;
    const int count = byteOf(frame, n + 20);
    if (count > 128)
        error = QStringLiteral("触发事件个数已超出最大个数，最大为128个事件！");
    else if (byteOf(frame, n + 21 + count) > 64)
        error = QStringLiteral("描述信息数长度有误！");
    return error.isEmpty();
}

bool bodyTooLong(const QByteArray& frame, QString& error)
{
    if ((byteOf(frame, 18) | byteOf(frame, 19) << 8) <= 316)
        return false;
    error = QStringLiteral("触发数据超出最大范围，最多为316个字节！");
    return true;
}

} // namespace Plain

namespace {

constexpr uint dataType = 0xF0010001;
constexpr int slotSize = 512;
constexpr int runs = 4000;

/** Random texts of whatever could mislead a codec. */
class HostileTexts {
public:
    explicit HostileTexts(uint seed)
        : random(seed)
    {
        const char* words[] = {"(ID:", "ID:", "id:", ")", ";", "$$", "$", "/", ":", ".", "*10ms",
            "10ms", "永久有效", "事件", "输入-高电平", "0", "1", "7", "42", "0x1F", "065", "65535",
            "65536", "6553.5", "2147483647", "2147483648", "-2147483648", "4294967297", "999999999",
            "1000000000", "99999999999999999999", "00000000000000000012", "1e3", "+", "-", "+3",
            "-3", " ", "\t", "\n", "1 2", "1,000", "aB", "4c 01 00", "F", "g", "é", "打", "１", "٣",
            "\xC2\xA0", "\xE3\x80\x80", "2024/03/07", "08:05"};
        for (const char* word : words)
            m_words.append(QString::fromUtf8(word));
        for (const ushort unit : {0x0000, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xFEFF, 0xFFFE, 0xFFFF})
            m_words.append(QChar(unit));
        m_words.append(QString::fromUtf8("\xF0\x9F\x98\x80"));
    }

    QString text()
    {
        QString text;
        // Most are short, so that their parts meet in every order; some outgrow the slot.
        const int words = random.bounded(20) == 0 ? 400 : 6;
        for (int i = random.bounded(words); i > 0; --i)
            text += m_words.at(random.bounded(m_words.size()));
        return text;
    }

    /** A text in the form that it should have, as often as not. */
    QString likely(const char* form)
    {
        return random.bounded(2) ? text() : QString::fromUtf8(form);
    }

    QRandomGenerator random;

private:
    QStringList m_words;
};

EventInfo randomEvent(HostileTexts& texts)
{
    EventInfo event;
    event.setEventId(static_cast<int>(texts.random.generate()));
    event.setEventType(static_cast<EventInfo::EventType>(texts.random.bounded(-1, 8)));
    event.setEventProtocolType(texts.random.bounded(2) == 0);
    event.setEventProtocol(
        texts.random.bounded(2) ? texts.text() : texts.text() + QStringLiteral("*10ms"));
    event.setEventInstruction(texts.text());
    event.setEventName(texts.text());
    return event;
}

TriggerInfo randomTrigger(HostileTexts& texts)
{
    TriggerInfo trigger;
    trigger.setTriggerType(static_cast<TriggerInfo::TriggerType>(texts.random.bounded(-1, 4)));
    trigger.setCOMSelect(static_cast<COMSelect>(texts.random.bounded(-1, 18)));
    trigger.setIOSelect(static_cast<IOSelect>(texts.random.bounded(-1, 18)));
    trigger.setTriggerProtocolType(texts.random.bounded(2) == 0);
    trigger.setTriggerParameter(texts.likely("输入-高电平"));
    trigger.setTriggerEvent(texts.text());
    trigger.setTriggerInstruction(texts.text());
    return trigger;
}

TriggerTimeInfo randomTimeTrigger(HostileTexts& texts)
{
    TriggerTimeInfo trigger;
    trigger.setTriggerType(static_cast<TriggerTimeInfo::RepetMode>(texts.random.bounded(-1, 4)));
    trigger.setStartDate(texts.likely("2024/03/07"));
    trigger.setEndDate(texts.likely("永久有效"));
    trigger.setTriggerTime(texts.likely("08:05"));
    trigger.setSelectWeekly(texts.likely("1010101"));
    trigger.setTriggerEvent(texts.text());
    trigger.setTriggerInstruction(texts.text());
    return trigger;
}

/** A reply with a block as a unit could hold it, or damaged, and sometimes cut short. */
QByteArray randomReply(QRandomGenerator& random, const QByteArray& block)
{
    // Few different bytes, so that surrogates, marks, separators and NULs meet.
    const QByteArray choice = hex("00 00 00 41 24 24 d8 dc fe ff 01 02 10 17 25 a5");
    QByteArray payload = block.left(slotSize);
    for (int change = random.bounded(8); change > 0; --change)
        payload[random.bounded(60)] = choice.at(random.bounded(choice.size()));
    if (random.bounded(4) == 0) {
        for (int i = random.bounded(8, 60); i < 200; ++i)
            payload[i] = choice.at(random.bounded(choice.size()));
    }
    QByteArray frame = replyFrame(dataType, payload, slotSize);
    // What the unit appends is read where a length leads there.
    frame.replace(frame.size() - 2, 2, hex("4143"));
    return random.bounded(3) == 0 ? frame.left(random.bounded(20, 120)) : frame;
}

} // namespace

class TestCodecSteps : public QObject {
    Q_OBJECT

private slots:
    void writesEvents();
    void writesEventLists();
    void readsEvents();
    void readsEventLists();
    void readsEveryDelay();
    void readsEveryKind();
    void writesTriggers();
    void readsTriggers();
    void writesTimeTriggers();
    void readsTimeTriggers();
    void sumsEveryCharacter();
    void findsNames();
    void readsLeaveCopiesAlone();
};

void TestCodecSteps::writesEvents()
{
    HostileTexts texts(1);
    for (int run = 0; run < runs; ++run) {
        const EventInfo event = randomEvent(texts);
        QCOMPARE(PackageEvent::createEventPackage(event), Plain::eventBlock(event));
    }
}

void TestCodecSteps::writesEventLists()
{
    HostileTexts texts(2);
    for (int run = 0; run < runs / 10; ++run) {
        EventModel model;
        for (int i = texts.random.bounded(8); i > 0; --i)
            model.push_back(randomEvent(texts));
        const QByteArray expected = Plain::eventList(model.getEventInfo());
        QCOMPARE(PackageEvent::createEventListPackage(model), expected);
        QCOMPARE(PackageEvent::createEventListPackage(model.getEventInfo()), expected);
    }
}

void TestCodecSteps::readsEvents()
{
    HostileTexts texts(3);
    for (int run = 0; run < runs; ++run) {
        const QByteArray frame =
            randomReply(texts.random, PackageEvent::createEventPackage(randomEvent(texts)));
        const bool tooLong = (Plain::byteOf(frame, 19) | Plain::byteOf(frame, 20) << 8) > 319;
        EventModel model;
        QString error;
        QCOMPARE(
            PackageEvent::parseEventPackage(dataType, frame, slotSize, model, error), !tooLong);
        QCOMPARE(error, tooLong ? QStringLiteral("有效数据长度超出范围！") : QString());
        QCOMPARE(model.size(), tooLong ? 0 : 1);
        if (!tooLong)
            QVERIFY(model.at(0) == Plain::event(frame, 18));
    }
}

void TestCodecSteps::readsEventLists()
{
    HostileTexts texts(4);
    for (int run = 0; run < runs / 10; ++run) {
        QByteArray payload(1, static_cast<char>(texts.random.bounded(5)));
        for (int i = 0; i < 3; ++i)
            payload += PackageEvent::createEventPackage(randomEvent(texts)).left(slotSize);
        const QByteArray frame = replyFrame(dataType, payload);
        EventModel model;
        QString error;
        QVERIFY(PackageEvent::parseEventListPackage(
            dataType, frame, static_cast<uint>(payload.size()), model, error));
        QCOMPARE(model.size(), int(payload.at(0)));
        for (int i = 0; i < model.size(); ++i)
            QVERIFY(model.at(i) == Plain::event(frame, 19 + 512 * i));
    }
}

void TestCodecSteps::readsEveryDelay()
{
    for (int milliseconds = 0; milliseconds <= 0xFFFF; ++milliseconds) {
        QByteArray block = hex("03 0700 4c0100a5a5 0000 00");
        Plain::put(block, 8, {milliseconds >> 8, milliseconds});
        const QByteArray frame = replyFrame(dataType, slotOf(block));
        EventModel model;
        QString error;
        QVERIFY(PackageEvent::parseEventPackage(dataType, frame, slotSize, model, error));
        QVERIFY(model.at(0) == Plain::event(frame, 18));
    }
}

void TestCodecSteps::readsEveryKind()
{
    // The bytes that decide, with every length around the limit and a description after.
    for (int length = 5; length <= 9; ++length) {
        for (const int recordClass : {0x20, 0x24, 0x25, 0xA5, 0x21}) {
            for (int subclass = 0; subclass < 256; ++subclass) {
                for (const int kind : {0, 1, 2, 3}) {
                    QByteArray block(3, '\0');
                    block[1] = static_cast<char>(length);
                    Plain::put(
                        block, 3, {0x4C, 1, 0, recordClass, subclass, 0, 0xFA, kind, kind, 0x41});
                    const QByteArray frame = replyFrame(dataType, slotOf(block));
                    EventModel model;
                    QString error;
                    QVERIFY(
                        PackageEvent::parseEventPackage(dataType, frame, slotSize, model, error));
                    QVERIFY(model.at(0) == Plain::event(frame, 18));
                }
            }
        }
    }
}

void TestCodecSteps::writesTriggers()
{
    HostileTexts texts(5);
    TriggerModel model;
    QByteArray list(1, '\0');
    for (int run = 0; run < runs; ++run) {
        const TriggerInfo trigger = randomTrigger(texts);
        const QByteArray block = Plain::triggerBlock(trigger);
        QCOMPARE(PackageTrigger::createTriggerPackage(trigger), block);
        if (run < 100) {
            model.push_back(trigger);
            list += block;
            list[0] = static_cast<char>(model.size());
        }
    }
    QCOMPARE(PackageTrigger::createTriggerListPackage(model), list);
}

void TestCodecSteps::readsTriggers()
{
    HostileTexts texts(6);
    for (int run = 0; run < runs; ++run) {
        const QByteArray frame =
            randomReply(texts.random, PackageTrigger::createTriggerPackage(randomTrigger(texts)));
        const int kind = Plain::byteOf(frame, 23) << 8 | Plain::byteOf(frame, 24);
        QString fault;
        const bool foreign = !Plain::bodyTooLong(frame, fault) && kind != 0x2510 && kind != 0x2417;
        if (fault.isEmpty() && !foreign)
            Plain::withinTriggerLimits(frame, fault);

        TriggerModel model;
        QString error;
        QCOMPARE(PackageTrigger::parseTriggerPackage(dataType, frame, slotSize, model, error),
            fault.isEmpty());
        QCOMPARE(error, fault);
        QCOMPARE(model.size(), fault.isEmpty() && !foreign ? 1 : 0);
        if (model.size() == 1)
            QVERIFY(model.at(0) == Plain::trigger(frame));
    }
}

void TestCodecSteps::writesTimeTriggers()
{
    HostileTexts texts(7);
    TriggerTimeModel model;
    for (int run = 0; run < runs; ++run) {
        const TriggerTimeInfo trigger = randomTimeTrigger(texts);
        QCOMPARE(PackageTimeTrigger::createTimeTriggerPackage(trigger),
            Plain::timeTriggerBlock(trigger));
        if (run < 300)
            model.push_back(trigger);
    }
    QCOMPARE(
        PackageTimeTrigger::createTimeTriggerListPackage(model), Plain::timeTriggerList(model));
}

void TestCodecSteps::readsTimeTriggers()
{
    HostileTexts texts(8);
    for (int run = 0; run < runs; ++run) {
        const QByteArray frame = randomReply(
            texts.random, PackageTimeTrigger::createTimeTriggerPackage(randomTimeTrigger(texts)));
        QString fault;
        const bool foreign = !Plain::bodyTooLong(frame, fault)
            && (Plain::byteOf(frame, 23) != 0xA5 || Plain::byteOf(frame, 24) != 0x04);
        if (fault.isEmpty() && !foreign)
            Plain::withinTriggerLimits(frame, fault);

        TriggerTimeModel model;
        QString error;
        QCOMPARE(
            PackageTimeTrigger::parseTimeTriggerPackage(dataType, frame, slotSize, model, error),
            fault.isEmpty());
        QCOMPARE(error, fault);
        QCOMPARE(model.size(), fault.isEmpty() && !foreign ? 1 : 0);
        if (model.size() == 1)
            QVERIFY(model.at(0) == Plain::timeTrigger(frame));
    }
}

void TestCodecSteps::sumsEveryCharacter()
{
    for (int unit = 0; unit <= 0xFFFF; ++unit) {
        const QString days = QLatin1Char('1') + QString(QChar(unit)) + QLatin1Char('1');
        QCOMPARE(PackageTimeTrigger::weeklyTextToBits(days), Plain::weekBits(days));
    }
}

void TestCodecSteps::findsNames()
{
    HostileTexts texts(9);
    ModelManagement models;
    for (const int id : {0, 3, 7, 12, 42, -3}) {
        EventInfo event;
        event.setEventId(id);
        event.setEventName(QString::number(id));
        models.getEventModel()->push_back(event);
    }
    for (int run = 0; run < runs; ++run) {
        const QString text = texts.text();
        QString name;
        for (EventInfo event : models.getEventModel()->getEventInfo()) {
            if (event.getEventId() == Plain::idOf(text))
                name = event.getEventName();
        }
        QCOMPARE(models.getEventNamefromId(text), name);
    }
}

void TestCodecSteps::readsLeaveCopiesAlone()
{
    EventInfo event;
    event.setEventId(3);
    const QByteArray eventFrame = replyFrame(dataType, PackageEvent::createEventPackage(event));
    const QByteArray triggerFrame =
        replyFrame(dataType, PackageTrigger::createTriggerPackage(TriggerInfo()));
    const QByteArray timeFrame =
        replyFrame(dataType, PackageTimeTrigger::createTimeTriggerPackage(TriggerTimeInfo()));

    EventModel events;
    TriggerModel triggers;
    TriggerTimeModel timeTriggers;
    QString error;
    for (int size = 1; size <= 3; ++size) {
        EventModel eventsBefore(events);
        TriggerModel triggersBefore(triggers);
        TriggerTimeModel timeTriggersBefore(timeTriggers);
        QVERIFY(PackageEvent::parseEventPackage(dataType, eventFrame, slotSize, events, error));
        QVERIFY(
            PackageTrigger::parseTriggerPackage(dataType, triggerFrame, slotSize, triggers, error));
        QVERIFY(PackageTimeTrigger::parseTimeTriggerPackage(
            dataType, timeFrame, slotSize, timeTriggers, error));
        QCOMPARE(events.size(), size);
        QCOMPARE(triggers.size(), size);
        QCOMPARE(timeTriggers.size(), size);
        QCOMPARE(eventsBefore.size(), size - 1);
        QCOMPARE(triggersBefore.size(), size - 1);
        QCOMPARE(timeTriggersBefore.size(), size - 1);
    }
}

QTEST_APPLESS_MAIN(TestCodecSteps)
#include "tst_codecsteps.moc"
