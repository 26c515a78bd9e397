// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "patience.h"
#include "program.h"

#include <csignal>

#include <unistd.h>

namespace {

volatile std::sig_atomic_t signalsOfThisTest = 0;

void countSignal(int /*signal*/)
{
    signalsOfThisTest = signalsOfThisTest + 1;
}

const QString shell = QStringLiteral("/bin/sh");

QStringList script(const char* text)
{
    return {QStringLiteral("-c"), QString::fromLatin1(text)};
}

} // namespace

class TestProgram : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void signalsNobodyInsteadOfAProgramThatDoesNotRun();
    void signalsTheProgram();
    void endsWithTheObject();
    void reportsHowItEnded_data();
    void reportsHowItEnded();
    void findsALineAmongOthers();
    void keepsAllErrors();
    void showsWhatWasTypedOnATerminal();
};

void TestProgram::initTestCase()
{
    // A signal to the process 0 must reach this test, and nobody else.
    QVERIFY(setpgid(0, 0) == 0 || getpgrp() == getpid());
    std::signal(SIGUSR1, countSignal);
}

void TestProgram::signalsNobodyInsteadOfAProgramThatDoesNotRun()
{
    Program missing;
    QVERIFY(!missing.launch(QStringLiteral("/nowhere/program"), {}));
    QVERIFY(!missing.sendSignal(SIGUSR1));
    QCOMPARE(missing.stop(SIGUSR1), -1);
    QCOMPARE(missing.waitForExit(), -1);

    Program ended;
    QVERIFY(ended.launch(shell, script("exit 0")));
    QCOMPARE(ended.waitForExit(), 0);
    QVERIFY(!ended.sendSignal(SIGUSR1));

    Program neverStarted;
    QVERIFY(!neverStarted.sendSignal(SIGUSR1));
    QCOMPARE(int(signalsOfThisTest), 0);
}

void TestProgram::signalsTheProgram()
{
    Program program;
    QVERIFY(program.launch(
        shell, script("trap 'exit 7' USR1; echo ready; while :; do sleep 0.01; done")));
    QCOMPARE(program.waitForLine("ready"), QByteArray("ready"));
    QCOMPARE(program.stop(SIGUSR1), 7);
    QCOMPARE(int(signalsOfThisTest), 0);
}

void TestProgram::endsWithTheObject()
{
    pid_t id = 0;
    {
        Program program;
        QVERIFY(program.launch(
            shell, script("trap '' TERM; echo ready; while :; do sleep 0.01; done")));
        QCOMPARE(program.waitForLine("ready"), QByteArray("ready"));
        id = static_cast<pid_t>(program.processId());
        QCOMPARE(kill(id, 0), 0);
    }
    QCOMPARE(kill(id, 0), -1);
}

void TestProgram::reportsHowItEnded_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("success") << "exit 0" << 0;
    QTest::newRow("failure") << "exit 3" << 3;
    QTest::newRow("killed") << "kill -9 $$" << -1;
}

void TestProgram::reportsHowItEnded()
{
    QFETCH(QString, text);
    QFETCH(int, exitCode);
    Program program;
    QVERIFY(program.launch(shell, {QStringLiteral("-c"), text}));
    QCOMPARE(program.waitForExit(), exitCode);
    QCOMPARE(program.waitForExit(), exitCode);
}

void TestProgram::findsALineAmongOthers()
{
    Program program;
    QVERIFY(program.launch(shell, script("echo one; echo two words; echo three; printf half")));
    QCOMPARE(program.waitForLine("two"), QByteArray("two words"));
    QCOMPARE(program.waitForLine(), QByteArray("three"));
    QVERIFY(program.waitForLine("half").isNull());
    QVERIFY(program.waitForLine("none").isNull());
}

void TestProgram::keepsAllErrors()
{
    Program program;
    QVERIFY(program.launch(shell, script("echo first >&2; read -r line; echo second >&2")));
    QVERIFY(program.waitForError(QStringLiteral("first\n")));
    program.write("go on\n");
    QVERIFY(program.waitForError(QStringLiteral("second\n")));
    QCOMPARE(program.errors(), QStringLiteral("first\nsecond\n"));
    QCOMPARE(program.waitForExit(), 0);
}

void TestProgram::showsWhatWasTypedOnATerminal()
{
    if (!TerminalProgram::isPossible())
        QSKIP("This machine makes no terminals.");
    TerminalProgram program;
    QVERIFY(program.launch(shell,
        script("test -t 0 && test -t 1 && test -t 2 && echo question; read -r line; echo =$line=; "
               "exit 4")));
    QVERIFY(program.waitForScreen("question"));
    program.type("answer\n");
    QVERIFY(program.waitForScreen("=answer="));
    QCOMPARE(program.waitForEnd(), 4);
    QVERIFY(!program.waitForScreen("more"));

    TerminalProgram interrupted;
    QVERIFY(interrupted.launch(
        shell, script("trap 'exit 5' INT; echo ready; while :; do sleep 0.01; done")));
    QVERIFY(interrupted.waitForScreen("ready"));
    interrupted.type("\x03");
    QCOMPARE(interrupted.waitForEnd(), 5);
}

QTEST_GUILESS_MAIN(TestProgram)
#include "tst_program.moc"
