// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtTest/QtTest>

#include <atomic>
#include <thread>
#include <vector>

#include "recordchecks.h"
#include "triggerinfo.h"

class TestTriggerInfo : public QObject {
    Q_OBJECT

private slots:
    void constructionRegistersEnumerations_data();
    void constructionRegistersEnumerations() { RecordChecks::checkEnumerationRow<TriggerInfo>(); }
    void defaults();
    void properties_data();
    void properties() { RecordChecks::checkPropertyRow(TriggerInfo::staticMetaObject); }
    void changes_data();
    void changes() { RecordChecks::checkChangeRow<TriggerInfo>(); }
    void accessorsReachTheirFields();
    void objectStateStays();
    void metaObject();
    void lineValues_data();
    void lineValues();
    void enumerationByProperty_data();
    void enumerationByProperty();
    void kindByKey();
    void ignoredLineCounts();
    void textsCompareExactly();
    void recordsAreMadeOnSeveralThreads();
};

void TestTriggerInfo::constructionRegistersEnumerations_data()
{
    RecordChecks::addEnumerationRows({"TriggerType", "COMSelect", "IOSelect"});
}

void TestTriggerInfo::properties_data()
{
    RecordChecks::addPropertyRows(TriggerInfo::staticMetaObject,
        {{"triggerId", "int"}, {"triggertype", "TriggerType"}, {"comSelect", "COMSelect"},
            {"ioSelect", "IOSelect"}, {"protocoltype", "bool"}, {"parameter", "QString"},
            {"events", "QString"}, {"instruction", "QString"}});
}

void TestTriggerInfo::changes_data()
{
    RecordChecks::addChangeRows({{"triggerId", 0}, {"triggertype", int(TriggerInfo::IO)},
        {"comSelect", int(COM_D_4)}, {"ioSelect", int(IO_B_3)}, {"protocoltype", false},
        {"parameter", QStringLiteral("输入-高电平")}, {"events", QStringLiteral("[事件(ID:1)]")},
        {"instruction", QStringLiteral("说明")}});
}

void TestTriggerInfo::defaults()
{
    TriggerInfo trigger;
    QCOMPARE(trigger.getTriggerId(), -1);
    QCOMPARE(trigger.getTriggerType(), TriggerInfo::COM);
    QCOMPARE(trigger.getCOMSelect(), COM_A_1);
    QCOMPARE(trigger.getIOSelect(), IO_A_1);
    QCOMPARE(trigger.getTriggerProtocolType(), true);
    QVERIFY(trigger.getTriggerParameter().isEmpty());
    QVERIFY(trigger.getTriggerEvent().isEmpty());
    QVERIFY(trigger.getTriggerInstruction().isEmpty());
    QVERIFY(!trigger.parent());
    QVERIFY(trigger == TriggerInfo());
}

void TestTriggerInfo::accessorsReachTheirFields()
{
    TriggerInfo trigger;
    trigger.setTriggerId(7);
    trigger.setTriggerType(TriggerInfo::COM_MODBUS);
    trigger.setCOMSelect(COM_B_2);
    trigger.setIOSelect(IO_C_3);
    trigger.setTriggerProtocolType(false);
    trigger.setTriggerParameter(QStringLiteral("on"));
    trigger.setTriggerEvent(QStringLiteral("[事件(ID:3)]"));
    trigger.setTriggerInstruction(QStringLiteral("开灯"));
    QCOMPARE(trigger.getTriggerId(), 7);
    QCOMPARE(trigger.getTriggerType(), TriggerInfo::COM_MODBUS);
    QCOMPARE(trigger.getCOMSelect(), COM_B_2);
    QCOMPARE(trigger.getIOSelect(), IO_C_3);
    QCOMPARE(trigger.getTriggerProtocolType(), false);
    QCOMPARE(trigger.getTriggerParameter(), QStringLiteral("on"));
    QCOMPARE(trigger.getTriggerEvent(), QStringLiteral("[事件(ID:3)]"));
    QCOMPARE(trigger.getTriggerInstruction(), QStringLiteral("开灯"));
    QCOMPARE(trigger.property("triggerId").toInt(), 7);
    QCOMPARE(trigger.property("triggertype").toInt(), 1);
    QCOMPARE(trigger.property("comSelect").value<COMSelect>(), COM_B_2);
    QCOMPARE(trigger.property("ioSelect").value<IOSelect>(), IO_C_3);
    QCOMPARE(trigger.property("protocoltype").toBool(), false);
    QCOMPARE(trigger.property("parameter").toString(), QStringLiteral("on"));
    QCOMPARE(trigger.property("events").toString(), QStringLiteral("[事件(ID:3)]"));
    QCOMPARE(trigger.property("instruction").toString(), QStringLiteral("开灯"));
}

void TestTriggerInfo::objectStateStays()
{
    TriggerInfo trigger;
    trigger.setTriggerId(3);
    trigger.setTriggerEvent(QStringLiteral("events"));
    RecordChecks::checkObjectStateStays(trigger);
}

void TestTriggerInfo::metaObject()
{
    const QMetaObject& meta = TriggerInfo::staticMetaObject;
    QCOMPARE(QByteArray(meta.className()), QByteArray("TriggerInfo"));
    QCOMPARE(RecordChecks::ownMethods(meta), 0);
    RecordChecks::checkOnlyEnumerator(meta, "TriggerType", {"COM", "COM_MODBUS", "IO"});
}

void TestTriggerInfo::lineValues_data()
{
    QTest::addColumn<COMSelect>("com");
    QTest::addColumn<IOSelect>("io");
    QTest::addColumn<int>("position");
    QTest::newRow("A-1") << COM_A_1 << IO_A_1 << 0;
    QTest::newRow("A-2") << COM_A_2 << IO_A_2 << 1;
    QTest::newRow("A-3") << COM_A_3 << IO_A_3 << 2;
    QTest::newRow("A-4") << COM_A_4 << IO_A_4 << 3;
    QTest::newRow("B-1") << COM_B_1 << IO_B_1 << 4;
    QTest::newRow("B-2") << COM_B_2 << IO_B_2 << 5;
    QTest::newRow("B-3") << COM_B_3 << IO_B_3 << 6;
    QTest::newRow("B-4") << COM_B_4 << IO_B_4 << 7;
    QTest::newRow("C-1") << COM_C_1 << IO_C_1 << 8;
    QTest::newRow("C-2") << COM_C_2 << IO_C_2 << 9;
    QTest::newRow("C-3") << COM_C_3 << IO_C_3 << 10;
    QTest::newRow("C-4") << COM_C_4 << IO_C_4 << 11;
    QTest::newRow("D-1") << COM_D_1 << IO_D_1 << 12;
    QTest::newRow("D-2") << COM_D_2 << IO_D_2 << 13;
    QTest::newRow("D-3") << COM_D_3 << IO_D_3 << 14;
    QTest::newRow("D-4") << COM_D_4 << IO_D_4 << 15;
}

void TestTriggerInfo::lineValues()
{
    QFETCH(COMSelect, com);
    QFETCH(IOSelect, io);
    QFETCH(int, position);
    QCOMPARE(int(com), position);
    QCOMPARE(int(io), position);
}

void TestTriggerInfo::enumerationByProperty_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("stored");
    const QByteArray kind("triggertype");
    const QByteArray com("comSelect");
    const QByteArray io("ioSelect");
    QTest::newRow("kind, integer 1") << kind << QVariant(1) << 1;
    QTest::newRow("kind, integer 2") << kind << QVariant(2) << 2;
    QTest::newRow("kind, enumeration") << kind << QVariant::fromValue(TriggerInfo::IO) << 2;
    QTest::newRow("kind, no value of it") << kind << QVariant(9) << 9;
    QTest::newRow("serial line, integer") << com << QVariant(15) << 15;
    QTest::newRow("serial line, enumeration") << com << QVariant::fromValue(COM_C_1) << 8;
    QTest::newRow("serial line, no value of it") << com << QVariant(16) << 16;
    QTest::newRow("IO line, integer") << io << QVariant(3) << 3;
    QTest::newRow("IO line, enumeration") << io << QVariant::fromValue(IO_C_2) << 9;
    QTest::newRow("IO line, no value of it") << io << QVariant(-1) << -1;
}

void TestTriggerInfo::enumerationByProperty()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    QFETCH(int, stored);
    TriggerInfo trigger;
    QVERIFY(trigger.setProperty(property.constData(), value));
    QCOMPARE(trigger.property(property.constData()).toInt(), stored);
    const int field = property == "triggertype" ? int(trigger.getTriggerType())
        : property == "comSelect"               ? int(trigger.getCOMSelect())
                                                : int(trigger.getIOSelect());
    QCOMPARE(field, stored);
}

void TestTriggerInfo::kindByKey()
{
    TriggerInfo trigger;
    QVERIFY(trigger.setProperty("triggertype", QStringLiteral("COM_MODBUS")));
    QCOMPARE(trigger.getTriggerType(), TriggerInfo::COM_MODBUS);
    QCOMPARE(qMetaTypeId<TriggerInfo::TriggerType>(), QMetaType::type("TriggerType"));
}

void TestTriggerInfo::ignoredLineCounts()
{
    TriggerInfo serial;
    serial.setIOSelect(IO_A_2);
    QCOMPARE(serial.getTriggerType(), TriggerInfo::COM);
    QVERIFY(!(serial == TriggerInfo()));

    TriggerInfo input;
    input.setTriggerType(TriggerInfo::IO);
    TriggerInfo stale(input);
    stale.setCOMSelect(COM_A_2);
    QVERIFY(!(input == stale));
}

void TestTriggerInfo::textsCompareExactly()
{
    TriggerInfo lower;
    TriggerInfo upper;
    lower.setTriggerParameter(QStringLiteral("0a"));
    upper.setTriggerParameter(QStringLiteral("0A"));
    QVERIFY(!(lower == upper));
}

void TestTriggerInfo::recordsAreMadeOnSeveralThreads()
{
    std::atomic<int> equal{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&equal] {
            for (int round = 0; round < 100; ++round) {
                TriggerInfo trigger;
                trigger.setTriggerId(round);
                const TriggerInfo copy(trigger);
                equal += copy == trigger ? 1 : 0;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    QCOMPARE(equal.load(), 400);
}

QTEST_APPLESS_MAIN(TestTriggerInfo)
#include "tst_triggerinfo.moc"
