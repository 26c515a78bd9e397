// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "memorycontents.h"
#include "modelconversion.h"

#include "controlunit.h"
#include "unitaddresses.h"
#include "unitblocks.h"
#include "unitsample.h"

#include <QtTest/QtTest>

using namespace QuadrelDocument;
using namespace QuadrelUnit;

namespace {

Contents sample()
{
    ControlUnit unit;
    writeSample(unit.memory());
    return MemoryContents::read(unit.memory());
}

UnitMemory memoryWithEvent(const EventRecord& record)
{
    UnitMemory memory;
    memory.write(Address::eventCount, '\1' + record.block());
    return memory;
}

Event eventFrom(const EventRecord& record)
{
    return MemoryContents::read(memoryWithEvent(record)).events->first();
}

} // namespace

/** Contents hold what the library's models hold, and go back to a unit as they came. */
class TestModelConversion : public QObject {
    Q_OBJECT

private slots:
    void readsTheSample();
    void givesTheModelsBack();
    void isWrittenAsItWasRead();
    void readsEvents_data();
    void readsEvents();
    void readsFileTriggers_data();
    void readsFileTriggers();
    void keepsMarksAtTheStart();
};

void TestModelConversion::readsTheSample()
{
    const Contents contents = sample();
    QCOMPARE(contents.serialPorts->size(), 9);
    QCOMPARE(contents.serialPorts->at(4).inspection, 0);
    QCOMPARE(contents.ioLines->size(), 12);
    QCOMPARE(contents.ioLines->at(4).type, 1);
    QCOMPARE(contents.events->size(), 32);
    QCOMPARE(*contents.events->at(0).name, QStringLiteral("投影机开"));
    QCOMPARE(*contents.events->at(5).delay, 255);
    QVERIFY(!contents.events->at(5).name);
    QCOMPARE(contents.events->at(23).type(), 3);
    QCOMPARE(contents.triggers->size(), 10);
    QCOMPARE(contents.triggers->at(0).parameter, QByteArray("PANEL 1\r"));
    QCOMPARE(contents.triggers->at(4).kind, TriggerKind::ComModbus);
    QCOMPARE(*contents.triggers->at(6).level, Level::High);
    QCOMPARE(contents.timeTriggers->size(), 7);
    QVERIFY(!contents.timeTriggers->at(0).endDate);
    QCOMPARE(contents.timeTriggers->at(2).weekdays, (QVector<int>{1, 2, 3, 4, 5}));
    QCOMPARE(contents.timeTriggers->at(6).id, 6);
}

void TestModelConversion::givesTheModelsBack()
{
    const Contents contents = sample();
    QCOMPARE(deviceOf(asRead(*contents.device)), *contents.device);
    const SystemModel config = asRead(contents.serialPorts, contents.ioLines);
    QCOMPARE(serialPortsOf(config), *contents.serialPorts);
    QCOMPARE(ioLinesOf(config), *contents.ioLines);
    QCOMPARE(eventsOf(asRead(*contents.events)), *contents.events);
    QCOMPARE(triggersOf(asRead(*contents.triggers)), *contents.triggers);
    QCOMPARE(timeTriggersOf(asRead(*contents.timeTriggers)), *contents.timeTriggers);
}

void TestModelConversion::isWrittenAsItWasRead()
{
    Contents contents = sample();
    for (Trigger& trigger : *contents.triggers) {
        if (trigger.eventIds.isEmpty())
            trigger.eventIds = {1};
    }
    QVERIFY(MemoryContents::writtenAndRead(contents) == contents);
}

void TestModelConversion::readsEvents_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("delay");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("name");
    const QByteArray none;
    const QString absent = QStringLiteral("absent");
    const auto hex = [](const char* text) { return QByteArray::fromHex(text); };
    QTest::newRow("nothing") << none << "" << 0 << -1 << "" << absent;
    QTest::newRow("text") << none << "abc" << 0 << -1 << "abc" << absent;
    QTest::newRow("name") << none << "abc$$def" << 0 << -1 << "abc"
                          << "def";
    QTest::newRow("empty name") << none << "abc$$" << 0 << -1 << "abc"
                                << "";
    QTest::newRow("third part") << none << "a$$b$$c" << 0 << -1 << "a"
                                << "b";
    QTest::newRow("default name") << none << "a$$事件名称01" << 0 << -1 << "a" << absent;
    QTest::newRow("dollars") << none << "a$$$b" << 0 << -1 << "a"
                             << "$b";
    QTest::newRow("delay") << delayCommand(quint16(250)) << "" << 5 << 250 << "" << absent;
    QTest::newRow("odd delay") << delayCommand(quint16(65535)) << "" << 5 << 65535 << "" << absent;
    QTest::newRow("no delay") << delayCommand(quint16(0)) << "" << 5 << 0 << "" << absent;
    QTest::newRow("delay with another head")
        << hex("000000a5a500ff") << "" << 5 << 255 << "" << absent;
    QTest::newRow("six bytes") << hex("4c0100250001") << "" << 0 << -1 << "" << absent;
    QTest::newRow("type 1") << hex("4c01002510015202") << "" << 1 << -1 << "" << absent;
    QTest::newRow("type 2") << hex("4c010024170152") << "" << 2 << -1 << "" << absent;
    QTest::newRow("type 3") << hex("4c010024a70152") << "" << 3 << -1 << "" << absent;
    QTest::newRow("type 3 too") << hex("4c010020a60152") << "" << 3 << -1 << "" << absent;
    QTest::newRow("type 4") << hex("4c010024180152") << "" << 4 << -1 << "" << absent;
    QTest::newRow("type 6") << hex("4c0100a5020152") << "" << 6 << -1 << "" << absent;
    QTest::newRow("eight bytes") << hex("4c0100a5a5000000") << "" << 0 << -1 << "" << absent;
}

void TestModelConversion::readsEvents()
{
    QFETCH(QByteArray, command);
    QFETCH(QString, text);
    QFETCH(int, delay);
    QFETCH(QString, name);
    const EventRecord record{7, command, text};
    const Event event = eventFrom(record);
    QCOMPARE(event.id, 7);
    QTEST(event.type(), "type");
    QCOMPARE(event.delay.value_or(-1), delay);
    QCOMPARE(event.command, delay < 0 ? command : QByteArray());
    QTEST(event.description, "description");
    QCOMPARE(event.name.value_or(QStringLiteral("absent")), name);

    const EventInfo info = asRead({event}).at(0);
    QCOMPARE(EventInfo(info).getEventType(), EventInfo::EventType(event.type()));
    QCOMPARE(eventsOf(asRead({event})).first(), event);
    Contents contents = MemoryContents::read(memoryWithEvent(record));
    QCOMPARE(MemoryContents::writtenAndRead(contents).events->first(), event);
}

void TestModelConversion::readsFileTriggers_data()
{
    QTest::addColumn<QString>("events");
    QTest::addColumn<QVector<int>>("ids");
    QTest::newRow("none") << "" << QVector<int>{};
    QTest::newRow("an empty list of a file") << "事件()" << QVector<int>{};
    QTest::newRow("of a unit") << "(ID:3);(ID:17)" << QVector<int>{3, 17};
    QTest::newRow("of a file") << "事件(ID:3);事件(ID:17)" << QVector<int>{3, 17};
    QTest::newRow("with names") << "事件(名称01ID:3)" << QVector<int>{3};
    QTest::newRow("an item without an id") << "事件(ID:3);事件()" << QVector<int>{3, 0};
    QTest::newRow("open") << "ID:3" << QVector<int>{3};
}

void TestModelConversion::readsFileTriggers()
{
    QFETCH(QString, events);
    TriggerInfo info;
    info.setTriggerProtocolType(false);
    info.setTriggerParameter(QStringLiteral("PANEL 1"));
    info.setTriggerEvent(events);
    TriggerModel model;
    model.push_back(info);
    model.push_back(info);
    const QVector<Trigger> triggers = triggersOf(model);
    QTEST(triggers.at(1).eventIds, "ids");
    QCOMPARE(triggers.at(1).id, 1);
    QCOMPARE(triggers.at(1).parameter, QByteArray("PANEL 1"));
}

void TestModelConversion::keepsMarksAtTheStart()
{
    const QString text = QString(3, QChar(QChar::ByteOrderMark)) + QStringLiteral("abc");
    Contents contents = MemoryContents::read(memoryWithEvent({1, {}, text}));
    contents.triggers->append(Trigger{0, TriggerKind::Com, 0, {}, {}, {1}, text});
    QVERIFY(MemoryContents::writtenAndRead(contents) == contents);
}

QTEST_GUILESS_MAIN(TestModelConversion)
#include "tst_modelconversion.moc"
