// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitsettings.h"

#include <QtTest/QtTest>

using namespace QuadrelUnit;

class TestUnitSettings : public QObject {
    Q_OBJECT

private slots:
    void parsesFourBytes_data();
    void parsesFourBytes();
    void countsVersionsUp_data();
    void countsVersionsUp();
    void makesTheInformationBlock();
    void makesTheNetworkCell();
    void readsBackWhatItMade();
};

void TestUnitSettings::parsesFourBytes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isGood");
    QTest::newRow("address") << "192.168.1.10" << true;
    QTest::newRow("zeros") << "0.0.0.0" << true;
    QTest::newRow("largest") << "255.255.255.255" << true;
    QTest::newRow("too large") << "1.2.3.256" << false;
    QTest::newRow("negative") << "1.2.3.-1" << false;
    QTest::newRow("three parts") << "1.2.3" << false;
    QTest::newRow("five parts") << "1.2.3.4.5" << false;
    QTest::newRow("empty part") << "1..3.4" << false;
    QTest::newRow("letters") << "a.b.c.d" << false;
    QTest::newRow("empty") << "" << false;
}

void TestUnitSettings::parsesFourBytes()
{
    QFETCH(QString, text);
    QFETCH(bool, isGood);
    const std::optional<FourBytes> bytes = parseFourBytes(text);
    QCOMPARE(bytes.has_value(), isGood);
    if (isGood)
        QCOMPARE(fourBytesText(*bytes), text);
}

void TestUnitSettings::countsVersionsUp_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("following");
    QTest::newRow("plain") << "1.2.3.4"
                           << "1.2.3.5";
    QTest::newRow("carry") << "1.2.3.255"
                           << "1.2.4.0";
    QTest::newRow("long carry") << "1.255.255.255"
                                << "2.0.0.0";
    QTest::newRow("round the end") << "255.255.255.255"
                                   << "0.0.0.0";
}

void TestUnitSettings::countsVersionsUp()
{
    QFETCH(QString, version);
    QFETCH(QString, following);
    QCOMPARE(fourBytesText(followingVersion(*parseFourBytes(version))), following);
}

void TestUnitSettings::makesTheInformationBlock()
{
    UnitSettings settings;
    settings.model = 0x7209;
    settings.version = {1, 2, 3, 4};
    settings.serialNumber = 0x0123456789ABCDEF;
    settings.dhcp = true;
    settings.ip = {192, 168, 1, 10};
    settings.mask = {255, 255, 255, 0};
    settings.gateway = {192, 168, 1, 1};
    settings.linkUp = true;
    settings.serialPorts = 9;
    settings.ioLines = 12;
    settings.relays = 200;
    QCOMPARE(settings.informationBlock(),
        QByteArray::fromHex("0972 01020304 efcdab8967452301 01 0a01a8c0 00ffffff 0101a8c0"
                            "01 00 09 0c c8"));
}

void TestUnitSettings::makesTheNetworkCell()
{
    UnitSettings settings;
    settings.ip = {10, 20, 30, 40};
    settings.mask = {255, 254, 253, 252};
    settings.gateway = {1, 2, 3, 4};
    QCOMPARE(settings.networkCell(), QByteArray::fromHex("00 281e140a fcfdfeff 04030201"));
}

void TestUnitSettings::readsBackWhatItMade()
{
    UnitSettings settings;
    settings.model = 3;
    settings.version = {9, 8, 7, 6};
    settings.serialNumber = 0xFFFFFFFFFFFFFFFE;
    settings.dhcp = true;
    settings.ip = {1, 2, 3, 4};
    settings.mask = {5, 6, 7, 8};
    settings.gateway = {9, 10, 11, 12};
    settings.linkUp = false;
    settings.serialPorts = 1;
    settings.ioLines = 2;
    settings.relays = 3;
    const UnitSettings read = UnitSettings::fromInformationBlock(settings.informationBlock());
    QCOMPARE(read.informationBlock(), settings.informationBlock());
    QCOMPARE(read.model, quint16(3));
    QCOMPARE(fourBytesText(read.version), QStringLiteral("9.8.7.6"));
    QCOMPARE(read.serialNumber, quint64(0xFFFFFFFFFFFFFFFE));
    QVERIFY(read.dhcp);
    QCOMPARE(fourBytesText(read.ip), QStringLiteral("1.2.3.4"));
    QCOMPARE(fourBytesText(read.mask), QStringLiteral("5.6.7.8"));
    QCOMPARE(fourBytesText(read.gateway), QStringLiteral("9.10.11.12"));
    QVERIFY(!read.linkUp);
    QCOMPARE(read.serialPorts, quint8(1));
    QCOMPARE(read.ioLines, quint8(2));
    QCOMPARE(read.relays, quint8(3));
}

QTEST_APPLESS_MAIN(TestUnitSettings)
#include "tst_unitsettings.moc"
