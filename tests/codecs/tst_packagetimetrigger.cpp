// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "packagetimetrigger.h"

#include "countchecks.h"
#include "framefaults.h"
#include "triggerchecks.h"
#include "triggertimemodel.h"

#include <QtTest/QTest>

Q_DECLARE_METATYPE(TriggerTimeInfo)

namespace {

using TriggerChecks::countDataType;
using TriggerChecks::slotSize;
using TriggerChecks::triggerDataType;

const QString noEnd = QStringLiteral("永久有效");

TriggerTimeInfo trigger(TriggerTimeInfo::RepetMode mode, const char* startDate,
    const QString& endDate, const char* time, const char* weekly,
    const QString& events = QStringLiteral("(ID:3)"), const QString& instruction = {})
{
    TriggerTimeInfo info;
    info.setTriggerType(mode);
    info.setStartDate(QString::fromUtf8(startDate));
    info.setEndDate(endDate);
    info.setTriggerTime(QString::fromUtf8(time));
    info.setSelectWeekly(QString::fromUtf8(weekly));
    info.setTriggerEvent(events);
    info.setTriggerInstruction(instruction);
    return info;
}

/** A weekly trigger without end. */
TriggerTimeInfo weeklyTrigger()
{
    return trigger(TriggerTimeInfo::WEEKLY, "2024/03/07", noEnd, "08:05", "101");
}

QByteArray weeklyBlock()
{
    return slotOf(hex("1100 4c0100 a504 02 240307 0805 ffffff 0805 05 01 03 00"));
}

/** The block with some bytes replaced. */
QByteArray changed(QByteArray block, int offset, const QByteArray& bytes)
{
    return block.replace(offset, bytes.size(), bytes);
}

/** A block whose body has the given length, and a tail of the given counts. */
QByteArray blockWithTail(int bodyLength, int eventCount, int descriptionLength)
{
    return TriggerChecks::blockOf(
        weeklyBlock().mid(2, 17), bodyLength, eventCount, descriptionLength);
}

bool parse(const QByteArray& frame, TriggerTimeModel& model, QString& error)
{
    return PackageTimeTrigger::parseTimeTriggerPackage(
        triggerDataType, frame, slotSize, model, error);
}

const auto parsed = TriggerChecks::readerOf<TriggerTimeModel>(parse);
const auto faultOf = TriggerChecks::faultFinderOf<TriggerTimeModel>(parse);

} // namespace

class TestPackageTimeTrigger : public QObject {
    Q_OBJECT

private slots:
    void testsTheFrame();
    void readsTheCount_data();
    void readsTheCount();
    void writesBlocks_data();
    void writesBlocks();
    void writesDescriptions_data();
    void writesDescriptions();
    void longTextsGrowTheBlock();
    void sumsWeekDigits_data();
    void sumsWeekDigits();
    void writesLists();
    void writesListItems_data();
    void writesListItems();
    void readsTheWeeklyBlock();
    void readsModes_data();
    void readsModes();
    void readsDates_data();
    void readsDates();
    void readsTimes_data();
    void readsTimes();
    void readsEndDates_data();
    void readsEndDates();
    void readsWeekBits();
    void doesNotReadTheEndTime();
    void readsTails_data();
    void readsTails();
    void passesOverOtherRecords_data();
    void passesOverOtherRecords();
    void bodyLimitComesBeforeTheClass_data();
    void bodyLimitComesBeforeTheClass();
    void limitsTheTail_data();
    void limitsTheTail();
    void limitsComeFromTheSlot();
    void appendsToTheModel();
    void shortFramesReadAsZeros();
    void asymmetries_data();
    void asymmetries();
    void triggersSurvive();
    void randomRepliesDoNoHarm();
    void takesAParent();
};

void TestPackageTimeTrigger::testsTheFrame()
{
    TriggerTimeModel model;
    int count = 7;
    checkFrameFaults(
        [&](uint dataType, const QByteArray& frame, int dataLength, QString& error) {
            return PackageTimeTrigger::parseTimeTriggerPackage(
                dataType, frame, dataLength, model, error);
        },
        triggerDataType, slotSize);
    checkFrameFaults(
        [&](uint dataType, const QByteArray& frame, int dataLength, QString& error) {
            return PackageTimeTrigger::parseTimeTriggerCount(
                dataType, frame, dataLength, count, error);
        },
        countDataType, 1);
    QCOMPARE(model.size(), 0);
    QCOMPARE(count, 7);
}

void TestPackageTimeTrigger::readsTheCount_data()
{
    CountChecks::addRows();
}

void TestPackageTimeTrigger::readsTheCount()
{
    CountChecks::checkRow(countDataType, &PackageTimeTrigger::parseTimeTriggerCount);
}

void TestPackageTimeTrigger::writesBlocks_data()
{
    QTest::addColumn<TriggerTimeInfo>("info");
    QTest::addColumn<QByteArray>("block");
    const auto row = [](const char* name, const TriggerTimeInfo& info, const char* block) {
        QTest::newRow(name) << info << slotOf(hex(block));
    };
    using Info = TriggerTimeInfo;
    row("weekly", weeklyTrigger(), "1100 4c0100 a504 02 240307 0805 ffffff 0805 05 01 03 00");
    row("once", trigger(Info::ONCE, "2024/12/31", noEnd, "23:59", ""),
        "1100 4c0100 a504 00 241231 2359 ffffff 2359 00 01 03 00");
    row("every day", trigger(Info::EVERYDAY, "2024/3/7", QStringLiteral("2035/11/30"), "8:5", "1"),
        "1100 4c0100 a504 01 240307 0805 351130 0805 01 01 03 00");
    row("other mode", trigger(static_cast<Info::RepetMode>(9), "2024/03/07", noEnd, "08:05", "1"),
        "1100 4c0100 a504 00 240307 0805 ffffff 0805 01 01 03 00");
    row("negative mode",
        trigger(static_cast<Info::RepetMode>(-1), "2024/03/07", noEnd, "08:05", ""),
        "1100 4c0100 a504 00 240307 0805 ffffff 0805 00 01 03 00");
    row("default", TriggerTimeInfo(), "1100 4c0100 a504 01 000000 0000 000000 0000 00 01 00 00");
    row("only the first item says without end",
        trigger(Info::EVERYDAY, "2024/03/07", noEnd + QStringLiteral("/1/2"), "08:05", ""),
        "1100 4c0100 a504 01 240307 0805 ffffff 0805 00 01 03 00");
    row("without end, but not quite",
        trigger(Info::EVERYDAY, "2024/03/07", QStringLiteral("永久/有效"), "08:05", ""),
        "1100 4c0100 a504 01 240307 0805 000000 0805 00 01 03 00");
    row("short years", trigger(Info::EVERYDAY, "24/03/07", QStringLiteral("205/1/2"), "1:2", ""),
        "1100 4c0100 a504 01 000307 0102 050102 0102 00 01 03 00");
    row("long years", trigger(Info::EVERYDAY, "20991/03/07", QStringLiteral("1999/1/2"), "1:2", ""),
        "1100 4c0100 a504 01 990307 0102 990102 0102 00 01 03 00");
    row("too few items", trigger(Info::EVERYDAY, "2024/03", QStringLiteral("2024"), "08", ""),
        "1100 4c0100 a504 01 240300 0800 240000 0800 00 01 03 00");
    row("too many items",
        trigger(Info::EVERYDAY, "2024/03/07/9", QStringLiteral("2025/1/2/"), "08:05:59", ""),
        "1100 4c0100 a504 01 240307 0805 250102 0805 00 01 03 00");
    row("no numbers", trigger(Info::EVERYDAY, "xxyy/a/b", QStringLiteral("//"), ":", "xyz"),
        "1100 4c0100 a504 01 000000 0000 000000 0000 00 01 03 00");
    row("large numbers", trigger(Info::EVERYDAY, "2024/165/100", noEnd, "256:-1", ""),
        "1100 4c0100 a504 01 2405a0 96ff ffffff 96ff 00 01 03 00");
    row("nine week days", trigger(Info::WEEKLY, "2024/03/07", noEnd, "08:05", "101000011"),
        "1100 4c0100 a504 02 240307 0805 ffffff 0805 85 01 03 00");
    row("three events",
        trigger(Info::ONCE, "2024/03/07", noEnd, "08:05", "", QStringLiteral("(ID:3);x;ID:300")),
        "1100 4c0100 a504 00 240307 0805 ffffff 0805 00 03 03002c 00");
    row("no events", trigger(Info::ONCE, "2024/03/07", noEnd, "08:05", "", {}),
        "1100 4c0100 a504 00 240307 0805 ffffff 0805 00 01 00 00");
}

void TestPackageTimeTrigger::writesBlocks()
{
    QFETCH(TriggerTimeInfo, info);
    QFETCH(QByteArray, block);
    QCOMPARE(PackageTimeTrigger::createTimeTriggerPackage(info), block);
    // The number of the trigger has no place in the block.
    info.setTriggerId(5);
    QCOMPARE(PackageTimeTrigger::createTimeTriggerPackage(info), block);
}

void TestPackageTimeTrigger::writesDescriptions_data()
{
    TriggerChecks::addDescriptionRows();
}

void TestPackageTimeTrigger::writesDescriptions()
{
    QFETCH(QString, instruction);
    QFETCH(QByteArray, description);
    TriggerTimeInfo info = weeklyTrigger();
    info.setTriggerInstruction(instruction);
    QCOMPARE(PackageTimeTrigger::createTimeTriggerPackage(info),
        slotOf(weeklyBlock().left(21) + description));
}

void TestPackageTimeTrigger::longTextsGrowTheBlock()
{
    QString events = QStringLiteral("(ID:9)");
    for (int i = 1; i < 300; ++i)
        events += QStringLiteral(";(ID:9)");
    TriggerTimeInfo info = weeklyTrigger();
    info.setTriggerEvent(events);
    info.setTriggerInstruction(QString(200, QLatin1Char('A')));
    const QByteArray block = PackageTimeTrigger::createTimeTriggerPackage(info);
    QCOMPARE(block.left(20), weeklyBlock().left(19) + '\x2C');
    QCOMPARE(block.mid(20, 300), QByteArray(300, '\x09'));
    QCOMPARE(block.mid(320, 3), hex("90 0041"));
    QCOMPARE(block.size(), 321 + 400);
}

void TestPackageTimeTrigger::sumsWeekDigits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("bits");
    const auto row = [](const char* text, int bits) {
        QTest::newRow(text) << QString::fromUtf8(text) << bits;
    };
    row("", 0);
    row("0", 0);
    row("1", 1);
    row("101", 5);
    row("011", 6);
    row("1010000", 5);
    row("1111111", 127);
    row("000000001", 256);
    row("2", 2);
    row("92", 13);
    row("x1", 2);
    row("1 1", 5);
    row("+1-", 2);
    row("一1", 2);
    row("１", 0);
}

void TestPackageTimeTrigger::sumsWeekDigits()
{
    QFETCH(QString, text);
    QFETCH(int, bits);
    QCOMPARE(PackageTimeTrigger::weeklyTextToBits(text), bits);

    int sum = 0;
    int weight = 1;
    for (const QChar character : text) {
        sum += QString(character).toInt() * weight;
        weight *= 2;
    }
    QCOMPARE(sum, bits);

    // However long the text, the sum only wraps.
    const QString longText =
        text.leftJustified(8, QLatin1Char('0')) + QString(100, QLatin1Char('9'));
    QCOMPARE(PackageTimeTrigger::weeklyTextToBits(longText) & 0xFF, bits & 0xFF);
}

void TestPackageTimeTrigger::writesLists()
{
    TriggerTimeModel model;
    QCOMPARE(PackageTimeTrigger::createTimeTriggerListPackage(model), hex("00"));

    TriggerTimeInfo once = trigger(TriggerTimeInfo::ONCE, "2024/12/31", QStringLiteral("2025/1/2"),
        "23:59", "1111111", QStringLiteral("事件(ID:3);(ID:7)"), QStringLiteral("AB"));
    model.push_back(weeklyTrigger());
    model.push_back(once);
    QCOMPARE(PackageTimeTrigger::createTimeTriggerListPackage(model),
        '\x02' + slotOf(hex("0000 4c0100 a504 02 240307 0805 ffffff 08 01 03 00"))
            + slotOf(hex("0000 4c0100 a504 00 241231 2359 250102 23 02 0307 04 0041 0042")));

    // Blocks that outgrow their slot are back to back all the same.
    once.setTriggerInstruction(QString(300, QLatin1Char('A')));
    model.setTriggerInfo({once, once});
    const QByteArray bytes = PackageTimeTrigger::createTimeTriggerListPackage(model);
    const int blockSize = 18 + 2 + 1 + 600;
    QCOMPARE(bytes.size(), 1 + 2 * blockSize);
    QCOMPARE(bytes.mid(1, blockSize), bytes.mid(1 + blockSize));

    for (int i = 0; i < 256; ++i)
        model.push_back(TriggerTimeInfo());
    QCOMPARE(PackageTimeTrigger::createTimeTriggerListPackage(model).at(0), '\x02');
}

void TestPackageTimeTrigger::writesListItems_data()
{
    QTest::addColumn<QString>("events");
    QTest::addColumn<QByteArray>("ids");
    QTest::newRow("empty") << QString() << hex("01 00");
    QTest::newRow("reader's form") << "(ID:3);(ID:300)" << hex("02 032c");
    QTest::newRow("with event") << "事件(ID:3)" << hex("01 03");
    QTest::newRow("bare") << "3;12" << hex("02 030c");
    QTest::newRow("characters anywhere") << "1事2)3I4D5:6" << hex("01 40");
    QTest::newRow("other brackets stay") << "[事件(ID:3)]" << hex("01 00");
    QTest::newRow("lower case stays") << "(id:3)" << hex("01 00");
    QTest::newRow("names stay") << "灯(ID:3)" << hex("01 00");
}

void TestPackageTimeTrigger::writesListItems()
{
    QFETCH(QString, events);
    QFETCH(QByteArray, ids);
    TriggerTimeInfo info = weeklyTrigger();
    info.setTriggerEvent(events);
    TriggerTimeModel model;
    model.push_back(info);
    QCOMPARE(PackageTimeTrigger::createTimeTriggerListPackage(model),
        '\x01' + slotOf(hex("0000 4c0100 a504 02 240307 0805 ffffff 08") + ids));
}

void TestPackageTimeTrigger::readsTheWeeklyBlock()
{
    TriggerTimeInfo read = parsed(weeklyBlock());
    QVERIFY(read == weeklyTrigger());
    QCOMPARE(read.getTriggerId(), -1);
}

void TestPackageTimeTrigger::readsModes_data()
{
    QTest::addColumn<int>("byte");
    QTest::addColumn<int>("mode");
    QTest::newRow("0") << 0 << int(TriggerTimeInfo::ONCE);
    QTest::newRow("1") << 1 << int(TriggerTimeInfo::EVERYDAY);
    QTest::newRow("2") << 2 << int(TriggerTimeInfo::WEEKLY);
    QTest::newRow("3") << 3 << int(TriggerTimeInfo::EVERYDAY);
    QTest::newRow("255") << 255 << int(TriggerTimeInfo::EVERYDAY);
}

void TestPackageTimeTrigger::readsModes()
{
    QFETCH(int, byte);
    QFETCH(int, mode);
    TriggerTimeInfo read =
        parsed(changed(weeklyBlock(), 7, QByteArray(1, static_cast<char>(byte))));
    QCOMPARE(int(read.getTriggerType()), mode);
    // A trigger that fires once ends when it starts, whatever the block says.
    QCOMPARE(
        read.getEndDate(), mode == TriggerTimeInfo::ONCE ? QStringLiteral("2024/03/07") : noEnd);
    QCOMPARE(read.getSelectWeekly(), QStringLiteral("101"));
}

void TestPackageTimeTrigger::readsDates_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("date");
    QTest::newRow("padded") << hex("240307") << "2024/03/07";
    QTest::newRow("two digits") << hex("991231") << "2099/12/31";
    QTest::newRow("year of one digit") << hex("050307") << "205/03/07";
    QTest::newRow("zeros") << hex("000000") << "200/00/00";
    QTest::newRow("high nibbles") << hex("1aa01a") << "2020/100/20";
    QTest::newRow("all bits") << hex("ffffff") << "20165/165/165";
}

void TestPackageTimeTrigger::readsDates()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, date);
    QCOMPARE(parsed(changed(weeklyBlock(), 8, bytes)).getStartDate(), date);
    if (bytes != hex("ffffff"))
        QCOMPARE(parsed(changed(weeklyBlock(), 13, bytes)).getEndDate(), date);
}

void TestPackageTimeTrigger::readsTimes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("time");
    QTest::newRow("padded") << hex("0805") << "08:05";
    QTest::newRow("two digits") << hex("2359") << "23:59";
    QTest::newRow("midnight") << hex("0000") << "00:00";
    QTest::newRow("all bits") << hex("ffff") << "165:165";
}

void TestPackageTimeTrigger::readsTimes()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, time);
    QCOMPARE(parsed(changed(weeklyBlock(), 11, bytes)).getTriggerTime(), time);
}

void TestPackageTimeTrigger::readsEndDates_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("date");
    QTest::newRow("without end") << hex("ffffff") << noEnd;
    QTest::newRow("day") << hex("ffff01") << "20165/165/01";
    QTest::newRow("month") << hex("ff02ff") << "20165/02/165";
    QTest::newRow("year") << hex("03ffff") << "203/165/165";
}

void TestPackageTimeTrigger::readsEndDates()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, date);
    QCOMPARE(parsed(changed(weeklyBlock(), 13, bytes)).getEndDate(), date);
}

void TestPackageTimeTrigger::readsWeekBits()
{
    for (int bits = 0; bits < 256; ++bits) {
        QString text;
        for (int rest = bits; rest != 0; rest /= 2)
            text += QLatin1Char(rest % 2 ? '1' : '0');
        if (bits == 0)
            text = QStringLiteral("0");
        TriggerTimeInfo read =
            parsed(changed(weeklyBlock(), 18, QByteArray(1, static_cast<char>(bits))));
        QCOMPARE(read.getSelectWeekly(), text);
        QCOMPARE(PackageTimeTrigger::weeklyTextToBits(text), bits);
    }
}

void TestPackageTimeTrigger::doesNotReadTheEndTime()
{
    QVERIFY(parsed(changed(weeklyBlock(), 16, hex("2359"))) == weeklyTrigger());
}

void TestPackageTimeTrigger::readsTails_data()
{
    QTest::addColumn<QByteArray>("tail");
    QTest::addColumn<QString>("events");
    QTest::addColumn<QString>("instruction");
    QTest::newRow("empty") << hex("00 00") << ""
                           << "";
    QTest::newRow("three events") << hex("03 03070c 00") << "(ID:3);(ID:7);(ID:12)"
                                  << "";
    QTest::newRow("description") << hex("00 04 6253 5f00") << ""
                                 << "打开";
    QTest::newRow("NUL") << hex("00 06 0041 0000 0042") << ""
                         << "A";
    QTest::newRow("odd") << hex("00 03 0041 42") << ""
                         << "AB";
    QTest::newRow("open surrogate") << hex("00 04 0041 d800") << ""
                                    << "A";
}

void TestPackageTimeTrigger::readsTails()
{
    QFETCH(QByteArray, tail);
    QFETCH(QString, events);
    QFETCH(QString, instruction);
    for (const int length : {17, 40}) {
        const QByteArray block =
            slotOf(slotOf(char(length) + weeklyBlock().mid(1, 18), length + 2) + tail);
        TriggerTimeInfo read = parsed(block);
        QCOMPARE(read.getTriggerEvent(), events);
        QCOMPARE(read.getTriggerInstruction(), instruction);
        QCOMPARE(read.getStartDate(), QStringLiteral("2024/03/07"));
    }
}

void TestPackageTimeTrigger::passesOverOtherRecords_data()
{
    QTest::addColumn<QByteArray>("recordClass");
    for (const char* other : {"2510", "2417", "a505", "a404", "04a5", "0000", "a5a5"})
        QTest::newRow(other) << hex(other);
}

void TestPackageTimeTrigger::passesOverOtherRecords()
{
    QFETCH(QByteArray, recordClass);
    // Beyond the limits of the tail, which are not looked at in other records.
    TriggerTimeModel model;
    QString error = QStringLiteral("before");
    QVERIFY(parse(
        replyFrame(triggerDataType, changed(blockWithTail(17, 255, 255), 5, recordClass), slotSize),
        model, error));
    QCOMPARE(model.size(), 0);
    QCOMPARE(error, QStringLiteral("before"));
}

void TestPackageTimeTrigger::bodyLimitComesBeforeTheClass_data()
{
    QTest::addColumn<QByteArray>("block");
    QTest::newRow("317") << blockWithTail(317, 0, 0);
    QTest::newRow("serial trigger") << slotOf(hex("3d01 4c0100 2510"));
    QTest::newRow("erased") << QByteArray(slotSize, '\xFF');
    QTest::newRow("unsigned") << slotOf(hex("0080 4c0100 a504"));
}

void TestPackageTimeTrigger::bodyLimitComesBeforeTheClass()
{
    QFETCH(QByteArray, block);
    QCOMPARE(faultOf(block), QStringLiteral("触发数据超出最大范围，最多为316个字节！"));
}

void TestPackageTimeTrigger::limitsTheTail_data()
{
    TriggerChecks::addTailLimitRows();
}

void TestPackageTimeTrigger::limitsTheTail()
{
    QFETCH(int, events);
    QFETCH(int, description);
    QFETCH(QString, fault);
    QCOMPARE(faultOf(blockWithTail(17, events, description)), fault);
}

void TestPackageTimeTrigger::limitsComeFromTheSlot()
{
    const QByteArray block = blockWithTail(316, 128, 64);
    QCOMPARE(block.size(), slotSize);
    TriggerTimeInfo read = parsed(block);
    QCOMPARE(read.getTriggerEvent().count(QStringLiteral("(ID:7)")), 128);
    QCOMPARE(read.getTriggerInstruction(), QString(32, QChar(0x4141)));
}

void TestPackageTimeTrigger::appendsToTheModel()
{
    TriggerTimeModel model;
    model.push_back(TriggerTimeInfo());
    QString error = QStringLiteral("before");
    QVERIFY(parse(replyFrame(triggerDataType, weeklyBlock()), model, error));
    QCOMPARE(error, QStringLiteral("before"));
    QCOMPARE(model.size(), 2);
    QVERIFY(model.at(1) == weeklyTrigger());

    QVERIFY(!parse(replyFrame(triggerDataType, blockWithTail(317, 0, 0)), model, error));
    QCOMPARE(model.size(), 2);
}

void TestPackageTimeTrigger::shortFramesReadAsZeros()
{
    TriggerTimeInfo info = weeklyTrigger();
    info.setTriggerInstruction(QStringLiteral("AB"));
    TriggerChecks::checkShortFrames<TriggerTimeModel>(
        PackageTimeTrigger::createTimeTriggerPackage(info), parse);

    // The tail may be announced after the end of the frame.
    TriggerTimeModel model;
    QString error;
    QVERIFY(parse(replyFrame(triggerDataType, hex("3c01 4c0100 a504"), slotSize), model, error));
    QCOMPARE(model.at(0).getTriggerEvent(), QString());
    QCOMPARE(model.at(0).getStartDate(), QStringLiteral("200/00/00"));
}

void TestPackageTimeTrigger::asymmetries_data()
{
    QTest::addColumn<TriggerTimeInfo>("written");
    QTest::addColumn<TriggerTimeInfo>("read");
    const auto row = [](const char* name, const TriggerTimeInfo& written,
                         const TriggerTimeInfo& read) { QTest::newRow(name) << written << read; };
    using Info = TriggerTimeInfo;
    const QString start = QStringLiteral("2024/03/07");
    row("end of once",
        trigger(Info::ONCE, "2024/03/07", QStringLiteral("2025/01/02"), "08:05", "0"),
        trigger(Info::ONCE, "2024/03/07", start, "08:05", "0"));
    row("once without end", trigger(Info::ONCE, "2024/03/07", noEnd, "08:05", "0"),
        trigger(Info::ONCE, "2024/03/07", start, "08:05", "0"));
    row("century",
        trigger(Info::EVERYDAY, "1999/01/02", QStringLiteral("2110/01/02"), "08:05", "0"),
        trigger(Info::EVERYDAY, "2099/01/02", QStringLiteral("2010/01/02"), "08:05", "0"));
    row("years before 2010",
        trigger(Info::EVERYDAY, "2005/01/02", QStringLiteral("2009/01/02"), "08:05", "0"),
        trigger(Info::EVERYDAY, "205/01/02", QStringLiteral("209/01/02"), "08:05", "0"));
    row("no leading zeros",
        trigger(Info::EVERYDAY, "2024/3/7", QStringLiteral("2025/1/2"), "8:5", "0"),
        trigger(Info::EVERYDAY, "2024/03/07", QStringLiteral("2025/01/02"), "08:05", "0"));
    row("trailing zeros", trigger(Info::WEEKLY, "2024/03/07", noEnd, "08:05", "1010000"),
        trigger(Info::WEEKLY, "2024/03/07", noEnd, "08:05", "101"));
    row("no day", trigger(Info::WEEKLY, "2024/03/07", noEnd, "08:05", ""),
        trigger(Info::WEEKLY, "2024/03/07", noEnd, "08:05", "0"));
    row("more than eight", trigger(Info::WEEKLY, "2024/03/07", noEnd, "08:05", "0110000011"),
        trigger(Info::WEEKLY, "2024/03/07", noEnd, "08:05", "011"));
    row("wording",
        trigger(Info::WEEKLY, "2024/03/07", noEnd, "08:05", "1", QStringLiteral("[x(ID:3)];ID:4")),
        trigger(Info::WEEKLY, "2024/03/07", noEnd, "08:05", "1", QStringLiteral("(ID:3);(ID:4)")));
    row("no events", trigger(Info::WEEKLY, "2024/03/07", noEnd, "08:05", "1", {}),
        trigger(Info::WEEKLY, "2024/03/07", noEnd, "08:05", "1", QStringLiteral("(ID:0)")));
    TriggerTimeInfo numbered = weeklyTrigger();
    numbered.setTriggerId(12);
    row("number", numbered, weeklyTrigger());
}

void TestPackageTimeTrigger::asymmetries()
{
    QFETCH(TriggerTimeInfo, written);
    QFETCH(TriggerTimeInfo, read);
    QVERIFY(parsed(PackageTimeTrigger::createTimeTriggerPackage(written)) == read);
}

void TestPackageTimeTrigger::triggersSurvive()
{
    QRandomGenerator random(23);
    const auto padded = [](int number) {
        return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
    };
    const auto date = [&] {
        return QStringLiteral("20%1/%2/%3")
            .arg(padded(random.bounded(10, 100)), padded(random.bounded(1, 13)),
                padded(random.bounded(1, 32)));
    };
    for (int run = 0; run < 2000; ++run) {
        TriggerTimeInfo written;
        written.setTriggerType(static_cast<TriggerTimeInfo::RepetMode>(random.bounded(3)));
        written.setStartDate(date());
        written.setEndDate(random.bounded(4) == 0 ? noEnd : date());
        if (written.getTriggerType() == TriggerTimeInfo::ONCE)
            written.setEndDate(written.getStartDate());
        written.setTriggerTime(
            padded(random.bounded(24)) + QLatin1Char(':') + padded(random.bounded(60)));
        QString weekly;
        for (int i = random.bounded(8); i > 0; --i)
            weekly += QLatin1Char(random.bounded(2) ? '1' : '0');
        written.setSelectWeekly(weekly + QLatin1Char('1'));
        written.setTriggerEvent(TriggerChecks::randomEvents(random));
        written.setTriggerInstruction(randomDescription(random, 32));

        const QByteArray block = PackageTimeTrigger::createTimeTriggerPackage(written);
        QCOMPARE(block.size(), slotSize);
        QVERIFY(parsed(block) == written);
    }
}

void TestPackageTimeTrigger::randomRepliesDoNoHarm()
{
    TriggerChecks::checkRandomReplies<TriggerTimeModel>(
        blockWithTail(17, 5, 8), parse, &PackageTimeTrigger::parseTimeTriggerCount);
}

void TestPackageTimeTrigger::takesAParent()
{
    QObject parent;
    const auto* made = new PackageTimeTrigger(&parent);
    QCOMPARE(made->parent(), &parent);
}

QTEST_APPLESS_MAIN(TestPackageTimeTrigger)
#include "tst_packagetimetrigger.moc"
