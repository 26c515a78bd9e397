// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "patience.h"
#include "programs.h"

#include <QtCore/QDir>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QtTest>

#include <csignal>

namespace {

const QString unitOption = QStringLiteral("--unit");
const QString yesOption = QStringLiteral("--yes");

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
    void comparesWithTheDescriptor_data();
    void comparesWithTheDescriptor();
    void tellsAUnitThatCameBackUnchanged();
    void refusesBadDescriptors_data();
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
    QTest::newRow("no reply") << QStringLiteral("drop@2")
                              << QStringLiteral("UNIT has not answered the write of network within "
                                                "1000 ms\n");
    QTest::newRow("connection lost") << QStringLiteral("close@2")
                                     << QStringLiteral("UNIT closed the connection without an "
                                                       "answer\n");
}

void TestQuadrelctlUnit::tellsAnUnconfirmedAddress()
{
    QFETCH(QString, fault);
    QFETCH(QString, error);
    const SimulatorProcess unit({QStringLiteral("--fault"), fault});
    ControlTool tool("[Communication]\ntimeout=1000\n");
    const ToolResult result = tool.run(networkArguments(unit) << QStringLiteral("--yes"));
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.errors.startsWith(error.replace(QStringLiteral("UNIT"), unit.address())),
        qPrintable(result.errors));
    QVERIFY2(result.errors.endsWith(
                 QStringLiteral("\nThe unit may have either address; \"quadrelctl discover\" shows "
                                "which.\n")),
        qPrintable(result.errors));
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
    const ToolResult result = tool.run({QStringLiteral("reset"), yesOption, unitOption,
        unit.address(), QStringLiteral("--default-address")});
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
    const ToolResult result = tool.run({QStringLiteral("upgrade"), yesOption, unitOption,
        isUdp ? unit.udpAddress() : unit.address(), QStringLiteral("--streamed"), first,
        QStringLiteral("--addressed"), second});
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(result.output.endsWith(
                 QStringLiteral("The unit is back with version 9.8.7.6; it was 1.0.0.0.\n")),
        qPrintable(result.output));
    QVERIFY(result.errors.contains(QStringLiteral("100 % sent\n")));
    QVERIFY(result.errors.contains(QStringLiteral("waiting until the unit is back\n")));
    QVERIFY(!result.errors.contains(QLatin1Char('\r')));
    const QByteArray addressedLine = unit.waitForLine("image addressed");
    QCOMPARE(addressedLine, digestLine("addressed", image(addressed, 2)));
    QCOMPARE(unit.waitForLine("image streamed"), digestLine("streamed", image(streamed, 1)));
}

void TestQuadrelctlUnit::comparesWithTheDescriptor_data()
{
    QTest::addColumn<QByteArray>("descriptor");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("complaint");
    const QByteArray text =
        "<Update><ModuleID>0x7209</ModuleID><Version>1.0.0.1</Version></Update>";
    const QStringList none;
    const QStringList force{QStringLiteral("--force")};
    QTest::newRow("fits") << text << none << QString();
    QTest::newRow("another model")
        << QByteArray(text).replace("7209", "7210") << none
        << QStringLiteral("the descriptor is for module 0x7210, and the unit is of model 0x7209");
    QTest::newRow("the version that is installed") << QByteArray(text).replace("1.0.0.1",
        "1.0.0.0") << none << QStringLiteral("version 1.0.0.0 is the one that the unit has");
    QTest::newRow("another model by force")
        << QByteArray(text).replace("7209", "7210") << force << QString();
    QTest::newRow("another version than the descriptor says") << QByteArray(text).replace("1.0.0.1",
        "1.0.0.2") << none << QStringLiteral("the unit came back with version 1.0.0.1, and ");
}

void TestQuadrelctlUnit::comparesWithTheDescriptor()
{
    QFETCH(QByteArray, descriptor);
    QFETCH(QStringList, options);
    QFETCH(QString, complaint);
    const SimulatorProcess unit({QStringLiteral("--reset-time"), QStringLiteral("0")});
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("image"), image(100, 1));
    const ToolResult result = tool.run(
        QStringList{QStringLiteral("upgrade"), yesOption, unitOption, unit.address(),
            QStringLiteral("--streamed"), file, QStringLiteral("--addressed"), file,
            QStringLiteral("--descriptor"), tool.write(QStringLiteral("d.xml"), descriptor)}
        + options);
    QVERIFY2(result.errors.contains(complaint), qPrintable(result.errors));
    QCOMPARE(result.exitCode, complaint.isEmpty() ? 0 : 1);
}

void TestQuadrelctlUnit::tellsAUnitThatCameBackUnchanged()
{
    const SimulatorProcess unit({QStringLiteral("--reset-time"), QStringLiteral("0"),
        QStringLiteral("--upgrade-version"), QStringLiteral("1.0.0.0")});
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("image"), image(100, 1));
    const ToolResult result = tool.run({QStringLiteral("upgrade"), yesOption, unitOption,
        unit.address(), QStringLiteral("--streamed"), file, QStringLiteral("--addressed"), file});
    QVERIFY2(result.errors.contains(
                 QStringLiteral("the unit came back unchanged, with version 1.0.0.0")),
        qPrintable(result.errors));
    QCOMPARE(result.exitCode, 1);
}

void TestQuadrelctlUnit::refusesBadDescriptors_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("reason");
    QTest::newRow("an empty element")
        << QByteArray("<Update/>") << QStringLiteral("the descriptor is empty");
    QTest::newRow("blanks alone") << QByteArray("<Update>\n</Update>\n")
                                  << QStringLiteral("the descriptor is empty");
    QTest::newRow("too deep") << QByteArray("<a>").repeated(20000)
                              << QStringLiteral("The XML is nested too deeply!");
    QTest::newRow("two roots") << QByteArray("<Update/><Update/>")
                               << QStringLiteral("unexpected character");
    QTest::newRow("cut off") << QByteArray("<Update>") << QStringLiteral("unexpected end of file");
}

void TestQuadrelctlUnit::refusesBadDescriptors()
{
    QFETCH(QByteArray, contents);
    QFETCH(QString, reason);
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("image"), image(100, 1));
    const QString descriptor = tool.write(QStringLiteral("d.xml"), contents);
    const ToolResult result = tool.run({QStringLiteral("upgrade"), yesOption, unitOption,
        QStringLiteral("tcp://127.0.0.1:1"), QStringLiteral("--streamed"), file,
        QStringLiteral("--addressed"), file, QStringLiteral("--descriptor"), descriptor});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.errors, QStringLiteral("%1: %2\n").arg(descriptor, reason));
}

void TestQuadrelctlUnit::refusesBadImages_data()
{
    QTest::addColumn<QString>("streamed");
    QTest::addColumn<QString>("addressed");
    QTest::addColumn<QString>("reason");
    const QString good = QStringLiteral("good");
    const auto row = [&good](const char* file, const char* reason) {
        const QString name = QString::fromLatin1(file);
        QTest::newRow(qPrintable(name + QStringLiteral(", streamed")))
            << name << good << QString::fromLatin1(reason);
        QTest::newRow(qPrintable(name + QStringLiteral(", addressed")))
            << good << name << QString::fromLatin1(reason);
    };
    row("missing", "No such file or directory");
    row(".", "not a regular file");
    row("/dev/zero", "not a regular file");
    const char* nothingSent = "\nNothing was sent; --force sends them nevertheless.";
    row("empty", qPrintable(QStringLiteral("the file is empty, and not an image") + nothingSent));
    row("xml", qPrintable(QStringLiteral("this is XML, and not an image") + nothingSent));
    row("text", qPrintable(QStringLiteral("this is text, and not an image") + nothingSent));
}

void TestQuadrelctlUnit::refusesBadImages()
{
    QFETCH(QString, streamed);
    QFETCH(QString, addressed);
    QFETCH(QString, reason);
    ControlTool tool;
    tool.write(QStringLiteral("good"), image(100, 1));
    tool.write(QStringLiteral("empty"), QByteArray());
    tool.write(QStringLiteral("xml"), "<?xml version=\"1.0\"?><Update/>\n");
    tool.write(QStringLiteral("text"), "Once upon a time there was a unit.\n");
    const QDir folder(tool.path(QString()));
    const QString first = folder.absoluteFilePath(streamed);
    const QString second = folder.absoluteFilePath(addressed);
    // There is no unit: its refusal would be the error if anything were sent.
    const ToolResult result = tool.run(
        {QStringLiteral("upgrade"), yesOption, unitOption, QStringLiteral("tcp://127.0.0.1:1"),
            QStringLiteral("--streamed"), first, QStringLiteral("--addressed"), second});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.errors,
        QStringLiteral("%1: %2\n")
            .arg(streamed == QStringLiteral("good") ? second : first, reason));
}

void TestQuadrelctlUnit::showsABarOnATerminal()
{
    if (!TerminalProgram::isPossible())
        QSKIP("this machine makes no terminals");
    const SimulatorProcess unit({QStringLiteral("--reset-time"), QStringLiteral("0")});
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("image"), image(100000, 1));
    const ToolResult result = tool.runOnTerminal({QStringLiteral("upgrade"), yesOption, unitOption,
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
        {QStringLiteral("upgrade"), yesOption, unitOption, unit.address(),
            QStringLiteral("--streamed"), file, QStringLiteral("--addressed"), file},
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
        {QStringLiteral("upgrade"), yesOption, unitOption, unit.address(),
            QStringLiteral("--streamed"), file, QStringLiteral("--addressed"), file});
    QVERIFY(process.waitForScreen(" %"));
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
        {QStringLiteral("upgrade"), yesOption, unitOption, unit.address(),
            QStringLiteral("--streamed"), file, QStringLiteral("--addressed"), file});
    QVERIFY(process.waitForError(QStringLiteral("% sent")));
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
    const ToolResult result = tool.run({QStringLiteral("upgrade"), yesOption, unitOption,
        unit.address(), QStringLiteral("--streamed"), file, QStringLiteral("--addressed"), file});
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.errors.contains(
        unit.address() + QStringLiteral(" closed the connection without an answer\n")));
    QVERIFY2(result.errors.contains(QStringLiteral("\nfailed while writing ")),
        qPrintable(result.errors));
    QVERIFY2(result.errors.endsWith(
                 QStringLiteral("\nthe unit may hold half an image\n"
                                "run the upgrade again, without switching the unit off\n")),
        qPrintable(result.errors));
}

void TestQuadrelctlUnit::tellsAnInterruptedUpgrade()
{
    // The unit falls silent in the middle of the first image.
    const SimulatorProcess unit({QStringLiteral("--fault"), QStringLiteral("drop@30")});
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("image"), image(80000, 1));
    Program process;
    tool.start(process,
        {QStringLiteral("upgrade"), yesOption, unitOption, unit.address(),
            QStringLiteral("--streamed"), file, QStringLiteral("--addressed"), file});
    QVERIFY(process.waitForError(QStringLiteral("20 % sent")));
    QVERIFY(process.sendSignal(SIGINT));
    QCOMPARE(process.waitForExit(), 130);
    const QString errors = process.errors();
    QVERIFY2(errors.contains(QStringLiteral("\ninterrupted\n")), qPrintable(errors));
    QVERIFY2(
        errors.contains(QStringLiteral("\nthe unit may hold half an image\n")), qPrintable(errors));
}

void TestQuadrelctlUnit::tellsAUnitThatStaysAway()
{
    const SimulatorProcess unit({QStringLiteral("--reset-time"), QStringLiteral("600000")});
    ControlTool tool("[Communication]\ntimeout=60000\n[Upgrade]\ntimeout=1500\n");
    const QString file = tool.write(QStringLiteral("image"), image(100, 1));
    const ToolResult result = tool.run({QStringLiteral("upgrade"), yesOption, unitOption,
        unit.address(), QStringLiteral("--streamed"), file, QStringLiteral("--addressed"), file});
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.errors.contains(QStringLiteral("the unit has not come back within 1.5 s")));
}

void TestQuadrelctlUnit::writesTheRemark()
{
    ControlTool tool;
    const QString memory = tool.path(QStringLiteral("memory"));
    const SimulatorProcess unit({QStringLiteral("--memory"), memory});
    const QByteArray remark = image(90, 1);
    const QString file = tool.write(QStringLiteral("image"), remark + image(200, 2));
    const ToolResult result = tool.run({QStringLiteral("remark"), yesOption, unitOption,
        unit.address(), QStringLiteral("--streamed"), file});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
    // The unit saves its memory a moment later, sixteen bytes to a line.
    QByteArray lines;
    for (int offset = 0; offset < remark.size(); offset += 16)
        lines += "182010" + QByteArray::number(offset, 16).rightJustified(2, '0') + ": "
            + remark.mid(offset, 16).leftJustified(16, '\0').toHex(' ') + '\n';
    TRY_VERIFY(ControlTool::contentsOf(memory).contains(lines));

    const ToolResult refused = tool.run({QStringLiteral("remark"), yesOption, unitOption,
        unit.address(), QStringLiteral("--streamed"), tool.path(QStringLiteral("missing"))});
    QCOMPARE(refused.exitCode, 1);
}

QTEST_GUILESS_MAIN(TestQuadrelctlUnit)
#include "tst_quadrelctlunit.moc"
