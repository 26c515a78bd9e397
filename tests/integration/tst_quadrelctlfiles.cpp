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
#include <unistd.h>

namespace {

const QString unitOption = QStringLiteral("--unit");
const QString jsonOption = QStringLiteral("--json");

QJsonObject parse(const QString& text)
{
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

/** A file with one record in each section. */
QByteArray smallProject()
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<DataPackage>\n<Device>x</Device>\n"
           "<Configs><COM><BaudRate>9600</BaudRate><DataBits>7</DataBits><StopBits>2</StopBits>"
           "<InspectionType>1</InspectionType></COM><IO><Model>2</Model></IO></Configs>\n"
           "<Events><EventInfo><ID>7</ID><EventType>Delay</EventType><ProtocolType>Hex"
           "</ProtocolType><Protocol>25*10ms</Protocol><Instruction>wait</Instruction></EventInfo>"
           "</Events>\n<Triggers><TriggerInfo><TriggerType>IO</TriggerType><IO>IO B-2</IO>"
           "<ProtocolType>Hex</ProtocolType><Protocol>输入-高电平</Protocol>"
           "<Instruction>door</Instruction><Event>ID:7</Event></TriggerInfo></Triggers>\n"
           "</DataPackage>\n";
}

} // namespace

/** read --save, show and write. */
class TestQuadrelctlFiles : public QObject {
    Q_OBJECT

private slots:
    void savesAndShows_data();
    void savesAndShows();
    void savesAProjectFile();
    void savesOverALink();
    void leavesTheOldFileOnFailure_data();
    void leavesTheOldFileOnFailure();
    void tellsAForbiddenFolder();
    void leavesTheOldFileWhenTheUnitFails();
    void leavesTheOldFileOnAFullDisk();
    void keepsPermissions();
    void letsNoTextActOnTheTerminal();
    void refusesDamagedFiles_data();
    void refusesDamagedFiles();
    void refusesWhatIsNoFile();
    void checksFiles_data();
    void checksFiles();
    void checksSeveralFiles();
    void convertsFiles_data();
    void convertsFiles();
    void refusesNamesWithoutAForm();
    void namesWhatAProjectFileCannotHold();
    void compares_data();
    void compares();
    void comparesWithAUnit();
    void hasTroubleComparing_data();
    void hasTroubleComparing();
};

void TestQuadrelctlFiles::savesAndShows_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("YAML") << QStringLiteral("u.yaml");
    QTest::newRow("JSON") << QStringLiteral("u.json");
}

void TestQuadrelctlFiles::savesAndShows()
{
    QFETCH(QString, name);
    const SimulatorProcess unit;
    ControlTool tool;
    const QString file = tool.path(name);
    const ToolResult read = tool.run({QStringLiteral("read"), unitOption, unit.address(),
        QStringLiteral("--save"), file, jsonOption});
    QCOMPARE(read.errors, QString());
    QCOMPARE(read.exitCode, 0);
    QCOMPARE(QDir(tool.path(QString())).entryList({name + QLatin1Char('*')}, QDir::Files),
        QStringList{name});

    const ToolResult show = tool.run({QStringLiteral("show"), file, jsonOption});
    QCOMPARE(show.errors, QString());
    QJsonObject held = parse(read.output);
    // The clock runs on, and no document holds it.
    QVERIFY(!held.take(QStringLiteral("clock")).isUndefined());
    QCOMPARE(parse(show.output), held);
    QCOMPARE(tool.run({QStringLiteral("check"), file}).exitCode, 0);
}

/** What such a file has no place for is listed, record by record. */
void TestQuadrelctlFiles::savesAProjectFile()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QString file = tool.path(QStringLiteral("p.xml"));
    const ToolResult read = tool.run(
        {QStringLiteral("read"), unitOption, unit.address(), QStringLiteral("--save"), file});
    QCOMPARE(read.exitCode, 0);
    QVERIFY(ControlTool::contentsOf(file).contains("<DataPackage"));
    for (const char* record : {"events[1]", "triggers[4]", "timeTriggers"})
        QVERIFY2(read.errors.contains(QLatin1String(record)), qPrintable(read.errors));
    const QStringList lines = read.errors.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : lines)
        QVERIFY2(line.startsWith(file + QStringLiteral(": warning: ")), qPrintable(line));
    QCOMPARE(tool.run({QStringLiteral("show"), file}).errors, QString());
}

void TestQuadrelctlFiles::savesOverALink()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QString target = tool.write(QStringLiteral("target.xml"), "old");
    const QString link = tool.path(QStringLiteral("link.xml"));
    QVERIFY(QFile::link(target, link));
    const ToolResult result = tool.run(
        {QStringLiteral("read"), unitOption, unit.address(), QStringLiteral("--save"), link});
    QCOMPARE(result.exitCode, 0);
    QVERIFY(QFileInfo(link).isSymLink());
    QVERIFY(ControlTool::contentsOf(target).contains("<DataPackage"));
}

void TestQuadrelctlFiles::leavesTheOldFileOnFailure_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("reason");
    QTest::newRow("a folder") << QStringLiteral(
        "folder") << QStringLiteral("this is a folder; name a file in it (Is a directory)");
    QTest::newRow("a folder that is not there")
        << QStringLiteral("nowhere/p.xml")
        << QStringLiteral("the folder of the file does not exist (No such file or directory)");
    QTest::newRow("a file in place of the folder") << QStringLiteral(
        "pipe/p.xml") << QStringLiteral("the folder of the file does not exist (Not a directory)");
    QTest::newRow("a pipe") << QStringLiteral("pipe") << QStringLiteral("not a regular file");
}

void TestQuadrelctlFiles::leavesTheOldFileOnFailure()
{
    QFETCH(QString, target);
    QFETCH(QString, reason);
    ControlTool tool;
    QVERIFY(QDir(tool.path(QString())).mkdir(QStringLiteral("folder")));
    QCOMPARE(mkfifo(qPrintable(tool.path(QStringLiteral("pipe"))), 0600), 0);
    const QString path = QDir(tool.path(QString())).absoluteFilePath(target);
    // There is no unit: where to save is looked at first.
    const ToolResult result = tool.run({QStringLiteral("read"), unitOption,
        QStringLiteral("tcp://127.0.0.1:1"), QStringLiteral("--save"), path});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors, path + QStringLiteral(": ") + reason + QLatin1Char('\n'));
}

void TestQuadrelctlFiles::tellsAForbiddenFolder()
{
    const SimulatorProcess unit;
    ControlTool tool;
    QString folder = tool.path(QStringLiteral("forbidden"));
    QVERIFY(QDir().mkdir(folder));
    QCOMPARE(chmod(qPrintable(folder), 0500), 0);
    // The superuser may write everywhere but where the system itself forbids it.
    if (access(qPrintable(folder), W_OK) == 0)
        folder = QStringLiteral("/sys");
    const QString path = folder + QStringLiteral("/p.xml");
    const ToolResult result = tool.run(
        {QStringLiteral("read"), unitOption, unit.address(), QStringLiteral("--save"), path});
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.errors.startsWith(path + QStringLiteral(": writing there is not allowed (")),
        qPrintable(result.errors));
}

void TestQuadrelctlFiles::leavesTheOldFileWhenTheUnitFails()
{
    const SimulatorProcess unit(
        {QStringLiteral("--sample"), QStringLiteral("--fault"), QStringLiteral("close@20")});
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("p.xml"), "old");
    const ToolResult result = tool.run(
        {QStringLiteral("read"), unitOption, unit.address(), QStringLiteral("--save"), file});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(ControlTool::contentsOf(file), QByteArray("old"));
}

void TestQuadrelctlFiles::leavesTheOldFileOnAFullDisk()
{
    ControlTool tool;
    QVERIFY(QDir(tool.path(QString())).mkdir(QStringLiteral("disk")));
    const QString disk = tool.path(QStringLiteral("disk"));
    const auto command = [](const QString& program, const QStringList& arguments) {
        Program process;
        return process.launch(program, arguments) && process.waitForExit() == 0;
    };
    if (geteuid() != 0
        || !command(QStringLiteral("mount"),
            {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                QStringLiteral("size=8k"), QStringLiteral("tmpfs"), disk}))
        QSKIP("a full disk needs the right to mount one");
    const QString file = tool.write(QStringLiteral("disk/p.xml"), "old");
    const SimulatorProcess unit;
    const ToolResult result = tool.run(
        {QStringLiteral("read"), unitOption, unit.address(), QStringLiteral("--save"), file});
    const QByteArray contents = ControlTool::contentsOf(file);
    const QStringList left = QDir(disk).entryList(QDir::Files);
    QVERIFY(command(QStringLiteral("umount"), {disk}));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.errors,
        file
            + QStringLiteral(": the disk is full; the old file is unchanged "
                             "(No space left on device)\n"));
    // What was read is not lost.
    QVERIFY(result.output.contains(QStringLiteral("EVENTS\n")));
    QCOMPARE(contents, QByteArray("old"));
    QCOMPARE(left, QStringList{QStringLiteral("p.xml")});
}

void TestQuadrelctlFiles::keepsPermissions()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const auto modeOf = [](const QString& path) {
        struct stat status = {};
        stat(path.toLocal8Bit().constData(), &status);
        return static_cast<int>(status.st_mode & 0777);
    };
    const auto save = [&](const QString& file) {
        return tool
            .run({QStringLiteral("read"), unitOption, unit.address(), QStringLiteral("--save"),
                file})
            .exitCode;
    };
    const QString file = tool.write(QStringLiteral("old.xml"), "old");
    QCOMPARE(chmod(file.toLocal8Bit().constData(), 0640), 0);
    QCOMPARE(save(file), 0);
    QCOMPARE(modeOf(file), 0640);

    const mode_t mask = umask(0);
    umask(mask);
    const QString fresh = tool.path(QStringLiteral("new.xml"));
    QCOMPARE(save(fresh), 0);
    QCOMPARE(modeOf(fresh), static_cast<int>(0666 & ~mask));
}

void TestQuadrelctlFiles::letsNoTextActOnTheTerminal()
{
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("u.yaml"),
        "format: quadrel-unit/1\nevents:\n  - id: 8\n    protocol: 01 02\n"
        "    description: \"a\\e]0;owned\\ab\\u202ec\\nd\"\n");
    const QString plain = QStringLiteral("a\x1b]0;owned\ab\u202ec\nd");
    const QString visible = QStringLiteral("a\\u001b]0;owned\\u0007b\\u202ec\\nd");
    const ToolResult table = tool.run({QStringLiteral("show"), file});
    QVERIFY2(table.output.contains(visible), qPrintable(table.output));
    const ToolResult json = tool.run({QStringLiteral("show"), file, jsonOption});
    QVERIFY2(json.output.contains(visible), qPrintable(json.output));
    QCOMPARE(parse(json.output)[QStringLiteral("events")]
                 .toArray()
                 .at(0)
                 .toObject()[QStringLiteral("description")]
                 .toString(),
        plain);
    const QString other =
        tool.write(QStringLiteral("v.yaml"), "format: quadrel-unit/1\nevents: []\n");
    const ToolResult diff = tool.run({QStringLiteral("diff"), file, other});
    QVERIFY2(diff.output.contains(visible), qPrintable(diff.output));
    const ToolResult value =
        tool.run({QStringLiteral("get"), file, QStringLiteral("events[8].description")});
    QVERIFY(!value.output.contains(QLatin1Char('\x1b')));
    const ToolResult error =
        tool.run({QStringLiteral("show"), QStringLiteral("\x1b]0;x\x07.yaml")});
    QVERIFY2(error.errors.startsWith(QStringLiteral("\\u001b]0;x\\u0007.yaml: ")),
        qPrintable(error.errors));
}

void TestQuadrelctlFiles::refusesDamagedFiles_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("message");
    QByteArray bomb = "<?xml version=\"1.0\"?><!DOCTYPE a [<!ENTITY a \"aaaaaaaaaa\">";
    for (char name = 'b'; name <= 'z'; ++name)
        bomb += QByteArray("<!ENTITY ") + name + " \""
            + (QByteArray("&") + static_cast<char>(name - 1) + ';').repeated(10) + "\">";
    bomb += "]><DataPackage><Events>&z;</Events></DataPackage>";
    const QString malformed = QStringLiteral("this is not well-formed XML: ");
    const QString noSection = QStringLiteral(
        "1:1: no section of a project file has a record; Configs, Events and Triggers are known");
    QTest::newRow("empty") << QByteArray()
                           << QStringLiteral("1:1: ") + malformed
            + QStringLiteral("Premature end of document.");
    QTest::newRow("no XML") << QByteArray("once upon a time")
                            << QStringLiteral("1:2: ") + malformed
            + QStringLiteral("Start tag expected.");
    QTest::newRow("cut off") << smallProject().chopped(
        40) << QStringLiteral("6:177: ") + malformed + QStringLiteral("Premature end of document.");
    QTest::newRow("binary") << QByteArray("\0\1\2\xff\xfe", 5)
                            << QStringLiteral("1:1: ") + malformed
            + QStringLiteral("Encountered incorrectly encoded content.");
    QTest::newRow("another encoding than it says") << smallProject().replace("wait", "\xff\xfe\xff")
                                                   << QStringLiteral("1:39: ") + malformed
            + QStringLiteral("Encountered incorrectly encoded content.");
    QTest::newRow("no section") << QByteArray("<DataPackage><Device>x</Device></DataPackage>")
                                << noSection;
    QTest::newRow("no child") << QByteArray("<DataPackage/>") << noSection;
    QTest::newRow("entity bomb") << bomb
                                 << QStringLiteral(
                                        "1:22: a document type has no place in a project file");
    QTest::newRow("deep") << QByteArray("<a>").repeated(100000)
                          << QStringLiteral(
                                 "1:4: warning: the element \"a\" is never read; Device, "
                                 "Configs, Events and Triggers are known");
}

void TestQuadrelctlFiles::refusesDamagedFiles()
{
    QFETCH(QByteArray, contents);
    QFETCH(QString, message);
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("p.xml"), contents);
    const ToolResult result = tool.run({QStringLiteral("show"), file});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.output, QString());
    QCOMPARE(
        result.errors.section(QLatin1Char('\n'), 0, 0), QStringLiteral("%1:%2").arg(file, message));
}

void TestQuadrelctlFiles::refusesWhatIsNoFile()
{
    ControlTool tool;
    for (const QString& path : {tool.path(QStringLiteral("missing.xml")), tool.path(QString()),
             QStringLiteral("/dev/zero")}) {
        const ToolResult result = tool.run({QStringLiteral("show"), path});
        QCOMPARE(result.exitCode, 1);
        QVERIFY(!result.errors.isEmpty());
    }
}

void TestQuadrelctlFiles::checksFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("places");
    const QByteArray head = "format: quadrel-unit/1\n";
    QTest::newRow("good") << QStringLiteral("u.yaml") << head + "events: []\n" << QStringList();
    QTest::newRow("an unknown key") << QStringLiteral("u.yaml") << head + "colour: red\n"
                                    << QStringList{QStringLiteral("2:1")};
    QTest::newRow("all at once") << QStringLiteral(
        "u.yaml") << head + "events:\n  - {id: 300, delay: 1}\n  - {id: 1, delay: -1}\n"
                                 << QStringList{QStringLiteral("3:10"), QStringLiteral("4:20")};
    QTest::newRow("JSON") << QStringLiteral(
        "u.json") << QByteArray("{\n  \"format\": \"quadrel-unit/1\",\n  \"colour\": 1\n}\n")
                          << QStringList{QStringLiteral("3:3")};
    QTest::newRow("a project file")
        << QStringLiteral("p.xml") << smallProject().replace("输入-高电平", "input-high")
        << QStringList{QStringLiteral("6:110")};
}

void TestQuadrelctlFiles::checksFiles()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, contents);
    QFETCH(QStringList, places);
    ControlTool tool;
    const QString file = tool.write(name, contents);
    const ToolResult result = tool.run({QStringLiteral("check"), file});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, places.isEmpty() ? 0 : 1);
    const QStringList lines = result.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), places.size());
    for (int i = 0; i < lines.size(); ++i)
        QVERIFY2(lines.at(i).startsWith(QStringLiteral("%1:%2: ").arg(file, places.at(i))),
            qPrintable(lines.at(i)));
}

/** A warning is not a reason to fail. */
void TestQuadrelctlFiles::checksSeveralFiles()
{
    ControlTool tool;
    const QString note = tool.write(QStringLiteral("a.yaml"),
        "format: quadrel-unit/1\nevents:\n  - {id: 1, delay: 10}\ntriggers: []\ntimeTriggers: "
        "[]\n");
    const QString error = tool.write(QStringLiteral("b.yaml"), "format: quadrel-unit/2\n");
    const ToolResult one = tool.run({QStringLiteral("check"), note});
    QVERIFY2(one.output.startsWith(note + QStringLiteral(":3:"))
            && one.output.contains(QStringLiteral("note: ")),
        qPrintable(one.output));
    QCOMPARE(one.exitCode, 0);
    const ToolResult both = tool.run({QStringLiteral("check"), note, error});
    QVERIFY(both.output.startsWith(one.output));
    QVERIFY2(both.output.contains(error + QStringLiteral(":1:")), qPrintable(both.output));
    QCOMPARE(both.exitCode, 1);
}

void TestQuadrelctlFiles::convertsFiles_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    for (const char* from : {"yaml", "json", "xml"}) {
        for (const char* to : {"yaml", "json", "xml"})
            QTest::newRow(
                qPrintable(QStringLiteral("%1 to %2").arg(QLatin1String(from), QLatin1String(to))))
                << QString::fromLatin1(from) << QString::fromLatin1(to);
    }
}

void TestQuadrelctlFiles::convertsFiles()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    ControlTool tool;
    const QString project = tool.write(QStringLiteral("p.xml"), smallProject());
    const QString source = tool.path(QStringLiteral("source.") + from);
    const QString target = tool.path(QStringLiteral("target.") + to);
    QCOMPARE(tool.run({QStringLiteral("convert"), project, source}).exitCode, 0);
    const ToolResult result = tool.run({QStringLiteral("convert"), source, target});
    QCOMPARE(result.output, QString());
    QCOMPARE(result.exitCode, 0);
    const ToolResult same = tool.run({QStringLiteral("diff"), source, target});
    QCOMPARE(same.output, QString());
    QCOMPARE(same.exitCode, 0);
}

void TestQuadrelctlFiles::refusesNamesWithoutAForm()
{
    ControlTool tool;
    const QString project = tool.write(QStringLiteral("p.xml"), smallProject());
    const QString target = tool.path(QStringLiteral("target.txt"));
    const ToolResult result = tool.run({QStringLiteral("convert"), project, target});
    QCOMPARE(
        result.errors, target + QStringLiteral(": the name must end in .yaml, .json or .xml\n"));
    QCOMPARE(result.exitCode, 2);
}

void TestQuadrelctlFiles::namesWhatAProjectFileCannotHold()
{
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("u.yaml"),
        "format: quadrel-unit/1\nevents:\n  - id: 8\n    protocol: 01 02\n"
        "    description: \"a\\u0007b\"\n");
    const QString target = tool.path(QStringLiteral("p.xml"));
    const ToolResult result = tool.run({QStringLiteral("convert"), file, target});
    QVERIFY2(result.errors.contains(QStringLiteral("events[8].description"))
            && result.errors.contains(QStringLiteral("U+0007")),
        qPrintable(result.errors));
}

void TestQuadrelctlFiles::compares_data()
{
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("shown");
    const QByteArray text = "format: quadrel-unit/1\nevents:\n  - {id: 7, delay: 10}\n"
                            "  - {id: 8, delay: 20}\n  - {id: 9, delay: 30}\n";
    QTest::newRow("same") << text << 0 << QString();
    // The others have not changed, wherever they are in the list.
    QTest::newRow("by id") << QByteArray(text).replace("  - {id: 8, delay: 20}\n", "") << 1
                           << QStringLiteral("- events[8]\n    delay: 20\n    description: \"\"\n");
    QTest::newRow("a value") << QByteArray(text).replace("20", "40") << 1
                             << QStringLiteral("~ events[8]\n    delay: 20 -> 40\n");
}

void TestQuadrelctlFiles::compares()
{
    QFETCH(QByteArray, after);
    QFETCH(int, exitCode);
    QFETCH(QString, shown);
    ControlTool tool;
    const QString one = tool.write(QStringLiteral("a.yaml"),
        "format: quadrel-unit/1\nevents:\n  - {id: 7, delay: 10}\n  - {id: 8, delay: 20}\n"
        "  - {id: 9, delay: 30}\n");
    const QString other = tool.write(QStringLiteral("b.yaml"), after);
    const ToolResult result = tool.run({QStringLiteral("diff"), one, other});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.output,
        shown.isEmpty() ? QString() : QStringLiteral("--- %1\n+++ %2\n").arg(one, other) + shown);
    QCOMPARE(result.exitCode, exitCode);
    const ToolResult json = tool.run({QStringLiteral("diff"), one, other, jsonOption});
    QCOMPARE(parse(json.output)[QStringLiteral("same")], QJsonValue(exitCode == 0));
    QCOMPARE(json.exitCode, exitCode);
}

void TestQuadrelctlFiles::comparesWithAUnit()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QString file = tool.path(QStringLiteral("u.yaml"));
    tool.run({QStringLiteral("read"), unitOption, unit.address(), QStringLiteral("--save"), file});
    tool.run({QStringLiteral("set"), file, QStringLiteral("serialPorts[2].baudRate=300"),
        QStringLiteral("ioLines[3].type=1")});
    const ToolResult result = tool.run({QStringLiteral("diff"), unit.address(), file});
    QCOMPARE(result.output,
        QStringLiteral("--- %1  (model 0x7209, serial number 310000001, version 1.0.0.0)\n"
                       "+++ %2  (model 0x7209, serial number 310000001, version 1.0.0.0)\n"
                       "~ serialPorts[2]\n    baudRate: 9600 -> 300\n"
                       "~ ioLines[3]\n    type: 0 -> 1\n")
            .arg(unit.address(), file));
    QCOMPARE(result.exitCode, 1);
}

void TestQuadrelctlFiles::hasTroubleComparing_data()
{
    QTest::addColumn<QString>("side");
    QTest::newRow("a missing file") << QStringLiteral("missing.yaml");
    QTest::newRow("no unit") << QStringLiteral("tcp://127.0.0.1:1");
    QTest::newRow("neither") << QStringLiteral("nonsense://x");
}

void TestQuadrelctlFiles::hasTroubleComparing()
{
    QFETCH(QString, side);
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("a.yaml"), "format: quadrel-unit/1\n");
    const ToolResult result = tool.run({QStringLiteral("diff"), file, side});
    QCOMPARE(result.output, QString());
    QVERIFY(!result.errors.isEmpty());
    QCOMPARE(result.exitCode, 2);
}

QTEST_GUILESS_MAIN(TestQuadrelctlFiles)
#include "tst_quadrelctlfiles.moc"
