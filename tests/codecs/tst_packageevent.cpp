// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "packageevent.h"

#include "countchecks.h"
#include "eventmodel.h"
#include "framefaults.h"
#include "randomreplies.h"

#include <QtTest/QTest>

namespace {

constexpr uint countDataType = 0xF0020000;
constexpr uint eventDataType = 0xF0020001;
constexpr int slotSize = 512;

EventInfo eventOf(int id, int type, const QString& protocol, const QString& instruction = {})
{
    EventInfo info;
    info.setEventId(id);
    info.setEventType(static_cast<EventInfo::EventType>(type));
    info.setEventProtocol(protocol);
    info.setEventInstruction(instruction);
    return info;
}

/** A block with the given command and description. */
QByteArray block(int id, const QByteArray& command, const QByteArray& description = {})
{
    QByteArray bytes(1, static_cast<char>(id));
    bytes += static_cast<char>(command.size());
    bytes += static_cast<char>(command.size() >> 8);
    bytes += command;
    bytes += static_cast<char>(description.size());
    bytes += description;
    return slotOf(bytes);
}

QByteArray utf16(const QString& text)
{
    QByteArray bytes;
    for (const QChar unit : text) {
        bytes += static_cast<char>(unit.row());
        bytes += static_cast<char>(unit.cell());
    }
    return bytes;
}

bool parse(const QByteArray& frame, EventModel& model, QString& error)
{
    return PackageEvent::parseEventPackage(eventDataType, frame, slotSize, model, error);
}

/** Reads a block that must be accepted. */
EventInfo parsed(const QByteArray& bytes)
{
    EventModel model;
    QString error;
    const bool read = parse(replyFrame(eventDataType, bytes, slotSize), model, error);
    return read && model.size() == 1 ? model.at(0) : eventOf(-999, 0, error);
}

} // namespace

class TestPackageEvent : public QObject {
    Q_OBJECT

private slots:
    void testsTheFrame();
    void readsTheCount_data();
    void readsTheCount();
    void writesDelays_data();
    void writesDelays();
    void readsDelays_data();
    void readsDelays();
    void writesCommands_data();
    void writesCommands();
    void everyOtherKindIsACommand();
    void otherKindsHaveNoCommand_data();
    void otherKindsHaveNoCommand();
    void writesDescriptions_data();
    void writesDescriptions();
    void writesNeitherNameNorForm();
    void longTextsGrowTheBlock();
    void findsTheKind_data();
    void findsTheKind();
    void readsDescriptions_data();
    void readsDescriptions();
    void limitsTheCommand_data();
    void limitsTheCommand();
    void appendsToTheModel();
    void shortFramesReadAsZeros();
    void descriptionsRunIntoTheTrailer();
    void asymmetries_data();
    void asymmetries();
    void writesLists();
    void listsKeepTheirStride();
    void readsLists();
    void listsHaveNoCommandLimit();
    void listsWantWholeBlocks_data();
    void listsWantWholeBlocks();
    void shortListsReadAsZeros();
    void eventsSurvive();
    void randomRepliesDoNoHarm();
    void takesAParent();
};

void TestPackageEvent::testsTheFrame()
{
    EventModel model;
    int count = 7;
    checkFrameFaults(
        [&](uint dataType, const QByteArray& frame, int dataLength, QString& error) {
            return PackageEvent::parseEventPackage(
                dataType, frame, static_cast<uint>(dataLength), model, error);
        },
        eventDataType, slotSize);
    checkFrameFaults(
        [&](uint dataType, const QByteArray& frame, int dataLength, QString& error) {
            return PackageEvent::parseEventListPackage(
                dataType, frame, static_cast<uint>(dataLength), model, error);
        },
        countDataType, 1 + slotSize);
    checkFrameFaults(
        [&](uint dataType, const QByteArray& frame, int dataLength, QString& error) {
            return PackageEvent::parseEventCount(
                dataType, frame, static_cast<uint>(dataLength), count, error);
        },
        countDataType, 1);
    QCOMPARE(model.size(), 0);
    QCOMPARE(count, 7);
}

void TestPackageEvent::readsTheCount_data()
{
    CountChecks::addRows();
}

void TestPackageEvent::readsTheCount()
{
    CountChecks::checkRow(countDataType, &PackageEvent::parseEventCount);
}

void TestPackageEvent::writesDelays_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<int>("milliseconds");
    const auto row = [](const char* protocol, int milliseconds) {
        QTest::newRow(protocol) << QString::fromUtf8(protocol) << milliseconds;
    };
    row("25*10ms", 250);
    row("0*10ms", 0);
    row("6553*10ms", 65530);
    row("6554*10ms", 4);
    row("7000*10ms", 0x1170);
    row("65535*10ms", 0xFFF6);
    row("65536*10ms", 0);
    row("-1*10ms", 0);
    row("1.5*10ms", 0);
    row("x*10ms", 0);
    row(" 25*10ms", 250);
    row("25 *10ms", 250);
    row("+25*10ms", 250);
    row("*10ms", 0);
    // The last five characters go, whatever they are; fewer characters are taken whole.
    row("", 0);
    row("25", 250);
    row("1234", 12340);
    row("12345", 0);
    row("123456", 10);
    row("25 seconds", 0);
}

void TestPackageEvent::writesDelays()
{
    QFETCH(QString, protocol);
    QFETCH(int, milliseconds);
    QByteArray expected = hex("03 0700 4c0100a5a5");
    expected += static_cast<char>(milliseconds >> 8);
    expected += static_cast<char>(milliseconds);
    QCOMPARE(PackageEvent::createEventPackage(eventOf(3, 5, protocol)), slotOf(expected));

    expected += hex("04 0041 0042");
    QCOMPARE(PackageEvent::createEventPackage(eventOf(3, 5, protocol, QStringLiteral("AB"))),
        slotOf(expected));
}

void TestPackageEvent::readsDelays_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("protocol");
    QTest::newRow("none") << hex("0000") << "0*10ms";
    QTest::newRow("a millisecond") << hex("0001") << "0.1*10ms";
    QTest::newRow("one unit") << hex("000a") << "1*10ms";
    QTest::newRow("whole units") << hex("00fa") << "25*10ms";
    QTest::newRow("half a unit more") << hex("00ff") << "25.5*10ms";
    QTest::newRow("wrapped when it was written") << hex("1170") << "446.4*10ms";
    QTest::newRow("most") << hex("ffff") << "6553.5*10ms";
}

void TestPackageEvent::readsDelays()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, protocol);
    EventInfo read = parsed(block(3, hex("4c0100a5a5") + bytes));
    QCOMPARE(read.getEventType(), EventInfo::EVENT_DELAY);
    QCOMPARE(read.getEventProtocal(), protocol);
}

void TestPackageEvent::writesCommands_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("empty") << QString() << QByteArray();
    QTest::newRow("blanks") << "4c 01 00 25 10" << hex("4c01002510");
    QTest::newRow("no blanks") << "4C01002510" << hex("4c01002510");
    QTest::newRow("no hex digits") << "4c-01:zz 0g0" << hex("4c0100");
    QTest::newRow("odd digits") << "4c0" << QByteArray::fromHex("4c0");
    QTest::newRow("beyond Latin-1") << "4c事01" << hex("4c01");
    QTest::newRow("delay text") << "25*10ms" << QByteArray::fromHex("25*10ms");
}

void TestPackageEvent::writesCommands()
{
    QFETCH(QString, protocol);
    QFETCH(QByteArray, command);
    EventInfo info = eventOf(200, 0, protocol, QStringLiteral("ID:"));
    QCOMPARE(PackageEvent::createEventPackage(info), block(200, command, hex("00490044003a")));
    info.setEventProtocolType(false);
    QCOMPARE(PackageEvent::createEventPackage(info), block(200, command, hex("00490044003a")));
}

void TestPackageEvent::everyOtherKindIsACommand()
{
    const QByteArray expected = slotOf(hex("01 0500 4c01002510 06 0049 0044 003a"));
    QCOMPARE(expected.at(8), '\x06');
    for (const int type : {0, 1, 2, 3, 4, 6}) {
        const EventInfo info =
            eventOf(1, type, QStringLiteral("4c 01 00 25 10"), QStringLiteral("ID:"));
        QCOMPARE(PackageEvent::createEventPackage(info), expected);
    }
}

void TestPackageEvent::otherKindsHaveNoCommand_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {-1, 7, 9, 256})
        QTest::addRow("%d", type) << type;
}

void TestPackageEvent::otherKindsHaveNoCommand()
{
    QFETCH(int, type);
    const EventInfo info = eventOf(3, type, QStringLiteral("4c"), QStringLiteral("AB"));
    QCOMPARE(PackageEvent::createEventPackage(info), slotOf(hex("04 0041 0042")));
}

void TestPackageEvent::writesDescriptions_data()
{
    QTest::addColumn<QString>("instruction");
    QTest::addColumn<QByteArray>("description");
    const QChar nul(0);
    const QChar surrogate(0xD800);
    QTest::newRow("empty") << QString() << QByteArray();
    QTest::newRow("chinese") << "打开" << hex("6253 5f00");
    QTest::newRow("NUL") << QStringLiteral("A") + nul + QStringLiteral("B") << hex("0041");
    QTest::newRow("NUL first") << nul + QStringLiteral("B") << QByteArray();
    QTest::newRow("surrogate") << surrogate + QStringLiteral("B") << hex("003f 0042");
    QTest::newRow("surrogate last") << QStringLiteral("B") + surrogate << hex("0042 003f");
    QTest::newRow("byte order mark") << QChar(0xFEFF) + QStringLiteral("B") << hex("0042");
    QTest::newRow("with name") << "abc$$def" << utf16(QStringLiteral("abc$$def"));
}

void TestPackageEvent::writesDescriptions()
{
    QFETCH(QString, instruction);
    QFETCH(QByteArray, description);
    QCOMPARE(PackageEvent::createEventPackage(eventOf(1, 0, QStringLiteral("4c"), instruction)),
        block(1, hex("4c"), description));
}

void TestPackageEvent::writesNeitherNameNorForm()
{
    EventInfo named = eventOf(0x1FE, 2, QStringLiteral("4c"));
    named.setEventName(QStringLiteral("name"));
    named.setEventProtocolType(false);
    QCOMPARE(PackageEvent::createEventPackage(named), block(0xFE, hex("4c")));
}

void TestPackageEvent::longTextsGrowTheBlock()
{
    // The description's length wraps at 128 code units, its bytes don't.
    const QString text(128, QLatin1Char('A'));
    QByteArray bytes = PackageEvent::createEventPackage(eventOf(1, 0, QStringLiteral("4c"), text));
    QCOMPARE(bytes, slotOf(hex("01 0100 4c 00") + utf16(text)));
    QCOMPARE(PackageEvent::createEventPackage(
                 eventOf(1, 0, QStringLiteral("4c"), QString(127, QLatin1Char('A'))))
                 .at(4),
        '\xFE');

    // The length byte is the last of the slot, and then the first after it.
    for (const int length : {508, 509, 600, 70000}) {
        const QByteArray command(length, '\x4C');
        bytes = PackageEvent::createEventPackage(
            eventOf(1, 0, QString::fromLatin1(command.toHex()), QStringLiteral("A")));
        QByteArray expected(1, '\x01');
        expected += static_cast<char>(length);
        expected += static_cast<char>(length >> 8);
        QCOMPARE(bytes, slotOf(expected + command + hex("02 0041")));
        QCOMPARE(bytes.size(), qMax(512, 3 + length + 3));
    }
    const QString longText(300, QLatin1Char('A'));
    bytes = PackageEvent::createEventPackage(eventOf(1, 5, QStringLiteral("1*10ms"), longText));
    QCOMPARE(bytes, hex("01 0700 4c0100a5a5000a 58") + utf16(longText));
}

void TestPackageEvent::findsTheKind_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<int>("type");
    const auto row = [](const char* command, int type) {
        QTest::newRow(command) << hex(command) << type;
    };
    // Below 7 bytes nothing is looked at.
    row("", 0);
    row("4c0100a5a500", 0);
    row("4c0100241700", 0);
    row("4c0100a50200", 0);
    row("4c0100a5a500fa", 5);
    row("4c0100a5a500fa00", 0);
    row("4c0100a50200fa", 6);
    row("4c0100a50200fa00", 6);
    row("4c0100a50300fa", 0);
    row("4c01002510035201", 0);
    row("4c01002510035202", 1);
    row("4c01002510035203", 0);
    row("4c0100251003520210", 1);
    row("4c01002511035202", 0);
    // Seven bytes have no byte 7: the description's length does not count.
    row("4c010025100352", 0);
    row("4c010024170252", 2);
    row("4c010024a70252", 3);
    row("4c010024180252", 4);
    row("4c010024190252", 0);
    row("4c010020a50252", 3);
    row("4c010020a60252", 3);
    row("4c010020a70252", 0);
    row("4c010021a50252", 0);
    // The first bytes of a command are not looked at.
    row("00000024170252", 2);
}

void TestPackageEvent::findsTheKind()
{
    QFETCH(QByteArray, command);
    QFETCH(int, type);
    EventInfo read = parsed(block(9, command, hex("0041")));
    QCOMPARE(static_cast<int>(read.getEventType()), type);
    if (type != EventInfo::EVENT_DELAY)
        QCOMPARE(read.getEventProtocal(), QString::fromLatin1(command.toHex(' ')));
    QCOMPARE(read.getEventId(), 9);
    QCOMPARE(read.getEventProtocolType(), true);
    QCOMPARE(read.getEventInstruction(), QStringLiteral("A"));
    QCOMPARE(read.getEventName(), QStringLiteral("事件名称01"));
}

void TestPackageEvent::readsDescriptions_data()
{
    QTest::addColumn<QByteArray>("description");
    QTest::addColumn<QString>("instruction");
    QTest::addColumn<QString>("name");
    const auto row = [](const char* text, const char* instruction, const char* name) {
        QTest::newRow(text) << utf16(QString::fromUtf8(text)) << QString::fromUtf8(instruction)
                            << QString::fromUtf8(name);
    };
    row("", "", "事件名称01");
    row("abc", "abc", "事件名称01");
    row("打开", "打开", "事件名称01");
    row("a$b", "a$b", "事件名称01");
    row("abc$$def", "abc", "def");
    row("abc$$def$$ghi", "abc", "def");
    row("abc$$", "abc", "");
    row("$$def", "", "def");
    row("$$", "", "");
    row("a$$$b", "a", "$b");
    row("a$$$$b", "a", "");
    QTest::newRow("NUL") << hex("0041 0000 0042") << "A"
                         << "事件名称01";
    QTest::newRow("NUL before $$") << hex("0041 0000 0024 0024 0042") << "A"
                                   << "事件名称01";
    QTest::newRow("NUL in the name") << hex("0041 0024 0024 0042 0000 0043") << "A"
                                     << "B";
    QTest::newRow("odd") << hex("0041 42") << "AB"
                         << "事件名称01";
    QTest::newRow("open surrogate") << hex("0041 d800") << "A"
                                    << "事件名称01";
    QTest::newRow("longest") << QByteArray(255, '\x41') << QString(127, QChar(0x4141)) + 'A'
                             << "事件名称01";
}

void TestPackageEvent::readsDescriptions()
{
    QFETCH(QByteArray, description);
    QFETCH(QString, instruction);
    QFETCH(QString, name);
    EventInfo read = parsed(block(1, hex("4c0100"), description));
    QCOMPARE(read.getEventInstruction(), instruction);
    QCOMPARE(read.getEventName(), name);
    QCOMPARE(read.getEventProtocal(), QStringLiteral("4c 01 00"));
}

void TestPackageEvent::limitsTheCommand_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("318") << 318 << true;
    QTest::newRow("319") << 319 << true;
    QTest::newRow("320") << 320 << false;
    QTest::newRow("32768") << 0x8000 << false;
    QTest::newRow("65535") << 0xFFFF << false;
}

void TestPackageEvent::limitsTheCommand()
{
    QFETCH(int, length);
    QFETCH(bool, accepted);
    EventModel model;
    QString error = QStringLiteral("before");
    const QByteArray frame =
        replyFrame(eventDataType, block(1, QByteArray(length, '\x20')).left(slotSize), slotSize);
    QCOMPARE(parse(frame, model, error), accepted);
    QCOMPARE(model.size(), accepted ? 1 : 0);
    QCOMPARE(error, accepted ? QStringLiteral("before") : QStringLiteral("有效数据长度超出范围！"));
    if (accepted)
        QCOMPARE(model.at(0).getEventProtocal().size(), 3 * length - 1);
}

void TestPackageEvent::appendsToTheModel()
{
    EventModel model;
    model.push_back(eventOf(77, 0, {}));
    QString error;
    QVERIFY(parse(replyFrame(eventDataType, block(5, hex("4c"))), model, error));
    QCOMPARE(model.size(), 2);
    QCOMPARE(model.at(0).getEventId(), 77);
    QCOMPARE(model.at(1).getEventId(), 5);
}

void TestPackageEvent::shortFramesReadAsZeros()
{
    const QByteArray whole =
        replyFrame(eventDataType, block(5, hex("4c01002510035202"), hex("0041 0042")));
    for (int size = 20; size < 60; ++size) {
        EventModel model;
        QString error;
        QVERIFY(parse(whole.left(size), model, error));
        QVERIFY(model.at(0) == parsed(whole.left(size).mid(18)));
    }
    EventModel model;
    QString error;
    QVERIFY(parse(replyFrame(eventDataType, {}, slotSize), model, error));
    QVERIFY(model.at(0) == eventOf(0, 0, {}));
}

void TestPackageEvent::descriptionsRunIntoTheTrailer()
{
    // The longest command leaves the slot 189 bytes, and the description claims 255. The trailer's
    // bytes are read like any others, and after them there is nothing but zeros.
    QByteArray bytes = block(1, QByteArray(319, '\x20')).left(323);
    bytes[322] = '\xFF';
    for (int i = 0; i < 94; ++i)
        bytes += hex("0041");
    bytes += hex("00");
    QByteArray frame = replyFrame(eventDataType, bytes);
    frame.replace(frame.size() - 2, 2, hex("4243"));

    EventModel model;
    QString error;
    QVERIFY(parse(frame, model, error));
    QCOMPARE(model.at(0).getEventInstruction(),
        QString(94, QLatin1Char('A')) + QLatin1Char('B') + QChar(0x4300));
}

void TestPackageEvent::asymmetries_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<int>("typeRead");
    QTest::addColumn<QString>("protocolRead");
    QTest::newRow("upper case") << 0 << "4C01" << 0 << "4c 01";
    QTest::newRow("kind from the command")
        << 0 << "4c 01 00 24 17 00 00" << 2 << "4c 01 00 24 17 00 00";
    QTest::newRow("kind without command") << 4 << "4c 01" << 0 << "4c 01";
    QTest::newRow("delay as command") << 0 << "4c 01 00 a5 a5 00 fa" << 5 << "25*10ms";
    QTest::newRow("wrapped delay") << 5 << "7000*10ms" << 5 << "446.4*10ms";
    QTest::newRow("bare delay") << 5 << "25" << 5 << "25*10ms";
}

void TestPackageEvent::asymmetries()
{
    QFETCH(int, type);
    QFETCH(QString, protocol);
    QFETCH(int, typeRead);
    QFETCH(QString, protocolRead);
    EventInfo written = eventOf(300, type, protocol);
    written.setEventName(QStringLiteral("name"));
    written.setEventProtocolType(false);
    QVERIFY(
        parsed(PackageEvent::createEventPackage(written)) == eventOf(44, typeRead, protocolRead));
}

void TestPackageEvent::writesLists()
{
    const QList<EventInfo> events = {
        eventOf(1, 0, QStringLiteral("4c")), eventOf(2, 5, QStringLiteral("1*10ms"))};
    EventModel model;
    model.setEventInfo(events);
    const QByteArray expected = '\x02' + PackageEvent::createEventPackage(events[0])
        + PackageEvent::createEventPackage(events[1]);
    QCOMPARE(PackageEvent::createEventListPackage(events), expected);
    QCOMPARE(PackageEvent::createEventListPackage(model), expected);
    QCOMPARE(PackageEvent::createEventListPackage(QList<EventInfo>()), hex("00"));

    QList<EventInfo> many;
    for (int i = 0; i < 258; ++i)
        many.append(eventOf(i, 0, {}));
    const QByteArray bytes = PackageEvent::createEventListPackage(many);
    QCOMPARE(bytes.size(), 1 + 258 * slotSize);
    QCOMPARE(bytes.at(0), '\x02');
}

void TestPackageEvent::listsKeepTheirStride()
{
    // A block that outgrows its slot moves none of the others.
    const QString longText(300, QLatin1Char('A'));
    const QList<EventInfo> events = {eventOf(1, 0, {}, longText), eventOf(2, 0, {}, longText)};
    const QByteArray bytes = PackageEvent::createEventListPackage(events);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(bytes.mid(1 + i * slotSize, slotSize),
            PackageEvent::createEventPackage(events[i]).left(slotSize));
    }
    // What outgrew its slot is not overwritten: the next block is put in before it.
    QCOMPARE(bytes,
        '\x02' + PackageEvent::createEventPackage(events[0]).left(slotSize)
            + PackageEvent::createEventPackage(events[1])
            + PackageEvent::createEventPackage(events[0]).mid(slotSize));
}

void TestPackageEvent::readsLists()
{
    EventModel written;
    written.push_back(eventOf(1, 0, QStringLiteral("4c 01"), QStringLiteral("one")));
    written.push_back(eventOf(2, 5, QStringLiteral("25*10ms"), QStringLiteral("two")));
    const QByteArray bytes = PackageEvent::createEventListPackage(written);

    EventModel model;
    model.push_back(eventOf(77, 0, {}));
    QString error = QStringLiteral("before");
    QVERIFY(PackageEvent::parseEventListPackage(countDataType, replyFrame(countDataType, bytes),
        static_cast<uint>(bytes.size()), model, error));
    QCOMPARE(error, QStringLiteral("before"));
    QCOMPARE(model.size(), 3);
    model.removeAt(0);
    QVERIFY(model == written);
}

void TestPackageEvent::listsHaveNoCommandLimit()
{
    EventModel written;
    written.push_back(eventOf(1, 0, QString::fromLatin1(QByteArray(400, '\x11').toHex(' '))));
    const QByteArray bytes = PackageEvent::createEventListPackage(written);
    EventModel model;
    QString error;
    QVERIFY(PackageEvent::parseEventListPackage(
        countDataType, replyFrame(countDataType, bytes), 513, model, error));
    QVERIFY(model == written);
}

void TestPackageEvent::listsWantWholeBlocks_data()
{
    QTest::addColumn<int>("dataLength");
    QTest::addColumn<bool>("whole");
    for (const int length : {0, 1, 2, 512, 513, 514, 1024, 1025})
        QTest::addRow("%d", length) << length << (length % 512 == 1);
}

void TestPackageEvent::listsWantWholeBlocks()
{
    QFETCH(int, dataLength);
    QFETCH(bool, whole);
    EventModel model;
    QString error = QStringLiteral("before");
    const QByteArray payload = slotOf(hex("01"), dataLength);
    QCOMPARE(PackageEvent::parseEventListPackage(countDataType,
                 replyFrame(countDataType, payload, dataLength), static_cast<uint>(dataLength),
                 model, error),
        whole);
    QCOMPARE(error, whole ? QStringLiteral("before") : QStringLiteral("数据包不完整！"));
    QCOMPARE(model.size(), whole ? 1 : 0);
}

void TestPackageEvent::shortListsReadAsZeros()
{
    EventModel model;
    QString error;
    QVERIFY(PackageEvent::parseEventListPackage(
        countDataType, replyFrame(countDataType, hex("ff 05 ffff 4c"), 1), 1, model, error));
    QCOMPARE(model.size(), 255);
    QCOMPARE(model.at(0).getEventId(), 5);
    QCOMPARE(model.at(0).getEventProtocal().size(), 3 * 0xFFFF - 1);
    QVERIFY(model.at(254) == eventOf(0, 0, {}));
}

void TestPackageEvent::eventsSurvive()
{
    const QByteArray heads[] = {hex("4c010025100352 01"), hex("4c010025100352 02"),
        hex("4c0100241702"), hex("4c010024a702"), hex("4c0100241802"), hex("4c010020a602"),
        hex("4c0100a50200")};
    const int types[] = {0, 1, 2, 3, 4, 3, 6};
    QRandomGenerator random(11);
    for (int run = 0; run < 2000; ++run) {
        const int kind = random.bounded(7);
        const QByteArray command = heads[kind] + randomBytes(random, 1 + random.bounded(300));
        const QString instruction = randomDescription(random, 63);

        EventInfo written = eventOf(
            random.bounded(256), types[kind], QString::fromLatin1(command.toHex(' ')), instruction);
        QVERIFY(parsed(PackageEvent::createEventPackage(written)) == written);

        // A caller that writes the name into the instruction gets it back.
        written.setEventInstruction(instruction + QStringLiteral("$$name"));
        EventInfo read = parsed(PackageEvent::createEventPackage(written));
        QCOMPARE(read.getEventInstruction(), instruction);
        QCOMPARE(read.getEventName(), QStringLiteral("name"));

        const EventInfo delay = eventOf(random.bounded(256), 5,
            QStringLiteral("%1*10ms").arg(random.bounded(6554)), instruction);
        QVERIFY(parsed(PackageEvent::createEventPackage(delay)) == delay);
    }
}

void TestPackageEvent::randomRepliesDoNoHarm()
{
    const QByteArray record = block(5, hex("4c01002510035202"), utf16(QStringLiteral("abc$$def")));
    feedRandomReplies(eventDataType, slotSize, record, [](const QByteArray& frame) {
        EventModel model;
        QString error;
        const bool read = parse(frame, model, error);
        QCOMPARE(error.isEmpty(), read);
        QCOMPARE(model.size(), read ? 1 : 0);
        int count = 0;
        PackageEvent::parseEventCount(eventDataType, frame, slotSize, count, error);
    });
    // Few counts, since each event may claim to have a command of 65535 bytes.
    feedRandomReplies(countDataType, 513, '\x02' + record, [](QByteArray frame) {
        if (frame.size() > 18)
            frame[18] = static_cast<char>(frame.at(18) & 0x07);
        EventModel model;
        QString error;
        const bool read =
            PackageEvent::parseEventListPackage(countDataType, frame, 513, model, error);
        QCOMPARE(error.isEmpty(), read);
        QCOMPARE(model.size(), read && frame.size() > 18 ? frame.at(18) : 0);
    });
}

void TestPackageEvent::takesAParent()
{
    QObject parent;
    const auto* made = new PackageEvent(&parent);
    QCOMPARE(made->parent(), &parent);
}

QTEST_APPLESS_MAIN(TestPackageEvent)
#include "tst_packageevent.moc"
