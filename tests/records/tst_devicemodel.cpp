// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtTest/QtTest>

#include "devicemodel.h"
#include "recordchecks.h"

class TestDeviceModel : public QObject {
    Q_OBJECT

private slots:
    void defaults();
    void properties_data();
    void properties() { RecordChecks::checkPropertyRow(DeviceModel::staticMetaObject); }
    void changes_data();
    void changes() { RecordChecks::checkChangeRow<DeviceModel>(); }
    void accessorsReachTheirFields();
    void objectStateStays();
    void serialNumberHasNoProperty();
    void serialNumberHas64Bits();
    void everyFieldOrders_data();
    void everyFieldOrders();
    void serialNumberOrders();
    void equalRecordsAreNotOrdered();
    void textsCompareExactly();
    void nothingIsValidated();
};

void TestDeviceModel::properties_data()
{
    RecordChecks::addPropertyRows(DeviceModel::staticMetaObject,
        {{"ModelID", "ushort"}, {"version", "QString"}, {"DHCP", "bool"}, {"ip", "QString"},
            {"submask", "QString"}, {"gateway", "QString"}, {"ethlinkstate", "bool"},
            {"comnum", "int"}, {"ionum", "int"}, {"relaynum", "int"}, {"irnum", "int"},
            {"name", "QString"}, {"type", "QString"}, {"pattern", "QString"}});
}

void TestDeviceModel::changes_data()
{
    RecordChecks::addChangeRows(
        {{"ModelID", 0x1234}, {"version", QStringLiteral("1.2.3.4")}, {"DHCP", true},
            {"ip", QStringLiteral("10.0.0.1")}, {"submask", QStringLiteral("255.255.0.0")},
            {"gateway", QStringLiteral("10.0.0.254")}, {"ethlinkstate", true}, {"comnum", 4},
            {"ionum", 8}, {"relaynum", 2}, {"irnum", 6}, {"name", QStringLiteral("name")},
            {"type", QStringLiteral("type")}, {"pattern", QStringLiteral("pattern")}});
}

void TestDeviceModel::defaults()
{
    DeviceModel device;
    QCOMPARE(int(device.getModelId()), 0x7209);
    QCOMPARE(int(device.getModelId()), 29193);
    QCOMPARE(device.getSN(), 0ULL);
    QVERIFY(device.getVersion().isEmpty());
    QCOMPARE(device.getDHCPModel(), false);
    QCOMPARE(device.getIP(), QStringLiteral("192.168.1.10"));
    QVERIFY(device.getSubMask().isEmpty());
    QVERIFY(device.getGateWay().isEmpty());
    QCOMPARE(device.getEthLinkState(), false);
    QCOMPARE(device.getComNumber(), 0);
    QCOMPARE(device.getIoNumber(), 0);
    QCOMPARE(device.getRelayNumber(), 0);
    QCOMPARE(device.getIRNumber(), 0);
    QVERIFY(device.getName().isEmpty());
    QVERIFY(device.getPattern().isEmpty());
    QVERIFY(device.getType().isEmpty());
    QVERIFY(!device.parent());
}

void TestDeviceModel::accessorsReachTheirFields()
{
    DeviceModel device;
    device.setModelId(0x1234);
    device.setSN(0xFEDCBA9876543210ULL);
    device.setVersion(QStringLiteral("1.2.3.4"));
    device.setDHCPModel(true);
    device.setIP(QStringLiteral("10.0.0.1"));
    device.setSubMask(QStringLiteral("255.255.0.0"));
    device.setGateWay(QStringLiteral("10.0.0.254"));
    device.setEthLinkState(true);
    device.setComNumber(4);
    device.setIoNumber(8);
    device.setRelayNumber(2);
    device.setIRNumber(6);
    device.setName(QStringLiteral("name"));
    device.setPattern(QStringLiteral("pattern"));
    device.setType(QStringLiteral("type"));
    QCOMPARE(device.getModelId(), static_cast<unsigned short>(0x1234));
    QCOMPARE(device.getSN(), 0xFEDCBA9876543210ULL);
    QCOMPARE(device.getVersion(), QStringLiteral("1.2.3.4"));
    QCOMPARE(device.getDHCPModel(), true);
    QCOMPARE(device.getIP(), QStringLiteral("10.0.0.1"));
    QCOMPARE(device.getSubMask(), QStringLiteral("255.255.0.0"));
    QCOMPARE(device.getGateWay(), QStringLiteral("10.0.0.254"));
    QCOMPARE(device.getEthLinkState(), true);
    QCOMPARE(device.getComNumber(), 4);
    QCOMPARE(device.getIoNumber(), 8);
    QCOMPARE(device.getRelayNumber(), 2);
    QCOMPARE(device.getIRNumber(), 6);
    QCOMPARE(device.getName(), QStringLiteral("name"));
    QCOMPARE(device.getPattern(), QStringLiteral("pattern"));
    QCOMPARE(device.getType(), QStringLiteral("type"));
    QCOMPARE(device.property("ModelID"), QVariant(0x1234));
    QCOMPARE(device.property("version"), QVariant(QStringLiteral("1.2.3.4")));
    QCOMPARE(device.property("DHCP"), QVariant(true));
    QCOMPARE(device.property("ip"), QVariant(QStringLiteral("10.0.0.1")));
    QCOMPARE(device.property("submask"), QVariant(QStringLiteral("255.255.0.0")));
    QCOMPARE(device.property("gateway"), QVariant(QStringLiteral("10.0.0.254")));
    QCOMPARE(device.property("ethlinkstate"), QVariant(true));
    QCOMPARE(device.property("comnum"), QVariant(4));
    QCOMPARE(device.property("ionum"), QVariant(8));
    QCOMPARE(device.property("relaynum"), QVariant(2));
    QCOMPARE(device.property("irnum"), QVariant(6));
    QCOMPARE(device.property("name"), QVariant(QStringLiteral("name")));
    QCOMPARE(device.property("pattern"), QVariant(QStringLiteral("pattern")));
    QCOMPARE(device.property("type"), QVariant(QStringLiteral("type")));

    QVERIFY(device.setProperty("ModelID", 0xFFFF));
    QCOMPARE(int(device.getModelId()), 0xFFFF);
}

void TestDeviceModel::objectStateStays()
{
    DeviceModel device;
    device.setSN(5);
    device.setName(QStringLiteral("name"));
    RecordChecks::checkObjectStateStays(device);
}

void TestDeviceModel::serialNumberHasNoProperty()
{
    DeviceModel device;
    device.setSN(5);
    for (const char* name : {"SN", "sn", "serialnumber"}) {
        QCOMPARE(DeviceModel::staticMetaObject.indexOfProperty(name), -1);
        QVERIFY(!device.property(name).isValid());
    }
    QVERIFY(!device.setProperty("SN", 6));
    QCOMPARE(device.getSN(), 5ULL);
}

void TestDeviceModel::serialNumberHas64Bits()
{
    DeviceModel device;
    device.setSN(0xFFFFFFFFFFFFFFFFULL);
    QCOMPARE(device.getSN(), 0xFFFFFFFFFFFFFFFFULL);
    const DeviceModel copy(device);
    QVERIFY(copy == device);
    DeviceModel low(device);
    low.setSN(0xFFFFFFFFULL);
    QVERIFY(low != device);
}

void TestDeviceModel::everyFieldOrders_data()
{
    changes_data();
}

void TestDeviceModel::everyFieldOrders()
{
    QFETCH(QVariant, value);
    const DeviceModel untouched;
    DeviceModel changed;
    changed.setProperty(QTest::currentDataTag(), value);
    QVERIFY(changed != untouched);
    QVERIFY(changed < untouched);
    QVERIFY(untouched < changed);
    QVERIFY(changed <= untouched);
    QVERIFY(untouched <= changed);
}

void TestDeviceModel::serialNumberOrders()
{
    const DeviceModel untouched;
    DeviceModel changed;
    changed.setSN(1);
    QVERIFY(!(changed == untouched));
    QVERIFY(changed != untouched);
    QVERIFY(changed < untouched);
    QVERIFY(untouched < changed);
    QVERIFY(changed <= untouched);
    QVERIFY(untouched <= changed);
    DeviceModel assigned;
    assigned = changed;
    QCOMPARE(assigned.getSN(), 1ULL);
}

void TestDeviceModel::equalRecordsAreNotOrdered()
{
    const DeviceModel one;
    const DeviceModel other;
    QVERIFY(one == other);
    QVERIFY(!(one != other));
    QVERIFY(!(one < other));
    QVERIFY(!(other < one));
    QVERIFY(!(one <= other));
    QVERIFY(!(other <= one));
    QVERIFY(!(one <= one));
}

void TestDeviceModel::textsCompareExactly()
{
    DeviceModel lower;
    DeviceModel upper;
    lower.setPattern(QStringLiteral("a"));
    upper.setPattern(QStringLiteral("A"));
    QVERIFY(lower != upper);
    upper.setPattern(QStringLiteral("a"));
    QVERIFY(lower == upper);
}

void TestDeviceModel::nothingIsValidated()
{
    DeviceModel device;
    device.setIP(QStringLiteral("not an address"));
    device.setComNumber(-1);
    QCOMPARE(device.getIP(), QStringLiteral("not an address"));
    QCOMPARE(device.getComNumber(), -1);
}

QTEST_APPLESS_MAIN(TestDeviceModel)
#include "tst_devicemodel.moc"
