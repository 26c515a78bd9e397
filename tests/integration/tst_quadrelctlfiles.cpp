#include "programs.h"
#include "unitaddresses.h"
#include "unitblocks.h"
#include "unitmemoryfile.h"
#include "unitsample.h"

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

/** A memory file with the sample, but that its first trigger has no events. */
bool saveSampleWithoutEvents(const QString& path)
{
    using namespace QuadrelUnit;
    ControlUnit unit;
    writeSample(unit.memory());
    unit.memory().write(Address::triggers, IoTriggerRecord{11, false, {}, QString()}.block());
    QString error;
    return UnitMemoryFile(path, &unit).save(&error);
}

} // namespace

/** read --save, show and write. */
class TestQuadrelctlFiles : public QObject {
    Q_OBJECT

private slots:
    void savesAndShows();
    void savesOverALink();
    void leavesTheOldFileOnFailure_data();
    void leavesTheOldFileOnFailure();
    void tellsAForbiddenFolder();
    void leavesTheOldFileWhenTheUnitFails();
    void leavesTheOldFileOnAFullDisk();
    void keepsPermissions();
    void showsWhatIsThere_data();
    void showsWhatIsThere();
    void letsNoTextActOnTheTerminal();
    void refusesDamagedFiles_data();
    void refusesDamagedFiles();
    void refusesWhatIsNoFile();
    void warnsOfSkippedRecords();
    void writesAndReadsBack();
    void writesOneSection_data();
    void writesOneSection();
    void refusesAMissingSection();
    void keepsTimeTriggers();
    void dropsTimeTriggers();
    void refusesToDropWithoutTriggers();
    void writesNothingOnADryRun();
    void listsChanges();
    void warnsOfLosses();
    void refusesWhatCannotBeReadBack();
    void tellsWhatDiffers();
    void tellsAFailedWrite();
    void goesRound();
};

void TestQuadrelctlFiles::savesAndShows()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QString file = tool.path(QStringLiteral("p.xml"));
    const ToolResult read = tool.run({QStringLiteral("read"), unitOption, unit.address(),
        QStringLiteral("--save"), file, jsonOption});
    QCOMPARE(read.exitCode, 0);
    // What a file can't carry, with the number of records.
    QVERIFY(read.errors.contains(QStringLiteral("event names are not saved: 18 records")));
    QVERIFY(read.errors.contains(
        QStringLiteral("event types without a word are not saved: 19 records")));
    QVERIFY(read.errors.contains(QStringLiteral("Modbus triggers are not saved: 2 records")));
    QVERIFY(read.errors.contains(QStringLiteral("the ids of triggers are not saved: 10 records")));
    QVERIFY(read.errors.contains(QStringLiteral("time triggers are not saved: 7 records")));
    QCOMPARE(QDir(tool.path(QString())).entryList({QStringLiteral("p.xml*")}, QDir::Files),
        QStringList{QStringLiteral("p.xml")});

    const ToolResult show = tool.run({QStringLiteral("show"), file, jsonOption});
    QCOMPARE(show.exitCode, 0);
    const QJsonObject unitJson = parse(read.output);
    const QJsonObject fileJson = parse(show.output);
    QCOMPARE(fileJson.keys(),
        QStringList({QStringLiteral("events"), QStringLiteral("ioLines"),
            QStringLiteral("serialPorts"), QStringLiteral("triggers")}));
    QCOMPARE(fileJson[QStringLiteral("serialPorts")], unitJson[QStringLiteral("serialPorts")]);
    QCOMPARE(fileJson[QStringLiteral("ioLines")], unitJson[QStringLiteral("ioLines")]);
    const QJsonArray events = fileJson[QStringLiteral("events")].toArray();
    const QJsonArray unitEvents = unitJson[QStringLiteral("events")].toArray();
    QCOMPARE(events.size(), unitEvents.size());
    for (int i = 0; i < events.size(); ++i) {
        QJsonObject expected = unitEvents.at(i).toObject();
        expected[QStringLiteral("name")] = QString();
        if (expected[QStringLiteral("type")].toInt() != 5)
            expected[QStringLiteral("type")] = 0;
        QCOMPARE(events.at(i).toObject(), expected);
    }
    QCOMPARE(fileJson[QStringLiteral("triggers")].toArray().size(), 8);
    QVERIFY(show.errors.contains(QStringLiteral("2 records of \"Triggers\" were left out")));
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
            + QStringLiteral(": the disk is full; what was there before still is "
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

void TestQuadrelctlFiles::showsWhatIsThere_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QStringList>("missing");
    QByteArray noEvents = smallProject();
    noEvents.replace("Events", "Other");
    QByteArray emptyTriggers = smallProject();
    const int start = emptyTriggers.indexOf("<TriggerInfo>");
    emptyTriggers.remove(start, emptyTriggers.indexOf("</Triggers>") - start);
    const QString events = QStringLiteral("events");
    const QString lines = QStringLiteral("ioLines");
    const QString ports = QStringLiteral("serialPorts");
    const QString triggers = QStringLiteral("triggers");
    QTest::newRow("all") << smallProject() << QStringList{events, lines, ports, triggers}
                         << QStringList{};
    QTest::newRow("no events") << noEvents << QStringList{lines, ports, triggers}
                               << QStringList{QStringLiteral("Events")};
    QTest::newRow("empty triggers") << emptyTriggers << QStringList{events, lines, ports}
                                    << QStringList{QStringLiteral("Triggers")};
}

void TestQuadrelctlFiles::showsWhatIsThere()
{
    QFETCH(QByteArray, contents);
    QFETCH(QStringList, keys);
    QFETCH(QStringList, missing);
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("p.xml"), contents);
    const ToolResult json = tool.run({QStringLiteral("show"), file, jsonOption});
    QCOMPARE(json.exitCode, 0);
    QCOMPARE(parse(json.output).keys(), keys);
    for (const QString& section : missing)
        QVERIFY(json.errors.contains(
            QStringLiteral("the section \"%1\" is missing or empty").arg(section)));
    QCOMPARE(json.errors.isEmpty(), missing.isEmpty());
    QCOMPARE(tool.run({QStringLiteral("show"), file}).exitCode, 0);
}

void TestQuadrelctlFiles::letsNoTextActOnTheTerminal()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("p.xml"),
        smallProject().replace("wait", QStringLiteral("a\u009b31mb\u202ec").toUtf8()));
    const QString visible = QStringLiteral("a\\u009b31mb\\u202ec");
    const ToolResult table = tool.run({QStringLiteral("show"), file});
    QVERIFY2(table.output.contains(visible), qPrintable(table.output));
    const ToolResult json = tool.run({QStringLiteral("show"), file, jsonOption});
    QVERIFY2(json.output.contains(visible), qPrintable(json.output));
    QCOMPARE(parse(json.output)[QStringLiteral("events")]
                 .toArray()
                 .at(0)
                 .toObject()[QStringLiteral("description")]
                 .toString(),
        QStringLiteral("a\u009b31mb\u202ec"));
    const ToolResult diff = tool.run({QStringLiteral("write"), unitOption, unit.address(), file,
        QStringLiteral("--dry-run"), QStringLiteral("--diff")});
    QVERIFY2(diff.output.contains(visible), qPrintable(diff.output));
    const ToolResult error = tool.run({QStringLiteral("show"), QStringLiteral("\x1b]0;x\x07")});
    QCOMPARE(error.errors, QStringLiteral("\\u001b]0;x\\u0007: The file could not be opened!\n"));
}

void TestQuadrelctlFiles::refusesDamagedFiles_data()
{
    QTest::addColumn<QByteArray>("contents");
    QByteArray bomb = "<?xml version=\"1.0\"?><!DOCTYPE a [<!ENTITY a \"aaaaaaaaaa\">";
    for (char name = 'b'; name <= 'z'; ++name)
        bomb += QByteArray("<!ENTITY ") + name + " \""
            + (QByteArray("&") + static_cast<char>(name - 1) + ';').repeated(10) + "\">";
    bomb += "]><DataPackage><Events>&z;</Events></DataPackage>";
    QByteArray twice = smallProject();
    twice.replace("</Events>",
        "<EventInfo><ID>7</ID><EventType/><ProtocolType/><Protocol/><Instruction/></EventInfo>"
        "</Events>");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no XML") << QByteArray("once upon a time");
    QTest::newRow("cut off") << smallProject().chopped(40);
    QTest::newRow("binary") << QByteArray("\0\1\2\xff\xfe", 5);
    QTest::newRow("another encoding than it says")
        << smallProject().replace("wait", "\xff\xfe\xff");
    QTest::newRow("no section") << QByteArray("<DataPackage><Device>x</Device></DataPackage>");
    QTest::newRow("no child") << QByteArray("<DataPackage/>");
    QTest::newRow("entity bomb") << bomb;
    QTest::newRow("deep") << QByteArray("<a>").repeated(1000000);
    QTest::newRow("deep and closed")
        << QByteArray("<a>").repeated(100000) + QByteArray("</a>").repeated(100000);
    QTest::newRow("one id twice") << twice;
}

void TestQuadrelctlFiles::refusesDamagedFiles()
{
    QFETCH(QByteArray, contents);
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("p.xml"), contents);
    const ToolResult result = tool.run({QStringLiteral("show"), file});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.output, QString());
    QVERIFY2(result.errors.startsWith(file + QStringLiteral(": ")), qPrintable(result.errors));
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

void TestQuadrelctlFiles::warnsOfSkippedRecords()
{
    ControlTool tool;
    QByteArray contents = smallProject();
    contents.replace("</Events>", "<EventInfo><ID>8</ID></EventInfo></Events>");
    contents.replace("</Configs>", "<COM><BaudRate>9600</BaudRate></COM></Configs>");
    const QString file = tool.write(QStringLiteral("p.xml"), contents);
    const ToolResult result = tool.run({QStringLiteral("show"), file});
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.errors.contains(QStringLiteral("1 records of \"Events\" were left out")));
    QVERIFY(result.errors.contains(QStringLiteral("1 records of \"Configs\" were left out")));
}

void TestQuadrelctlFiles::writesAndReadsBack()
{
    const SimulatorProcess unit({QStringLiteral("--ports"), QStringLiteral("1"),
        QStringLiteral("--io"), QStringLiteral("1")});
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("p.xml"), smallProject());
    const ToolResult write = tool.run({QStringLiteral("write"), unitOption, unit.address(), file});
    QCOMPARE(write.errors, QString());
    QCOMPARE(write.exitCode, 0);
    QVERIFY(write.output.contains(QStringLiteral("events: 0 on the unit, 1 to be written; "
                                                 "0 changed, 1 added, 0 removed")));
    QVERIFY(write.output.contains(QStringLiteral("Written and read back")));

    const QJsonObject json =
        parse(tool.run({QStringLiteral("read"), unitOption, unit.address(), jsonOption}).output);
    const QJsonObject port = json[QStringLiteral("serialPorts")].toArray().at(0).toObject();
    QCOMPARE(port[QStringLiteral("baudRate")].toInt(), 9600);
    QCOMPARE(json[QStringLiteral("ioLines")].toArray().at(0).toObject()[QStringLiteral("type")],
        QJsonValue(2));
    const QJsonObject event = json[QStringLiteral("events")].toArray().at(0).toObject();
    QCOMPARE(event[QStringLiteral("protocol")].toString(), QStringLiteral("25*10ms"));
    const QJsonObject trigger = json[QStringLiteral("triggers")].toArray().at(0).toObject();
    QCOMPARE(trigger[QStringLiteral("line")].toString(), QStringLiteral("IO B-2"));
    QCOMPARE(trigger[QStringLiteral("eventIds")].toArray(), QJsonArray({7}));
}

void TestQuadrelctlFiles::writesOneSection_data()
{
    QTest::addColumn<QString>("only");
    QTest::addColumn<int>("events");
    QTest::addColumn<int>("triggers");
    QTest::addColumn<int>("baudRate");
    QTest::newRow("config") << QStringLiteral("config") << 32 << 10 << 9600;
    QTest::newRow("events") << QStringLiteral("events") << 1 << 10 << 115200;
    QTest::newRow("triggers") << QStringLiteral("triggers") << 32 << 1 << 115200;
    QTest::newRow("two") << QStringLiteral("events,triggers") << 1 << 1 << 115200;
}

void TestQuadrelctlFiles::writesOneSection()
{
    QFETCH(QString, only);
    // The sample has nine ports, of which a write of one port leaves eight alone.
    const SimulatorProcess unit;
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("p.xml"), smallProject());
    const ToolResult write = tool.run({QStringLiteral("write"), unitOption, unit.address(),
        QStringLiteral("--only"), only, file});
    QVERIFY2(write.exitCode == 0 || only == QStringLiteral("config"), qPrintable(write.errors));
    const QJsonObject json =
        parse(tool.run({QStringLiteral("read"), unitOption, unit.address(), jsonOption}).output);
    QTEST(json[QStringLiteral("events")].toArray().size(), "events");
    QTEST(json[QStringLiteral("triggers")].toArray().size(), "triggers");
    QTEST(json[QStringLiteral("serialPorts")]
              .toArray()
              .at(0)
              .toObject()[QStringLiteral("baudRate")]
              .toInt(),
        "baudRate");
}

void TestQuadrelctlFiles::refusesAMissingSection()
{
    ControlTool tool;
    const QString file =
        tool.write(QStringLiteral("p.xml"), smallProject().replace("Triggers", "Other"));
    // There is no unit: the file is looked at first.
    const ToolResult result =
        tool.run({QStringLiteral("write"), unitOption, QStringLiteral("tcp://127.0.0.1:1"), file,
            QStringLiteral("--only"), QStringLiteral("triggers")});
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.errors.contains(QStringLiteral("\"triggers\" is missing or empty")));
}

void TestQuadrelctlFiles::keepsTimeTriggers()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("p.xml"), smallProject());
    const QStringList read{QStringLiteral("read"), unitOption, unit.address(), jsonOption};
    const QJsonValue before = parse(tool.run(read).output)[QStringLiteral("timeTriggers")];
    const ToolResult write = tool.run({QStringLiteral("write"), unitOption, unit.address(), file,
        QStringLiteral("--only"), QStringLiteral("triggers")});
    QCOMPARE(write.exitCode, 0);
    QVERIFY(!write.errors.contains(QStringLiteral("time triggers are removed")));
    const QJsonValue after = parse(tool.run(read).output)[QStringLiteral("timeTriggers")];
    QCOMPARE(after.toArray().size(), 7);
    QCOMPARE(after, before);
}

void TestQuadrelctlFiles::dropsTimeTriggers()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("p.xml"), smallProject());
    const ToolResult write = tool.run(
        {QStringLiteral("write"), unitOption, unit.address(), file, QStringLiteral("--only"),
            QStringLiteral("triggers"), QStringLiteral("--drop-time-triggers")});
    QCOMPARE(write.exitCode, 0);
    QVERIFY(write.errors.contains(QStringLiteral("time triggers are removed: 7 records")));
    const QJsonObject after =
        parse(tool.run({QStringLiteral("read"), unitOption, unit.address(), jsonOption}).output);
    QCOMPARE(after[QStringLiteral("timeTriggers")].toArray().size(), 0);
    QCOMPARE(after[QStringLiteral("triggers")].toArray().size(), 1);
}

void TestQuadrelctlFiles::refusesToDropWithoutTriggers()
{
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("p.xml"), smallProject());
    const ToolResult result = tool.run({QStringLiteral("write"), unitOption,
        QStringLiteral("tcp://127.0.0.1:1"), file, QStringLiteral("--only"),
        QStringLiteral("events"), QStringLiteral("--drop-time-triggers")});
    QCOMPARE(result.exitCode, 2);
}

void TestQuadrelctlFiles::writesNothingOnADryRun()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("p.xml"), smallProject());
    const QStringList read{QStringLiteral("read"), unitOption, unit.address(), jsonOption};
    QJsonObject before = parse(tool.run(read).output);
    const ToolResult write = tool.run({QStringLiteral("write"), unitOption, unit.address(), file,
        QStringLiteral("--dry-run"), QStringLiteral("--diff")});
    QCOMPARE(write.exitCode, 0);
    QVERIFY(write.output.contains(QStringLiteral("events: 32 on the unit, 1 to be written")));
    QVERIFY(!write.output.contains(QStringLiteral("Written")));
    QJsonObject after = parse(tool.run(read).output);
    for (QJsonObject* json : {&before, &after}) {
        json->remove(QStringLiteral("clock"));
        json->remove(QStringLiteral("device"));
    }
    QCOMPARE(after, before);
}

void TestQuadrelctlFiles::listsChanges()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QString file = tool.path(QStringLiteral("p.xml"));
    tool.run({QStringLiteral("read"), unitOption, unit.address(), QStringLiteral("--save"), file});
    tool.write(QStringLiteral("p.xml"),
        ControlTool::contentsOf(file).replace("打开投影机", "Open").replace("9600", "300"));
    const ToolResult result = tool.run(
        {QStringLiteral("write"), unitOption, unit.address(), file, QStringLiteral("--dry-run"),
            QStringLiteral("--diff"), QStringLiteral("--only"), QStringLiteral("config,events")});
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.output.contains(
        QStringLiteral("  ~ serial port 2: baud rate \"9600\" -> \"300\"\n")));
    QVERIFY(result.output.contains(
        QStringLiteral("  ~ event 0: description \"打开投影机\" -> \"Open\"\n")));
}

void TestQuadrelctlFiles::warnsOfLosses()
{
    ControlTool tool;
    const QString memory = tool.path(QStringLiteral("unit.memory"));
    QVERIFY(saveSampleWithoutEvents(memory));
    const SimulatorProcess unit({QStringLiteral("--memory"), memory});
    const QString file = tool.path(QStringLiteral("p.xml"));
    tool.run({QStringLiteral("read"), unitOption, unit.address(), QStringLiteral("--save"), file});
    const ToolResult result = tool.run(
        {QStringLiteral("write"), unitOption, unit.address(), file, QStringLiteral("--dry-run")});
    for (const char* loss : {"event names are lost, no file holds them: 18 records",
             "no word for the types of some of the unit's events", "19 records",
             "Modbus triggers are lost, no file holds them: 2 records",
             "delays that are no whole number of 10 ms", "1 records",
             "triggers and time triggers without an event are written with the event 0: 1 records"})
        QVERIFY2(result.errors.contains(QLatin1String(loss)), loss);
}

void TestQuadrelctlFiles::refusesWhatCannotBeReadBack()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QString file =
        tool.write(QStringLiteral("p.xml"), smallProject().replace("door", QByteArray(33, 'x')));
    const ToolResult result = tool.run({QStringLiteral("write"), unitOption, unit.address(), file});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.errors,
        file + QStringLiteral(": trigger 0: its description has more than 32 characters\n"));
}

void TestQuadrelctlFiles::tellsWhatDiffers()
{
    // The unit says that it has one port: the second one that is written can't be read back.
    const SimulatorProcess unit({QStringLiteral("--ports"), QStringLiteral("1"),
        QStringLiteral("--io"), QStringLiteral("1")});
    ControlTool tool;
    QByteArray contents = smallProject();
    contents.replace("<IO><Model>2</Model></IO></Configs>",
        "<IO><Model>2</Model></IO><IO><Model>1</Model></IO></Configs>");
    const QString file = tool.write(QStringLiteral("p.xml"), contents);
    const ToolResult result = tool.run({QStringLiteral("write"), unitOption, unit.address(), file});
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.errors.contains(QStringLiteral("not as written: - IO line 2: type \"1\"")),
        qPrintable(result.errors));
    QVERIFY(
        result.errors.endsWith(QStringLiteral("the unit does not hold what was written to it\n")));
}

void TestQuadrelctlFiles::tellsAFailedWrite()
{
    // An empty unit takes eight exchanges to read; the tenth reply is that of a write.
    const SimulatorProcess unit({QStringLiteral("--fault"), QStringLiteral("close@10")});
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("p.xml"), smallProject());
    const ToolResult result = tool.run({QStringLiteral("write"), unitOption, unit.address(), file});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.errors,
        unit.address()
            + QStringLiteral(" closed the connection without an answer\n"
                             "The unit may hold some of the new records beside old ones.\n"));
}

void TestQuadrelctlFiles::goesRound()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QString first = tool.path(QStringLiteral("1.xml"));
    const QString second = tool.path(QStringLiteral("2.xml"));
    const auto save = [&](const QString& file) {
        return tool
            .run({QStringLiteral("read"), unitOption, unit.address(), QStringLiteral("--save"),
                file})
            .exitCode;
    };
    QCOMPARE(save(first), 0);
    const auto write = [&](const QString& file) {
        return tool.run({QStringLiteral("write"), unitOption, unit.address(), file}).exitCode;
    };
    QCOMPARE(write(first), 0);
    QCOMPARE(save(second), 0);
    // The first round loses what the file and the unit's blocks can't carry; the second nothing.
    QCOMPARE(write(second), 0);
    const QString third = tool.path(QStringLiteral("3.xml"));
    QCOMPARE(save(third), 0);
    const auto show = [&tool](const QString& file) {
        return tool.run({QStringLiteral("show"), file}).output;
    };
    QCOMPARE(show(third), show(second));
    QVERIFY(show(second) != show(first));
}

QTEST_GUILESS_MAIN(TestQuadrelctlFiles)
#include "tst_quadrelctlfiles.moc"
