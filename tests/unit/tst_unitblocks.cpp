// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitblocks.h"
#include "unitmemory.h"
#include "unitsample.h"

#include <QtTest/QtTest>

#include <set>

using namespace QuadrelUnit;

namespace {

QByteArray fromHex(const char* text)
{
    return QByteArray::fromHex(text);
}

QByteArray record(const char* hex)
{
    return fromHex(hex).leftJustified(512, '\0');
}

int byteAt(const QByteArray& bytes, int offset)
{
    return static_cast<quint8>(bytes.at(offset));
}

QByteArray commandOf(const QByteArray& event)
{
    return event.mid(3, byteAt(event, 1) | byteAt(event, 2) << 8);
}

/** The kind of an event, by the table that says which bytes make which. */
int eventKind(const QByteArray& command)
{
    const auto at = [&command](int offset) {
        return offset < command.size() ? byteAt(command, offset) : 0;
    };
    if (command.size() < 7)
        return 0;
    if (command.size() == 7 && at(3) == 0xA5 && at(4) == 0xA5)
        return 5;
    if (at(3) == 0xA5 && at(4) == 2)
        return 6;
    if (at(3) == 0x25 && at(4) == 0x10)
        return at(7) == 2 ? 1 : 0;
    if (at(3) == 0x24)
        return at(4) == 0x17 ? 2 : at(4) == 0xA7 ? 3 : 4;
    return 3;
}

QString textOf(const QByteArray& record, int offset)
{
    QString text;
    for (int i = 0; i < byteAt(record, offset); i += 2)
        text += QChar(static_cast<ushort>(
            byteAt(record, offset + 1 + i) << 8 | byteAt(record, offset + 2 + i)));
    return text;
}

bool isChinese(const QString& text)
{
    return text.contains(QRegularExpression(QStringLiteral("[\\x{4e00}-\\x{9fff}]")));
}

/** Where the count of events is in a trigger. */
int tailOffset(const QByteArray& trigger)
{
    return 2 + (byteAt(trigger, 0) | byteAt(trigger, 1) << 8);
}

} // namespace

class TestUnitBlocks : public QObject {
    Q_OBJECT

private slots:
    void encodesSerialPorts();
    void encodesIoLines();
    void encodesEvents();
    void encodesSerialCommands();
    void encodesSerialTriggers();
    void encodesIoTriggers();
    void encodesEachLine_data();
    void encodesEachLine();
    void encodesTimeTriggers();
    void samplesEveryKindOfEvent();
    void samplesEveryKindOfTrigger();
    void samplesPortsAndLines();
};

void TestUnitBlocks::encodesSerialPorts()
{
    QCOMPARE(serialPortRecord({}), fromHex("00c20100 08 01 00"));
    QCOMPARE(serialPortRecord({9600, 7, 2, Parity::First}), fromHex("80250000 07 02 01"));
    QCOMPARE(serialPortRecord({0xFFFFFFFF, 5, 1, Parity::Second}), fromHex("ffffffff 05 01 02"));
}

void TestUnitBlocks::encodesIoLines()
{
    QCOMPARE(ioLineRecord(IoSetting::First), fromHex("0100"));
    QCOMPARE(ioLineRecord(IoSetting::Second), fromHex("0001"));
    QCOMPARE(ioLineRecord(IoSetting::Third), fromHex("0000"));
}

void TestUnitBlocks::encodesEvents()
{
    QCOMPARE((EventRecord{3, delayCommand(250), QString()}.block()),
        record("03 0700 4c0100a5a500fa 00"));
    QCOMPARE((EventRecord{7, delayCommand(0x1170), QString()}.block()),
        record("07 0700 4c0100a5a51170 00"));
    QCOMPARE((EventRecord{200, fromHex("4c01002510"), QStringLiteral("ID:")}.block()),
        record("c8 0500 4c01002510 06 00490044003a"));
    QCOMPARE((EventRecord{1, fromHex("4c01"), QStringLiteral("开")}.block()),
        record("01 0200 4c01 02 5f00"));
}

void TestUnitBlocks::encodesSerialCommands()
{
    QCOMPARE(serialCommand(0, false, "AB"), fromHex("4c01002510 0152 01 1000 02 4142"));
    QCOMPARE(serialCommand(5, true, fromHex("01")), fromHex("4c01002510 0152 02 0200 01 01"));
}

void TestUnitBlocks::encodesSerialTriggers()
{
    QCOMPARE((SerialTriggerRecord{0, false, fromHex("aa01"), {3}, QString()}.block()),
        record("0d00 4c01002510 03 52 01 1000 02 aa01 01 03 00"));
    QCOMPARE(
        (SerialTriggerRecord{15, true, QByteArray(), {1, 2, 255}, QStringLiteral("AB")}.block()),
        record("0b00 4c01002510 03 52 02 0008 00 03 0102ff 04 00410042"));
}

void TestUnitBlocks::encodesIoTriggers()
{
    QCOMPARE((IoTriggerRecord{8, true, {}, QString()}.block()),
        record("0a00 4c01002417 02 52 0010 01 00 00"));
    QCOMPARE((IoTriggerRecord{4, false, {9}, QStringLiteral("A")}.block()),
        record("0a00 4c01002417 02 52 0100 00 01 09 02 0041"));
}

void TestUnitBlocks::encodesEachLine_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<QByteArray>("mask");
    const char* const masks[] = {"1000", "2000", "4000", "8000", "0100", "0200", "0400", "0800",
        "0010", "0020", "0040", "0080", "0001", "0002", "0004", "0008"};
    for (int line = 0; line < 16; ++line)
        QTest::addRow("%c-%d", 'A' + line / 4, line % 4 + 1) << line << fromHex(masks[line]);
}

void TestUnitBlocks::encodesEachLine()
{
    QFETCH(int, line);
    QFETCH(QByteArray, mask);
    QCOMPARE((SerialTriggerRecord{line, false, "x", {}, QString()}.block().mid(10, 2)), mask);
    QCOMPARE((IoTriggerRecord{line, false, {}, QString()}.block().mid(9, 2)), mask);
}

void TestUnitBlocks::encodesTimeTriggers()
{
    const QDate start(2024, 3, 7);
    QCOMPARE(
        (TimeTriggerRecord{Repeat::Weekly, start, QDate(), {8, 5}, 0b101, {3}, QString()}.block()),
        record("1100 4c0100a504 02 2403070805 ffffff0805 05 01 03 00"));
    QCOMPARE((TimeTriggerRecord{
                 Repeat::EveryDay, start, {2029, 12, 31}, {23, 59}, 0, {}, QStringLiteral("A")}
                     .block()),
        record("1100 4c0100a504 01 2403072359 2912312359 00 00 02 0041"));
    QCOMPARE(
        (TimeTriggerRecord{Repeat::Once, start, start, {0, 0}, 0xFF, {1, 2}, QString()}.block()),
        record("1100 4c0100a504 00 2403070000 2403070000 ff 02 0102 00"));
}

void TestUnitBlocks::samplesEveryKindOfEvent()
{
    UnitMemory memory;
    writeSample(memory);
    const int count = byteAt(memory.read(0xF0020000, 1), 0);
    QVERIFY(count >= 24);
    QVERIFY(count <= 128);
    std::set<int> kinds;
    std::set<int> ids;
    int chinese = 0;
    int named = 0;
    for (int i = 0; i < count; ++i) {
        const QByteArray event = memory.read(0xF0020001 + static_cast<quint32>(i * 512), 512);
        const QByteArray command = commandOf(event);
        QVERIFY(command.size() <= 319);
        QVERIFY(command.startsWith(fromHex("4c0100")));
        kinds.insert(eventKind(command));
        ids.insert(byteAt(event, 0));
        const QString text = textOf(event, 3 + command.size());
        chinese += isChinese(text) ? 1 : 0;
        named += text.contains(QStringLiteral("$$")) ? 1 : 0;
    }
    const std::set<int> allKinds = {0, 1, 2, 3, 4, 5, 6};
    QCOMPARE(kinds, allKinds);
    QCOMPARE(int(ids.size()), count);
    QVERIFY(chinese > 5);
    QVERIFY(chinese < count - 5);
    QVERIFY(named > 5);
    QVERIFY(named < count - 5);
}

void TestUnitBlocks::samplesEveryKindOfTrigger()
{
    UnitMemory memory;
    writeSample(memory);
    const int events = byteAt(memory.read(0xF0020000, 1), 0);
    const int count = byteAt(memory.read(0xF0010000, 1), 0);
    QVERIFY(count > 10);
    QVERIFY(count <= 64);
    std::set<QByteArray> kinds;
    bool isTimePart = false;
    for (int i = 0; i < count; ++i) {
        const QByteArray trigger = memory.read(0xF0010001 + static_cast<quint32>(i * 512), 512);
        const bool isTime = byteAt(trigger, 5) == 0xA5;
        // The class, and what distinguishes plain data from Modbus, high from low, or the repeat
        // modes.
        const int detail = isTime ? 7 : byteAt(trigger, 5) == 0x25 ? 9 : 11;
        kinds.insert(trigger.mid(5, 2).toHex() + trigger.mid(detail, 1).toHex());
        // Time triggers come after all others.
        QVERIFY(isTime || !isTimePart);
        isTimePart = isTime;

        const int tail = tailOffset(trigger);
        QVERIFY(tail <= 318);
        const int eventCount = byteAt(trigger, tail);
        // A project file cannot hold a trigger without events.
        QVERIFY(eventCount > 0);
        for (int j = 1; j <= eventCount; ++j) {
            QVERIFY(byteAt(trigger, tail + j) >= 1);
            QVERIFY(byteAt(trigger, tail + j) <= events);
        }
        QVERIFY(textOf(trigger, tail + 1 + eventCount).size() <= 32);
    }
    const std::set<QByteArray> allKinds = {
        "251001", "251002", "241700", "241701", "a50400", "a50401", "a50402"};
    QCOMPARE(kinds, allKinds);
    QCOMPARE(
        memory.read(0xF0010001 + static_cast<quint32>(count * 512), 512), QByteArray(512, '\0'));
}

void TestUnitBlocks::samplesPortsAndLines()
{
    UnitMemory memory;
    writeSample(memory);
    const QByteArray ports = memory.read(0xF0001000, 63);
    for (int i = 0; i < 9; ++i) {
        QVERIFY(byteAt(ports, i * 7 + 4) >= 7);
        QVERIFY(byteAt(ports, i * 7 + 6) <= 2);
    }
    QCOMPARE(memory.read(0xF000103F, 1), fromHex("00"));
    const QByteArray lines = memory.read(0xF0001100, 24);
    std::set<QByteArray> settings;
    for (int i = 0; i < 24; i += 2)
        settings.insert(lines.mid(i, 2));
    QCOMPARE(settings.size(), std::size_t(3));
}

QTEST_APPLESS_MAIN(TestUnitBlocks)
#include "tst_unitblocks.moc"
