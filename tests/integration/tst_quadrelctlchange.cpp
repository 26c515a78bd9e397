// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "programs.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QtTest>

#include <sys/stat.h>

namespace {

QStringList words(const char* line)
{
    return QString::fromUtf8(line).split(QLatin1Char('|'), Qt::SkipEmptyParts);
}

QJsonObject parse(const QString& text)
{
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

/** A unit with the sample, the tool, and what the unit held at first as a document. */
class Workplace {
public:
    explicit Workplace(const QStringList& unitOptions = {QStringLiteral("--sample")})
        : unit(unitOptions)
        , file(tool.path(QStringLiteral("u.yaml")))
    {
    }

    /** Runs a command; "@" is the unit's address, "%" the document. */
    ToolResult run(const char* line)
    {
        QStringList arguments = words(line);
        for (QString& argument : arguments) {
            if (argument == QStringLiteral("@"))
                argument = unit.address();
            if (argument == QStringLiteral("%"))
                argument = file;
        }
        return tool.run(arguments);
    }

    /** What the unit holds now, against the document. */
    QString difference() { return run("diff|%|@").output.section(QLatin1Char('\n'), 2); }

    const SimulatorProcess unit;
    ControlTool tool;
    const QString file;
};

const QString oneChange =
    QStringLiteral("~ events[8]\n    description: \"Display off\" -> \"Screen off\"\n");
const QString writtenText = QStringLiteral("Written and read back. \"quadrelctl undo --unit UNIT\" "
                                           "takes it back.\n");

QString withAddress(QString text, const SimulatorProcess& unit)
{
    return text.replace(QStringLiteral("UNIT"), unit.address());
}

} // namespace

/** write, set, get, unset, undo and backups. */
class TestQuadrelctlChange : public QObject {
    Q_OBJECT

private slots:
    void changesOneThing_data();
    void changesOneThing();
    void changesOneTrigger();
    void changesOneThingByAProjectFile();
    void writesNothingWithoutADifference();
    void asksBeforeAChange_data();
    void asksBeforeAChange();
    void needsConsentWithoutATerminal_data();
    void needsConsentWithoutATerminal();
    void changesNothingOnADryRun_data();
    void changesNothingOnADryRun();
    void writesOneSection_data();
    void writesOneSection();
    void refusesAMissingSection();
    void refusesMistakesBeforeAnythingIsSent();
    void refusesAnotherUnit();
    void takesAnotherUnitIfToldTo();
    void takesBackAChange();
    void hasNothingToTakeBack();
    void listsBackups();
    void writesNothingWithoutABackup();
    void keepsTwoRunsApart();
    void reportsAFailedWrite();
    void finishesAWriteWithoutATerminal();
    void finishesAWriteWithoutAReader();
    void printsAnOutcomeAsJson();
    void changesAFile();
    void getsValues_data();
    void getsValues();
    void refusesBadPaths_data();
    void refusesBadPaths();
    void addsAndRemovesRecords();
};

void TestQuadrelctlChange::changesOneThing_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("set") << QStringLiteral("set");
    QTest::newRow("YAML") << QStringLiteral("yaml");
    QTest::newRow("JSON") << QStringLiteral("json");
}

void TestQuadrelctlChange::changesOneThing()
{
    QFETCH(QString, way);
    Workplace place;
    QCOMPARE(place.run("read|--unit|@|--save|%").exitCode, 0);
    ToolResult result;
    if (way == QStringLiteral("set")) {
        result = place.run("set|--unit|@|events[8].description=Screen off|--yes");
    } else {
        const QString copy = place.tool.path(QStringLiteral("copy.") + way);
        QCOMPARE(place.tool.run({QStringLiteral("convert"), place.file, copy}).exitCode, 0);
        place.tool.write(QStringLiteral("copy.") + way,
            ControlTool::contentsOf(copy).replace(way == QStringLiteral("json")
                    ? "\"description\": \"Display off\""
                    : "description: \"Display off\"",
                way == QStringLiteral("json") ? "\"description\": \"Screen off\""
                                              : "description: \"Screen off\""));
        result = place.tool.run({QStringLiteral("write"), QStringLiteral("--unit"),
            place.unit.address(), copy, QStringLiteral("--yes")});
    }
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.output, oneChange + withAddress(writtenText, place.unit));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(place.difference(), oneChange);
}

void TestQuadrelctlChange::changesOneTrigger()
{
    Workplace place;
    QCOMPARE(place.run("read|--unit|@|--save|%").exitCode, 0);
    const ToolResult result = place.run("set|--unit|@|triggers[2].line=COM B-3|--yes");
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(place.difference(), QStringLiteral("~ triggers[2]\n    line: COM A-2 -> COM B-3\n"));
}

/** What such a file has no place for comes from the unit. */
void TestQuadrelctlChange::changesOneThingByAProjectFile()
{
    Workplace place;
    QCOMPARE(place.run("read|--unit|@|--save|%").exitCode, 0);
    const QString file = place.tool.path(QStringLiteral("u.xml"));
    place.tool.run({QStringLiteral("read"), QStringLiteral("--unit"), place.unit.address(),
        QStringLiteral("--save"), file});
    place.tool.write(QStringLiteral("u.xml"),
        ControlTool::contentsOf(file).replace(
            "<Instruction>Display off</Instruction>", "<Instruction>Screen off</Instruction>"));
    const ToolResult result = place.tool.run({QStringLiteral("write"), QStringLiteral("--unit"),
        place.unit.address(), file, QStringLiteral("--yes")});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(place.difference(), oneChange);
}

void TestQuadrelctlChange::writesNothingWithoutADifference()
{
    Workplace place;
    QCOMPARE(place.run("read|--unit|@|--save|%").exitCode, 0);
    const ToolResult result = place.run("write|--unit|@|%|--yes");
    QCOMPARE(result.errors, QString());
    QCOMPARE(
        result.output, QStringLiteral("The unit holds all of this already; nothing is written.\n"));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(place.run("backups").output,
        QStringLiteral("There are no backups: no unit was changed from here.\n"));
}

void TestQuadrelctlChange::asksBeforeAChange_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("isYes");
    QTest::newRow("yes") << QByteArray("y\n") << true;
    QTest::newRow("no") << QByteArray("n\n") << false;
    QTest::newRow("only enter") << QByteArray("\n") << false;
    QTest::newRow("end of input") << QByteArray("\x04") << false;
}

void TestQuadrelctlChange::asksBeforeAChange()
{
    if (!TerminalProgram::isPossible())
        QSKIP("this machine makes no terminals");
    QFETCH(QByteArray, answer);
    QFETCH(bool, isYes);
    Workplace place;
    place.run("read|--unit|@|--save|%");
    const ToolResult result = place.tool.runOnTerminal(
        {QStringLiteral("set"), QStringLiteral("--unit"), place.unit.address(),
            QStringLiteral("events[8].description=Screen off")},
        answer);
    QVERIFY2(result.output.contains(
                 withAddress(QStringLiteral("Write 1 change to UNIT? [y/N] "), place.unit)),
        qPrintable(result.output));
    QCOMPARE(result.output.contains(QStringLiteral("nothing was changed")), !isYes);
    QCOMPARE(result.exitCode, isYes ? 0 : 1);
    QCOMPARE(place.difference(), isYes ? oneChange : QString());
}

void TestQuadrelctlChange::needsConsentWithoutATerminal_data()
{
    QTest::addColumn<QString>("line");
    const auto row = [](const char* line) { QTest::newRow(line) << QString::fromLatin1(line); };
    row("write|--unit|@|%");
    row("edit|--unit|@");
    row("set|--unit|@|events[8].description=x");
    row("unset|--unit|@|events[8].name");
    row("undo|--unit|@");
    row("clock|--unit|@|--set|now");
    row("network|--unit|@|--ip|10.0.0.1|--mask|255.0.0.0|--gateway|10.0.0.2");
    row("reset|--unit|@|--default-address");
    row("upgrade|--unit|@|--streamed|%|--addressed|%");
    row("remark|--unit|@|--streamed|%");
}

/** There is no unit: a refused connection would show that something was sent. */
void TestQuadrelctlChange::needsConsentWithoutATerminal()
{
    QFETCH(QString, line);
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("u.yaml"), "format: quadrel-unit/1\n");
    line.replace(QLatin1Char('@'), QStringLiteral("tcp://127.0.0.1:1"));
    line.replace(QLatin1Char('%'), file);
    const ToolResult result = tool.run(line.split(QLatin1Char('|')));
    QCOMPARE(result.errors,
        QStringLiteral("there is no terminal to ask on, and nothing was sent; --yes goes on "
                       "without asking, --dry-run shows what would be done\n"));
    QCOMPARE(result.output, QString());
    QCOMPARE(result.exitCode, 2);
}

void TestQuadrelctlChange::changesNothingOnADryRun_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("shown");
    QTest::newRow("set") << QStringLiteral("set|--unit|@|events[8].description=Screen off")
                         << oneChange;
    QTest::newRow("unset") << QStringLiteral("unset|--unit|@|events[32]")
                           << QStringLiteral("- events[32]\n");
    QTest::newRow("clock") << QStringLiteral("clock|--unit|@|--set|now")
                           << QStringLiteral("The clock says 20");
    QTest::newRow("reset") << QStringLiteral("reset|--unit|@")
                           << QStringLiteral("The unit would restart, and keep the address "
                                             "192.168.1.100.\n");
    QTest::newRow("reset to the default address")
        << QStringLiteral("reset|--unit|@|--default-address")
        << QStringLiteral("goes back from 192.168.1.100 to its default address.\n");
    QTest::newRow("network") << QStringLiteral("network|--unit|@|--ip|10.0.0.1|--mask|255.0.0.0|"
                                               "--gateway|10.0.0.2")
                             << QStringLiteral("Address  192.168.1.100  10.0.0.1\n");
    QTest::newRow("edit") << QStringLiteral("edit|--unit|@") << oneChange;
    QTest::newRow("undo") << QStringLiteral("undo|--unit|@")
                          << QStringLiteral("~ events[7]\n    name: none -> \"Display on\"\n");
    QTest::newRow("upgrade") << QStringLiteral("upgrade|--unit|@|--streamed|IMAGE|"
                                               "--addressed|IMAGE")
                             << QStringLiteral("image, 200 bytes\n");
    QTest::newRow("remark") << QStringLiteral("remark|--unit|@|--streamed|IMAGE")
                            << QStringLiteral("\nStreamed image  ");
}

void TestQuadrelctlChange::changesNothingOnADryRun()
{
    QFETCH(QString, line);
    QFETCH(QString, shown);
    Workplace place;
    place.tool.setVariable(QStringLiteral("EDITOR"),
        QStringLiteral("sed -i '/description/s/Display off/Screen off/'"));
    line.replace(QStringLiteral("IMAGE"),
        place.tool.write(QStringLiteral("image"), QByteArray(200, '\x01')));
    QCOMPARE(place.run("unset|--unit|@|events[7].name|--yes").exitCode, 0);
    place.run("read|--unit|@|--save|%");
    const ToolResult result = place.run(line.append(QStringLiteral("|--dry-run")).toUtf8());
    QCOMPARE(result.errors, QString());
    QVERIFY2(result.output.contains(shown), qPrintable(result.output));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(place.difference(), QString());
    const QJsonObject device = parse(place.run("info|--unit|@|--json").output);
    QCOMPARE(device[QStringLiteral("ip")].toString(), QStringLiteral("192.168.1.100"));
    QCOMPARE(device[QStringLiteral("version")].toString(), QStringLiteral("1.0.0.0"));
}

void TestQuadrelctlChange::writesOneSection_data()
{
    QTest::addColumn<QString>("only");
    QTest::addColumn<QString>("difference");
    const QString port = QStringLiteral("~ serialPorts[2]\n    baudRate: 9600 -> 300\n");
    const QString trigger = QStringLiteral("~ triggers[2]\n    line: COM A-2 -> COM B-3\n");
    QTest::newRow("serialPorts") << QStringLiteral("serialPorts") << port;
    QTest::newRow("config") << QStringLiteral("config") << port;
    QTest::newRow("ioLines") << QStringLiteral("ioLines") << QString();
    QTest::newRow("events") << QStringLiteral("events") << oneChange;
    QTest::newRow("triggers") << QStringLiteral("triggers") << trigger;
    QTest::newRow("timeTriggers") << QStringLiteral("timeTriggers") << QString();
    QTest::newRow("two") << QStringLiteral("events,triggers") << oneChange + trigger;
}

void TestQuadrelctlChange::writesOneSection()
{
    QFETCH(QString, only);
    QFETCH(QString, difference);
    Workplace place;
    place.run("read|--unit|@|--save|%");
    const QString copy = place.tool.path(QStringLiteral("copy.yaml"));
    QVERIFY(QFile::copy(place.file, copy));
    const ToolResult set =
        place.tool.run({QStringLiteral("set"), copy, QStringLiteral("serialPorts[2].baudRate=300"),
            QStringLiteral("events[8].description=Screen off"),
            QStringLiteral("triggers[2].line=COM B-3")});
    QCOMPARE(set.errors, QString());
    const ToolResult result = place.tool.run({QStringLiteral("write"), QStringLiteral("--unit"),
        place.unit.address(), QStringLiteral("--yes"), QStringLiteral("--only"), only, copy});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(place.difference(), difference);
}

void TestQuadrelctlChange::refusesAMissingSection()
{
    ControlTool tool;
    const QString file =
        tool.write(QStringLiteral("u.yaml"), "format: quadrel-unit/1\nevents: []\n");
    const ToolResult result = tool.run(
        {QStringLiteral("write"), QStringLiteral("--unit"), QStringLiteral("tcp://127.0.0.1:1"),
            file, QStringLiteral("--only"), QStringLiteral("triggers"), QStringLiteral("--yes")});
    QCOMPARE(
        result.errors, file + QStringLiteral(": the section \"triggers\" is missing or empty\n"));
    QCOMPARE(result.exitCode, 1);
}

void TestQuadrelctlChange::refusesMistakesBeforeAnythingIsSent()
{
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("u.yaml"),
        "format: quadrel-unit/1\nevents:\n  - id: 300\n    delay: 10\n  - id: 2\n    color: red\n"
        "    delay: 10\n");
    const ToolResult result = tool.run({QStringLiteral("write"), QStringLiteral("--unit"),
        QStringLiteral("tcp://127.0.0.1:1"), file, QStringLiteral("--yes")});
    const QStringList lines = result.errors.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 2);
    QVERIFY2(lines.at(0).startsWith(file + QStringLiteral(":3:9: ")), qPrintable(lines.at(0)));
    QVERIFY2(lines.at(1).startsWith(file + QStringLiteral(":6:5: ")), qPrintable(lines.at(1)));
    QCOMPARE(result.output, QString());
    QCOMPARE(result.exitCode, 1);
}

void TestQuadrelctlChange::refusesAnotherUnit()
{
    Workplace place;
    place.run("read|--unit|@|--save|%");
    const SimulatorProcess other({QStringLiteral("--serial"), QStringLiteral("7")});
    const ToolResult result = place.tool.run({QStringLiteral("write"), QStringLiteral("--unit"),
        other.address(), place.file, QStringLiteral("--yes")});
    QVERIFY2(result.errors.contains(QStringLiteral("310000001")), qPrintable(result.errors));
    QCOMPARE(result.exitCode, 1);
    const ToolResult held = place.tool.run({QStringLiteral("get"), QStringLiteral("--unit"),
        other.address(), QStringLiteral("events")});
    QCOMPARE(held.output, QStringLiteral("[]\n"));
}

void TestQuadrelctlChange::takesAnotherUnitIfToldTo()
{
    Workplace place;
    place.run("read|--unit|@|--save|%");
    const SimulatorProcess other({QStringLiteral("--serial"), QStringLiteral("7")});
    const ToolResult result = place.tool.run({QStringLiteral("write"), QStringLiteral("--unit"),
        other.address(), place.file, QStringLiteral("--yes"), QStringLiteral("--other-unit")});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
    const ToolResult compared =
        place.tool.run({QStringLiteral("diff"), place.file, other.address()});
    QCOMPARE(compared.output, QString());
    QCOMPARE(compared.exitCode, 0);
    const ToolResult serial = place.tool.run({QStringLiteral("get"), QStringLiteral("--unit"),
        other.address(), QStringLiteral("device.serialNumber")});
    QCOMPARE(serial.output, QStringLiteral("7\n"));
}

void TestQuadrelctlChange::takesBackAChange()
{
    Workplace place;
    place.run("read|--unit|@|--save|%");
    QCOMPARE(place.run("set|--unit|@|events[8].description=Screen off|--yes").exitCode, 0);
    QCOMPARE(place.run("unset|--unit|@|events[7].name|--yes").exitCode, 0);
    QCOMPARE(place.run("undo|--unit|@|--yes").exitCode, 0);
    QCOMPARE(place.difference(), oneChange);
    // Taken back itself, it is the change before.
    const ToolResult again = place.run("undo|--unit|@|--yes");
    QCOMPARE(again.errors, QString());
    QVERIFY2(again.output.startsWith(
                 QStringLiteral("Back to what was before \"undo unset events[7].name\", from ")),
        qPrintable(again.output));
    QVERIFY(place.difference().contains(QStringLiteral("~ events[7]\n")));
    const ToolResult third = place.run("undo|--unit|@|--yes");
    QVERIFY2(third.output.startsWith(
                 QStringLiteral("Back to what was before \"unset events[7].name\", from ")),
        qPrintable(third.output));
    QCOMPARE(place.difference(), oneChange);
}

void TestQuadrelctlChange::hasNothingToTakeBack()
{
    Workplace place;
    const ToolResult result = place.run("undo|--unit|@|--yes");
    QCOMPARE(result.errors,
        withAddress(QStringLiteral("UNIT: nothing to undo: the unit with serial number 310000001 "
                                   "was not changed from here\n"),
            place.unit));
    QCOMPARE(result.exitCode, 1);
}

void TestQuadrelctlChange::listsBackups()
{
    Workplace place;
    place.run("set|--unit|@|events[8].description=Screen off|--yes");
    const QJsonArray array =
        QJsonDocument::fromJson(place.run("backups|--json").output.toUtf8()).array();
    QCOMPARE(array.size(), 1);
    const QJsonObject backup = array.at(0).toObject();
    QCOMPARE(backup.keys(),
        QStringList({QStringLiteral("before"), QStringLiteral("file"), QStringLiteral("number"),
            QStringLiteral("serialNumber"), QStringLiteral("time")}));
    QCOMPARE(backup[QStringLiteral("before")].toString(),
        QStringLiteral("set events[8].description=Screen off"));
    const QString file = backup[QStringLiteral("file")].toString();
    QVERIFY2(file.startsWith(
                 place.tool.path(QStringLiteral("XDG_STATE_HOME/quadrelctl/backups/310000001/"))),
        qPrintable(file));
    QCOMPARE(
        place.tool.run({QStringLiteral("check"), file}).output.contains(QStringLiteral("error")),
        false);
    QVERIFY(place.run("backups").output.contains(file));
    QVERIFY(place.run("backups|--serial|310000001").output.contains(file));
    QCOMPARE(place.run("backups|--serial|7|--json").output, QStringLiteral("[\n]\n"));
}

void TestQuadrelctlChange::writesNothingWithoutABackup()
{
    Workplace place;
    place.run("read|--unit|@|--save|%");
    place.tool.write(QStringLiteral("XDG_STATE_HOME"), "a file in place of the folder");
    const ToolResult result = place.run("set|--unit|@|events[8].description=Screen off|--yes");
    QVERIFY2(result.errors.startsWith(QStringLiteral("the backup cannot be written: ")),
        qPrintable(result.errors));
    QVERIFY2(result.errors.contains(QStringLiteral("nothing was sent to the unit")),
        qPrintable(result.errors));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(place.difference(), QString());
}

void TestQuadrelctlChange::keepsTwoRunsApart()
{
    if (!TerminalProgram::isPossible())
        QSKIP("this machine makes no terminals");
    Workplace place;
    TerminalProgram first;
    place.tool.start(first,
        {QStringLiteral("set"), QStringLiteral("--unit"), place.unit.address(),
            QStringLiteral("events[8].description=Screen off")});
    QVERIFY(first.waitForScreen("[y/N]"));
    const ToolResult second = place.run("set|--unit|@|events[8].description=Other|--yes");
    QCOMPARE(second.exitCode, 1);
    QVERIFY2(
        second.errors.contains(
            QStringLiteral("is in use by quadrelctl (process %1, user ").arg(first.processId())),
        qPrintable(second.errors));
    first.type("n\n");
    QCOMPARE(first.waitForEnd(), 1);
}

void TestQuadrelctlChange::reportsAFailedWrite()
{
    Workplace place;
    place.run("read|--unit|@|--save|%");
    const int exchanges =
        place.run("read|--unit|@|--log|-|--quiet").errors.count(QStringLiteral(" > "));
    // The first reply after the read is that of the write.
    Workplace broken({QStringLiteral("--sample"), QStringLiteral("--fault"),
        QStringLiteral("close@%1").arg(exchanges + 2)});
    const ToolResult result = broken.run("set|--unit|@|events[8].description=Screen off|--yes");
    QCOMPARE(result.exitCode, 1);
    for (const char* part : {"closed the connection", "failed while writing", "events: unknown",
             "write the same again", "what it held before is in "})
        QVERIFY2(result.errors.contains(QLatin1String(part)), qPrintable(result.errors));
}

void TestQuadrelctlChange::finishesAWriteWithoutATerminal()
{
    if (!TerminalProgram::isPossible())
        QSKIP("this machine makes no terminals");
    Workplace place;
    place.run("read|--unit|@|--save|%");
    TerminalProgram process;
    place.tool.start(process,
        {QStringLiteral("set"), QStringLiteral("--unit"), place.unit.address(),
            QStringLiteral("events[8].description=Screen off"), QStringLiteral("--yes")});
    QVERIFY(process.waitForScreen("reading"));
    process.hangUp();
    QCOMPARE(process.waitForExit(), 0);
    QCOMPARE(place.difference(), oneChange);
}

void TestQuadrelctlChange::finishesAWriteWithoutAReader()
{
    // Slow enough that the reader is gone before anything is printed.
    Workplace place(
        {QStringLiteral("--sample"), QStringLiteral("--latency"), QStringLiteral("10")});
    place.run("read|--unit|@|--save|%");
    place.run("set|%|events[8].description=Screen off");
    Program process;
    place.tool.start(process,
        {QStringLiteral("write"), QStringLiteral("--unit"), place.unit.address(), place.file,
            QStringLiteral("--yes")});
    process.closeReadChannel(QProcess::StandardOutput);
    process.closeReadChannel(QProcess::StandardError);
    QCOMPARE(process.waitForExit(), 0);
    QCOMPARE(place.difference(), QString());
}

void TestQuadrelctlChange::printsAnOutcomeAsJson()
{
    Workplace place;
    place.run("read|--unit|@|--save|%");
    place.tool.run({QStringLiteral("set"), place.file, QStringLiteral("events[8].name=Off")});
    const QJsonObject dry = parse(place.run("write|--unit|@|%|--json|--dry-run").output);
    QCOMPARE(dry[QStringLiteral("written")], QJsonValue(false));
    const QJsonObject json = parse(place.run("write|--unit|@|%|--json|--yes").output);
    QCOMPARE(json[QStringLiteral("written")], QJsonValue(true));
    QCOMPARE(json[QStringLiteral("tables")].toArray(), QJsonArray{QStringLiteral("events")});
    QCOMPARE(json[QStringLiteral("difference")], dry[QStringLiteral("difference")]);
    QVERIFY(QFile::exists(json[QStringLiteral("backup")].toString()));
}

void TestQuadrelctlChange::changesAFile()
{
    ControlTool tool;
    const QByteArray text = "# a comment\nformat: quadrel-unit/1\nevents:\n"
                            "  - id: 8 # the display\n    protocol: 01 02\n    description: old\n";
    const QString file = tool.write(QStringLiteral("u.yaml"), text);
    const QStringList arguments{
        QStringLiteral("set"), file, QStringLiteral("events[8].description=new")};
    const ToolResult dry = tool.run(arguments + QStringList{QStringLiteral("--dry-run")});
    QCOMPARE(dry.errors, QString());
    const QString changes = QStringLiteral("~ events[8]\n    description: \"old\" -> \"new\"\n");
    QCOMPARE(dry.output, changes + QStringLiteral("Dry run: nothing was changed.\n"));
    QCOMPARE(ControlTool::contentsOf(file), text);
    const ToolResult result = tool.run(arguments);
    QCOMPARE(result.output, changes);
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(ControlTool::contentsOf(file), QByteArray(text).replace("old", "\"new\""));
}

void TestQuadrelctlChange::getsValues_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("value");
    const auto row = [](const char* path, const char* value) {
        QTest::newRow(path) << QString::fromLatin1(path)
                            << QString::fromUtf8(value) + QLatin1Char('\n');
    };
    row("events[8].name", "Display off");
    row("events[4].delay", "500");
    row("events[1].description", "打开投影机");
    row("serialPorts[2].baudRate", "9600");
    row("triggers[2].line", "COM A-2");
    row("device.serialNumber", "310000001");
}

void TestQuadrelctlChange::getsValues()
{
    QFETCH(QString, path);
    QFETCH(QString, value);
    Workplace place;
    place.run("read|--unit|@|--save|%");
    const ToolResult unit = place.tool.run(
        {QStringLiteral("get"), QStringLiteral("--unit"), place.unit.address(), path});
    QCOMPARE(unit.errors, QString());
    QCOMPARE(unit.output, value);
    QCOMPARE(place.tool.run({QStringLiteral("get"), place.file, path}).output, value);
}

void TestQuadrelctlChange::refusesBadPaths_data()
{
    QTest::addColumn<QString>("line");
    const auto row = [](const char* line) { QTest::newRow(line) << QString::fromLatin1(line); };
    row("get|%|events[200].name");
    row("get|%|events[8].colour");
    row("get|%|nonsense");
    row("set|%|events[8].description");
    row("set|%|events[300].description=x");
    row("unset|%|events[200]");
}

void TestQuadrelctlChange::refusesBadPaths()
{
    QFETCH(QString, line);
    ControlTool tool;
    const QByteArray text = "format: quadrel-unit/1\nevents:\n  - id: 8\n    protocol: 01 02\n"
                            "    description: old\n";
    const QString file = tool.write(QStringLiteral("u.yaml"), text);
    const ToolResult result =
        tool.run(line.replace(QLatin1Char('%'), file).split(QLatin1Char('|')));
    QCOMPARE(result.output, QString());
    QVERIFY(!result.errors.isEmpty());
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(ControlTool::contentsOf(file), text);
}

void TestQuadrelctlChange::addsAndRemovesRecords()
{
    Workplace place;
    place.run("read|--unit|@|--save|%");
    QCOMPARE(place.run("set|--unit|@|events[40]={delay: 500}|--yes").errors, QString());
    QCOMPARE(place.difference(),
        QStringLiteral("+ events[40]\n    delay: 500\n    description: \"\"\n"));
    QCOMPARE(place.run("unset|--unit|@|events[40]|--yes").errors, QString());
    QCOMPARE(place.difference(), QString());
    // An event that a trigger runs can't go.
    const ToolResult used = place.run("unset|--unit|@|events[25]|--yes");
    QCOMPARE(used.exitCode, 1);
    QVERIFY2(used.errors.contains(QStringLiteral("25")), qPrintable(used.errors));
    QCOMPARE(place.difference(), QString());
}

QTEST_GUILESS_MAIN(TestQuadrelctlChange)
#include "tst_quadrelctlchange.moc"
