// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtTest/QtTest>

#include "eventinfo.h"
#include "recordchecks.h"

class TestEventInfo : public QObject {
    Q_OBJECT

private slots:
    void constructionRegistersEnumerations_data();
    void constructionRegistersEnumerations() { RecordChecks::checkEnumerationRow<EventInfo>(); }
    void defaults();
    void properties_data();
    void properties() { RecordChecks::checkPropertyRow(EventInfo::staticMetaObject); }
    void changes_data();
    void changes() { RecordChecks::checkChangeRow<EventInfo>(); }
    void accessorsReachTheirFields();
    void objectStateStays();
    void enumerationValues();
    void kindByProperty_data();
    void kindByProperty();
    void kindTravelsInVariant();
    void nothingIsValidated();
};

void TestEventInfo::constructionRegistersEnumerations_data()
{
    RecordChecks::addEnumerationRows({"EventType"});
}

void TestEventInfo::properties_data()
{
    RecordChecks::addPropertyRows(EventInfo::staticMetaObject,
        {{"id", "int"}, {"eventtype", "EventType"}, {"protocoltype", "bool"},
            {"protocol", "QString"}, {"instruction", "QString"}, {"name", "QString"}});
}

void TestEventInfo::changes_data()
{
    RecordChecks::addChangeRows({{"id", 2}, {"eventtype", int(EventInfo::EVENT_DELAY)},
        {"protocoltype", false}, {"protocol", QStringLiteral("0A FF")},
        {"instruction", QStringLiteral("说明")}, {"name", QStringLiteral("事件名称02")}});
}

void TestEventInfo::defaults()
{
    EventInfo event;
    QCOMPARE(event.getEventId(), 1);
    QCOMPARE(event.getEventName(), QStringLiteral("事件名称01"));
    QCOMPARE(int(event.getEventType()), 0);
    QCOMPARE(event.getEventProtocolType(), true);
    QVERIFY(event.getEventProtocal().isEmpty());
    QVERIFY(event.getEventInstruction().isEmpty());
    QVERIFY(!event.parent());
    QVERIFY(event == EventInfo());
    QCOMPARE(RecordChecks::ownEnumerators(EventInfo::staticMetaObject), 0);
    QCOMPARE(RecordChecks::ownMethods(EventInfo::staticMetaObject), 0);
}

void TestEventInfo::accessorsReachTheirFields()
{
    EventInfo event;
    event.setEventId(12);
    event.setEventType(EventInfo::EVENT_TYPE_6);
    event.setEventProtocolType(false);
    event.setEventProtocol(QStringLiteral("25*10ms"));
    event.setEventInstruction(QStringLiteral("等待"));
    event.setEventName(QStringLiteral("延时"));
    QCOMPARE(event.getEventId(), 12);
    QCOMPARE(event.getEventType(), EventInfo::EVENT_TYPE_6);
    QCOMPARE(event.getEventProtocolType(), false);
    QCOMPARE(event.getEventProtocal(), QStringLiteral("25*10ms"));
    QCOMPARE(event.getEventInstruction(), QStringLiteral("等待"));
    QCOMPARE(event.getEventName(), QStringLiteral("延时"));
    QCOMPARE(event.property("id").toInt(), 12);
    QCOMPARE(event.property("eventtype").value<EventInfo::EventType>(), EventInfo::EVENT_TYPE_6);
    QCOMPARE(event.property("protocoltype").toBool(), false);
    QCOMPARE(event.property("protocol").toString(), QStringLiteral("25*10ms"));
    QCOMPARE(event.property("instruction").toString(), QStringLiteral("等待"));
    QCOMPARE(event.property("name").toString(), QStringLiteral("延时"));
}

void TestEventInfo::objectStateStays()
{
    EventInfo event;
    event.setEventId(3);
    event.setEventName(QStringLiteral("name"));
    RecordChecks::checkObjectStateStays(event);
}

void TestEventInfo::enumerationValues()
{
    QCOMPARE(int(EventInfo::EVENT_TYPE_0), 0);
    QCOMPARE(int(EventInfo::EVENT_TYPE_1), 1);
    QCOMPARE(int(EventInfo::EVENT_TYPE_2), 2);
    QCOMPARE(int(EventInfo::EVENT_TYPE_3), 3);
    QCOMPARE(int(EventInfo::EVENT_TYPE_4), 4);
    QCOMPARE(int(EventInfo::EVENT_DELAY), 5);
    QCOMPARE(int(EventInfo::EVENT_TYPE_6), 6);
}

void TestEventInfo::kindByProperty_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("stored");
    for (int kind = 0; kind <= 6; ++kind)
        QTest::addRow("integer %d", kind) << QVariant(kind) << kind;
    QTest::newRow("enumeration") << QVariant::fromValue(EventInfo::EVENT_DELAY) << 5;
    QTest::newRow("no value of the enumeration") << QVariant(-7) << -7;
}

void TestEventInfo::kindByProperty()
{
    QFETCH(QVariant, value);
    QFETCH(int, stored);
    EventInfo event;
    QVERIFY(event.setProperty("eventtype", value));
    QCOMPARE(int(event.getEventType()), stored);
    QCOMPARE(event.property("eventtype").toInt(), stored);
}

void TestEventInfo::kindTravelsInVariant()
{
    QCOMPARE(qMetaTypeId<EventInfo::EventType>(), QMetaType::type("EventType"));
    const QVariant value = EventInfo().property("eventtype");
    QCOMPARE(value.userType(), QMetaType::type("EventType"));
}

void TestEventInfo::nothingIsValidated()
{
    EventInfo event;
    event.setEventId(-300);
    event.setEventProtocol(QStringLiteral("no bytes"));
    event.setEventName(QString());
    QCOMPARE(event.getEventId(), -300);
    QCOMPARE(event.getEventProtocal(), QStringLiteral("no bytes"));
    QVERIFY(event.getEventName().isEmpty());
}

QTEST_APPLESS_MAIN(TestEventInfo)
#include "tst_eventinfo.moc"
