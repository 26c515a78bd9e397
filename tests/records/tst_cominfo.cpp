// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtTest/QtTest>

#include "cominfo.h"
#include "recordchecks.h"

class TestComInfo : public QObject {
    Q_OBJECT

private slots:
    void constructionRegistersEnumerations_data();
    void constructionRegistersEnumerations() { RecordChecks::checkEnumerationRow<ComInfo>(); }
    void defaults();
    void properties_data();
    void properties() { RecordChecks::checkPropertyRow(ComInfo::staticMetaObject); }
    void changes_data();
    void changes() { RecordChecks::checkChangeRow<ComInfo>(); }
    void accessorsReachTheirFields();
    void objectStateStays();
    void enumerationValues();
    void inspectionByProperty_data();
    void inspectionByProperty();
    void lineSettingTravelsInVariant();
    void nothingIsValidated();
};

void TestComInfo::constructionRegistersEnumerations_data()
{
    RecordChecks::addEnumerationRows({"inspectionType", "IOType"});
}

void TestComInfo::properties_data()
{
    RecordChecks::addPropertyRows(ComInfo::staticMetaObject,
        {{"baudRate", "int"}, {"dataBits", "int"}, {"stopBits", "int"},
            {"insType", "inspectionType"}});
}

void TestComInfo::changes_data()
{
    RecordChecks::addChangeRows(
        {{"baudRate", 9600}, {"dataBits", 7}, {"stopBits", 2}, {"insType", int(INSPECTION_2)}});
}

void TestComInfo::defaults()
{
    ComInfo port;
    QCOMPARE(port.getBaudRate(), 115200);
    QCOMPARE(port.getDataBits(), 8);
    QCOMPARE(port.getStopBits(), 1);
    QCOMPARE(int(port.getInspectionType()), 2);
    QVERIFY(!port.parent());
    QVERIFY(port == ComInfo());
    QCOMPARE(RecordChecks::ownEnumerators(ComInfo::staticMetaObject), 0);
}

void TestComInfo::accessorsReachTheirFields()
{
    ComInfo port;
    port.setBaudRate(4800);
    port.setDataBits(5);
    port.setStopBits(2);
    port.setInspectionType(INSPECTION_1);
    QCOMPARE(port.getBaudRate(), 4800);
    QCOMPARE(port.getDataBits(), 5);
    QCOMPARE(port.getStopBits(), 2);
    QCOMPARE(port.getInspectionType(), INSPECTION_1);
    QCOMPARE(port.property("baudRate").toInt(), 4800);
    QCOMPARE(port.property("dataBits").toInt(), 5);
    QCOMPARE(port.property("stopBits").toInt(), 2);
    QCOMPARE(port.property("insType").value<inspectionType>(), INSPECTION_1);
}

void TestComInfo::objectStateStays()
{
    ComInfo port;
    port.setBaudRate(1200);
    RecordChecks::checkObjectStateStays(port);
}

void TestComInfo::enumerationValues()
{
    QCOMPARE(int(INSPECTION_1), 0);
    QCOMPARE(int(INSPECTION_2), 1);
    QCOMPARE(int(INSPECTION_NONE), 2);
    QCOMPARE(int(IO_TYPE_0), 0);
    QCOMPARE(int(IO_TYPE_1), 1);
    QCOMPARE(int(IO_TYPE_2), 2);
}

void TestComInfo::inspectionByProperty_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("stored");
    QTest::newRow("integer 0") << QVariant(0) << 0;
    QTest::newRow("integer 1") << QVariant(1) << 1;
    QTest::newRow("integer 2") << QVariant(2) << 2;
    QTest::newRow("unsigned") << QVariant(1U) << 1;
    QTest::newRow("byte") << QVariant::fromValue(quint8(1)) << 1;
    QTest::newRow("enumeration") << QVariant::fromValue(INSPECTION_2) << 1;
    QTest::newRow("no value of the enumeration") << QVariant(99) << 99;
}

void TestComInfo::inspectionByProperty()
{
    QFETCH(QVariant, value);
    QFETCH(int, stored);
    ComInfo port;
    QVERIFY(port.setProperty("insType", value));
    QCOMPARE(int(port.getInspectionType()), stored);
    QCOMPARE(port.property("insType").toInt(), stored);
}

void TestComInfo::lineSettingTravelsInVariant()
{
    const QVariant value = QVariant::fromValue(IO_TYPE_1);
    QCOMPARE(value.userType(), QMetaType::type("IOType"));
    QCOMPARE(QByteArray(value.typeName()), QByteArray("IOType"));
    QCOMPARE(value.toInt(), 1);
    QCOMPARE(
        QByteArray(QVariant::fromValue(INSPECTION_1).typeName()), QByteArray("inspectionType"));
}

void TestComInfo::nothingIsValidated()
{
    ComInfo port;
    port.setBaudRate(-1);
    port.setDataBits(0);
    port.setStopBits(300);
    QCOMPARE(port.getBaudRate(), -1);
    QCOMPARE(port.getDataBits(), 0);
    QCOMPARE(port.getStopBits(), 300);
}

QTEST_APPLESS_MAIN(TestComInfo)
#include "tst_cominfo.moc"
