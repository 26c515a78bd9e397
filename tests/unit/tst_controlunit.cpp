// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "controlunit.h"
#include "upgradewrites.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QtEndian>
#include <QtTest/QtTest>

using namespace QuadrelUnit;

namespace {

QByteArray fromHex(const char* text)
{
    return QByteArray::fromHex(text);
}

QByteArray read(ControlUnit& unit, quint32 address, int length)
{
    return unit.answer(UnitFrame::readRequest(1, address, static_cast<quint16>(length)))
        .reply.payload;
}

UnitAnswer write(ControlUnit& unit, quint32 address, const QByteArray& data)
{
    return unit.answer(UnitFrame::writeRequest(2, address, data));
}

/** An upgrade with two empty images, the announcements alone: the answer to the last of them. */
UnitAnswer emptyUpgrade(ControlUnit& unit)
{
    UnitAnswer answer;
    const QList<UpgradeWrite> writes = upgradeWrites(QByteArray(), QByteArray());
    for (const UpgradeWrite& part : writes)
        answer = write(unit, part.address, part.data);
    return answer;
}

} // namespace

class TestControlUnit : public QObject {
    Q_OBJECT

private slots:
    void leavesTheWorksConfigured();
    void answersAReadWithWhatWasAskedFor_data();
    void answersAReadWithWhatWasAskedFor();
    void sendsInfraredPortsBehindItsInformation();
    void answersAWriteWithoutData();
    void keepsWhatIsWritten_data();
    void keepsWhatIsWritten();
    void takesANewAddress();
    void keepsTheRestOfItsInformation_data();
    void keepsTheRestOfItsInformation();
    void resets_data();
    void resets();
    void resetsByAWiderWrite();
    void showsItsClock();
    void showsPartsOfItsClock();
    void setsItsClock();
    void setsPartsOfItsClock();
    void runsOnAfterABadTime();
    void takesAnUpgrade();
    void takesAnEmptyUpgrade();
    void keepsOddNetworkBytesInAnUpgrade();
    void reportsTheVersionItWasTold();
    void refusesAnUpgradeOutOfOrder();
    void keepsNoImagesInItsMemory();
    void refusesWritesBeyondItsMemory_data();
    void refusesWritesBeyondItsMemory();
    void refusesUpgradesBeyondItsMemory();
};

void TestControlUnit::leavesTheWorksConfigured()
{
    UnitSettings settings;
    settings.serialPorts = 2;
    settings.ioLines = 3;
    ControlUnit unit(settings);
    QCOMPARE(read(unit, 0xF0000000, 32), settings.informationBlock());
    QCOMPARE(read(unit, 0xF0001000, 21), fromHex("00c20100080100 00c20100080100 00000000000000"));
    QCOMPARE(read(unit, 0xF0001100, 8), fromHex("0100 0100 0100 0000"));
    QCOMPARE(read(unit, 0xF0010000, 513), QByteArray(513, '\0'));
    QCOMPARE(read(unit, 0xF0020000, 513), QByteArray(513, '\0'));
}

void TestControlUnit::answersAReadWithWhatWasAskedFor_data()
{
    QTest::addColumn<quint32>("address");
    QTest::addColumn<int>("length");
    QTest::newRow("information") << quint32(0xF0000000) << 32;
    QTest::newRow("more than the information") << quint32(0xF0000000) << 33;
    QTest::newRow("nothing") << quint32(0xF0000000) << 0;
    QTest::newRow("a record") << quint32(0xF0020001) << 512;
    QTest::newRow("clock") << quint32(0x02000011) << 6;
    QTest::newRow("nothing of the clock") << quint32(0x02000011) << 0;
    QTest::newRow("the most") << quint32(0xFFFFFFFF) << 65535;
}

void TestControlUnit::answersAReadWithWhatWasAskedFor()
{
    QFETCH(quint32, address);
    QFETCH(int, length);
    ControlUnit unit;
    const UnitAnswer answer =
        unit.answer(UnitFrame::readRequest(77, address, static_cast<quint16>(length)));
    QCOMPARE(answer.reply.label, quint8(77));
    QCOMPARE(answer.reply.address, address);
    QCOMPARE(int(answer.reply.dataLength), length);
    QCOMPARE(answer.reply.payload.size(), length);
    QCOMPARE(answer.reply.encode().size(), 20 + length);
    QVERIFY(!answer.changed);
    QVERIFY(!answer.restarts);
    QVERIFY(!answer.upgraded);
    QVERIFY(answer.notice.isEmpty());
}

void TestControlUnit::sendsInfraredPortsBehindItsInformation()
{
    for (int ports = 0; ports < 256; ++ports) {
        UnitSettings settings;
        settings.infraredPorts = static_cast<quint8>(ports);
        ControlUnit unit(settings);
        QCOMPARE(int(unit.settings().infraredPorts), ports);
        const quint8 label = static_cast<quint8>(ports * 7);
        const QByteArray frame =
            unit.answer(UnitFrame::readRequest(label, 0xF0000000, 32)).reply.encode();
        QCOMPARE(frame.size(), 52);
        QCOMPARE(int(static_cast<quint8>(frame.at(50))), ports);
    }
}

void TestControlUnit::answersAWriteWithoutData()
{
    ControlUnit unit;
    const UnitAnswer answer = unit.answer(UnitFrame::writeRequest(78, 0xF0001000, "abc"));
    QCOMPARE(answer.reply.label, quint8(78));
    QCOMPARE(answer.reply.address, quint32(0xF0001000));
    QCOMPARE(answer.reply.dataLength, quint16(0));
    QVERIFY(answer.reply.payload.isEmpty());
    QVERIFY(answer.changed);

    QVERIFY(!write(unit, 0xF0001000, "").changed);
    QCOMPARE(read(unit, 0xF0001000, 3), QByteArray("abc"));
}

void TestControlUnit::keepsWhatIsWritten_data()
{
    QTest::addColumn<quint32>("address");
    QTest::addColumn<int>("length");
    QTest::newRow("serial ports") << quint32(0xF0001000) << 63;
    QTest::newRow("IO lines") << quint32(0xF0001100) << 24;
    QTest::newRow("trigger count") << quint32(0xF0010000) << 1;
    QTest::newRow("four triggers") << quint32(0xF0010801) << 2048;
    QTest::newRow("event count") << quint32(0xF0020000) << 1;
    QTest::newRow("last event") << quint32(0xF0020001 + 127 * 512) << 512;
    QTest::newRow("remark") << quint32(0x18201000) << 90;
    QTest::newRow("anywhere") << quint32(0x12345678) << 65535;
    QTest::newRow("right after the information block") << quint32(0xF0000020) << 5;
    QTest::newRow("right before the clock") << quint32(0x02000001) << 16;
    QTest::newRow("right after the clock") << quint32(0x02000017) << 5;
}

void TestControlUnit::keepsWhatIsWritten()
{
    QFETCH(quint32, address);
    QFETCH(int, length);
    ControlUnit unit;
    const QByteArray data(length, '\xA7');
    const UnitAnswer answer = write(unit, address, data);
    QVERIFY(answer.changed);
    QVERIFY(answer.notice.isEmpty());
    QCOMPARE(read(unit, address, length), data);
    QCOMPARE(read(unit, 0xF0000000, 32), UnitSettings().informationBlock());
}

void TestControlUnit::takesANewAddress()
{
    UnitSettings settings;
    settings.dhcp = true;
    ControlUnit unit(settings);
    const UnitAnswer answer = write(unit, 0xF000000E, fromHex("00 0a01a8c0 00ffffff 0101a8c0"));
    QVERIFY(answer.changed);
    QVERIFY(!answer.restarts);
    settings.dhcp = false;
    settings.ip = {192, 168, 1, 10};
    QCOMPARE(read(unit, 0xF0000000, 32), settings.informationBlock());
    QCOMPARE(read(unit, 0xF000000E, 13), settings.networkCell());
}

void TestControlUnit::keepsTheRestOfItsInformation_data()
{
    QTest::addColumn<quint32>("address");
    QTest::addColumn<int>("length");
    QTest::newRow("model") << quint32(0xF0000000) << 2;
    QTest::newRow("all before the network cell") << quint32(0xF0000000) << 14;
    QTest::newRow("link") << quint32(0xF000001B) << 1;
    QTest::newRow("counts") << quint32(0xF000001D) << 3;
    QTest::newRow("from before the block") << quint32(0xEFFFFF00) << 256 + 14;
}

void TestControlUnit::keepsTheRestOfItsInformation()
{
    QFETCH(quint32, address);
    QFETCH(int, length);
    ControlUnit unit;
    const QByteArray data(length, '\x5A');
    const UnitAnswer answer = write(unit, address, data);
    QVERIFY(!answer.restarts);
    QVERIFY(answer.notice.isEmpty());
    QCOMPARE(read(unit, 0xF0000000, 32), UnitSettings().informationBlock());
    if (address < 0xF0000000)
        QCOMPARE(read(unit, address, 256), data.left(256));
}

void TestControlUnit::resets_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<bool>("restarts");
    QTest::addColumn<bool>("keepsAddress");
    QTest::newRow("keep the address") << 1 << true << true;
    QTest::newRow("default address") << 0 << true << false;
    QTest::newRow("no such command") << 2 << false << true;
    QTest::newRow("no such command either") << 255 << false << true;
}

void TestControlUnit::resets()
{
    QFETCH(int, command);
    QFETCH(bool, restarts);
    QFETCH(bool, keepsAddress);
    UnitSettings settings;
    ControlUnit unit(settings);
    const QByteArray network = fromHex("01 01020304 05060708 090a0b0c");
    write(unit, 0xF000000E, network);

    const UnitAnswer answer = write(unit, 0xF000001C, QByteArray(1, static_cast<char>(command)));
    QCOMPARE(answer.restarts, restarts);
    QCOMPARE(answer.notice.isEmpty(), restarts);
    QCOMPARE(answer.reply.label, quint8(2));
    QCOMPARE(read(unit, 0xF000000E, 13), keepsAddress ? network : settings.networkCell());
    // The command itself leaves no trace.
    QCOMPARE(read(unit, 0xF000001C, 4), settings.informationBlock().right(4));
}

void TestControlUnit::resetsByAWiderWrite()
{
    ControlUnit unit;
    const QByteArray network = fromHex("01 01020304 05060708 090a0b0c");
    const UnitAnswer answer = write(unit, 0xF000000E, network + fromHex("00 01"));
    QVERIFY(answer.restarts);
    QCOMPARE(read(unit, 0xF000000E, 15), network + fromHex("01 00"));
}

void TestControlUnit::showsItsClock()
{
    ControlUnit unit;
    qint64 now = QDateTime({2026, 11, 14}, {6, 5, 49}).toMSecsSinceEpoch();
    unit.clock().setTimeSource([&now] { return now; });
    QCOMPARE(read(unit, 0x02000011, 6), fromHex("261114060549"));
    now += 11000;
    QCOMPARE(read(unit, 0x02000011, 6), fromHex("261114060600"));
}

void TestControlUnit::showsPartsOfItsClock()
{
    ControlUnit unit;
    const qint64 now = QDateTime({2026, 11, 14}, {6, 5, 49}).toMSecsSinceEpoch();
    unit.clock().setTimeSource([now] { return now; });
    write(unit, 0x0200000F, "ab");
    write(unit, 0x02000017, "yz");
    QCOMPARE(read(unit, 0x0200000F, 10), "ab" + fromHex("261114060549") + "yz");
    QCOMPARE(read(unit, 0x0200000F, 4), "ab" + fromHex("2611"));
    QCOMPARE(read(unit, 0x02000013, 2), fromHex("1406"));
    QCOMPARE(read(unit, 0x02000016, 3), fromHex("49") + "yz");
}

void TestControlUnit::setsItsClock()
{
    ControlUnit unit;
    qint64 now = 1700000000000;
    unit.clock().setTimeSource([&now] { return now; });
    const UnitMemory before = unit.memory();
    const UnitAnswer answer = write(unit, 0x02000011, fromHex("300131235959"));
    QVERIFY(answer.changed);
    QVERIFY(answer.notice.isEmpty());
    QCOMPARE(read(unit, 0x02000011, 6), fromHex("300131235959"));
    now += 1000;
    QCOMPARE(read(unit, 0x02000011, 6), fromHex("300201000000"));
    QVERIFY(unit.memory() == before);
}

void TestControlUnit::setsPartsOfItsClock()
{
    ControlUnit unit;
    unit.clock().setTimeSource([] { return qint64(1700000000000); });
    write(unit, 0x02000011, fromHex("300131235959"));
    write(unit, 0x02000014, fromHex("0807"));
    QCOMPARE(read(unit, 0x02000011, 6), fromHex("300131080759"));
    write(unit, 0x02000010, "!" + fromHex("29"));
    QCOMPARE(read(unit, 0x02000010, 3), "!" + fromHex("2901"));
}

void TestControlUnit::runsOnAfterABadTime()
{
    ControlUnit unit;
    unit.clock().setTimeSource([] { return qint64(1700000000000); });
    write(unit, 0x02000011, fromHex("300131235959"));
    const UnitAnswer answer = write(unit, 0x02000011, fromHex("301331235959"));
    QCOMPARE(answer.notice, QStringLiteral("the clock was given no date and time, and runs on"));
    QCOMPARE(read(unit, 0x02000011, 6), fromHex("300131235959"));
}

void TestControlUnit::takesAnUpgrade()
{
    ControlUnit unit;
    const QByteArray remark(90, 'r');
    write(unit, 0x01F00000, fromHex("05000000"));
    write(unit, 0x01F00004, fromHex("00000000"));
    write(unit, 0x01F0000C, fromHex("02000000"));
    write(unit, 0x01F00008, fromHex("02000100"));
    write(unit, 0x06000000, "ad");
    write(unit, 0x18200002, fromHex("0972"));
    write(unit, 0x18200000, fromHex("0000"));
    write(unit, 0x01F00000, fromHex("03000000"));
    write(unit, 0x01F00004, fromHex("00000000"));
    write(unit, 0x01F0000C, fromHex("03000000"));
    const UnitAnswer before = write(unit, 0x01F00008, fromHex("02000200"));
    QVERIFY(!before.upgraded);
    QVERIFY(!before.restarts);
    QCOMPARE(fourBytesText(unit.settings().version), QStringLiteral("1.0.0.0"));

    const UnitAnswer last = write(unit, 0x18000000, "str");
    QVERIFY(last.upgraded);
    QVERIFY(last.restarts);
    QVERIFY(last.changed);
    QVERIFY(last.notice.isEmpty());
    QCOMPARE(fourBytesText(unit.settings().version), QStringLiteral("1.0.0.1"));
    QCOMPARE(unit.upgrade().addressedImage(), QByteArray("ad"));
    QCOMPARE(unit.upgrade().streamedImage(), QByteArray("str"));

    const UnitAnswer remarked = write(unit, 0x18201000, remark);
    QVERIFY(!remarked.restarts);
    QCOMPARE(read(unit, 0x18201000, 90), remark);
}

void TestControlUnit::takesAnEmptyUpgrade()
{
    ControlUnit unit;
    QVERIFY(emptyUpgrade(unit).upgraded);
    QVERIFY(emptyUpgrade(unit).restarts);
    QCOMPARE(fourBytesText(unit.settings().version), QStringLiteral("1.0.0.2"));
}

void TestControlUnit::keepsOddNetworkBytesInAnUpgrade()
{
    ControlUnit unit;
    const QByteArray network = fromHex("07 01020304 05060708 090a0b0c");
    write(unit, 0xF000000E, network);
    emptyUpgrade(unit);
    QCOMPARE(read(unit, 0xF000000E, 13), network);
}

void TestControlUnit::reportsTheVersionItWasTold()
{
    ControlUnit unit;
    unit.setUpgradeVersion(FourBytes{4, 3, 2, 1});
    emptyUpgrade(unit);
    QCOMPARE(read(unit, 0xF0000000, 32).mid(2, 4), fromHex("04030201"));
}

void TestControlUnit::refusesAnUpgradeOutOfOrder()
{
    ControlUnit unit;
    const UnitAnswer answer = write(unit, 0x18000000, "str");
    QCOMPARE(answer.notice,
        QStringLiteral("upgrade out of order: a write at 0x18000000, and no upgrade was begun"));
    QVERIFY(!answer.upgraded);
    QVERIFY(!answer.restarts);
    QCOMPARE(fourBytesText(unit.settings().version), QStringLiteral("1.0.0.0"));
}

void TestControlUnit::keepsNoImagesInItsMemory()
{
    ControlUnit unit;
    const int pages = unit.memory().pages().size();
    QVERIFY(!write(unit, 0x06000000, QByteArray(2048, 'x')).changed);
    QVERIFY(!write(unit, 0x18000000, QByteArray(2048, 'x')).changed);
    QCOMPARE(unit.memory().pages().size(), pages);
    QCOMPARE(read(unit, 0x06000000, 4), QByteArray(4, '\0'));
}

void TestControlUnit::refusesWritesBeyondItsMemory_data()
{
    QTest::addColumn<quint32>("address");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("refusal");
    QTest::newRow("within") << quint32(0x1000) << 4096 << QString();
    QTest::newRow("one byte over")
        << quint32(0x1000) << 4097
        << QStringLiteral(
               "a write of 4097 bytes at 0x00001000 is over the memory limit of 12288 bytes");
    QTest::newRow("beside") << quint32(0xABCDEFFF) << 2
                            << QStringLiteral("a write of 2 bytes at 0xabcdefff is over the "
                                              "memory limit of 12288 bytes");
    QTest::newRow("what is there") << quint32(0xF0000000) << 4096 << QString();
    QTest::newRow("image, which takes no memory") << quint32(0x06000000) << 60000 << QString();
    QTest::newRow("nothing") << quint32(0x5000) << 0 << QString();
}

void TestControlUnit::refusesWritesBeyondItsMemory()
{
    QFETCH(quint32, address);
    QFETCH(int, length);
    QFETCH(QString, refusal);
    ControlUnit unit;
    const ControlUnit untouched;
    unit.setMemoryLimit(unit.memory().size() + UnitMemory::pageSize);
    const UnitAnswer answer =
        unit.answer(UnitFrame::writeRequest(1, address, QByteArray(length, 'w')));
    QCOMPARE(answer.refusal, refusal);
    if (refusal.isEmpty())
        return;
    QVERIFY(!answer.changed);
    QVERIFY(!answer.restarts);
    QVERIFY(unit.memory() == untouched.memory());
}

void TestControlUnit::refusesUpgradesBeyondItsMemory()
{
    ControlUnit unit;
    unit.setMemoryLimit(1024 * 1024);
    const auto announce = [&unit](quint32 size) {
        QByteArray length(4, '\0');
        qToLittleEndian(size, length.data());
        return unit.answer(UnitFrame::writeRequest(1, 0x01F00000, length)).notice;
    };
    QCOMPARE(announce(1024 * 1024), QString());
    QCOMPARE(announce(1024 * 1024 + 1),
        QStringLiteral(
            "upgrade out of order: an upgrade of 1048577 bytes is over the limit of 1048576"));
    QCOMPARE(announce(0xFFFFFFFF),
        QStringLiteral(
            "upgrade out of order: an upgrade of 4294967295 bytes is over the limit of 1048576"));
    // The one before took no effect, and this one begins again.
    QCOMPARE(announce(5), QString());
}

QTEST_APPLESS_MAIN(TestControlUnit)
#include "tst_controlunit.moc"
