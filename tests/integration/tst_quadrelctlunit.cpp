#include "patience.h"
#include "programs.h"

#include <QtCore/QDir>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QtTest>

#include <csignal>

namespace {

const QString unitOption = QStringLiteral("--unit");

QByteArray image(int size, int seed)
{
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size; ++i)
        bytes[i] = static_cast<char>((i + seed) * 7 % 251);
    return bytes;
}

QString field(ControlTool& tool, const SimulatorProcess& unit, const char* name)
{
    const ToolResult result =
        tool.run({QStringLiteral("info"), unitOption, unit.address(), QStringLiteral("--json")});
    return QJsonDocument::fromJson(result.output.toUtf8())
        .object()[QLatin1String(name)]
        .toVariant()
        .toString();
}

QStringList networkArguments(const SimulatorProcess& unit)
{
    return {QStringLiteral("network"), unitOption, unit.address(), QStringLiteral("--ip"),
        QStringLiteral("10.1.2.3"), QStringLiteral("--mask"), QStringLiteral("255.255.0.0"),
        QStringLiteral("--gateway"), QStringLiteral("10.1.0.1")};
}

} // namespace

/** network, reset, upgrade and remark. */
class TestQuadrelctlUnit : public QObject {
    Q_OBJECT

private slots:
    void givesAnAddress();
    void asksOnATerminal_data();
    void asksOnATerminal();
    void endsAtAQuestionWhenInterrupted();
    void tellsAnUnconfirmedAddress_data();
    void tellsAnUnconfirmedAddress();
    void resets();
    void resetsToTheDefaultAddress();
    void upgrades_data();
    void upgrades();
    void showsTheDescriptor();
    void refusesBadDescriptors();
    void refusesBadImages_data();
    void refusesBadImages();
    void showsABarOnATerminal();
    void fitsTheBarIntoATerminal_data();
    void fitsTheBarIntoATerminal();
    void finishesWithoutATerminal();
    void finishesWithoutAReader();
    void tellsABrokenUpgrade();
    void tellsAnInterruptedUpgrade();
    void tellsAUnitThatStaysAway();
    void writesTheRemark();
};

void TestQuadrelctlUnit::givesAnAddress()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const ToolResult result = tool.run(networkArguments(unit) << QStringLiteral("--yes"));
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.output.contains(QStringLiteral("Address  192.168.1.100  10.1.2.3\n")));
    QVERIFY(result.output.contains(QStringLiteral("The unit has taken the address 10.1.2.3.")));
    QCOMPARE(field(tool, unit, "ip"), QStringLiteral("10.1.2.3"));
    QCOMPARE(field(tool, unit, "mask"), QStringLiteral("255.255.0.0"));
    QCOMPARE(field(tool, unit, "gateway"), QStringLiteral("10.1.0.1"));
    QCOMPARE(field(tool, unit, "dhcp"), QStringLiteral("false"));
}

void TestQuadrelctlUnit::asksOnATerminal_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("ip");
    QTest::newRow("yes") << QByteArray("y\n") << QStringLiteral("10.1.2.3");
    QTest::newRow("no") << QByteArray("n\n") << QStringLiteral("192.168.1.100");
    QTest::newRow("only enter") << QByteArray("\n") << QStringLiteral("192.168.1.100");
    QTest::newRow("end of input") << QByteArray("\x04") << QStringLiteral("192.168.1.100");
}

void TestQuadrelctlUnit::asksOnATerminal()
{
    if (!TerminalProgram::isPossible())
        QSKIP("this machine makes no terminals");
    QFETCH(QByteArray, answer);
    QFETCH(QString, ip);
    const SimulatorProcess unit;
    ControlTool tool;
    const ToolResult result = tool.runOnTerminal(networkArguments(unit), answer);
    QVERIFY(result.output.contains(QStringLiteral("Give the unit the new address? [y/N]")));
    QCOMPARE(field(tool, unit, "ip"), ip);
    QCOMPARE(result.exitCode, ip == QStringLiteral("10.1.2.3") ? 0 : 1);
}

void TestQuadrelctlUnit::endsAtAQuestionWhenInterrupted()
{
    if (!TerminalProgram::isPossible())
        QSKIP("this machine makes no terminals");
    const SimulatorProcess unit;
    ControlTool tool;
    TerminalProgram process;
    tool.start(process, networkArguments(unit));
    QVERIFY(process.waitForScreen("[y/N]"));
    process.type("\x03");
    QCOMPARE(process.waitForEnd(), 130);
    QVERIFY2(process.screen().contains("interrupted"), process.screen().constData());
    QCOMPARE(field(tool, unit, "ip"), QStringLiteral("192.168.1.100"));
}

void TestQuadrelctlUnit::tellsAnUnconfirmedAddress_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("error");
    QTest::newRow("no reply") << QStringLiteral(
        "drop@2") << QStringLiteral("UNIT has not answered the write of network within 1000 ms\n");
    QTest::newRow("connection lost") << QStringLiteral(
        "close@2") << QStringLiteral("UNIT closed the connection without an answer\n");
}

void TestQuadrelctlUnit::tellsAnUnconfirmedAddress()
{
    QFETCH(QString, fault);
    QFETCH(QString, error);
    const SimulatorProcess unit({QStringLiteral("--fault"), fault});
    ControlTool tool("[Communication]\ntimeout=1000\n");
    const ToolResult result = tool.run(networkArguments(unit) << QStringLiteral("--yes"));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.errors, error.replace(QStringLiteral("UNIT"), unit.address()));
}

void TestQuadrelctlUnit::resets()
{
    const SimulatorProcess unit({QStringLiteral("--reset-time"), QStringLiteral("0")});
    ControlTool tool;
    tool.run(networkArguments(unit) << QStringLiteral("--yes"));
    const ToolResult result = tool.run({QStringLiteral("reset"), unitOption, unit.address()});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
}

void TestQuadrelctlUnit::resetsToTheDefaultAddress()
{
    const SimulatorProcess unit({QStringLiteral("--reset-time"), QStringLiteral("0")});
    ControlTool tool;
    tool.run(networkArguments(unit) << QStringLiteral("--yes"));
    const ToolResult result = tool.run(
        {QStringLiteral("reset"), unitOption, unit.address(), QStringLiteral("--default-address")});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
    // It is away for a moment.
    QString ip;
    TRY_VERIFY(!(ip = field(tool, unit, "ip")).isEmpty());
    QCOMPARE(ip, QStringLiteral("192.168.1.100"));
}

void TestQuadrelctlUnit::upgrades_data()
{
    QTest::addColumn<int>("streamed");
    QTest::addColumn<int>("addressed");
    QTest::addColumn<bool>("isUdp");
    QTest::newRow("one byte each") << 1 << 1 << false;
    QTest::newRow("around a chunk") << 2047 << 2049 << false;
    QTest::newRow("whole chunks") << 4096 << 2048 << false;
    QTest::newRow("many chunks") << 300000 << 100000 << false;
    QTest::newRow("over UDP") << 5000 << 2049 << true;
}

void TestQuadrelctlUnit::upgrades()
{
    QFETCH(int, streamed);
    QFETCH(int, addressed);
    QFETCH(bool, isUdp);
    SimulatorProcess unit({QStringLiteral("--print-digests"), QStringLiteral("--reset-time"),
        QStringLiteral("200"), QStringLiteral("--upgrade-version"), QStringLiteral("9.8.7.6")});
    ControlTool tool("[Communication]\ntimeout=2000\n[Upgrade]\ntimeout=60000\n");
    const QString first = tool.write(QStringLiteral("s"), image(streamed, 1));
    const QString second = tool.write(QStringLiteral("a"), image(addressed, 2));
    const ToolResult result =
        tool.run({QStringLiteral("upgrade"), unitOption, isUdp ? unit.udpAddress() : unit.address(),
            QStringLiteral("--streamed"), first, QStringLiteral("--addressed"), second});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(
        result.output, QStringLiteral("The unit is back with version 9.8.7.6; it was 1.0.0.0.\n"));
    QVERIFY(result.errors.contains(QStringLiteral("100 % sent\n")));
    QVERIFY(result.errors.contains(QStringLiteral("Reconnecting to the device\n")));
    QVERIFY(!result.errors.contains(QLatin1Char('\r')));
    const QByteArray addressedLine = unit.waitForLine("image addressed");
    QCOMPARE(addressedLine, digestLine("addressed", image(addressed, 2)));
    QCOMPARE(unit.waitForLine("image streamed"), digestLine("streamed", image(streamed, 1)));
}

void TestQuadrelctlUnit::showsTheDescriptor()
{
    const SimulatorProcess unit({QStringLiteral("--reset-time"), QStringLiteral("0")});
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("image"), image(100, 1));
    const QString descriptor = tool.write(QStringLiteral("d.xml"),
        "<Update><ModuleID>Main board</ModuleID><Version>1.0.0.1</Version></Update>");
    const ToolResult result = tool.run(
        {QStringLiteral("upgrade"), unitOption, unit.address(), QStringLiteral("--streamed"), file,
            QStringLiteral("--addressed"), file, QStringLiteral("--descriptor"), descriptor});
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.output.startsWith(
        QStringLiteral("Upgrade of module Main board to version 1.0.0.1\n")));
}

void TestQuadrelctlUnit::refusesBadDescriptors()
{
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("image"), image(100, 1));
    const QString descriptor = tool.write(QStringLiteral("d.xml"), "<Update/>");
    const ToolResult result = tool.run({QStringLiteral("upgrade"), unitOption,
        QStringLiteral("tcp://127.0.0.1:1"), QStringLiteral("--streamed"), file,
        QStringLiteral("--addressed"), file, QStringLiteral("--descriptor"), descriptor});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.errors, descriptor + QStringLiteral(": The file holds no trigger data!\n"));
}

void TestQuadrelctlUnit::refusesBadImages_data()
{
    QTest::addColumn<QString>("streamed");
    QTest::addColumn<QString>("addressed");
    const QString good = QStringLiteral("good");
    const QString empty = QStringLiteral("empty");
    const QString missing = QStringLiteral("missing");
    QTest::newRow("missing streamed") << missing << good;
    QTest::newRow("missing addressed") << good << missing;
    QTest::newRow("empty streamed") << empty << good;
    QTest::newRow("empty addressed") << good << empty;
    QTest::newRow("a folder") << QStringLiteral(".") << good;
    QTest::newRow("a device") << good << QStringLiteral("/dev/zero");
}

void TestQuadrelctlUnit::refusesBadImages()
{
    QFETCH(QString, streamed);
    QFETCH(QString, addressed);
    ControlTool tool;
    tool.write(QStringLiteral("good"), image(100, 1));
    tool.write(QStringLiteral("empty"), QByteArray());
    const QDir folder(tool.path(QString()));
    // There is no unit: its refusal would be the error if anything were sent.
    const ToolResult result =
        tool.run({QStringLiteral("upgrade"), unitOption, QStringLiteral("tcp://127.0.0.1:1"),
            QStringLiteral("--streamed"), folder.absoluteFilePath(streamed),
            QStringLiteral("--addressed"), folder.absoluteFilePath(addressed)});
    QCOMPARE(result.exitCode, 1);
    QVERIFY(!result.errors.contains(QStringLiteral("refused")));
    QVERIFY(!result.errors.isEmpty());
}

void TestQuadrelctlUnit::showsABarOnATerminal()
{
    if (!TerminalProgram::isPossible())
        QSKIP("this machine makes no terminals");
    const SimulatorProcess unit({QStringLiteral("--reset-time"), QStringLiteral("0")});
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("image"), image(100000, 1));
    const ToolResult result = tool.runOnTerminal({QStringLiteral("upgrade"), unitOption,
        unit.address(), QStringLiteral("--streamed"), file, QStringLiteral("--addressed"), file});
    QCOMPARE(result.exitCode, 0);
    QVERIFY(QRegularExpression(QStringLiteral("\r\\[#*\\.*\\] \\d+ %  \\d+ KiB/s  \\d+ s left"))
                .match(result.output)
                .hasMatch());
    QVERIFY(result.output.contains(QStringLiteral("[##############################] 100 %")));
}

void TestQuadrelctlUnit::fitsTheBarIntoATerminal_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<bool>("hasBar");
    QTest::newRow("wide") << 200 << true;
    QTest::newRow("narrow") << 45 << true;
    QTest::newRow("no room for a bar") << 25 << false;
    QTest::newRow("no room at all") << 5 << false;
}

void TestQuadrelctlUnit::fitsTheBarIntoATerminal()
{
    if (!TerminalProgram::isPossible())
        QSKIP("this machine makes no terminals");
    QFETCH(int, columns);
    QFETCH(bool, hasBar);
    const SimulatorProcess unit({QStringLiteral("--reset-time"), QStringLiteral("0")});
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("image"), image(100000, 1));
    const ToolResult result = tool.runOnTerminal(
        {QStringLiteral("upgrade"), unitOption, unit.address(), QStringLiteral("--streamed"), file,
            QStringLiteral("--addressed"), file},
        {}, {static_cast<unsigned short>(columns), 24});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.output.contains(QLatin1Char('#')), hasBar);
    static const QRegularExpression progress(QStringLiteral("\r([^\r\n]*)\x1b\\[K"));
    int shown = 0;
    for (auto it = progress.globalMatch(result.output); it.hasNext(); ++shown) {
        const QString line = it.next().captured(1);
        QVERIFY2(line.size() < columns, qPrintable(line));
    }
    QVERIFY(shown > 0);
}

/** The images are whole, whoever still listens. */
static void expectImages(SimulatorProcess& unit, int size)
{
    QCOMPARE(unit.waitForLine("image addressed"), digestLine("addressed", image(size, 1)));
    QCOMPARE(unit.waitForLine("image streamed"), digestLine("streamed", image(size, 1)));
}

void TestQuadrelctlUnit::finishesWithoutATerminal()
{
    if (!TerminalProgram::isPossible())
        QSKIP("this machine makes no terminals");
    SimulatorProcess unit({QStringLiteral("--print-digests")});
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("image"), image(100000, 1));
    TerminalProgram process;
    tool.start(process,
        {QStringLiteral("upgrade"), unitOption, unit.address(), QStringLiteral("--streamed"), file,
            QStringLiteral("--addressed"), file});
    QVERIFY(process.waitForScreen("10 %"));
    process.hangUp();
    QCOMPARE(process.waitForExit(), 0);
    expectImages(unit, 100000);
}

void TestQuadrelctlUnit::finishesWithoutAReader()
{
    SimulatorProcess unit({QStringLiteral("--print-digests")});
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("image"), image(100000, 1));
    Program process;
    tool.start(process,
        {QStringLiteral("upgrade"), unitOption, unit.address(), QStringLiteral("--streamed"), file,
            QStringLiteral("--addressed"), file});
    QVERIFY(process.waitForError(QStringLiteral("10 % sent")));
    process.closeReadChannel(QProcess::StandardOutput);
    process.closeReadChannel(QProcess::StandardError);
    QCOMPARE(process.waitForExit(), 0);
    expectImages(unit, 100000);
}

void TestQuadrelctlUnit::tellsABrokenUpgrade()
{
    const SimulatorProcess unit({QStringLiteral("--fault"), QStringLiteral("close@20")});
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("image"), image(100000, 1));
    const ToolResult result = tool.run({QStringLiteral("upgrade"), unitOption, unit.address(),
        QStringLiteral("--streamed"), file, QStringLiteral("--addressed"), file});
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.errors.contains(
        unit.address() + QStringLiteral(" closed the connection without an answer\n")));
    QVERIFY(result.errors.contains(QStringLiteral("The unit may hold half an image.")));
}

void TestQuadrelctlUnit::tellsAnInterruptedUpgrade()
{
    // The unit falls silent in the middle of the first image.
    const SimulatorProcess unit({QStringLiteral("--fault"), QStringLiteral("drop@30")});
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("image"), image(80000, 1));
    Program process;
    tool.start(process,
        {QStringLiteral("upgrade"), unitOption, unit.address(), QStringLiteral("--streamed"), file,
            QStringLiteral("--addressed"), file});
    QVERIFY(process.waitForError(QStringLiteral("30 % sent")));
    QVERIFY(process.sendSignal(SIGINT));
    QCOMPARE(process.waitForExit(), 130);
    QVERIFY2(
        process.errors().contains(QStringLiteral("interrupted\nThe unit may hold half an image.")),
        qPrintable(process.errors()));
}

void TestQuadrelctlUnit::tellsAUnitThatStaysAway()
{
    const SimulatorProcess unit({QStringLiteral("--reset-time"), QStringLiteral("600000")});
    ControlTool tool("[Communication]\ntimeout=60000\n[Upgrade]\ntimeout=1500\n");
    const QString file = tool.write(QStringLiteral("image"), image(100, 1));
    const ToolResult result = tool.run({QStringLiteral("upgrade"), unitOption, unit.address(),
        QStringLiteral("--streamed"), file, QStringLiteral("--addressed"), file});
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.errors.contains(QStringLiteral("has not come back within 1500 ms")));
}

void TestQuadrelctlUnit::writesTheRemark()
{
    ControlTool tool;
    const QString memory = tool.path(QStringLiteral("memory"));
    const SimulatorProcess unit({QStringLiteral("--memory"), memory});
    const QByteArray remark = image(90, 1);
    const QString file = tool.write(QStringLiteral("image"), remark + image(200, 2));
    const ToolResult result = tool.run(
        {QStringLiteral("remark"), unitOption, unit.address(), QStringLiteral("--streamed"), file});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
    // The unit saves its memory a moment later, sixteen bytes to a line.
    QByteArray lines;
    for (int offset = 0; offset < remark.size(); offset += 16)
        lines += "182010" + QByteArray::number(offset, 16).rightJustified(2, '0') + ": "
            + remark.mid(offset, 16).leftJustified(16, '\0').toHex(' ') + '\n';
    TRY_VERIFY(ControlTool::contentsOf(memory).contains(lines));

    const ToolResult refused = tool.run({QStringLiteral("remark"), unitOption, unit.address(),
        QStringLiteral("--streamed"), tool.path(QStringLiteral("missing"))});
    QCOMPARE(refused.exitCode, 1);
}

QTEST_GUILESS_MAIN(TestQuadrelctlUnit)
#include "tst_quadrelctlunit.moc"
