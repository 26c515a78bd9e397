// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "fullunit.h"

#include "pictures/triggermap.h"

#include <QtTest/QtTest>

using namespace QuadrelDocument;
using Column = TriggerMap::Column;
using Ints = QVector<int>;
Q_DECLARE_METATYPE(TriggerMap::Drive)

namespace {

Event newEvent(int id, const char* command = "")
{
    Event event;
    event.id = id;
    event.command = QByteArray::fromHex(command);
    return event;
}

Trigger trigger(TriggerKind kind, int line, const Ints& ids)
{
    Trigger trigger;
    trigger.kind = kind;
    trigger.line = line;
    trigger.eventIds = ids;
    return trigger;
}

TimeTrigger timeTrigger(const QString& time, const Ints& ids)
{
    TimeTrigger trigger;
    trigger.time = time;
    trigger.eventIds = ids;
    return trigger;
}

/** "T0" for a trigger, "C0" for a time trigger, "E7" for event 7; "?" missing, "-" unused. */
QString wordFor(const TriggerMap::Node& node)
{
    const QString marks = QString(node.isMissing ? QStringLiteral("?") : QString())
        + (node.isUnused ? QStringLiteral("-") : QString());
    if (node.column == Column::Event)
        return QStringLiteral("E%1").arg(node.id) + marks;
    if (node.column == Column::Target)
        return QStringLiteral("D%1").arg(static_cast<int>(node.drive));
    return QStringLiteral("%1%2").arg(node.isTimeTrigger ? "C" : "T").arg(node.index) + marks;
}

QString nodesOf(const TriggerMap& map)
{
    QStringList words;
    for (const TriggerMap::Node& node : map.nodes)
        words.append(wordFor(node));
    return words.join(QLatin1Char(' '));
}

QString edgesOf(const TriggerMap& map)
{
    QStringList words;
    for (const TriggerMap::Edge& edge : map.edges)
        words.append(
            wordFor(map.nodes.at(edge.from)) + QLatin1Char('>') + wordFor(map.nodes.at(edge.to)));
    return words.join(QLatin1Char(' '));
}

} // namespace

class TestTriggerMap : public QObject {
    Q_OBJECT

private slots:
    void knowsWhatACommandDrives_data();
    void knowsWhatACommandDrives();
    void isEmptyWithoutContents();
    void ordersCauses();
    void marksMissingAndUnusedEvents();
    void marksNothingMissingWithoutEvents();
    void namesEachEdgeOnce();
    void keepsDoubledEvents();
    void findsPaths();
    void holdsAFullUnit();
};

void TestTriggerMap::knowsWhatACommandDrives_data()
{
    using Drive = TriggerMap::Drive;
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<Drive>("drive");
    QTest::newRow("serial") << QByteArray("4c0100251001520110800041") << Drive::Serial;
    QTest::newRow("Modbus") << QByteArray("4c0100251001520210800041") << Drive::Modbus;
    QTest::newRow("IO") << QByteArray("4c010024170152100001") << Drive::Io;
    QTest::newRow("infra-red") << QByteArray("4c010024a7015210000926") << Drive::Infrared;
    QTest::newRow("infra-red scene") << QByteArray("4c010020a5015201") << Drive::Infrared;
    QTest::newRow("relay") << QByteArray("4c010024180152800001") << Drive::Relay;
    QTest::newRow("control") << QByteArray("4c0100a502015201") << Drive::Control;
    QTest::newRow("a delay's bytes") << QByteArray("4c0100a5a501f4") << Drive::Wait;
    QTest::newRow("none") << QByteArray() << Drive::Other;
    QTest::newRow("short") << QByteArray("4c0100") << Drive::Other;
    QTest::newRow("unknown class") << QByteArray("4c0100ffff015210") << Drive::Other;
}

void TestTriggerMap::knowsWhatACommandDrives()
{
    QFETCH(QByteArray, command);
    QFETCH(TriggerMap::Drive, drive);
    QCOMPARE(int(driveOf(newEvent(1, command))), int(drive));
    Event delay;
    delay.delay = 500;
    QCOMPARE(int(driveOf(delay)), int(TriggerMap::Drive::Wait));
}

void TestTriggerMap::isEmptyWithoutContents()
{
    const TriggerMap map = triggerMap(Contents());
    QVERIFY(map.nodes.isEmpty());
    QVERIFY(map.edges.isEmpty());
}

void TestTriggerMap::ordersCauses()
{
    Contents contents;
    contents.triggers = {trigger(TriggerKind::Io, 0, {1}), trigger(TriggerKind::Com, 4, {1}),
        trigger(TriggerKind::ComModbus, unknownLine, {1}), trigger(TriggerKind::Com, 0, {1})};
    contents.timeTriggers = {timeTrigger("22:30", {1}), timeTrigger("08:05", {1})};
    QCOMPARE(nodesOf(triggerMap(contents)), QStringLiteral("T2 T3 T1 T0 C1 C0 E1"));
}

void TestTriggerMap::marksMissingAndUnusedEvents()
{
    Contents contents;
    contents.events = {newEvent(9), newEvent(2), newEvent(7)};
    contents.triggers = {trigger(TriggerKind::Com, 0, {7, 77}), trigger(TriggerKind::Com, 1, {})};
    contents.timeTriggers = {timeTrigger("08:05", {-3, 9, 300})};
    const TriggerMap map = triggerMap(contents);
    QCOMPARE(nodesOf(map), QStringLiteral("T0 T1- C0 E-3? E2- E7 E9 E77? E300? D7"));
    QCOMPARE(
        edgesOf(map), QStringLiteral("T0>E7 T0>E77? C0>E-3? C0>E9 C0>E300? E2->D7 E7>D7 E9>D7"));
}

void TestTriggerMap::marksNothingMissingWithoutEvents()
{
    Contents contents;
    contents.triggers = {trigger(TriggerKind::Com, 0, {7})};
    const TriggerMap map = triggerMap(contents);
    QCOMPARE(nodesOf(map), QStringLiteral("T0 E7"));
    QCOMPARE(edgesOf(map), QStringLiteral("T0>E7"));
}

void TestTriggerMap::namesEachEdgeOnce()
{
    Contents contents;
    contents.events = {newEvent(1), newEvent(2)};
    contents.triggers = {trigger(TriggerKind::Com, 0, {2, 1, 2, 2})};
    QCOMPARE(edgesOf(triggerMap(contents)), QStringLiteral("T0>E2 T0>E1 E1>D7 E2>D7"));
}

void TestTriggerMap::keepsDoubledEvents()
{
    Contents contents;
    contents.events = {newEvent(1), newEvent(1)};
    contents.triggers = {trigger(TriggerKind::Com, 0, {1})};
    const TriggerMap map = triggerMap(contents);
    QCOMPARE(nodesOf(map), QStringLiteral("T0 E1 E1- D7"));
    QCOMPARE(map.nodes.at(map.edges.first().to).index, 0);
}

void TestTriggerMap::findsPaths()
{
    Contents contents;
    contents.events = {
        newEvent(1, "4c010024180152800001"), newEvent(2, "4c010024170152100001"), newEvent(3)};
    contents.triggers = {trigger(TriggerKind::Com, 0, {1, 2}), trigger(TriggerKind::Com, 1, {2})};
    const TriggerMap map = triggerMap(contents);
    QCOMPARE(nodesOf(map), QStringLiteral("T0 T1 E1 E2 E3- D2 D4 D7"));
    const auto path = [&map](int node) {
        auto nodes = map.pathThrough(node).values();
        std::sort(nodes.begin(), nodes.end());
        return nodes;
    };
    QCOMPARE(path(0), QList<int>({0, 2, 3, 5, 6}));
    QCOMPARE(path(1), QList<int>({1, 3, 5}));
    QCOMPARE(path(3), QList<int>({0, 1, 3, 5}));
    QCOMPARE(path(4), QList<int>({4, 7}));
    QCOMPARE(path(6), QList<int>({0, 2, 6}));
}

void TestTriggerMap::holdsAFullUnit()
{
    const TriggerMap map = triggerMap(fullUnit(Limit::eventsOfTrigger));
    QCOMPARE(map.nodes.size(), Limit::tableEntries + Limit::events + 1);
    QCOMPARE(map.edges.size(), Limit::tableEntries * Limit::events + Limit::events);
}

QTEST_GUILESS_MAIN(TestTriggerMap)
#include "tst_triggermap.moc"
