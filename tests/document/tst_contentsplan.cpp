// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contentsplan.h"
#include "projectdocument.h"
#include "samplecontents.h"
#include "unitdocument.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <functional>

using namespace QuadrelDocument;

using Change = std::function<void(Contents& contents)>;
Q_DECLARE_METATYPE(Change)

namespace {

QString tableNames(const Plan& plan)
{
    QStringList names;
    for (const Table table : plan.tables)
        names.append(tableName(table));
    return names.join(QLatin1Char(' '));
}

/** The contents as a project file that was saved from them says. */
QByteArray projectOf(const Contents& contents)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.xml"));
    if (!saveFile(path, contents).isEmpty())
        return {};
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

LoadedFile loadedProject(const QByteArray& text)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.xml"));
    saveText(path, text);
    return loadFile(path);
}

} // namespace

/** What a plan writes, what it refuses, and what of the unit it leaves alone. */
class TestContentsPlan : public QObject {
    Q_OBJECT

private slots:
    void writesChangedTables_data();
    void writesChangedTables();
    void keepsWhatIsNotTold();
    void writesOnlyWhatIsAskedFor();
    void refusesOtherUnits();
    void findsFaults_data();
    void findsFaults();
    void isDoneOnceCarriedOut();
    void changesNothingByASavedProject();
    void changesOneThingByAProject_data();
    void changesOneThingByAProject();
    void keepsModbusTriggersThatAProjectDoesNotShow();
    void refusesModbusTriggersOfNoUnit();
};

void TestContentsPlan::writesChangedTables_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("tables");
    QTest::newRow("nothing") << Change([](Contents&) {}) << "";
    QTest::newRow("a port") << Change([](Contents& contents) {
        (*contents.serialPorts)[0].baudRate = 1200;
    }) << "config";
    QTest::newRow("a line") << Change([](Contents& contents) { (*contents.ioLines)[0].type = 2; })
                            << "config";
    QTest::newRow("an event") << Change([](Contents& contents) {
        (*contents.events)[0].name.reset();
    }) << "events";
    QTest::newRow("a trigger") << Change([](Contents& contents) {
        (*contents.triggers)[0].line = 1;
    }) << "triggers";
    QTest::newRow("a trigger moved")
        << Change([](Contents& contents) { contents.triggers->move(0, 1); }) << "triggers";
    QTest::newRow("a time trigger")
        << Change([](Contents& contents) { contents.timeTriggers->removeLast(); }) << "triggers";
    QTest::newRow("everything") << Change([](Contents& contents) {
        contents.events->removeLast();
        contents.triggers->clear();
        (*contents.ioLines)[0].type = 2;
    }) << "config events triggers";
}

void TestContentsPlan::writesChangedTables()
{
    QFETCH(Change, change);
    Contents wanted = sampleContents();
    change(wanted);
    const Plan plan = makePlan(wanted, sampleContents());
    QTEST(tableNames(plan), "tables");
    QCOMPARE(messagesOf(plan.findings), QString());
    QVERIFY(compareContents(plan.result, wanted).isEmpty());
}

void TestContentsPlan::keepsWhatIsNotTold()
{
    const Contents held = sampleContents();
    Contents wanted;
    wanted.triggers = held.triggers;
    wanted.triggers->removeFirst();
    const Plan plan = makePlan(wanted, held);
    QCOMPARE(tableNames(plan), QStringLiteral("triggers"));
    QCOMPARE(*plan.result.timeTriggers, *held.timeTriggers);
    QCOMPARE(*plan.result.events, *held.events);
    QCOMPARE(*plan.result.device, *held.device);
    QCOMPARE(plan.result.triggers->first().id, 0);
}

void TestContentsPlan::writesOnlyWhatIsAskedFor()
{
    const Contents held = sampleContents();
    Contents wanted = held;
    (*wanted.events)[0].name.reset();
    (*wanted.ioLines)[0].type = 2;
    PlanOptions options;
    options.only = {Table::Events};
    const Plan plan = makePlan(wanted, held, options);
    QCOMPARE(tableNames(plan), QStringLiteral("events"));
    QCOMPARE(*plan.result.ioLines, *held.ioLines);
    wanted.events.reset();
    const Plan refused = makePlan(wanted, held, options);
    QVERIFY(!refused.isAllowed());
    QCOMPARE(messagesOf(refused.findings),
        QStringLiteral("events: this section is missing, and it was asked for"));
}

void TestContentsPlan::refusesOtherUnits()
{
    const Contents held = sampleContents();
    Contents wanted = held;
    wanted.device->serialNumber = 5;
    wanted.device->ip = QStringLiteral("10.0.0.1");
    Plan plan = makePlan(wanted, held);
    QVERIFY(!plan.isAllowed());
    QCOMPARE(messagesOf(plan.findings),
        QStringLiteral("device.serialNumber: this is unit 5, and the unit to be written is "
                       "310000001; only its own contents are allowed unless another unit's are "
                       "asked for"));
    PlanOptions options;
    options.otherUnit = true;
    plan = makePlan(wanted, held, options);
    QVERIFY(plan.isAllowed());
    QCOMPARE(*plan.result.device, *held.device);
    wanted.device = held.device;
    wanted.device->modelId = 1;
    QCOMPARE(messagesOf(makePlan(wanted, held).findings),
        QStringLiteral("device.modelId: this is model 1, and the unit to be written is model "
                       "29193; only its own contents are allowed unless another unit's are asked "
                       "for"));
}

void TestContentsPlan::findsFaults_data()
{
    QTest::addColumn<Change>("holds");
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("messages");
    const auto dangling = [](Contents& contents) { (*contents.triggers)[2].eventIds = {99}; };
    const auto ofLine = [](Contents& contents) { (*contents.triggers)[2].line = 14; };
    const auto wrongSum = [](Contents& contents) { (*contents.triggers)[4].parameter = "abcd"; };
    const auto event = [](Contents& contents) { (*contents.events)[0].name.reset(); };
    const auto trigger = [](Contents& contents) { (*contents.triggers)[0].line = 1; };
    const Change none = [](Contents&) {};
    const QString noEvent =
        QStringLiteral("triggers[2].eventIds: there is no event 99; only those in \"events\" are "
                       "allowed");
    const QString lost = QStringLiteral(
        "triggers[2].line: COM D-3 is read back as another line; COM A-1 to COM D-2 are allowed");
    QTest::newRow("a new fault") << none << Change(dangling) << noEvent;
    QTest::newRow("an old fault elsewhere") << Change(dangling) << Change(event) << "";
    QTest::newRow("an old fault in the table")
        << Change(dangling) << Change(trigger) << QStringLiteral("warning: ") + noEvent;
    QTest::newRow("an old loss elsewhere") << Change(ofLine) << Change(event) << "";
    QTest::newRow("an old loss in the table") << Change(ofLine) << Change(trigger) << lost;
    QTest::newRow("an old warning") << Change(wrongSum) << Change(trigger) << "";
    QTest::newRow("a new warning")
        << none << Change(wrongSum)
        << "warning: triggers[4].parameter: the Modbus checksum is wrong; a9 c9 would be right";
    QTest::newRow("an event that a trigger runs is gone")
        << none << Change([](Contents& contents) { contents.events->removeAt(9); })
        << "triggers[2].eventIds: there is no event 10; only those in \"events\" are allowed\n"
           "triggers[3].eventIds: there is no event 10; only those in \"events\" are allowed";
    QTest::newRow("a port more") << none << Change([](Contents& contents) {
        contents.serialPorts->append(SerialPort());
    }) << "serialPorts: there are 10, but the device has 9; as many as it has are allowed";
}

void TestContentsPlan::findsFaults()
{
    QFETCH(Change, holds);
    QFETCH(Change, change);
    Contents held = sampleContents();
    holds(held);
    Contents wanted = held;
    change(wanted);
    QTEST(messagesOf(makePlan(wanted, held).findings), "messages");
}

/** What a plan makes of a unit is what a second plan finds. */
void TestContentsPlan::isDoneOnceCarriedOut()
{
    Contents wanted = sampleContents();
    wanted.triggers->move(1, 7);
    wanted.triggers->removeAt(2);
    (*wanted.events)[3].delay = 255;
    (*wanted.events)[4].name = QStringLiteral("Wärme");
    const Plan plan = makePlan(wanted, sampleContents());
    QCOMPARE(tableNames(plan), QStringLiteral("events triggers"));
    const Contents written = MemoryContents::writtenAndRead(plan.result);
    QVERIFY(written == plan.result);
    QVERIFY(makePlan(wanted, written).isEmpty());
}

void TestContentsPlan::changesNothingByASavedProject()
{
    Contents held = sampleContents();
    (*held.events)[0].description = QStringLiteral("a\x07"
                                                   "b");
    (*held.triggers)[0].description = QStringLiteral("  ");
    const LoadedFile file = loadedProject(projectOf(held));
    QVERIFY(!hasErrors(file.findings));
    PlanOptions options;
    options.fromProject = true;
    const Plan plan = makePlan(file.contents, held, options, file.positions);
    QCOMPARE(differenceText(plan.difference), QString());
    QVERIFY(plan.isEmpty());
    QVERIFY(plan.isAllowed());
}

void TestContentsPlan::changesOneThingByAProject_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QString>("difference");
    QTest::newRow("an event's description")
        << QByteArray("<Instruction>Display off<") << QByteArray("<Instruction>Screen off<")
        << "~ events[8]\n    description: \"Display off\" -> \"Screen off\"\n";
    QTest::newRow("a delay") << QByteArray(">50*10ms<") << QByteArray(">60*10ms<")
                             << "~ events[4]\n    delay: 500 -> 600\n";
    QTest::newRow("a fractional delay") << QByteArray(">25.5*10ms<") << QByteArray(">25.6*10ms<")
                                        << "~ events[6]\n    delay: 255 -> 256\n";
    QTest::newRow("an event's id") << QByteArray("<ID>32<") << QByteArray("<ID>40<")
                                   << "+ events[40]\n    protocol: \"4c 01 00 25 10 01 52 01 80 00 "
                                      "06 52 45 53 45 54 0d\"\n    description: \"\"\n"
                                      "- events[32]\n    protocol: \"4c 01 00 25 10 01 52 01 80 00 "
                                      "06 52 45 53 45 54 0d\"\n    description: \"\"\n";
    QTest::newRow("a trigger's events")
        << QByteArray("<Event>ID:10<") << QByteArray("<Event>ID:11<")
        << "~ triggers[2]\n    eventIds: [10] -> [11]\n";
    QTest::newRow("a Modbus trigger's description")
        << QByteArray("<Instruction>Curtain<") << QByteArray("<Instruction>Blind<")
        << "~ triggers[5]\n    description: \"Curtain\" -> \"Blind\"\n";
    QTest::newRow("a level") << QByteArray("<IO>IO C-1</IO>") << QByteArray("<IO>IO C-2</IO>")
                             << "~ triggers[9]\n    line: IO C-1 -> IO C-2\n";
    QTest::newRow("a line of the device")
        << QByteArray("<Model>2</Model>\n        </IO>\n        <IO>\n            <Model>0")
        << QByteArray("<Model>1</Model>\n        </IO>\n        <IO>\n            <Model>0")
        << "~ ioLines[10]\n    type: 2 -> 1\n";
}

void TestContentsPlan::changesOneThingByAProject()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    const Contents held = sampleContents();
    const QByteArray saved = projectOf(held);
    QCOMPARE(saved.count(from), 1);
    const LoadedFile file = loadedProject(QByteArray(saved).replace(from, to));
    QCOMPARE(hasErrors(file.findings), false);
    PlanOptions options;
    options.fromProject = true;
    const Plan plan = makePlan(file.contents, held, options, file.positions);
    QTEST(differenceText(plan.difference), "difference");
    QVERIFY(plan.isAllowed());
}

void TestContentsPlan::keepsModbusTriggersThatAProjectDoesNotShow()
{
    const Contents held = sampleContents();
    Contents project = loadedProject(projectOf(held)).contents;
    PlanOptions options;
    options.fromProject = true;
    project.triggers->removeAt(5);
    Plan plan = makePlan(project, held, options);
    QVERIFY(plan.isEmpty());
    (*project.triggers)[0].description = QStringLiteral("Start");
    plan = makePlan(project, held, options);
    QCOMPARE(messagesOf(plan.findings),
        QStringLiteral("warning: triggers: the unit keeps 2 Modbus triggers, of which the project "
                       "file shows 1; it can't remove any"));
    project.triggers->removeAt(4);
    plan = makePlan(project, held, options);
    QCOMPARE(messagesOf(plan.findings), QString());
    QCOMPARE(plan.difference.changes.size(), 1);
}

void TestContentsPlan::refusesModbusTriggersOfNoUnit()
{
    const Contents held = sampleContents();
    Contents project = loadedProject(projectOf(held)).contents;
    project.triggers->append(
        Trigger{11, TriggerKind::ComModbus, unknownLine, "abcd", {}, {31}, QStringLiteral("New")});
    PlanOptions options;
    options.fromProject = true;
    const Plan plan = makePlan(project, held, options);
    QVERIFY(!plan.isAllowed());
    QVERIFY(messagesOf(plan.findings)
                .contains(QStringLiteral("triggers[10].line: it is not known; a project file has "
                                         "no place for that of a Modbus trigger")));
}

QTEST_GUILESS_MAIN(TestContentsPlan)
#include "tst_contentsplan.moc"
