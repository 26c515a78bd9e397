// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QStringList>

/**
 * A program that a test starts. Nothing outlives the object, no wait is without an end, and a
 * signal reaches this program or nobody.
 */
class Program : public QProcess {
public:
    explicit Program(QObject* parent = nullptr)
        : QProcess(parent)
    {
    }
    /** Kills the program if it still runs. */
    ~Program() override;

    /** Returns false if it could not be started. */
    [[nodiscard]] bool launch(const QString& program, const QStringList& arguments);

    /** Returns false if the program does not run, and then signals nobody. */
    [[nodiscard]] bool sendSignal(int signal);

    /** The exit code, or -1 if the program was killed or does not end. */
    int waitForExit();

    /** The next line of standard output that begins so, without its end; null if none comes. */
    QByteArray waitForLine(const QByteArray& beginning = {});

    /** Ends the program with a signal; the exit code as of `waitForExit`. */
    int stop(int signal);

    /** All that has come on standard error so far. */
    QString errors();
    bool waitForError(const QString& text);

private:
    // Of a program that still runs it would be a 0 that nobody returned.
    using QProcess::exitCode;

    QByteArray m_errors;
};

struct TerminalSize {
    unsigned short columns = 80;
    unsigned short rows = 24;
};

/**
 * A program on a terminal of its own: it reads there what `type` types, and what it writes, to
 * standard output and error alike, is what the terminal shows.
 */
class TerminalProgram : public Program {
public:
    /** Whether this machine makes terminals; a container may not. */
    static bool isPossible();

    explicit TerminalProgram(TerminalSize size = {}, QObject* parent = nullptr);
    ~TerminalProgram() override;

    void type(const QByteArray& keys);
    /** Reads on until the terminal has shown the text. */
    bool waitForScreen(const QByteArray& text);
    /** Takes the terminal away, as a lost connection does. */
    void hangUp();
    /** Reads on until the program ends; the exit code as of `waitForExit`. */
    int waitForEnd();
    /** All that has been shown so far. */
    QByteArray screen() const { return m_screen; }

protected:
    void setupChildProcess() override;

private:
    bool readMore(const QDeadlineTimer& deadline);

    int m_terminal = -1;
    int m_programsEnd = -1;
    QByteArray m_screen;
};
