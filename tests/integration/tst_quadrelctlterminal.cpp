// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "programs.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QStandardPaths>
#include <QtTest/QtTest>

#include <csignal>

namespace {

const QString unitOption = QStringLiteral("--unit");

/** A document with more lines than a terminal. */
QByteArray longDocument()
{
    QByteArray text = "format: quadrel-unit/1\nevents:\n";
    for (int id = 0; id < 100; ++id)
        text += "  - id: " + QByteArray::number(id) + "\n    delay: 10\n    description: "
            + QByteArray(40, 'x') + ' ' + QByteArray(40, 'y') + "\n";
    return text;
}

} // namespace

/** What is there for people at a terminal: width, colour, pager, questions, completion. */
class TestQuadrelctlTerminal : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void fitsTablesIntoTheTerminal_data();
    void fitsTablesIntoTheTerminal();
    void coloursOnATerminal_data();
    void coloursOnATerminal();
    void pagesLongOutput_data();
    void pagesLongOutput();
    void pagesNothingShort();
    void showsWithoutAPagerThatIsMissing();
    void endsAtAQuestionWhenInterrupted();
    void staysQuiet();
    void offersWords_data();
    void offersWords();
    void completesInTheShells_data();
    void completesInTheShells();
};

void TestQuadrelctlTerminal::initTestCase()
{
    if (!TerminalProgram::isPossible())
        QSKIP("this machine makes no terminals");
}

void TestQuadrelctlTerminal::fitsTablesIntoTheTerminal_data()
{
    QTest::addColumn<int>("columns");
    QTest::newRow("wide") << 200;
    QTest::newRow("usual") << 80;
    QTest::newRow("narrow") << 60;
}

void TestQuadrelctlTerminal::fitsTablesIntoTheTerminal()
{
    QFETCH(int, columns);
    ControlTool tool;
    const QString file = tool.write(QStringLiteral("u.yaml"), longDocument());
    const ToolResult result =
        tool.runOnTerminal({QStringLiteral("show"), file, QStringLiteral("--no-pager")}, {},
            {static_cast<unsigned short>(columns), 24});
    QCOMPARE(result.exitCode, 0);
    static const QRegularExpression sequence(QStringLiteral("\x1b\\[[0-9;]*m"));
    const QStringList lines = QString(result.output).remove(sequence).split(QStringLiteral("\r\n"));
    for (const QString& line : lines)
        QVERIFY2(line.size() <= columns, qPrintable(line));
    QVERIFY(lines.size() > 100);
    // Without a terminal nothing is parted.
    QVERIFY(tool.run({QStringLiteral("show"), file})
                .output.contains(QString(40, QLatin1Char('x')) + QLatin1Char(' ')
                    + QString(40, QLatin1Char('y'))));
}

void TestQuadrelctlTerminal::coloursOnATerminal_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("hasColour");
    QTest::newRow("usual") << QStringLiteral("NO_COLOR") << QString() << true;
    QTest::newRow("NO_COLOR") << QStringLiteral("NO_COLOR") << QStringLiteral("1") << false;
    QTest::newRow("a terminal without")
        << QStringLiteral("TERM") << QStringLiteral("dumb") << false;
}

void TestQuadrelctlTerminal::coloursOnATerminal()
{
    QFETCH(QString, variable);
    QFETCH(QString, value);
    QFETCH(bool, hasColour);
    ControlTool tool;
    const QString before = tool.write(
        QStringLiteral("a.yaml"), "format: quadrel-unit/1\nevents:\n  - {id: 1, delay: 10}\n");
    const QString after = tool.write(
        QStringLiteral("b.yaml"), "format: quadrel-unit/1\nevents:\n  - {id: 2, delay: 10}\n");
    tool.setVariable(variable, value);
    const QStringList arguments{QStringLiteral("diff"), before, after};
    const QString shown = tool.runOnTerminal(arguments).output;
    QCOMPARE(shown.contains(QStringLiteral("\x1b[32m+ events[2]\x1b[0m")), hasColour);
    QCOMPARE(shown.contains(QStringLiteral("\x1b[31m- events[1]\x1b[0m")), hasColour);
    QCOMPARE(shown.contains(QLatin1Char('\x1b')), hasColour);
    const ToolResult plain = tool.run(arguments);
    QVERIFY(!plain.output.contains(QLatin1Char('\x1b')));
    QVERIFY(plain.output.contains(QStringLiteral("+ events[2]\n")));
}

void TestQuadrelctlTerminal::pagesLongOutput_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("isPaged");
    QTest::newRow("usual") << QStringList() << true;
    QTest::newRow("--no-pager") << QStringList{QStringLiteral("--no-pager")} << false;
}

void TestQuadrelctlTerminal::pagesLongOutput()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, isPaged);
    ControlTool tool;
    tool.setVariable(QStringLiteral("PAGER"), QStringLiteral("sed s/^/paged:/"));
    const QString file = tool.write(QStringLiteral("u.yaml"), longDocument());
    const ToolResult result =
        tool.runOnTerminal(QStringList{QStringLiteral("show"), file} + arguments);
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.output.contains(QStringLiteral("paged:")), isPaged);
    QVERIFY(result.output.contains(QStringLiteral("99")));
}

void TestQuadrelctlTerminal::pagesNothingShort()
{
    ControlTool tool;
    tool.setVariable(QStringLiteral("PAGER"), QStringLiteral("sed s/^/paged:/"));
    const QString file =
        tool.write(QStringLiteral("u.yaml"), "format: quadrel-unit/1\nevents: []\n");
    const ToolResult result = tool.runOnTerminal({QStringLiteral("show"), file});
    QVERIFY(!result.output.contains(QStringLiteral("paged:")));
    QVERIFY(result.output.contains(QStringLiteral("(none)")));
}

void TestQuadrelctlTerminal::showsWithoutAPagerThatIsMissing()
{
    ControlTool tool;
    tool.setVariable(QStringLiteral("PAGER"), QStringLiteral("/nowhere/pager"));
    const QString file = tool.write(QStringLiteral("u.yaml"), longDocument());
    const ToolResult result = tool.runOnTerminal({QStringLiteral("show"), file});
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.output.contains(QStringLiteral("EVENTS")));
}

void TestQuadrelctlTerminal::endsAtAQuestionWhenInterrupted()
{
    const SimulatorProcess unit;
    ControlTool tool;
    TerminalProgram process;
    tool.start(process,
        {QStringLiteral("set"), unitOption, unit.address(),
            QStringLiteral("events[8].description=x")});
    QVERIFY(process.waitForScreen("[y/N]"));
    QVERIFY(process.sendSignal(SIGINT));
    QCOMPARE(process.waitForEnd(), 130);
    QVERIFY(process.screen().contains("interrupted"));
}

void TestQuadrelctlTerminal::staysQuiet()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const ToolResult result = tool.runOnTerminal({QStringLiteral("set"), unitOption, unit.address(),
        QStringLiteral("events[8].description=x"), QStringLiteral("--yes"),
        QStringLiteral("--quiet")});
    QCOMPARE(result.exitCode, 0);
    QVERIFY(!result.output.contains(QStringLiteral("reading")));
    QVERIFY(!result.output.contains(QStringLiteral("Written")));
}

void TestQuadrelctlTerminal::offersWords_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("units") << QStringLiteral("units")
                           << QStringList{QStringLiteral("hall"), QStringLiteral("stage")};
    QTest::newRow("sections") << QStringLiteral("sections")
                              << QStringList{QStringLiteral("config"),
                                     QStringLiteral("serialPorts"), QStringLiteral("ioLines"),
                                     QStringLiteral("events"), QStringLiteral("triggers"),
                                     QStringLiteral("timeTriggers")};
    QTest::newRow("paths") << QStringLiteral("paths")
                           << QStringList{QStringLiteral("events[8]"),
                                  QStringLiteral("events[8].name"),
                                  QStringLiteral("events[8].description")};
}

void TestQuadrelctlTerminal::offersWords()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, words);
    ControlTool tool;
    tool.writeSettings("units:\n  stage: tcp://10.0.0.2\n  hall: tcp://10.0.0.1\n");
    const QString file = tool.write(
        QStringLiteral("u.yaml"), "format: quadrel-unit/1\nevents:\n  - {id: 8, delay: 10}\n");
    QStringList arguments{QStringLiteral("complete"), kind};
    if (kind == QStringLiteral("paths"))
        arguments.append(file);
    const ToolResult result = tool.run(arguments);
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts), words);
}

void TestQuadrelctlTerminal::completesInTheShells_data()
{
    QTest::addColumn<QString>("shell");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("offered");
    const auto row = [](const char* line, const char* offered) {
        for (const char* shell : {"bash", "fish"})
            QTest::newRow(
                qPrintable(QStringLiteral("%1: %2").arg(QLatin1String(shell), QLatin1String(line))))
                << QString::fromLatin1(shell) << QString::fromLatin1(line)
                << QString::fromLatin1(offered);
    };
    row("quadrelctl wri", "write");
    row("quadrelctl read --unit h", "hall");
    row("quadrelctl --json read --only time", "timeTriggers");
    row("quadrelctl set u.yaml events[8].n", "events[8].name");
    row("quadrelctl write --unit hall --other", "--other-unit");
}

void TestQuadrelctlTerminal::completesInTheShells()
{
    QFETCH(QString, shell);
    QFETCH(QString, line);
    QFETCH(QString, offered);
    if (QStandardPaths::findExecutable(shell).isEmpty())
        QSKIP("this machine does not have the shell");
    ControlTool tool;
    tool.writeSettings("units:\n  hall: tcp://10.0.0.1\n");
    tool.write(
        QStringLiteral("u.yaml"), "format: quadrel-unit/1\nevents:\n  - {id: 8, delay: 10}\n");
    tool.setVariable(QStringLiteral("PATH"),
        tool.path(QString()) + QLatin1Char(':') + qEnvironmentVariable("PATH"));
    tool.setVariable(QStringLiteral("LINE"), line);
    const QString script = shell == QStringLiteral("bash")
        ? QStringLiteral(
            "compopt() { :; }; . " COMPLETION_DIR "/quadrelctl; read -ra COMP_WORDS <<<"
            "\"$LINE\"; COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _quadrelctl; "
            "printf '%s\\n' \"${COMPREPLY[@]}\"")
        : QStringLiteral("source " COMPLETION_DIR "/quadrelctl.fish; complete -C \"$LINE\"");
    const QStringList words = tool.runShell(shell, script).split(QLatin1Char('\n'));
    QVERIFY2(words.first().section(QLatin1Char('\t'), 0, 0) == offered,
        qPrintable(words.join(QLatin1Char(' '))));
}

QTEST_GUILESS_MAIN(TestQuadrelctlTerminal)
#include "tst_quadrelctlterminal.moc"
