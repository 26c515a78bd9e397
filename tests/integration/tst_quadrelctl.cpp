// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "patience.h"
#include "programs.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtNetwork/QTcpServer>
#include <QtTest/QtTest>

#include <csignal>

/** info, read and clock, and what all commands share. */
class TestQuadrelctl : public QObject {
    Q_OBJECT

private slots:
    void refusesWrongUsage_data();
    void refusesWrongUsage();
    void explainsWrongUsage_data();
    void explainsWrongUsage();
    void takesOptionsBeforeTheCommand();
    void helps_data();
    void helps();
    void speaksALanguage_data();
    void speaksALanguage();
    void showsInformation_data();
    void showsInformation();
    void showsInformationAsJson();
    void tellsFaults_data();
    void tellsFaults();
    void takesARepeatedReply();
    void tellsWhatIsNoUnit_data();
    void tellsWhatIsNoUnit();
    void standsNonsenseSettings_data();
    void standsNonsenseSettings();
    void explainsALimitOfNoTime();
    void standsMissingSettings();
    void readsEverything();
    void readsEverythingAsJson();
    void readsFewerPorts();
    void showsProgressOnATerminalOnly();
    void tellsAFailureInTheMiddle();
    void showsTheClock();
    void setsTheClock_data();
    void setsTheClock();
    void setsTheClockToNow();
    void endsWhenInterrupted_data();
    void endsWhenInterrupted();
    void tellsAFullDisk();
    void knowsUnitsByName();
    void prefersOptionsToSettings_data();
    void prefersOptionsToSettings();
    void refusesBadSettings();
    void repeatsRequests_data();
    void repeatsRequests();
    void logsFrames();
    void tellsWhereItCannotLog();
    void showsDaysAsTheUserWants();
};

void TestQuadrelctl::refusesWrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    const auto row = [](const char* line) {
        QTest::newRow(line) << QString::fromLatin1(line).split(
            QLatin1Char('|'), Qt::SkipEmptyParts);
    };
    row("");
    row("dance");
    row("info");
    row("info|--unit");
    row("info|--unit|tcp://127.0.0.1:1|--language|fr");
    row("info|--unit|tcp://127.0.0.1:1|--language");
    row("info|--unit|nonsense://x");
    row("info|--unit|tcp://127.0.0.1:0");
    row("info|--unit|tcp://127.0.0.1:1|--dance");
    row("info|--unit|tcp://127.0.0.1:1|extra");
    row("read");
    row("read|--unit|tcp://127.0.0.1:1|--discover");
    row("clock|--unit|tcp://127.0.0.1:1|--set");
    row("clock|--unit|tcp://127.0.0.1:1|--set|2026/11/14 06:05:49");
    row("clock|--unit|tcp://127.0.0.1:1|--set|2026/11/14   06:05:49");
    row("clock|--unit|tcp://127.0.0.1:1|--set|2026/02/30  06:05:49");
    row("clock|--unit|tcp://127.0.0.1:1|--set|2026/11/14  24:00:00");
    row("clock|--unit|tcp://127.0.0.1:1|--set|2026/11/14  06:05");
    row("clock|--unit|tcp://127.0.0.1:1|--set|2026-11-14  06:05:49");
    row("clock|--unit|tcp://127.0.0.1:1|--set|1999/11/14  06:05:49");
    row("clock|--unit|tcp://127.0.0.1:1|--set|26/11/14  06:05:49");
    row("clock|--unit|tcp://127.0.0.1:1|--set|tomorrow");
    row("show");
    QTest::newRow("show, no name") << QStringList{QStringLiteral("show"), QString()};
    QTest::newRow("read --save, no name")
        << QStringList{QStringLiteral("read"), QStringLiteral("--unit"),
               QStringLiteral("tcp://127.0.0.1:1"), QStringLiteral("--save"), QString()};
    row("write|--unit|tcp://127.0.0.1:1");
    row("write|--unit|tcp://127.0.0.1:1|file|--only|names");
    row("network|--unit|tcp://127.0.0.1:1|--ip|10.0.0.1|--mask|255.0.0.0|--yes");
    row("network|--unit|tcp://127.0.0.1:1|--ip|10.0.0|--mask|255.0.0.0|--gateway|10.0.0.2|--yes");
    row("network|--unit|tcp://127.0.0.1:1|--ip|10.0.0.1|--mask|255.0.255.0|--gateway|10.0.0.2|"
        "--yes");
    row("network|--unit|tcp://127.0.0.1:1|--ip|10.0.0.1|--mask|255.0.0.0|--gateway|11.0.0.2|--yes");
    row("upgrade|--unit|tcp://127.0.0.1:1|--streamed|file");
    row("remark|--unit|tcp://127.0.0.1:1");
}

void TestQuadrelctl::refusesWrongUsage()
{
    QFETCH(QStringList, arguments);
    const ToolResult result = ControlTool().run(arguments);
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.output, QString());
    QVERIFY(!result.errors.isEmpty());
}

void TestQuadrelctl::explainsWrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("explanation");
    const auto row = [](const char* line, const QString& explanation) {
        QTest::newRow(line) << QString::fromLatin1(line).split(QLatin1Char('|'), Qt::SkipEmptyParts)
                            << explanation;
    };
    row("", QStringLiteral("a command is required"));
    row("inf", QStringLiteral("\"inf\" is not a command; did you mean \"info\"?"));
    row("rad", QStringLiteral("\"rad\" is not a command; did you mean \"read\"?"));
    row("disc", QStringLiteral("\"disc\" is not a command; did you mean \"discover\"?"));
    row("dance", QStringLiteral("\"dance\" is not a command"));
    row("help|inf", QStringLiteral("\"inf\" is not a command; did you mean \"info\"?"));
    row("%2", QStringLiteral("\"%2\" is not a command"));
    row("\x1b[2J", QStringLiteral("\"\\u001b[2J\" is not a command"));
    row("info",
        QStringLiteral("--unit is missing: the address of the unit, as in --unit 192.168.1.10 "
                       "(\"quadrelctl discover\" lists the units of the network)"));
    row("info|--unit", QStringLiteral("--unit: its argument is missing"));
    row("info|--unit|%2://%1",
        QStringLiteral("--unit: \"%2://%1\" is not an address of a unit: tcp://HOST:PORT or "
                       "udp://HOST:PORT"));
    row("info|--unit|h|--jsom",
        QStringLiteral("\"--jsom\" is not expected here; did you mean \"--json\"?"));
    row("info|--unit|h|--langauge|zh",
        QStringLiteral("\"--langauge\" is not expected here; did you mean \"--language\"?"));
    row("info|--unit|h|%2", QStringLiteral("\"%2\" is not expected here"));
    row("info|--unit|h|--language|%2%1", QStringLiteral("--language: %2%1 is none of zh,en"));
    row("write|--unit|h|--only|names,events|file",
        QStringLiteral("--only: names is none of config,serialPorts,ioLines,events,triggers,"
                       "timeTriggers"));
    row("read", QStringLiteral("exactly one of these is required: --unit,--discover"));
    row("edit", QStringLiteral("exactly one of these is required: --unit,FILE"));
    row("edit|u.yaml|--unit|h", QStringLiteral("exactly one of these is required: --unit,FILE"));
    row("set", QStringLiteral("FILE or --unit is required"));
    row("set|u.yaml", QStringLiteral("a path is required"));
    row("get|--unit|h", QStringLiteral("a path is required"));
    row("diff|u.yaml", QStringLiteral("after is required"));
    row("info|--unit|h|--timeout|soon",
        QStringLiteral("--timeout: \"soon\" is not a number from 1 to 3600000"));
    row("info|--unit|h|--timeout|0",
        QStringLiteral("--timeout: \"0\" is not a number from 1 to 3600000"));
    row("info|--unit|h|--retries|-1",
        QStringLiteral("--retries: \"-1\" is not a number from 0 to 100"));
    row("clock|--unit|h|--set|\x1b]0;x\x07",
        QStringLiteral(
            "--set: \"\\u001b]0;x\\u0007\" is not a time of the years 2000 to 2099 in the "
            "form \"2026/11/14  06:05:49\", with two blanks"));
}

void TestQuadrelctl::explainsWrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, explanation);
    const ToolResult result = ControlTool().run(arguments);
    QCOMPARE(
        result.errors, explanation + QStringLiteral("\nRun with --help for more information.\n"));
    QCOMPARE(result.output, QString());
    QCOMPARE(result.exitCode, 2);
}

void TestQuadrelctl::takesOptionsBeforeTheCommand()
{
    const SimulatorProcess unit;
    const ToolResult result = ControlTool().run(
        {QStringLiteral("--language"), QStringLiteral("en"), QStringLiteral("--unit"),
            unit.address(), QStringLiteral("--json"), QStringLiteral("info")});
    QCOMPARE(result.errors, QString());
    QVERIFY(result.output.contains(QStringLiteral("serialNumber")));
}

void TestQuadrelctl::helps_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("word");
    QTest::newRow("help") << QStringList{QStringLiteral("--help")} << QStringLiteral("discover");
    QTest::newRow("help of a command") << QStringList{QStringLiteral("clock"),
        QStringLiteral("--help")} << QStringLiteral("--set");
    QTest::newRow("help by its name")
        << QStringList{QStringLiteral("help")} << QStringLiteral("discover");
    QTest::newRow("help of a command by its name")
        << QStringList{QStringLiteral("help"), QStringLiteral("clock")} << QStringLiteral("--set");
    QTest::newRow("version") << QStringList{QStringLiteral("--version")}
                             << QStringLiteral("quadrelctl ");
}

void TestQuadrelctl::helps()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, word);
    const ToolResult result = ControlTool().run(arguments);
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(result.output.contains(word), qPrintable(result.output));
    QCOMPARE(result.errors, QString());
}

void TestQuadrelctl::speaksALanguage_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("chinese");
    const auto row = [](const char* name, const char* locale, const QStringList& arguments,
                         bool chinese) {
        QTest::newRow(name) << QString::fromLatin1(locale) << arguments << chinese;
    };
    const QString option = QStringLiteral("--language");
    const QString zh = QStringLiteral("zh");
    const QString en = QStringLiteral("en");
    const QString info = QStringLiteral("info");
    const QString unit = QStringLiteral("--unit=tcp://127.0.0.1:1");
    row("no locale", "C.UTF-8", {info, unit}, false);
    row("English", "en_US.UTF-8", {info, unit}, false);
    row("Chinese", "zh_CN.UTF-8", {info, unit}, true);
    row("Chinese of another place", "zh_TW.UTF-8", {info, unit}, true);
    row("another language", "de_DE.UTF-8", {info, unit}, false);
    row("option before the command", "en_US.UTF-8", {option, zh, info, unit}, true);
    row("option after the command", "zh_CN.UTF-8", {info, unit, option, en}, false);
    row("option with =", "zh_CN.UTF-8", {option + QStringLiteral("=en"), info, unit}, false);
}

/** The library's texts and the tool's own, those of wrong usage and of help among them. */
void TestQuadrelctl::speaksALanguage()
{
    QFETCH(QString, locale);
    QFETCH(QStringList, arguments);
    QFETCH(bool, chinese);
    ControlTool tool;
    tool.setLocale(locale);
    const ToolResult failure = tool.run(arguments);
    QCOMPARE(failure.exitCode, 1);
    const QString first = failure.errors.section(QLatin1Char('\n'), 0, 0);
    QCOMPARE(first,
        chinese ? QStringLiteral("tcp://127.0.0.1:1 拒绝了连接")
                : QStringLiteral("tcp://127.0.0.1:1 refused the connection"));

    const QStringList words = arguments.filter(QStringLiteral("--language")).isEmpty()
        ? QStringList()
        : QStringList{
            QStringLiteral("--language"), chinese ? QStringLiteral("zh") : QStringLiteral("en")};
    const ToolResult usage = tool.run(words + QStringList{QStringLiteral("info")});
    QCOMPARE(usage.exitCode, 2);
    QCOMPARE(usage.errors,
        chinese ? QStringLiteral("缺少 --unit：设备的地址，例如 --unit 192.168.1.10"
                                 "（“quadrelctl discover” 列出网络上的设备）\n"
                                 "用 --help 查看更多信息。\n")
                : QStringLiteral("--unit is missing: the address of the unit, as in "
                                 "--unit 192.168.1.10 (\"quadrelctl discover\" lists the units of "
                                 "the network)\nRun with --help for more information.\n"));
    const ToolResult help = tool.run(words + QStringList{QStringLiteral("--help")});
    QCOMPARE(help.exitCode, 0);
    QVERIFY2(help.output.contains(chinese ? QStringLiteral("查找网络上的设备")
                                          : QStringLiteral("Find the units on the network")),
        qPrintable(help.output));
}

void TestQuadrelctl::showsInformation_data()
{
    QTest::addColumn<bool>("isUdp");
    QTest::newRow("tcp") << false;
    QTest::newRow("udp") << true;
}

void TestQuadrelctl::showsInformation()
{
    QFETCH(bool, isUdp);
    const SimulatorProcess unit({QStringLiteral("--serial"), QStringLiteral("18446744073709551615"),
        QStringLiteral("--firmware"), QStringLiteral("1.2.3.4"), QStringLiteral("--ip"),
        QStringLiteral("10.1.2.3")});
    const ToolResult result = ControlTool().run({QStringLiteral("info"), QStringLiteral("--unit"),
        isUdp ? unit.udpAddress() : unit.address()});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
    const QStringList lines = result.output.split(QLatin1Char('\n'));
    QVERIFY(lines.contains(QStringLiteral("Model            0x7209")));
    QVERIFY(lines.contains(QStringLiteral("Serial number    18446744073709551615")));
    QVERIFY(lines.contains(QStringLiteral("Version          1.2.3.4")));
    QVERIFY(lines.contains(QStringLiteral("Address          10.1.2.3")));
}

void TestQuadrelctl::showsInformationAsJson()
{
    const SimulatorProcess unit(
        {QStringLiteral("--serial"), QStringLiteral("18446744073709551615")});
    const ToolResult result = ControlTool().run({QStringLiteral("info"), QStringLiteral("--unit"),
        unit.address(), QStringLiteral("--json")});
    QCOMPARE(result.exitCode, 0);
    const QJsonObject device = QJsonDocument::fromJson(result.output.toUtf8()).object();
    const QJsonObject expected{{QStringLiteral("modelId"), 0x7209},
        {QStringLiteral("serialNumber"), QStringLiteral("18446744073709551615")},
        {QStringLiteral("version"), QStringLiteral("1.0.0.0")}, {QStringLiteral("dhcp"), false},
        {QStringLiteral("ip"), QStringLiteral("192.168.1.100")},
        {QStringLiteral("mask"), QStringLiteral("255.255.255.0")},
        {QStringLiteral("gateway"), QStringLiteral("192.168.1.1")},
        {QStringLiteral("ethernetLink"), true}, {QStringLiteral("serialPortCount"), 9},
        {QStringLiteral("ioLineCount"), 12}, {QStringLiteral("relayCount"), 8},
        {QStringLiteral("infraredPortCount"), 4}};
    QCOMPARE(device, expected);
}

void TestQuadrelctl::tellsFaults_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* fault, const QString& error) {
        QTest::newRow(fault) << QString::fromLatin1(fault) << error;
    };
    const QString timeout =
        QStringLiteral("UNIT has not answered the read of device information within 500 ms");
    row("drop@1", timeout);
    row("wrong-label@1", timeout);
    row("delay:5000@1", timeout);
    row("wrong-address@1", timeout);
    const QString otherLength =
        QStringLiteral("UNIT sent a reply of another length than was asked for");
    row("wrong-length@1", otherLength);
    row("short@1", otherLength);
    row("corrupt@1", QStringLiteral("UNIT sent a damaged reply: its checksum is wrong"));
    row("cut@1", QStringLiteral("UNIT closed the connection in the middle of a reply"));
    row("close@1", QStringLiteral("UNIT closed the connection without an answer"));
}

void TestQuadrelctl::tellsFaults()
{
    QFETCH(QString, fault);
    QFETCH(QString, error);
    const SimulatorProcess unit({QStringLiteral("--fault"), fault});
    ControlTool tool("[Communication]\ntimeout=500\n");
    const ToolResult result =
        tool.run({QStringLiteral("info"), QStringLiteral("--unit"), unit.address()});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors,
        error.replace(QStringLiteral("UNIT"), unit.address())
            + QStringLiteral("\nfailed while reading the device information\n"
                             "check the address, the network, and that the unit is switched on; "
                             "then try again\n"));
}

void TestQuadrelctl::takesARepeatedReply()
{
    const SimulatorProcess unit(
        {QStringLiteral("--sample"), QStringLiteral("--fault"), QStringLiteral("duplicate%100")});
    const ToolResult result =
        ControlTool().run({QStringLiteral("read"), QStringLiteral("--unit"), unit.address()});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
}

void TestQuadrelctl::tellsWhatIsNoUnit_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("info") << QStringLiteral("info");
    QTest::newRow("read") << QStringLiteral("read");
    QTest::newRow("clock") << QStringLiteral("clock");
    QTest::newRow("reset") << QStringLiteral("reset");
    QTest::newRow("reset --default-address") << QStringLiteral("reset --yes --default-address");
}

void TestQuadrelctl::tellsWhatIsNoUnit()
{
    QFETCH(QString, command);
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const QString address = QStringLiteral("tcp://127.0.0.1:%1").arg(server.serverPort());
    const QStringList arguments =
        command.split(QLatin1Char(' ')) + QStringList{QStringLiteral("--unit"), address};

    // The system accepts the connection, but nobody answers.
    if (command != QStringLiteral("reset --yes --default-address")) {
        const ToolResult silent = ControlTool("[Communication]\ntimeout=300\n").run(arguments);
        QCOMPARE(silent.exitCode, 1);
        QVERIFY2(
            silent.errors.contains(QStringLiteral("within 300 ms")), qPrintable(silent.errors));
    }

    server.close();
    const ToolResult refused = ControlTool().run(arguments);
    QCOMPARE(refused.exitCode, 1);
    QCOMPARE(refused.output, QString());
    QVERIFY2(refused.errors.startsWith(address + QStringLiteral(" refused the connection\n")),
        qPrintable(refused.errors));
}

void TestQuadrelctl::standsNonsenseSettings_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no number") << QByteArray("[Communication]\ntimeout=soon\n");
    QTest::newRow("another key") << QByteArray("[Communication]\nwait=100\n");
    QTest::newRow("no settings file at all") << QByteArray("\0\xff[[[\n=\n\n]", 11);
}

void TestQuadrelctl::standsNonsenseSettings()
{
    QFETCH(QByteArray, settings);
    const SimulatorProcess unit;
    const ToolResult result = ControlTool(settings).run(
        {QStringLiteral("info"), QStringLiteral("--unit"), unit.address()});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
}

void TestQuadrelctl::explainsALimitOfNoTime()
{
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    const QString address = QStringLiteral("tcp://127.0.0.1:%1").arg(silent.serverPort());
    const ToolResult result = ControlTool("[Communication]\ntimeout=0\n")
                                  .run({QStringLiteral("info"), QStringLiteral("--unit"), address});
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.errors.endsWith(
                 QStringLiteral("\nCommunication/timeout in configWidget.ini is 0, and no unit can "
                                "answer in that time\n")),
        qPrintable(result.errors));
}

void TestQuadrelctl::standsMissingSettings()
{
    ControlTool tool;
    QVERIFY(QFile::remove(tool.path(QStringLiteral("configWidget.ini"))));
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    const ToolResult result = tool.run({QStringLiteral("info"), QStringLiteral("--unit"),
        QStringLiteral("tcp://127.0.0.1:%1").arg(silent.serverPort())});
    QCOMPARE(result.exitCode, 1);
}

void TestQuadrelctl::readsEverything()
{
    const SimulatorProcess unit;
    const ToolResult result =
        ControlTool().run({QStringLiteral("read"), QStringLiteral("--unit"), unit.address()});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
    for (const char* title : {"DEVICE\n", "SERIAL PORTS\n", "IO LINES\n", "EVENTS\n", "TRIGGERS\n",
             "TIME TRIGGERS\n", "CLOCK\n"})
        QVERIFY2(result.output.contains(QLatin1String(title)), title);
    // The names of events are beside their ids, text is beside its bytes, and wide characters keep
    // the columns.
    for (const char* line : {"\n0   serial  COM A-1  50 41 4e 45 4c 20 31 0d  \"PANEL 1\\r\"  1 "
                             "投影机开, 5 Warm-up, 3 投影机 "
                             "HDMI    面板：开始上课\n",
             "\n6   input   IO A-1   high level                            25 大厅灯开, 7 Display "
             "on       "
             "        有人进入大厅\n",
             "\n2   weekly     2024/09/02  forever     Mon Tue Wed Thu Fri  07:45  12 空调开, 1 "
             "投影机开, "
             "5 Warm-up, 3 投影机 HDMI  工作日早课准备\n",
             "\n8   Display off     4c 01 00 25 10 01 52 01 20 00 09 2a 50 4f 57 3d 4f 46 46 23  "
             "\"*POW=OFF#\"       Display off\n"})
        QVERIFY2(result.output.contains(QString::fromUtf8(line)), qPrintable(result.output));
}

void TestQuadrelctl::readsEverythingAsJson()
{
    const SimulatorProcess unit;
    const ToolResult result = ControlTool().run({QStringLiteral("read"), QStringLiteral("--unit"),
        unit.udpAddress(), QStringLiteral("--json")});
    QCOMPARE(result.exitCode, 0);
    const QJsonObject json = QJsonDocument::fromJson(result.output.toUtf8()).object();
    QCOMPARE(json.keys(),
        QStringList({QStringLiteral("clock"), QStringLiteral("device"), QStringLiteral("events"),
            QStringLiteral("format"), QStringLiteral("ioLines"), QStringLiteral("serialPorts"),
            QStringLiteral("timeTriggers"), QStringLiteral("triggers")}));
    QCOMPARE(json[QStringLiteral("serialPorts")].toArray().at(1).toObject(),
        QJsonObject({{QStringLiteral("port"), 2}, {QStringLiteral("baudRate"), 9600},
            {QStringLiteral("dataBits"), 8}, {QStringLiteral("stopBits"), 1},
            {QStringLiteral("inspection"), 2}}));
    QCOMPARE(json[QStringLiteral("ioLines")].toArray().at(4).toObject(),
        QJsonObject({{QStringLiteral("line"), 5}, {QStringLiteral("type"), 1}}));
    QCOMPARE(json[QStringLiteral("events")].toArray().at(3).toObject(),
        QJsonObject({{QStringLiteral("id"), 4},
            {QStringLiteral("name"), QStringLiteral("延时 0.5 秒")}, {QStringLiteral("type"), 5},
            {QStringLiteral("isHex"), true}, {QStringLiteral("delay"), 500},
            {QStringLiteral("description"), QStringLiteral("等待半秒")}}));
    QCOMPARE(json[QStringLiteral("triggers")].toArray().at(6).toObject(),
        QJsonObject({{QStringLiteral("id"), 6}, {QStringLiteral("kind"), QStringLiteral("IO")},
            {QStringLiteral("line"), QStringLiteral("IO A-1")}, {QStringLiteral("isHex"), true},
            {QStringLiteral("parameter"), QStringLiteral("high")},
            {QStringLiteral("eventIds"), QJsonArray{25, 7}},
            {QStringLiteral("description"), QStringLiteral("有人进入大厅")}}));
    QCOMPARE(json[QStringLiteral("timeTriggers")].toArray().at(2).toObject(),
        QJsonObject(
            {{QStringLiteral("id"), 2}, {QStringLiteral("repeat"), QStringLiteral("WEEKLY")},
                {QStringLiteral("startDate"), QStringLiteral("2024/09/02")},
                {QStringLiteral("endDate"), QStringLiteral("forever")},
                {QStringLiteral("weekdays"), QJsonArray{1, 2, 3, 4, 5}},
                {QStringLiteral("time"), QStringLiteral("07:45")},
                {QStringLiteral("eventIds"), QJsonArray{12, 1, 5, 3}},
                {QStringLiteral("description"), QStringLiteral("工作日早课准备")}}));
}

void TestQuadrelctl::readsFewerPorts()
{
    const SimulatorProcess unit({QStringLiteral("--ports"), QStringLiteral("4"),
        QStringLiteral("--io"), QStringLiteral("0")});
    const ToolResult result = ControlTool().run({QStringLiteral("read"), QStringLiteral("--unit"),
        unit.address(), QStringLiteral("--json")});
    QCOMPARE(result.exitCode, 0);
    const QJsonObject json = QJsonDocument::fromJson(result.output.toUtf8()).object();
    QCOMPARE(json[QStringLiteral("serialPorts")].toArray().size(), 4);
    QCOMPARE(json[QStringLiteral("ioLines")].toArray().size(), 0);
}

void TestQuadrelctl::showsProgressOnATerminalOnly()
{
    if (!TerminalProgram::isPossible())
        QSKIP("this machine makes no terminals");
    const SimulatorProcess unit;
    const QStringList arguments{QStringLiteral("read"), QStringLiteral("--unit"), unit.address()};
    const ToolResult terminal =
        ControlTool().runOnTerminal(arguments + QStringList{QStringLiteral("--no-pager")});
    QCOMPARE(terminal.exitCode, 0);
    QVERIFY(terminal.output.contains(QStringLiteral("event 32 of 32")));
    QVERIFY(terminal.output.contains(QStringLiteral("time triggers: entry 17 of 17")));
    QVERIFY(!ControlTool().run(arguments).errors.contains(QStringLiteral("read")));
}

void TestQuadrelctl::tellsAFailureInTheMiddle()
{
    const SimulatorProcess unit(
        {QStringLiteral("--sample"), QStringLiteral("--fault"), QStringLiteral("close@10")});
    const ToolResult result = ControlTool().run({QStringLiteral("read"), QStringLiteral("--unit"),
        unit.address(), QStringLiteral("--json")});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors,
        unit.address()
            + QStringLiteral(" closed the connection without an answer\n"
                             "failed while reading event 6 of 32\n"
                             "check the address, the network, and that the unit is switched on; "
                             "then try again\n"));
}

void TestQuadrelctl::showsTheClock()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QStringList arguments{QStringLiteral("clock"), QStringLiteral("--unit"), unit.address()};
    const ToolResult table = tool.run(arguments);
    QCOMPARE(table.exitCode, 0);
    QVERIFY2(QRegularExpression(
                 QStringLiteral("^20\\d\\d/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d  \\(.+\\)\n$"))
                 .match(table.output)
                 .hasMatch(),
        qPrintable(table.output));
    const ToolResult json = tool.run(arguments + QStringList{QStringLiteral("--json")});
    const QJsonObject object = QJsonDocument::fromJson(json.output.toUtf8()).object();
    QCOMPARE(
        object.keys(), QStringList({QStringLiteral("clock"), QStringLiteral("differenceSeconds")}));
}

void TestQuadrelctl::setsTheClock_data()
{
    // What is shown of the time lasts longer than the patience of the tests.
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("shown");
    QTest::newRow("as given") << QStringLiteral("2026/11/14  16:50:49")
                              << QStringLiteral("2026/11/14 16:5");
    QTest::newRow("a year of one digit")
        << QStringLiteral("2005/02/03  00:00:00") << QStringLiteral("205/02/03 00:0");
    QTest::newRow("a leap day") << QStringLiteral("2028/02/29  23:50:00")
                                << QStringLiteral("2028/02/29 23:5");
}

void TestQuadrelctl::setsTheClock()
{
    QFETCH(QString, time);
    QFETCH(QString, shown);
    const SimulatorProcess unit;
    const ToolResult result = ControlTool().run({QStringLiteral("clock"), QStringLiteral("--unit"),
        unit.address(), QStringLiteral("--yes"), QStringLiteral("--set"), time});
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(
        result.output.startsWith(QStringLiteral("The clock says 20")), qPrintable(result.output));
    QVERIFY2(
        result.output.section(QLatin1Char('\n'), 1).startsWith(shown), qPrintable(result.output));
    QVERIFY2(result.output.contains(QStringLiteral("this machine's")), qPrintable(result.output));
}

void TestQuadrelctl::setsTheClockToNow()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QStringList arguments{QStringLiteral("clock"), QStringLiteral("--unit"), unit.address(),
        QStringLiteral("--yes"), QStringLiteral("--json"), QStringLiteral("--set")};
    tool.run(arguments + QStringList{QStringLiteral("2020/01/01  00:00:00")});
    const ToolResult result = tool.run(arguments + QStringList{QStringLiteral("now")});
    const QJsonObject object = QJsonDocument::fromJson(result.output.toUtf8()).object();
    const int difference = object[QStringLiteral("differenceSeconds")].toInt(-1000);
    QVERIFY2(qAbs(difference) <= patience / 1000, qPrintable(result.output));
}

void TestQuadrelctl::endsWhenInterrupted_data()
{
    QTest::addColumn<QStringList>("command");
    QTest::addColumn<int>("signal");
    const QStringList info{QStringLiteral("info")};
    QTest::newRow("SIGINT") << info << SIGINT;
    QTest::newRow("SIGTERM") << info << SIGTERM;
    QTest::newRow("reset") << QStringList{QStringLiteral("reset"), QStringLiteral("--yes"),
        QStringLiteral("--default-address")}
                           << SIGINT;
}

void TestQuadrelctl::endsWhenInterrupted()
{
    QFETCH(QStringList, command);
    QFETCH(int, signal);
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    ControlTool tool("[Communication]\ntimeout=-1\n");
    Program process;
    tool.start(process,
        command
            + QStringList{QStringLiteral("--unit"),
                QStringLiteral("tcp://127.0.0.1:%1").arg(silent.serverPort())});
    QVERIFY(silent.waitForNewConnection(patience));
    QVERIFY(silent.nextPendingConnection()->waitForReadyRead(patience));
    QVERIFY(process.sendSignal(signal));
    QCOMPARE(process.waitForExit(), 130);
    QCOMPARE(process.errors(),
        QStringLiteral("interrupted\nfailed while reading the device information\n"));
}

void TestQuadrelctl::tellsAFullDisk()
{
    const SimulatorProcess unit;
    ControlTool tool;
    Program process;
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    tool.start(process, {QStringLiteral("info"), QStringLiteral("--unit"), unit.address()});
    QCOMPARE(process.waitForExit(), 1);
    QCOMPARE(process.errors(), QStringLiteral("the output can't be written\n"));
}

void TestQuadrelctl::knowsUnitsByName()
{
    const SimulatorProcess unit;
    ControlTool tool;
    tool.writeSettings("units:\n  hall: " + unit.address().toUtf8() + '\n');
    const ToolResult result =
        tool.run({QStringLiteral("info"), QStringLiteral("--unit"), QStringLiteral("hall")});
    QCOMPARE(result.errors, QString());
    QVERIFY(result.output.contains(QStringLiteral("310000001")));
}

void TestQuadrelctl::prefersOptionsToSettings_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("limit");
    QTest::newRow("configWidget.ini") << QByteArray() << QStringList() << 250;
    QTest::newRow("settings") << QByteArray("timeout: 350\n") << QStringList() << 350;
    QTest::newRow("option") << QByteArray("timeout: 350\n")
                            << QStringList{QStringLiteral("--timeout"), QStringLiteral("450")}
                            << 450;
}

void TestQuadrelctl::prefersOptionsToSettings()
{
    QFETCH(QByteArray, settings);
    QFETCH(QStringList, options);
    QFETCH(int, limit);
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    ControlTool tool("[Communication]\ntimeout=250\n");
    tool.writeSettings(settings);
    const ToolResult result = tool.run(options
        + QStringList{QStringLiteral("info"), QStringLiteral("--unit"),
            QStringLiteral("tcp://127.0.0.1:%1").arg(silent.serverPort())});
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.errors.contains(QStringLiteral("within %1 ms").arg(limit)),
        qPrintable(result.errors));
}

void TestQuadrelctl::refusesBadSettings()
{
    ControlTool tool;
    const QString file = tool.writeSettings("timeout: soon\ncolour: red\n");
    const ToolResult result = tool.run({QStringLiteral("backups")});
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.output, QString());
    const QStringList lines = result.errors.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 2);
    for (const QString& line : lines)
        QVERIFY2(line.startsWith(file + QLatin1Char(':')), qPrintable(line));
    QCOMPARE(tool.run({QStringLiteral("--help")}).exitCode, 0);
}

void TestQuadrelctl::repeatsRequests_data()
{
    QTest::addColumn<QString>("retries");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("none") << QStringLiteral("0") << 1;
    QTest::newRow("one") << QStringLiteral("1") << 0;
}

void TestQuadrelctl::repeatsRequests()
{
    QFETCH(QString, retries);
    QFETCH(int, exitCode);
    const SimulatorProcess unit({QStringLiteral("--fault"), QStringLiteral("drop@1")});
    // No limit for the second reply, however busy the machine is.
    const ToolResult result = ControlTool().run({QStringLiteral("info"), QStringLiteral("--unit"),
        unit.udpAddress(), QStringLiteral("--retries"), retries, QStringLiteral("--timeout"),
        exitCode == 0 ? QStringLiteral("5000") : QStringLiteral("300")});
    QCOMPARE(result.exitCode, exitCode);
}

void TestQuadrelctl::logsFrames()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QString log = tool.path(QStringLiteral("frames.log"));
    const QStringList arguments{
        QStringLiteral("info"), QStringLiteral("--unit"), unit.address(), QStringLiteral("--log")};
    QCOMPARE(tool.run(arguments + QStringList{log}).exitCode, 0);
    const QByteArray frames = ControlTool::contentsOf(log);
    QVERIFY2(frames.contains(unit.address().toUtf8() + " > "), frames.constData());
    QVERIFY2(frames.contains(unit.address().toUtf8() + " < "), frames.constData());
    const ToolResult result = tool.run(arguments + QStringList{QStringLiteral("-")});
    QVERIFY(result.errors.contains(unit.address() + QStringLiteral(" > ")));
}

void TestQuadrelctl::tellsWhereItCannotLog()
{
    ControlTool tool;
    const QString log = tool.path(QStringLiteral("nowhere/frames.log"));
    const ToolResult result = tool.run({QStringLiteral("info"), QStringLiteral("--unit"),
        QStringLiteral("tcp://127.0.0.1:1"), QStringLiteral("--log"), log});
    QCOMPARE(result.errors, log + QStringLiteral(": No such file or directory\n"));
    QCOMPARE(result.exitCode, 1);
}

void TestQuadrelctl::showsDaysAsTheUserWants()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QStringList arguments{QStringLiteral("read"), QStringLiteral("--unit"), unit.address(),
        QStringLiteral("--only"), QStringLiteral("timeTriggers")};
    QVERIFY(tool.run(arguments).output.contains(QStringLiteral("  Mon Tue Wed Thu Fri  ")));
    tool.writeSettings("first-weekday: sunday\n");
    QVERIFY(tool.run(arguments).output.contains(QStringLiteral("  Sun Mon Tue Wed Thu  ")));
}

QTEST_GUILESS_MAIN(TestQuadrelctl)
#include "tst_quadrelctl.moc"
