// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtTest/QtTest>

#include "recordchecks.h"
#include "triggertimeinfo.h"

class TestTriggerTimeInfo : public QObject {
    Q_OBJECT

private slots:
    void constructionRegistersEnumerations_data();
    void constructionRegistersEnumerations()
    {
        RecordChecks::checkEnumerationRow<TriggerTimeInfo>();
    }
    void defaults();
    void properties_data();
    void properties() { RecordChecks::checkPropertyRow(TriggerTimeInfo::staticMetaObject); }
    void changes_data();
    void changes() { RecordChecks::checkChangeRow<TriggerTimeInfo>(); }
    void accessorsReachTheirFields();
    void objectStateStays();
    void metaObject();
    void modeByProperty_data();
    void modeByProperty();
    void ignoredDaysCount();
    void textsCompareExactly();
};

void TestTriggerTimeInfo::constructionRegistersEnumerations_data()
{
    RecordChecks::addEnumerationRows({"RepetMode"});
}

void TestTriggerTimeInfo::properties_data()
{
    RecordChecks::addPropertyRows(TriggerTimeInfo::staticMetaObject,
        {{"triggerId", "int"}, {"triggerType", "RepetMode"}, {"startDate", "QString"},
            {"endDate", "QString"}, {"selectWeekly", "QString"}, {"triggerTime", "QString"},
            {"events", "QString"}, {"instruction", "QString"}});
}

void TestTriggerTimeInfo::changes_data()
{
    RecordChecks::addChangeRows({{"triggerId", 0}, {"triggerType", int(TriggerTimeInfo::ONCE)},
        {"startDate", QStringLiteral("2024/03/07")}, {"endDate", QStringLiteral("永久有效")},
        {"selectWeekly", QStringLiteral("0110001")}, {"triggerTime", QStringLiteral("08:05")},
        {"events", QStringLiteral("[事件(ID:1)]")}, {"instruction", QStringLiteral("说明")}});
}

void TestTriggerTimeInfo::defaults()
{
    TriggerTimeInfo trigger;
    QCOMPARE(trigger.getTriggerId(), -1);
    QCOMPARE(trigger.getTriggerType(), TriggerTimeInfo::EVERYDAY);
    QVERIFY(trigger.getStartDate().isEmpty());
    QVERIFY(trigger.getEndDate().isEmpty());
    QVERIFY(trigger.getSelectWeekly().isEmpty());
    QVERIFY(trigger.getTriggerTime().isEmpty());
    QVERIFY(trigger.getTriggerEvent().isEmpty());
    QVERIFY(trigger.getTriggerInstruction().isEmpty());
    QVERIFY(!trigger.parent());
    QVERIFY(trigger == TriggerTimeInfo());
}

void TestTriggerTimeInfo::accessorsReachTheirFields()
{
    TriggerTimeInfo trigger;
    trigger.setTriggerId(4);
    trigger.setTriggerType(TriggerTimeInfo::WEEKLY);
    trigger.setStartDate(QStringLiteral("2024/03/07"));
    trigger.setEndDate(QStringLiteral("2025/12/31"));
    trigger.setSelectWeekly(QStringLiteral("011"));
    trigger.setTriggerTime(QStringLiteral("23:59"));
    trigger.setTriggerEvent(QStringLiteral("[事件(ID:3)]"));
    trigger.setTriggerInstruction(QStringLiteral("关灯"));
    QCOMPARE(trigger.getTriggerId(), 4);
    QCOMPARE(trigger.getTriggerType(), TriggerTimeInfo::WEEKLY);
    QCOMPARE(trigger.getStartDate(), QStringLiteral("2024/03/07"));
    QCOMPARE(trigger.getEndDate(), QStringLiteral("2025/12/31"));
    QCOMPARE(trigger.getSelectWeekly(), QStringLiteral("011"));
    QCOMPARE(trigger.getTriggerTime(), QStringLiteral("23:59"));
    QCOMPARE(trigger.getTriggerEvent(), QStringLiteral("[事件(ID:3)]"));
    QCOMPARE(trigger.getTriggerInstruction(), QStringLiteral("关灯"));
    QCOMPARE(trigger.property("triggerId").toInt(), 4);
    QCOMPARE(trigger.property("triggerType").toInt(), 1);
    QCOMPARE(trigger.property("startDate").toString(), QStringLiteral("2024/03/07"));
    QCOMPARE(trigger.property("endDate").toString(), QStringLiteral("2025/12/31"));
    QCOMPARE(trigger.property("selectWeekly").toString(), QStringLiteral("011"));
    QCOMPARE(trigger.property("triggerTime").toString(), QStringLiteral("23:59"));
    QCOMPARE(trigger.property("events").toString(), QStringLiteral("[事件(ID:3)]"));
    QCOMPARE(trigger.property("instruction").toString(), QStringLiteral("关灯"));
}

void TestTriggerTimeInfo::objectStateStays()
{
    TriggerTimeInfo trigger;
    trigger.setTriggerId(3);
    trigger.setEndDate(QStringLiteral("永久有效"));
    RecordChecks::checkObjectStateStays(trigger);
}

void TestTriggerTimeInfo::metaObject()
{
    const QMetaObject& meta = TriggerTimeInfo::staticMetaObject;
    QCOMPARE(QByteArray(meta.className()), QByteArray("TriggerTimeInfo"));
    QCOMPARE(RecordChecks::ownMethods(meta), 0);
    RecordChecks::checkOnlyEnumerator(meta, "RepetMode", {"EVERYDAY", "WEEKLY", "ONCE"});
}

void TestTriggerTimeInfo::modeByProperty_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("stored");
    QTest::newRow("integer 1") << QVariant(1) << 1;
    QTest::newRow("integer 2") << QVariant(2) << 2;
    QTest::newRow("enumeration") << QVariant::fromValue(TriggerTimeInfo::ONCE) << 2;
    QTest::newRow("key") << QVariant(QStringLiteral("WEEKLY")) << 1;
    QTest::newRow("no value of the enumeration") << QVariant(12) << 12;
}

void TestTriggerTimeInfo::modeByProperty()
{
    QFETCH(QVariant, value);
    QFETCH(int, stored);
    TriggerTimeInfo trigger;
    QVERIFY(trigger.setProperty("triggerType", value));
    QCOMPARE(int(trigger.getTriggerType()), stored);
    QCOMPARE(trigger.property("triggerType").toInt(), stored);
}

void TestTriggerTimeInfo::ignoredDaysCount()
{
    TriggerTimeInfo trigger;
    trigger.setSelectWeekly(QStringLiteral("1"));
    QCOMPARE(trigger.getTriggerType(), TriggerTimeInfo::EVERYDAY);
    QVERIFY(!(trigger == TriggerTimeInfo()));
}

void TestTriggerTimeInfo::textsCompareExactly()
{
    TriggerTimeInfo bare;
    TriggerTimeInfo padded;
    bare.setStartDate(QStringLiteral("2024/3/7"));
    padded.setStartDate(QStringLiteral("2024/03/07"));
    QVERIFY(!(bare == padded));
}

QTEST_APPLESS_MAIN(TestTriggerTimeInfo)
#include "tst_triggertimeinfo.moc"
