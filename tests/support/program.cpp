// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "program.h"

#include "patience.h"

#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <unistd.h>

Program::~Program()
{
    if (state() != NotRunning) {
        kill();
        waitForFinished(patience);
    }
}

bool Program::launch(const QString& program, const QStringList& arguments)
{
    m_errors.clear();
    start(program, arguments);
    return waitForStarted(patience);
}

bool Program::sendSignal(int signal)
{
    // The process 0 would be all processes of the group that the test runs in, the caller's shell
    // too.
    const qint64 id = processId();
    return id > 0 && ::kill(static_cast<pid_t>(id), signal) == 0;
}

int Program::waitForExit()
{
    if (state() != NotRunning && !waitForFinished(patience))
        return -1;
    return error() != FailedToStart && exitStatus() == NormalExit ? exitCode() : -1;
}

QByteArray Program::waitForLine(const QByteArray& beginning)
{
    const QDeadlineTimer deadline(patience);
    do {
        while (canReadLine()) {
            const QByteArray line = readLine().trimmed();
            if (line.startsWith(beginning))
                return line;
        }
    } while (!deadline.hasExpired()
        && (waitForReadyRead(static_cast<int>(deadline.remainingTime())) || canReadLine()));
    return {};
}

int Program::stop(int signal)
{
    return sendSignal(signal) ? waitForExit() : -1;
}

QString Program::errors()
{
    m_errors += readAllStandardError();
    return QString::fromUtf8(m_errors);
}

bool Program::waitForError(const QString& text)
{
    return QTest::qWaitFor([&] { return errors().contains(text); }, patience);
}

bool TerminalProgram::isPossible()
{
    int terminal = -1;
    int program = -1;
    if (openpty(&terminal, &program, nullptr, nullptr, nullptr) != 0)
        return false;
    ::close(terminal);
    ::close(program);
    return true;
}

TerminalProgram::TerminalProgram(TerminalSize size, QObject* parent)
    : Program(parent)
{
    winsize window = {};
    window.ws_col = size.columns;
    window.ws_row = size.rows;
    if (openpty(&m_terminal, &m_programsEnd, nullptr, nullptr, &window) != 0)
        qFatal("no terminal: %s", qPrintable(qt_error_string()));
    for (const int descriptor : {m_terminal, m_programsEnd})
        fcntl(descriptor, F_SETFD, FD_CLOEXEC);
}

TerminalProgram::~TerminalProgram()
{
    hangUp();
    if (m_programsEnd >= 0)
        ::close(m_programsEnd);
}

void TerminalProgram::hangUp()
{
    if (m_terminal >= 0)
        ::close(m_terminal);
    m_terminal = -1;
}

void TerminalProgram::setupChildProcess()
{
    // Runs between fork and exec, where nothing can be reported.
    if (setsid() < 0 || ioctl(m_programsEnd, TIOCSCTTY, 0) != 0)
        _exit(126);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(m_programsEnd, stream);
}

void TerminalProgram::type(const QByteArray& keys)
{
    if (::write(m_terminal, keys.constData(), static_cast<size_t>(keys.size())) != keys.size())
        qFatal("cannot type: %s", qPrintable(qt_error_string()));
}

bool TerminalProgram::waitForScreen(const QByteArray& text)
{
    const QDeadlineTimer deadline(patience);
    while (!m_screen.contains(text)) {
        if (!readMore(deadline))
            return false;
    }
    return true;
}

int TerminalProgram::waitForEnd()
{
    const QDeadlineTimer deadline(patience);
    while (readMore(deadline)) { }
    return waitForExit();
}

// The end of the program is the end of what can be read, once this process has the other end no
// more.
bool TerminalProgram::readMore(const QDeadlineTimer& deadline)
{
    if (m_programsEnd >= 0) {
        ::close(m_programsEnd);
        m_programsEnd = -1;
    }
    pollfd terminal = {m_terminal, POLLIN, 0};
    char buffer[4096];
    if (poll(&terminal, 1, static_cast<int>(deadline.remainingTime())) != 1)
        return false;
    const ssize_t size = ::read(m_terminal, buffer, sizeof(buffer));
    if (size <= 0)
        return false;
    m_screen.append(buffer, static_cast<int>(size));
    return true;
}
