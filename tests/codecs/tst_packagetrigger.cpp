// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "packagetrigger.h"

#include "countchecks.h"
#include "framefaults.h"
#include "triggerchecks.h"
#include "triggermodel.h"

#include <QtTest/QTest>

Q_DECLARE_METATYPE(TriggerInfo)

namespace {

using TriggerChecks::countDataType;
using TriggerChecks::slotSize;
using TriggerChecks::triggerDataType;

const QString lowLevel = QStringLiteral("输入-低电平");
const QString highLevel = QStringLiteral("输入-高电平");

TriggerInfo trigger(TriggerInfo::TriggerType type, const QString& parameter, const QString& events,
    const QString& instruction = {})
{
    TriggerInfo info;
    info.setTriggerType(type);
    info.setTriggerParameter(parameter);
    info.setTriggerEvent(events);
    info.setTriggerInstruction(instruction);
    return info;
}

QString hexText(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex(' '));
}

/** A serial block whose body has the given length, and a tail of the given counts. */
QByteArray serialBlock(int bodyLength, int eventCount = 0, int descriptionLength = 0)
{
    return TriggerChecks::blockOf(
        hex("4c01002510035201100000"), bodyLength, eventCount, descriptionLength);
}

bool parse(const QByteArray& frame, TriggerModel& model, QString& error)
{
    return PackageTrigger::parseTriggerPackage(triggerDataType, frame, slotSize, model, error);
}

const auto parsed = TriggerChecks::readerOf<TriggerModel>(parse);
const auto faultOf = TriggerChecks::faultFinderOf<TriggerModel>(parse);

} // namespace

class TestPackageTrigger : public QObject {
    Q_OBJECT

private slots:
    void testsTheFrame();
    void readsTheCount_data();
    void readsTheCount();
    void writesBlocks_data();
    void writesBlocks();
    void writesLines_data();
    void writesLines();
    void writesDescriptions_data();
    void writesDescriptions();
    void otherKindsHaveNoBody();
    void longTextsGrowTheBlock();
    void writesLists();
    void readsSerialBlocks();
    void readsSerialKinds_data();
    void readsSerialKinds();
    void readsPorts_data();
    void readsPorts();
    void readsInputs();
    void readsLevels_data();
    void readsLevels();
    void readsParameters_data();
    void readsParameters();
    void passesOverOtherRecords_data();
    void passesOverOtherRecords();
    void limitsComeFromTheSlot();
    void bodyLimitComesBeforeTheClass_data();
    void bodyLimitComesBeforeTheClass();
    void limitsTheTail_data();
    void limitsTheTail();
    void appendsToTheModel();
    void shortFramesReadAsZeros();
    void asymmetries_data();
    void asymmetries();
    void everyPortSurvivesButTheLast();
    void triggersSurvive();
    void randomRepliesDoNoHarm();
    void takesAParent();
};

void TestPackageTrigger::testsTheFrame()
{
    TriggerModel model;
    int count = 7;
    checkFrameFaults(
        [&](uint dataType, const QByteArray& frame, int dataLength, QString& error) {
            return PackageTrigger::parseTriggerPackage(dataType, frame, dataLength, model, error);
        },
        triggerDataType, slotSize);
    checkFrameFaults(
        [&](uint dataType, const QByteArray& frame, int dataLength, QString& error) {
            return PackageTrigger::parseTriggerCount(dataType, frame, dataLength, count, error);
        },
        countDataType, 1);
    QCOMPARE(model.size(), 0);
    QCOMPARE(count, 7);

    // No unsigned length is negative.
    QString error;
    QVERIFY(!PackageTrigger::parseTriggerCount(
        countDataType, replyFrame(countDataType, {}, 0xFFFF), -1, count, error));
    QCOMPARE(error, QStringLiteral("数据包长度与实际的数据包长度不一致！"));
}

void TestPackageTrigger::readsTheCount_data()
{
    CountChecks::addRows();
}

void TestPackageTrigger::readsTheCount()
{
    CountChecks::checkRow(countDataType, &PackageTrigger::parseTriggerCount);
}

void TestPackageTrigger::writesBlocks_data()
{
    QTest::addColumn<TriggerInfo>("info");
    QTest::addColumn<QByteArray>("block");
    const auto row = [](const char* name, const TriggerInfo& info, const char* block) {
        QTest::newRow(name) << info << slotOf(hex(block));
    };
    const QString one = QStringLiteral("(ID:3)");
    row("serial", trigger(TriggerInfo::COM, QStringLiteral("aa 01"), one),
        "0d00 4c0100 2510 0352 01 1000 02 aa01 01 03 00");
    row("Modbus", trigger(TriggerInfo::COM_MODBUS, QStringLiteral("AA01"), one),
        "0d00 4c0100 2510 0352 02 1000 02 aa01 01 03 00");
    row("no parameter", trigger(TriggerInfo::COM, {}, one),
        "0b00 4c0100 2510 0352 01 1000 00 01 03 00");
    row("no hex digits", trigger(TriggerInfo::COM, QStringLiteral("a-a 0 1"), one),
        "0d00 4c0100 2510 0352 01 1000 02 aa01 01 03 00");
    TriggerInfo plain = trigger(TriggerInfo::COM, QStringLiteral("aé 打"), one);
    plain.setTriggerProtocolType(false);
    row("plain text", plain, "0f00 4c0100 2510 0352 01 1000 04 61e9203f 01 03 00");
    row("description", trigger(TriggerInfo::COM, {}, one, QStringLiteral("AB")),
        "0b00 4c0100 2510 0352 01 1000 00 01 03 04 0041 0042");
    row("three events",
        trigger(TriggerInfo::COM, {}, QStringLiteral("事件(ID:3);[x(ID:7)];ID:268")),
        "0b00 4c0100 2510 0352 01 1000 00 03 03070c 00");
    row("event text without ids", trigger(TriggerInfo::COM, {}, QStringLiteral("ab34;x;;12)")),
        "0b00 4c0100 2510 0352 01 1000 00 04 22000000 00");
    TriggerInfo input = trigger(TriggerInfo::IO, highLevel, {});
    input.setIOSelect(IO_C_1);
    row("high level, no events", input, "0a00 4c0100 2417 0252 0010 01 01 00 00");
    row("low level", trigger(TriggerInfo::IO, lowLevel, one),
        "0a00 4c0100 2417 0252 1000 00 01 03 00");
    row("other level", trigger(TriggerInfo::IO, QStringLiteral("high"), one),
        "0a00 4c0100 2417 0252 1000 00 01 03 00");
    row("no level", trigger(TriggerInfo::IO, {}, one), "0a00 4c0100 2417 0252 1000 00 01 03 00");
}

void TestPackageTrigger::writesBlocks()
{
    QFETCH(TriggerInfo, info);
    QFETCH(QByteArray, block);
    QCOMPARE(PackageTrigger::createTriggerPackage(info), block);
    // The number of the trigger has no place in the block.
    info.setTriggerId(5);
    QCOMPARE(PackageTrigger::createTriggerPackage(info), block);
}

void TestPackageTrigger::writesLines_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<QByteArray>("mask");
    const char* masks[] = {"1000", "2000", "4000", "8000", "0100", "0200", "0400", "0800", "0010",
        "0020", "0040", "0080", "0001", "0002", "0004", "0008"};
    for (int line = 0; line < 16; ++line)
        QTest::newRow(masks[line]) << line << hex(masks[line]);
    QTest::newRow("16") << 16 << hex("0000");
    QTest::newRow("-1") << -1 << hex("0000");
}

void TestPackageTrigger::writesLines()
{
    QFETCH(int, line);
    QFETCH(QByteArray, mask);
    // The line of the other kind is not looked at.
    TriggerInfo serial;
    serial.setCOMSelect(static_cast<COMSelect>(line));
    serial.setIOSelect(IO_B_2);
    QCOMPARE(PackageTrigger::createTriggerPackage(serial).mid(10, 2), mask);

    TriggerInfo input = trigger(TriggerInfo::IO, lowLevel, {});
    input.setCOMSelect(COM_B_2);
    input.setIOSelect(static_cast<IOSelect>(line));
    QCOMPARE(PackageTrigger::createTriggerPackage(input).mid(9, 2), mask);
}

void TestPackageTrigger::writesDescriptions_data()
{
    TriggerChecks::addDescriptionRows();
}

void TestPackageTrigger::writesDescriptions()
{
    QFETCH(QString, instruction);
    QFETCH(QByteArray, description);
    QCOMPARE(PackageTrigger::createTriggerPackage(
                 trigger(TriggerInfo::IO, lowLevel, QStringLiteral("(ID:3)"), instruction)),
        slotOf(hex("0a00 4c0100 2417 0252 1000 00 01 03") + description));
}

void TestPackageTrigger::otherKindsHaveNoBody()
{
    for (const int kind : {-1, 3, 9}) {
        const TriggerInfo info = trigger(static_cast<TriggerInfo::TriggerType>(kind),
            QStringLiteral("aa"), QStringLiteral("(ID:3)"), QStringLiteral("A"));
        QCOMPARE(PackageTrigger::createTriggerPackage(info), slotOf(hex("0000 01 03 02 0041")));
    }
}

void TestPackageTrigger::longTextsGrowTheBlock()
{
    // The parameter's length wraps, that of the body does not.
    const QByteArray parameter(600, '\xAA');
    const QByteArray block = PackageTrigger::createTriggerPackage(trigger(
        TriggerInfo::COM, hexText(parameter), QStringLiteral("(ID:3)"), QStringLiteral("A")));
    QCOMPARE(block, hex("6302 4c0100 2510 0352 01 1000 58") + parameter + hex("01 03 02 0041"));

    QString events = QStringLiteral("(ID:9)");
    for (int i = 1; i < 300; ++i)
        events += QStringLiteral(";(ID:9)");
    const QString text(200, QLatin1Char('A'));
    const QByteArray many =
        PackageTrigger::createTriggerPackage(trigger(TriggerInfo::IO, lowLevel, events, text));
    QCOMPARE(many.left(13), hex("0a00 4c0100 2417 0252 1000 00 2c"));
    QCOMPARE(many.mid(13, 300), QByteArray(300, '\x09'));
    QCOMPARE(many.mid(313, 3), hex("90 0041"));
    QCOMPARE(many.size(), 314 + 400);
}

void TestPackageTrigger::writesLists()
{
    TriggerModel model;
    QCOMPARE(PackageTrigger::createTriggerListPackage(model), hex("00"));

    model.push_back(trigger(TriggerInfo::COM, hexText(QByteArray(600, '\xAA')), {}));
    model.push_back(trigger(TriggerInfo::IO, lowLevel, {}));
    QCOMPARE(PackageTrigger::createTriggerListPackage(model),
        '\x02' + PackageTrigger::createTriggerPackage(model.at(0))
            + PackageTrigger::createTriggerPackage(model.at(1)));

    for (int i = 0; i < 256; ++i)
        model.push_back(TriggerInfo());
    QCOMPARE(PackageTrigger::createTriggerListPackage(model).at(0), '\x02');
}

void TestPackageTrigger::readsSerialBlocks()
{
    TriggerInfo read =
        parsed(slotOf(hex("0d00 4c0100 2510 0352 02 0020 02 aa01 03 03070c 04 6253 5f00")));
    QCOMPARE(read.getTriggerId(), -1);
    QCOMPARE(read.getTriggerType(), TriggerInfo::COM_MODBUS);
    QCOMPARE(read.getCOMSelect(), COM_C_2);
    QCOMPARE(read.getIOSelect(), IO_A_1);
    QCOMPARE(read.getTriggerProtocolType(), true);
    QCOMPARE(read.getTriggerParameter(), QStringLiteral("aa 01"));
    QCOMPARE(read.getTriggerEvent(), QStringLiteral("(ID:3);(ID:7);(ID:12)"));
    QCOMPARE(read.getTriggerInstruction(), QStringLiteral("打开"));
}

void TestPackageTrigger::readsSerialKinds_data()
{
    QTest::addColumn<int>("byte");
    QTest::addColumn<int>("kind");
    QTest::newRow("0") << 0 << int(TriggerInfo::COM);
    QTest::newRow("1") << 1 << int(TriggerInfo::COM);
    QTest::newRow("2") << 2 << int(TriggerInfo::COM_MODBUS);
    QTest::newRow("3") << 3 << int(TriggerInfo::COM);
    QTest::newRow("255") << 255 << int(TriggerInfo::COM);
}

void TestPackageTrigger::readsSerialKinds()
{
    QFETCH(int, byte);
    QFETCH(int, kind);
    QByteArray block = serialBlock(11);
    block[9] = static_cast<char>(byte);
    QCOMPARE(int(parsed(block).getTriggerType()), kind);
}

void TestPackageTrigger::readsPorts_data()
{
    QTest::addColumn<QByteArray>("mask");
    QTest::addColumn<int>("port");
    const char* masks[] = {"1000", "2000", "4000", "8000", "0100", "0200", "0400", "0800", "0010",
        "0020", "0040", "0080", "0001", "0002"};
    for (int port = 0; port < 14; ++port)
        QTest::newRow(masks[port]) << hex(masks[port]) << port;
    QTest::newRow("0003") << hex("0003") << 14;
    QTest::newRow("0004") << hex("0004") << 15;
    QTest::newRow("0008") << hex("0008") << 0;
    QTest::newRow("0000") << hex("0000") << 0;
    QTest::newRow("0101") << hex("0101") << 0;
    QTest::newRow("ffff") << hex("ffff") << 0;
}

void TestPackageTrigger::readsPorts()
{
    QFETCH(QByteArray, mask);
    QFETCH(int, port);
    QByteArray block = serialBlock(11);
    block.replace(10, 2, mask);
    QCOMPARE(int(parsed(block).getCOMSelect()), port);
    QCOMPARE(parsed(block).getIOSelect(), IO_A_1);
}

void TestPackageTrigger::readsInputs()
{
    for (int line = 0; line < 16; ++line) {
        TriggerInfo written = trigger(TriggerInfo::IO, highLevel, QStringLiteral("(ID:1)"));
        written.setIOSelect(static_cast<IOSelect>(line));
        QVERIFY(parsed(PackageTrigger::createTriggerPackage(written)) == written);
    }
    for (const char* mask : {"0000", "0003", "1010", "ffff"}) {
        const QByteArray block = slotOf(hex("0a00 4c0100 2417 0252") + hex(mask) + hex("01"));
        QCOMPARE(parsed(block).getIOSelect(), IO_A_1);
        QCOMPARE(parsed(block).getTriggerType(), TriggerInfo::IO);
    }
}

void TestPackageTrigger::readsLevels_data()
{
    QTest::addColumn<int>("byte");
    QTest::addColumn<QString>("parameter");
    QTest::newRow("0") << 0 << lowLevel;
    QTest::newRow("1") << 1 << highLevel;
    QTest::newRow("2") << 2 << QString();
    QTest::newRow("255") << 255 << QString();
}

void TestPackageTrigger::readsLevels()
{
    QFETCH(int, byte);
    QFETCH(QString, parameter);
    QByteArray block = slotOf(hex("0a00 4c0100 2417 0252 1000"));
    block[11] = static_cast<char>(byte);
    TriggerInfo read = parsed(block);
    QCOMPARE(read.getTriggerParameter(), parameter);
    QCOMPARE(read.getTriggerProtocolType(), true);
    QCOMPARE(read.getTriggerEvent(), QString());
}

void TestPackageTrigger::readsParameters_data()
{
    QTest::addColumn<int>("bodyLength");
    QTest::addColumn<int>("parameterLength");
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("10") << 10 << 0;
    QTest::newRow("11") << 11 << 0;
    QTest::newRow("12") << 12 << 1;
    QTest::newRow("13") << 13 << 2;
    QTest::newRow("267") << 267 << 256;
    QTest::newRow("316") << 316 << 305;
}

void TestPackageTrigger::readsParameters()
{
    QFETCH(int, bodyLength);
    QFETCH(int, parameterLength);
    // The parameter's own length byte says 0 in each.
    QByteArray block = serialBlock(316);
    block[0] = static_cast<char>(bodyLength);
    block[1] = static_cast<char>(bodyLength >> 8);
    const QByteArray parameter(parameterLength, '\0');
    QCOMPARE(parsed(block).getTriggerParameter(), hexText(parameter));
}

void TestPackageTrigger::passesOverOtherRecords_data()
{
    QTest::addColumn<QByteArray>("recordClass");
    for (const char* other : {"a504", "2511", "2417", "2510", "2416", "1025", "0000", "2410"})
        QTest::newRow(other) << hex(other);
}

void TestPackageTrigger::passesOverOtherRecords()
{
    QFETCH(QByteArray, recordClass);
    const bool own = recordClass == hex("2510") || recordClass == hex("2417");
    // Beyond the limits of the tail, which are not looked at in other records.
    QByteArray block = serialBlock(11, 255, 255);
    block.replace(5, 2, recordClass);
    TriggerModel model;
    QString error = QStringLiteral("before");
    QCOMPARE(parse(replyFrame(triggerDataType, block, slotSize), model, error), !own);
    QCOMPARE(model.size(), 0);
    QCOMPARE(error == QStringLiteral("before"), !own);
}

void TestPackageTrigger::limitsComeFromTheSlot()
{
    const QByteArray block = serialBlock(316, 128, 64);
    QCOMPARE(block.size(), slotSize);
    TriggerInfo read = parsed(block);
    QCOMPARE(read.getTriggerEvent().count(QStringLiteral("(ID:7)")), 128);
    QCOMPARE(read.getTriggerInstruction(), QString(32, QChar(0x4141)));
}

void TestPackageTrigger::bodyLimitComesBeforeTheClass_data()
{
    QTest::addColumn<QByteArray>("block");
    QTest::newRow("317") << serialBlock(317);
    QTest::newRow("time trigger") << slotOf(hex("3d01 4c0100 a504"));
    QTest::newRow("erased") << QByteArray(slotSize, '\xFF');
    QTest::newRow("length only") << slotOf(hex("ffff"));
    QTest::newRow("unsigned") << slotOf(hex("0080 4c0100 2510"));
}

void TestPackageTrigger::bodyLimitComesBeforeTheClass()
{
    QFETCH(QByteArray, block);
    QCOMPARE(faultOf(block), QStringLiteral("触发数据超出最大范围，最多为316个字节！"));
}

void TestPackageTrigger::limitsTheTail_data()
{
    TriggerChecks::addTailLimitRows();
}

void TestPackageTrigger::limitsTheTail()
{
    QFETCH(int, events);
    QFETCH(int, description);
    QFETCH(QString, fault);
    QCOMPARE(faultOf(serialBlock(13, events, description)), fault);
    QByteArray input = serialBlock(10, events, description);
    input.replace(5, 2, hex("2417"));
    QCOMPARE(faultOf(input), fault);
}

void TestPackageTrigger::appendsToTheModel()
{
    TriggerModel model;
    model.push_back(trigger(TriggerInfo::IO, lowLevel, {}));
    QString error = QStringLiteral("before");
    QVERIFY(parse(replyFrame(triggerDataType, serialBlock(11)), model, error));
    QCOMPARE(error, QStringLiteral("before"));
    QCOMPARE(model.size(), 2);
    QCOMPARE(model.at(1).getTriggerType(), TriggerInfo::COM);

    QVERIFY(!parse(replyFrame(triggerDataType, serialBlock(317)), model, error));
    QCOMPARE(model.size(), 2);
}

void TestPackageTrigger::shortFramesReadAsZeros()
{
    TriggerChecks::checkShortFrames<TriggerModel>(
        PackageTrigger::createTriggerPackage(trigger(TriggerInfo::COM_MODBUS,
            QStringLiteral("aa 01 02"), QStringLiteral("(ID:3);(ID:7)"), QStringLiteral("AB"))),
        parse);

    // The tail may be announced after the end of the frame.
    TriggerModel model;
    QString error;
    QVERIFY(parse(replyFrame(triggerDataType, hex("3c01 4c0100 2510"), slotSize), model, error));
    QCOMPARE(model.at(0).getTriggerEvent(), QString());
    QCOMPARE(model.at(0).getTriggerParameter(), hexText(QByteArray(305, '\0')));
}

void TestPackageTrigger::asymmetries_data()
{
    QTest::addColumn<TriggerInfo>("written");
    QTest::addColumn<TriggerInfo>("read");
    const auto row = [](const char* name, const TriggerInfo& written, const TriggerInfo& read) {
        QTest::newRow(name) << written << read;
    };
    const QString one = QStringLiteral("(ID:1)");
    const TriggerInfo plain = trigger(TriggerInfo::COM, QStringLiteral("41 42"), one);
    TriggerInfo written = plain;
    TriggerInfo read = plain;

    written.setCOMSelect(COM_D_3);
    read.setCOMSelect(COM_D_4);
    row("COM D-3", written, read);
    written.setCOMSelect(COM_D_4);
    read.setCOMSelect(COM_A_1);
    row("COM D-4", written, read);

    written = plain;
    written.setTriggerProtocolType(false);
    written.setTriggerParameter(QStringLiteral("AB"));
    row("plain text", written, plain);
    row("upper case", trigger(TriggerInfo::COM, QStringLiteral("ABCD"), one),
        trigger(TriggerInfo::COM, QStringLiteral("ab cd"), one));
    row("wording",
        trigger(TriggerInfo::COM, QStringLiteral("41"), QStringLiteral("[事件(ID:3)];x ID:4")),
        trigger(TriggerInfo::COM, QStringLiteral("41"), QStringLiteral("(ID:3);(ID:4)")));
    row("no level", trigger(TriggerInfo::IO, QStringLiteral("high"), one),
        trigger(TriggerInfo::IO, lowLevel, one));
    written = plain;
    written.setTriggerId(12);
    row("number", written, plain);
    row("no events", trigger(TriggerInfo::IO, highLevel, {}),
        trigger(TriggerInfo::IO, highLevel, QStringLiteral("(ID:0)")));
    row("description ends at NUL",
        trigger(TriggerInfo::IO, highLevel, one, QStringLiteral("A") + QChar(0) + 'B'),
        trigger(TriggerInfo::IO, highLevel, one, QStringLiteral("A")));
    written = trigger(TriggerInfo::IO, highLevel, one);
    written.setCOMSelect(COM_B_1);
    written.setTriggerProtocolType(false);
    row("stale fields of another kind", written, trigger(TriggerInfo::IO, highLevel, one));
}

void TestPackageTrigger::asymmetries()
{
    QFETCH(TriggerInfo, written);
    QFETCH(TriggerInfo, read);
    QVERIFY(parsed(PackageTrigger::createTriggerPackage(written)) == read);
}

void TestPackageTrigger::everyPortSurvivesButTheLast()
{
    for (int port = 0; port < 14; ++port) {
        TriggerInfo written =
            trigger(TriggerInfo::COM_MODBUS, QStringLiteral("41"), QStringLiteral("(ID:1)"));
        written.setCOMSelect(static_cast<COMSelect>(port));
        QVERIFY(parsed(PackageTrigger::createTriggerPackage(written)) == written);
    }
}

void TestPackageTrigger::triggersSurvive()
{
    QRandomGenerator random(17);
    for (int run = 0; run < 2000; ++run) {
        const auto kind = static_cast<TriggerInfo::TriggerType>(random.bounded(3));
        const QString parameter = kind == TriggerInfo::IO
            ? (random.bounded(2) ? highLevel : lowLevel)
            : hexText(randomBytes(random, random.bounded(306)));

        TriggerInfo written = trigger(
            kind, parameter, TriggerChecks::randomEvents(random), randomDescription(random, 32));
        if (kind == TriggerInfo::IO)
            written.setIOSelect(static_cast<IOSelect>(random.bounded(16)));
        else
            written.setCOMSelect(static_cast<COMSelect>(random.bounded(14)));
        const QByteArray block = PackageTrigger::createTriggerPackage(written);
        QCOMPARE(block.size(), slotSize);
        QVERIFY(parsed(block) == written);
    }
}

void TestPackageTrigger::randomRepliesDoNoHarm()
{
    const QByteArray records[] = {serialBlock(20, 5, 8),
        PackageTrigger::createTriggerPackage(trigger(TriggerInfo::IO, highLevel, {}))};
    for (const QByteArray& record : records)
        TriggerChecks::checkRandomReplies<TriggerModel>(
            record, parse, &PackageTrigger::parseTriggerCount);
}

void TestPackageTrigger::takesAParent()
{
    QObject parent;
    const auto* made = new PackageTrigger(&parent);
    QCOMPARE(made->parent(), &parent);
}

QTEST_APPLESS_MAIN(TestPackageTrigger)
#include "tst_packagetrigger.moc"
