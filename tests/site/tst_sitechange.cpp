// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "patience.h"
#include "simulatedsite.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtTest/QtTest>

#include <csignal>

namespace {

QByteArray runState(SimulatedSite& site)
{
    return ControlTool::contentsOf(site.tool.path(QStringLiteral("site.write-run.yaml")));
}

const char* const newEvent = "set|events[60]={delay: 500}";

} // namespace

/** diff, set, unset, run, clock, and the staged write and upgrade. */
class TestSiteChange : public QObject {
    Q_OBJECT

private slots:
    void findsDifferences();
    void comparesWithAFolder();
    void changesAllDocuments();
    void changesNoDocumentWithAMistake();
    void runsACommand();
    void runsACommandAsJson();
    void fillsInNamesAndDocuments();
    void refusesACommand_data();
    void refusesACommand();
    void setsClocks();
    void needsConsent_data();
    void needsConsent();
    void writesInStages();
    void writesNothingOnADryRun();
    void writesNothingWithoutADocument();
    void stopsAfterFailures();
    void stopsBeforeTheFirstWrite();
    void resumes();
    void verifiesWhatIsDone();
    void refusesToResume_data();
    void refusesToResume();
    void finishesUnitsWhenInterrupted();
    void endsUnitsWhenInterruptedTwice();
    void upgrades();
    void upgradesNothingTwice();
};

void TestSiteChange::findsDifferences()
{
    SimulatedSite site(3);
    site.saveDocuments();
    QCOMPARE(site.run("diff").exitCode, 0);
    for (const char* line : {"set|--unit|@2|events[8].description=X|--yes",
             "set|--unit|@3|events[8].description=X|--yes"})
        QCOMPARE(site.control(line).exitCode, 0);
    const ToolResult result = site.run("diff|--quiet");
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.output,
        QStringLiteral("u-2, u-3\n~ events[8]\n    description: \"Display off\" -> \"X\"\n"
                       "Outcome  Units  Names\nsame     1      u-1\ndiffers  2      u-2, u-3\n"));
    QCOMPARE(result.exitCode, 3);
}

void TestSiteChange::comparesWithAFolder()
{
    SimulatedSite site(2);
    QDir().mkpath(site.tool.path(QStringLiteral("d")));
    QCOMPARE(site.control("save|--unit|@1|DIR/d/u-1.yaml").exitCode, 0);
    const ToolResult result = site.run("diff|DIR/d|--quiet");
    QCOMPARE(site.masked(result.errors),
        QStringLiteral("u-2: DIR/d/u-2.yaml: the file can't be read: No such file or directory\n"));
    QCOMPARE(result.output,
        QStringLiteral("Outcome  Units  Names\nsame     1      u-1\nfailed   1      u-2\n"));
    QCOMPARE(result.exitCode, 1);
}

void TestSiteChange::changesAllDocuments()
{
    SimulatedSite site(3);
    site.saveDocuments();
    ToolResult result = site.run("set|events[60]={delay: 500}|--tag|odd");
    QCOMPARE(result.errors, QString());
    QVERIFY2(
        result.output.startsWith(QStringLiteral("u-1\n+ events[60]\n")), qPrintable(result.output));
    QVERIFY2(
        result.output.endsWith(QStringLiteral("Outcome  Units  Names\nsaved    2      u-1, u-3\n")),
        qPrintable(result.output));
    QVERIFY(ControlTool::contentsOf(site.document(3)).contains("id: 60"));
    QVERIFY(!ControlTool::contentsOf(site.document(2)).contains("id: 60"));
    result = site.run("unset|events[60]|--name|u-1");
    QCOMPARE(result.errors, QString());
    QVERIFY(!ControlTool::contentsOf(site.document(1)).contains("id: 60"));
    result = site.run("set|events[60]={delay: 5}|--name|u-1|--dry-run");
    QVERIFY2(
        result.output.endsWith(QStringLiteral("planned  1      u-1\n")), qPrintable(result.output));
    QVERIFY(!ControlTool::contentsOf(site.document(1)).contains("id: 60"));
}

void TestSiteChange::changesNoDocumentWithAMistake()
{
    SimulatedSite site(2);
    site.saveDocuments();
    QCOMPARE(site.run("unset|events[18]|--name|u-2").exitCode, 0);
    const QByteArray before = ControlTool::contentsOf(site.document(1));
    const ToolResult result = site.run("set|events[18].name=X");
    QVERIFY2(site.masked(result.errors).startsWith(QStringLiteral("DIR/u-2.yaml: ")),
        qPrintable(result.errors));
    QVERIFY2(result.errors.endsWith(QStringLiteral("\nNo document was changed.\n")),
        qPrintable(result.errors));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(ControlTool::contentsOf(site.document(1)), before);
}

void TestSiteChange::runsACommand()
{
    SimulatedSite site(2);
    const ToolResult result = site.run("run|--jobs|1|--|get|device.serialNumber");
    QCOMPARE(result.errors, QStringLiteral("u-1: done\nu-2: done\n"));
    QCOMPARE(result.output,
        QStringLiteral("u-1\n310000001\nu-2\n310000002\nOutcome  Units  Names\n"
                       "done     2      u-1, u-2\n"));
    QCOMPARE(result.exitCode, 0);
}

void TestSiteChange::runsACommandAsJson()
{
    SimulatedSite site(1);
    QJsonObject unit = site.runJson("--json|run|--|info")
                           .value(QStringLiteral("units"))
                           .toArray()
                           .at(0)
                           .toObject();
    QCOMPARE(unit.value(QStringLiteral("result"))
                 .toObject()
                 .value(QStringLiteral("serialNumber"))
                 .toString(),
        QStringLiteral("310000001"));
}

void TestSiteChange::fillsInNamesAndDocuments()
{
    SimulatedSite site(2);
    QCOMPARE(site.run("run|--|save|DIR/copy-{name}.yaml").exitCode, 0);
    QVERIFY(QFile::exists(site.tool.path(QStringLiteral("copy-u-2.yaml"))));
    QCOMPARE(site.run("run|--|save|{document}").exitCode, 0);
    QVERIFY(QFile::exists(site.document(2)));
}

void TestSiteChange::refusesACommand_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");
    QTest::newRow("not for a unit") << QStringLiteral("run|--|backups")
                                    << QStringLiteral("\"backups\" is not a command for a unit\n");
    QTest::newRow("unknown") << QStringLiteral("run|--|x")
                             << QStringLiteral("\"x\" is not a command for a unit\n");
    QTest::newRow("unit") << QStringLiteral("run|--|info|--unit|x")
                          << QStringLiteral("the command gets each unit; leave --unit out\n");
    QTest::newRow("none") << QStringLiteral("run") << QStringLiteral("command is required\n");
}

void TestSiteChange::refusesACommand()
{
    QFETCH(QString, line);
    QFETCH(QString, error);
    SimulatedSite site(1);
    const ToolResult result = site.run(line.toUtf8().constData());
    QCOMPARE(result.errors, error + QStringLiteral("Run with --help for more information.\n"));
    QCOMPARE(result.exitCode, 2);
}

void TestSiteChange::setsClocks()
{
    SimulatedSite site(2);
    QCOMPARE(site.run("clock|--set|2020/01/02  03:04:05|--yes").exitCode, 0);
    const ToolResult result = site.control("clock|--unit|@2");
    QVERIFY2(
        result.output.startsWith(QStringLiteral("2020/01/02 03:04:")), qPrintable(result.output));
    QCOMPARE(site.run("clock|--set|now|--yes|--quiet").output,
        QStringLiteral("Outcome  Units  Names\ndone     2      u-1, u-2\n"));
}

void TestSiteChange::needsConsent_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("clock") << QStringLiteral("clock|--set|now");
    QTest::newRow("write") << QStringLiteral("write");
    QTest::newRow("run") << QStringLiteral("run|--|reset");
}

void TestSiteChange::needsConsent()
{
    QFETCH(QString, line);
    SimulatedSite site(1);
    const ToolResult result = site.run(line.toUtf8().constData());
    QCOMPARE(result.errors,
        QStringLiteral("there is no terminal to ask on, and nothing was sent; --yes goes on "
                       "without asking, --dry-run shows what would be done\n"));
    QCOMPARE(result.exitCode, 2);
}

void TestSiteChange::writesInStages()
{
    SimulatedSite site(4);
    site.saveDocuments();
    QCOMPARE(site.run(newEvent).exitCode, 0);
    QCOMPARE(site.control("write|--unit|@4|DIR/u-4.yaml|--yes").exitCode, 0);
    const ToolResult result = site.run("write|--canary|1|--batch|1|--yes");
    QVERIFY2(result.output.startsWith(QStringLiteral("u-1, u-2, u-3\n+ events[60]\n")),
        qPrintable(result.output));
    QVERIFY2(result.output.endsWith(QStringLiteral("Outcome  Units  Names\nsame     1      u-4\n"
                                                   "written  3      u-1, u-2, u-3\n")),
        qPrintable(result.output));
    const QStringList lines = result.errors.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.mid(4),
        QStringList({QStringLiteral("stage 1 of 3"), QStringLiteral("u-1: written, 1 change"),
            QStringLiteral("stage 2 of 3"), QStringLiteral("u-2: written, 1 change"),
            QStringLiteral("stage 3 of 3"), QStringLiteral("u-3: written, 1 change")}));
    QCOMPARE(result.exitCode, 0);
    QVERIFY(!QFile::exists(site.tool.path(QStringLiteral("site.write-run.yaml"))));
    QCOMPARE(site.run("diff").exitCode, 0);
}

void TestSiteChange::writesNothingOnADryRun()
{
    SimulatedSite site(1);
    site.saveDocuments();
    QCOMPARE(site.run(newEvent).exitCode, 0);
    const ToolResult result = site.run("write|--dry-run|--quiet");
    QVERIFY2(
        result.output.endsWith(QStringLiteral("planned  1      u-1\n")), qPrintable(result.output));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(site.run("diff").exitCode, 3);
}

void TestSiteChange::writesNothingWithoutADocument()
{
    SimulatedSite site(2);
    site.saveDocuments();
    site.writeInventory(site.inventory().replace("    document: u-2.yaml\n", ""));
    QCOMPARE(site.run(newEvent).exitCode, 0);
    const ToolResult result = site.run("write|--yes");
    QCOMPARE(result.errors,
        QStringLiteral("u-2: the inventory names no document; name one, or leave the unit out "
                       "with --exclude\nNothing was sent to any unit.\n"));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(site.run("diff").exitCode, 3);
}

/** The second unit fails in the middle of its write; the third is not begun. */
void TestSiteChange::stopsAfterFailures()
{
    SimulatedSite site(3);
    site.saveDocuments();
    QCOMPARE(site.run(newEvent).exitCode, 0);
    // Twice 72 replies are for reading: once for the plan and once ahead of the write.
    site.switchOff();
    site.switchOn({QStringLiteral("--fault"), QStringLiteral("2:close@150")});
    const ToolResult result = site.run("write|--jobs|1|--yes");
    QVERIFY2(site.masked(result.errors)
                 .contains(QStringLiteral("u-2: @2 closed the connection without an answer\n"
                                          "    failed while writing event ")),
        qPrintable(result.errors));
    QVERIFY2(result.errors.contains(
                 QStringLiteral("\n    events: unknown, perhaps some old and some new\n")),
        qPrintable(result.errors));
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(site.masked(result.errors)
                 .contains(QStringLiteral("DIR/site.write-run.yaml says how far the run has come; "
                                          "\"quadrelctl site write --resume\" goes on with it, "
                                          "with the same options\n")),
        qPrintable(result.errors));
    QVERIFY2(
        result.output.startsWith(QStringLiteral("u-1, u-2, u-3\n")), qPrintable(result.output));
    QVERIFY2(result.output.endsWith(QStringLiteral("Holds                            Units  Names\n"
                                                   "the new                          1      u-1\n"
                                                   "the old                          1      u-3\n"
                                                   "not known, perhaps some of both  1      u-2\n"
                                                   "Outcome    Units  Names\n"
                                                   "written    1      u-1\n"
                                                   "failed     1      u-2\n"
                                                   "not begun  1      u-3\n")),
        qPrintable(result.output));
    const QByteArray state = runState(site);
    QVERIFY2(state.contains("name: \"u-1\"\n    state: done"), state.constData());
    QVERIFY2(state.contains("name: \"u-2\"\n    state: failed"), state.constData());
    QVERIFY2(state.contains("name: \"u-3\"\n    state: waiting"), state.constData());
}

void TestSiteChange::stopsBeforeTheFirstWrite()
{
    SimulatedSite site(2);
    site.saveDocuments();
    QCOMPARE(site.run(newEvent).exitCode, 0);
    site.writeInventory(site.inventory().replace("serial: 310000002", "serial: 7"));
    const QString document = QString::fromUtf8(ControlTool::contentsOf(site.document(2)));
    site.tool.write(QStringLiteral("u-2.yaml"),
        QString(document).replace(QStringLiteral("310000002"), QStringLiteral("7")).toUtf8());
    const ToolResult result = site.run("write|--yes|--quiet");
    QVERIFY2(result.errors.startsWith(
                 QStringLiteral("1 unit failed before anything was sent, and --max-failures "
                                "allows 0: no unit was changed\n")),
        qPrintable(result.errors));
    QVERIFY2(
        result.output.endsWith(QStringLiteral("failed     1      u-2\nnot begun  1      u-1\n")),
        qPrintable(result.output));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(site.run("diff|--name|u-1").exitCode, 3);
}

void TestSiteChange::resumes()
{
    SimulatedSite site(3);
    site.saveDocuments();
    QCOMPARE(site.run(newEvent).exitCode, 0);
    QCOMPARE(site.control("write|--unit|@1|DIR/u-1.yaml|--yes").exitCode, 0);
    site.tool.write(QStringLiteral("site.write-run.yaml"),
        "format: quadrel-run/1\n"
        "command: \"site write\"\n"
        "begun: 2026-11-21T09:30:00Z\n"
        "units:\n"
        "  - name: \"u-1\"\n    state: done\n"
        "  - name: \"u-2\"\n    state: failed\n    reason: \"x\"\n"
        "  - name: \"u-3\"\n    state: at work\n");
    const ToolResult result = site.run("write|--resume|--yes|--quiet");
    QCOMPARE(result.errors, QString());
    QVERIFY2(result.output.endsWith(QStringLiteral("Outcome   Units  Names\n"
                                                   "written   2      u-2, u-3\n"
                                                   "verified  1      u-1\n")),
        qPrintable(result.output));
    QCOMPARE(result.exitCode, 0);
    QVERIFY(!QFile::exists(site.tool.path(QStringLiteral("site.write-run.yaml"))));
    // Without --resume a run that stopped is named.
    site.tool.write(QStringLiteral("site.write-run.yaml"),
        "format: quadrel-run/1\ncommand: x\nbegun: 2026-11-21T09:30:00Z\nunits:\n"
        "  - name: \"u-1\"\n    state: done\n  - name: \"u-2\"\n    state: waiting\n");
    QCOMPARE(site.run("set|events[60].delay=600").exitCode, 0);
    QCOMPARE(site.masked(site.run("write|--yes|--quiet").errors),
        QStringLiteral("DIR/site.write-run.yaml is left from a run that stopped, with 1 of 2 units "
                       "done; it is replaced now, and --resume would go on with it\n"));
}

void TestSiteChange::verifiesWhatIsDone()
{
    SimulatedSite site(1);
    site.saveDocuments();
    QCOMPARE(site.run(newEvent).exitCode, 0);
    site.tool.write(QStringLiteral("site.write-run.yaml"),
        "format: quadrel-run/1\ncommand: x\nbegun: 2026-11-21T09:30:00Z\nunits:\n"
        "  - name: \"u-1\"\n    state: done\n");
    const ToolResult result = site.run("write|--resume|--yes|--quiet|--max-failures|5");
    QCOMPARE(result.errors,
        QStringLiteral("u-1: the run has written its document, and the unit holds something else "
                       "now, with 1 change; start again without --resume to write it again\n"));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(site.run("diff").exitCode, 3);
}

void TestSiteChange::refusesToResume_data()
{
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("no file") << QByteArray() << QStringLiteral("write|--resume|--yes")
                             << QStringLiteral("DIR/site.write-run.yaml: there is no such file, so "
                                               "no run to go on with; leave --resume out\n")
                             << 1;
    QTest::newRow("selection") << QByteArray() << QStringLiteral("write|--resume|--yes|--tag|odd")
                               << QStringLiteral("--resume goes on with the units of the run; "
                                                 "leave --tag, --name and --exclude out\n")
                               << 2;
    QTest::newRow("another file") << QByteArray("x: 1\n") << QStringLiteral("write|--resume|--yes")
                                  << QStringLiteral("DIR/site.write-run.yaml:1:1: ") << 1;
    QTest::newRow("unknown unit")
        << QByteArray("format: quadrel-run/1\ncommand: x\nbegun: 2026-11-21T09:30:00Z\nunits:\n"
                      "  - name: \"u-7\"\n    state: done\n")
        << QStringLiteral("write|--resume|--yes")
        << QStringLiteral("DIR/site.write-run.yaml: the run has the unit u-7, and DIR/site.yaml "
                          "does not; add it again, or start again without --resume\n")
        << 1;
}

void TestSiteChange::refusesToResume()
{
    QFETCH(QByteArray, state);
    QFETCH(QString, line);
    QFETCH(QString, error);
    SimulatedSite site(1);
    if (!state.isEmpty())
        site.tool.write(QStringLiteral("site.write-run.yaml"), state);
    const ToolResult result = site.run(line.toUtf8().constData());
    QVERIFY2(site.masked(result.errors).startsWith(error), qPrintable(result.errors));
    QTEST(result.exitCode, "exitCode");
}

/** The unit at work is finished, and the next one not begun. */
void TestSiteChange::finishesUnitsWhenInterrupted()
{
    SimulatedSite site(2);
    site.saveDocuments();
    QCOMPARE(site.run(newEvent).exitCode, 0);
    site.switchOff();
    site.switchOn({QStringLiteral("--latency"), QStringLiteral("30")});
    Program process;
    site.tool.start(process, site.arguments("write|--jobs|1|--canary|1|--yes"));
    TRY_VERIFY(runState(site).contains("state: at work"));
    QVERIFY(process.sendSignal(SIGINT));
    const ToolResult result = ControlTool::resultOf(process);
    QVERIFY2(result.errors.contains(QStringLiteral(
                 "interrupted: units at work go on to their end and no other is begun; a second "
                 "interrupt ends them too\n")),
        qPrintable(result.errors));
    QCOMPARE(result.exitCode, 130);
    QVERIFY2(result.output.contains(QStringLiteral("written    1      u-1\n"
                                                   "not begun  1      u-2\n")),
        qPrintable(result.output));
    QVERIFY2(result.output.contains(QStringLiteral("Holds    Units  Names\n"
                                                   "the new  1      u-1\n"
                                                   "the old  1      u-2\n")),
        qPrintable(result.output));
    QCOMPARE(site.run("write|--resume|--yes").exitCode, 0);
    QCOMPARE(site.run("diff").exitCode, 0);
}

void TestSiteChange::endsUnitsWhenInterruptedTwice()
{
    SimulatedSite site(1);
    site.saveDocuments();
    QCOMPARE(site.run(newEvent).exitCode, 0);
    site.switchOff();
    // In the middle of the write, for ever.
    site.switchOn({QStringLiteral("--fault"), QStringLiteral("hang@150")});
    Program process;
    site.tool.start(process, site.arguments("write|--yes|--timeout|600000"));
    TRY_VERIFY(runState(site).contains("state: at work"));
    QVERIFY(process.sendSignal(SIGINT));
    QVERIFY(process.waitForError(QStringLiteral("interrupted: ")));
    QVERIFY(process.sendSignal(SIGINT));
    const ToolResult result = ControlTool::resultOf(process);
    QVERIFY2(result.errors.contains(
                 QStringLiteral("interrupted again: the units at work are being ended\n")),
        qPrintable(result.errors));
    QVERIFY2(result.errors.contains(QStringLiteral("u-1: ended by the user")),
        qPrintable(result.errors));
    QCOMPARE(result.exitCode, 130);
    // Whatever state it was in, the run that goes on makes it whole.
    site.switchOff();
    site.switchOn();
    QCOMPARE(site.run("write|--resume|--yes").exitCode, 0);
    QCOMPARE(site.run("diff").exitCode, 0);
}

void TestSiteChange::upgrades()
{
    SimulatedSite site(2, {QStringLiteral("--reset-time"), QStringLiteral("100")});
    site.tool.write(QStringLiteral("s.bin"), QByteArray(2000, '\x01'));
    site.tool.write(QStringLiteral("a.bin"), QByteArray(2000, '\x02'));
    const ToolResult result =
        site.run("upgrade|--streamed|DIR/s.bin|--addressed|DIR/a.bin|--canary|1|--batch|1|--yes");
    QVERIFY2(result.errors.contains(QStringLiteral("stage 1 of 2\nu-1: upgraded\nstage 2 of 2\n"
                                                   "u-2: upgraded\n")),
        qPrintable(result.errors));
    QVERIFY2(result.output.endsWith(QStringLiteral("upgraded  2      u-1, u-2\n")),
        qPrintable(result.output));
    QCOMPARE(result.exitCode, 0);
    QVERIFY(site.run("status").output.contains(QStringLiteral("1.0.0.1")));
}

void TestSiteChange::upgradesNothingTwice()
{
    SimulatedSite site(2);
    site.tool.write(QStringLiteral("s.bin"), QByteArray(2000, '\x01'));
    site.tool.write(QStringLiteral("a.bin"), QByteArray(2000, '\x02'));
    site.tool.write(
        QStringLiteral("d.xml"), "<r><ModuleID>0x7209</ModuleID><Version>1.0.0.0</Version></r>");
    ToolResult result = site.run("upgrade|--streamed|DIR/s.bin|--addressed|DIR/a.bin"
                                 "|--descriptor|DIR/d.xml|--yes|--quiet");
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.output, QStringLiteral("Outcome  Units  Names\nsame     2      u-1, u-2\n"));
    site.tool.write(QStringLiteral("site.upgrade-run.yaml"),
        "format: quadrel-run/1\ncommand: x\nbegun: 2026-11-21T09:30:00Z\nunits:\n"
        "  - name: \"u-1\"\n    state: done\n    version: \"1.0.0.0\"\n"
        "  - name: \"u-2\"\n    state: done\n    version: \"1.0.0.7\"\n");
    result = site.run("upgrade|--resume|--streamed|DIR/s.bin|--addressed|DIR/a.bin|--yes|--quiet"
                      "|--max-failures|9");
    QCOMPARE(result.errors,
        QStringLiteral("u-2: the run has upgraded it to version 1.0.0.7, and it has 1.0.0.0 now; "
                       "start again without --resume to upgrade it again\n"));
    QCOMPARE(result.output,
        QStringLiteral("Outcome   Units  Names\nverified  1      u-1\nfailed    1      u-2\n"));
}

QTEST_GUILESS_MAIN(TestSiteChange)
#include "tst_sitechange.moc"
