#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <sys/types.h>

struct TerminalSize {
    unsigned short columns = 80;
    unsigned short rows = 24;
};

/** A program on a terminal of its own, which goes with the object; so does the program. */
class TerminalProcess {
public:
    /** Whether this machine makes terminals; a container may not. */
    static bool isPossible();

    /** `environment` is added to that of the test, as in "NAME=value". */
    TerminalProcess(const QString& program, const QStringList& arguments, TerminalSize size = {},
        const QStringList& environment = {});
    ~TerminalProcess();
    TerminalProcess(const TerminalProcess&) = delete;
    TerminalProcess& operator=(const TerminalProcess&) = delete;

    void type(const QByteArray& keys);
    /** Waits until the program has written this; a program that never does ends the test. */
    void waitFor(const QByteArray& text);
    /** Takes the terminal away, as a lost connection does. */
    void hangUp();
    /** Waits for the end: the exit code, or -1 if a signal ended the program. */
    int waitForEnd();

    /** What the program has written so far, results and remarks alike. */
    QByteArray output() const { return m_output; }

private:
    bool readMore();

    pid_t m_child = -1;
    int m_terminal = -1;
    QByteArray m_output;
};
