// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "protocolcreate.h"

#include "framefaults.h"
#include "randomreplies.h"
#include "systemmodel.h"

#include <QtTest/QTest>

namespace {

constexpr uint comDataType = 0xF0001000;
constexpr uint ioDataType = 0xF0001100;

ComInfo port(int baudRate, int dataBits, int stopBits, int inspection)
{
    ComInfo info;
    info.setBaudRate(baudRate);
    info.setDataBits(dataBits);
    info.setStopBits(stopBits);
    info.setInspectionType(static_cast<inspectionType>(inspection));
    return info;
}

IOType line(int value)
{
    return static_cast<IOType>(value);
}

QList<IOType> lines(std::initializer_list<int> values)
{
    QList<IOType> list;
    for (const int value : values)
        list.append(line(value));
    return list;
}

SystemModel filledModel()
{
    SystemModel model;
    model.setComInfo({port(1, 2, 3, 1)});
    model.setIOType(lines({1, 0}));
    return model;
}

bool parse(
    const QByteArray& frame, uint dataType, int dataLength, SystemModel& model, QString& error)
{
    return ProtocolCreate::parseConfigPackage(
        dataType, frame, static_cast<uint>(dataLength), model, error);
}

/** Reads a block that must be accepted. */
SystemModel parsed(uint dataType, const QByteArray& block)
{
    SystemModel model = filledModel();
    QString error;
    const bool read = parse(replyFrame(dataType, block), dataType, block.size(), model, error);
    return read ? model : SystemModel();
}

} // namespace

class TestProtocolCreate : public QObject {
    Q_OBJECT

private slots:
    void testsTheFrame();
    void writesPorts_data();
    void writesPorts();
    void readsPorts_data();
    void readsPorts();
    void writesLines_data();
    void writesLines();
    void readsLines_data();
    void readsLines();
    void wantsWholeRecords_data();
    void wantsWholeRecords();
    void lengthZeroGivesEmptyLists();
    void recordsEndWithTheFrame_data();
    void recordsEndWithTheFrame();
    void readsTheLastRecordIntoTheTrailer();
    void otherDataTypesChangeNothing();
    void replacesOneListOnly();
    void configurationsSurvive();
    void randomRepliesDoNoHarm();
    void takesAParentOrNone();
};

void TestProtocolCreate::testsTheFrame()
{
    SystemModel model = filledModel();
    const auto bound = [&](uint dataType, const QByteArray& frame, int dataLength, QString& error) {
        return parse(frame, dataType, dataLength, model, error);
    };
    const QString otherLength = QStringLiteral("数据包长度与请求数据长度不一致！");
    checkFrameFaults(bound, comDataType, 14, otherLength);
    checkFrameFaults(bound, ioDataType, 16, otherLength);
    checkFrameFaults(bound, 0x12345678, 5, otherLength);
    QVERIFY(model == filledModel());
}

void TestProtocolCreate::writesPorts_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, const QList<ComInfo>& ports, const char* expected) {
        SystemModel model;
        model.setComInfo(ports);
        QTest::addRow("%s, list", name) << ProtocolCreate::createComPackage(ports) << hex(expected);
        QTest::addRow("%s, model", name)
            << ProtocolCreate::createComPackage(model) << hex(expected);
    };
    row("none", {}, "");
    row("default", {ComInfo()}, "00c20100 08 01 00");
    row("value 0", {port(9600, 7, 2, 0)}, "80250000 07 02 01");
    row("value 1", {port(9600, 7, 2, 1)}, "80250000 07 02 02");
    row("value 2", {port(9600, 7, 2, 2)}, "80250000 07 02 00");
    row("value 3", {port(9600, 7, 2, 3)}, "80250000 07 02 00");
    row("value -1", {port(9600, 7, 2, -1)}, "80250000 07 02 00");
    row("low bytes", {port(0x12345678, 0x1FE, -1, 2)}, "78563412 fe ff 00");
    row("negative", {port(-2, 0, 0, 2)}, "feffffff 00 00 00");
    row("in order", {ComInfo(), port(1, 2, 3, 1)}, "00c20100080100 01000000 02 03 02");
}

void TestProtocolCreate::writesPorts()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, expected);
    QCOMPARE(bytes, expected);
}

void TestProtocolCreate::readsPorts_data()
{
    QTest::addColumn<QByteArray>("block");
    QTest::addColumn<int>("baudRate");
    QTest::addColumn<int>("dataBits");
    QTest::addColumn<int>("stopBits");
    QTest::addColumn<int>("inspection");
    QTest::newRow("default") << hex("00c20100080100") << 115200 << 8 << 1 << 2;
    QTest::newRow("byte 0") << hex("80250000070200") << 9600 << 7 << 2 << 2;
    QTest::newRow("byte 1") << hex("80250000070201") << 9600 << 7 << 2 << 0;
    QTest::newRow("byte 2") << hex("80250000070202") << 9600 << 7 << 2 << 1;
    QTest::newRow("byte 3") << hex("80250000070203") << 9600 << 7 << 2 << 2;
    QTest::newRow("byte 255") << hex("802500000702ff") << 9600 << 7 << 2 << 2;
    QTest::newRow("signed bytes") << hex("feffffff80ff00") << -2 << -128 << -1 << 2;
    QTest::newRow("largest") << hex("ffffff7f7f7f00") << 0x7FFFFFFF << 127 << 127 << 2;
    QTest::newRow("zeros") << hex("00000000000000") << 0 << 0 << 0 << 2;
}

void TestProtocolCreate::readsPorts()
{
    QFETCH(QByteArray, block);
    QFETCH(int, baudRate);
    QFETCH(int, dataBits);
    QFETCH(int, stopBits);
    QFETCH(int, inspection);
    QList<ComInfo> ports = parsed(comDataType, block).getComInfo();
    QCOMPARE(ports.size(), 1);
    QCOMPARE(ports[0].getBaudRate(), baudRate);
    QCOMPARE(ports[0].getDataBits(), dataBits);
    QCOMPARE(ports[0].getStopBits(), stopBits);
    QCOMPARE(static_cast<int>(ports[0].getInspectionType()), inspection);
}

void TestProtocolCreate::writesLines_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, const QList<IOType>& list, const char* expected) {
        SystemModel model;
        model.setIOType(list);
        QTest::addRow("%s, list", name) << ProtocolCreate::createIOPackage(list) << hex(expected);
        QTest::addRow("%s, model", name) << ProtocolCreate::createIOPackage(model) << hex(expected);
    };
    row("none", {}, "");
    row("value 0", lines({0}), "0100");
    row("value 1", lines({1}), "0001");
    row("value 2", lines({2}), "0000");
    row("other values", lines({3, -1, 256}), "010001000100");
    row("in order", lines({2, 1, 0, 1}), "0000000101000001");
}

void TestProtocolCreate::writesLines()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, expected);
    QCOMPARE(bytes, expected);
}

void TestProtocolCreate::readsLines_data()
{
    QTest::addColumn<QByteArray>("block");
    QTest::addColumn<QList<IOType>>("expected");
    QTest::newRow("value 0") << hex("0100") << lines({0});
    QTest::newRow("value 1") << hex("0001") << lines({1});
    QTest::newRow("value 2") << hex("0000") << lines({2});
    QTest::newRow("first byte decides") << hex("0101 01ff") << lines({0, 0});
    QTest::newRow("after value 1") << hex("0001 0002") << lines({1, 1});
    QTest::newRow("after value 2") << hex("0000 0200 ff01") << lines({2, 2, 2});
    QTest::newRow("after value 0") << hex("0100 0003") << lines({0, 0});
    QTest::newRow("the line before only") << hex("0001 0000 0002 0100") << lines({1, 2, 2, 0});
    QTest::newRow("no line before") << hex("0002") << lines({0});
}

void TestProtocolCreate::readsLines()
{
    QFETCH(QByteArray, block);
    QFETCH(QList<IOType>, expected);
    QCOMPARE(parsed(ioDataType, block).getIOType(), expected);
}

void TestProtocolCreate::wantsWholeRecords_data()
{
    QTest::addColumn<uint>("dataType");
    QTest::addColumn<int>("dataLength");
    QTest::addColumn<bool>("whole");
    for (const int length : {0, 1, 6, 7, 8, 13, 14, 15, 112})
        QTest::addRow("ports, %d", length) << comDataType << length << (length % 7 == 0);
    for (const int length : {0, 1, 2, 3, 31, 32, 33})
        QTest::addRow("lines, %d", length) << ioDataType << length << (length % 2 == 0);
}

void TestProtocolCreate::wantsWholeRecords()
{
    QFETCH(uint, dataType);
    QFETCH(int, dataLength);
    QFETCH(bool, whole);
    SystemModel model = filledModel();
    QString error = QStringLiteral("before");
    const QByteArray frame = replyFrame(dataType, QByteArray(dataLength, '\0'));
    QCOMPARE(parse(frame, dataType, dataLength, model, error), whole);
    QCOMPARE(error, whole ? QStringLiteral("before") : QStringLiteral("数据包不完整！"));
    if (!whole)
        QVERIFY(model == filledModel());

    // The length field is looked at first.
    QVERIFY(!parse(replyFrame(dataType, QByteArray(dataLength, '\0'), dataLength + 1), dataType,
        dataLength, model, error));
    QCOMPARE(error, QStringLiteral("数据包长度与请求数据长度不一致！"));
}

void TestProtocolCreate::lengthZeroGivesEmptyLists()
{
    QVERIFY(parsed(comDataType, {}).getComInfo().isEmpty());
    QCOMPARE(parsed(comDataType, {}).getIOType(), lines({1, 0}));
    QVERIFY(parsed(ioDataType, {}).getIOType().isEmpty());
    QCOMPARE(parsed(ioDataType, {}).getComInfo().size(), 1);
}

void TestProtocolCreate::recordsEndWithTheFrame_data()
{
    QTest::addColumn<int>("frameSize");
    QTest::addColumn<int>("ports");
    QTest::addColumn<int>("lines");
    QTest::newRow("20") << 20 << 0 << 0;
    QTest::newRow("21") << 21 << 1 << 1;
    QTest::newRow("22") << 22 << 1 << 1;
    QTest::newRow("23") << 23 << 1 << 2;
    QTest::newRow("27") << 27 << 1 << 4;
    QTest::newRow("28") << 28 << 2 << 4;
    QTest::newRow("34") << 34 << 2 << 7;
    QTest::newRow("35") << 35 << 3 << 8;
}

void TestProtocolCreate::recordsEndWithTheFrame()
{
    QFETCH(int, frameSize);
    QFETCH(int, ports);
    QFETCH(int, lines);
    // The data length has no part in it: 0 and 14 are the same.
    for (const int dataLength : {0, 14}) {
        const QByteArray payload(frameSize - 20, '\0');
        SystemModel model;
        QString error;
        QVERIFY(parse(
            replyFrame(comDataType, payload, dataLength), comDataType, dataLength, model, error));
        QVERIFY(parse(
            replyFrame(ioDataType, payload, dataLength), ioDataType, dataLength, model, error));
        QCOMPARE(model.getComInfo().size(), ports);
        QCOMPARE(model.getIOType().size(), lines);
    }
}

void TestProtocolCreate::readsTheLastRecordIntoTheTrailer()
{
    // Three bytes of payload, two of trailer, and then nothing.
    SystemModel model;
    QString error;
    QByteArray frame = replyFrame(comDataType, hex("010203"), 7);
    frame.chop(2);
    frame += hex("0409");
    QVERIFY(parse(frame, comDataType, 7, model, error));
    QList<ComInfo> ports = model.getComInfo();
    QCOMPARE(ports.size(), 1);
    QVERIFY(ports[0] == port(0x04030201, 9, 0, 2));

    frame = replyFrame(ioDataType, hex("00"), 2);
    frame.chop(2);
    frame += hex("01ff");
    QVERIFY(parse(frame, ioDataType, 2, model, error));
    QCOMPARE(model.getIOType(), lines({1}));
}

void TestProtocolCreate::otherDataTypesChangeNothing()
{
    for (const uint dataType : {0U, 0xF0001001U, 0xF0001101U, 0xF0010000U}) {
        SystemModel model = filledModel();
        QString error = QStringLiteral("before");
        QVERIFY(parse(replyFrame(dataType, hex("0102030405")), dataType, 5, model, error));
        QVERIFY(model == filledModel());
        QCOMPARE(error, QStringLiteral("before"));
    }
}

void TestProtocolCreate::replacesOneListOnly()
{
    SystemModel model = parsed(comDataType, hex("00c20100080100"));
    QCOMPARE(model.getComInfo(), QList<ComInfo>({ComInfo()}));
    QCOMPARE(model.getIOType(), lines({1, 0}));

    model = parsed(ioDataType, hex("0000"));
    QCOMPARE(model.getComInfo(), QList<ComInfo>({port(1, 2, 3, 1)}));
    QCOMPARE(model.getIOType(), lines({2}));
}

void TestProtocolCreate::configurationsSurvive()
{
    QRandomGenerator random(3);
    for (int run = 0; run < 300; ++run) {
        QList<ComInfo> ports;
        for (int i = random.bounded(20); i > 0; --i)
            ports.append(port(static_cast<int>(random.generate()), random.bounded(-128, 128),
                random.bounded(-128, 128), random.bounded(3)));
        QList<IOType> list;
        for (int i = random.bounded(40); i > 0; --i)
            list.append(line(random.bounded(3)));

        SystemModel model = parsed(comDataType, ProtocolCreate::createComPackage(ports));
        QCOMPARE(model.getComInfo(), ports);
        model = parsed(ioDataType, ProtocolCreate::createIOPackage(list));
        QCOMPARE(model.getIOType(), list);
    }
}

void TestProtocolCreate::randomRepliesDoNoHarm()
{
    const QByteArray record = hex("00c20100080100 00c20100080100");
    for (const uint dataType : {comDataType, ioDataType}) {
        feedRandomReplies(dataType, 14, record, [&](const QByteArray& frame) {
            SystemModel model;
            QString error;
            const bool read = parse(frame, dataType, 14, model, error);
            QCOMPARE(error.isEmpty(), read);
            if (read && dataType == ioDataType)
                QCOMPARE(model.getIOType().size(), (frame.size() - 19) / 2);
        });
    }
}

void TestProtocolCreate::takesAParentOrNone()
{
    QObject parent;
    const auto* made = new ProtocolCreate(&parent);
    QCOMPARE(made->parent(), &parent);
    QCOMPARE(ProtocolCreate().parent(), nullptr);
}

QTEST_APPLESS_MAIN(TestProtocolCreate)
#include "tst_protocolcreate.moc"
