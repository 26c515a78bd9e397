#include "terminal.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QThread>

#include <csignal>
#include <vector>

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int patience = 120000;

std::vector<char*> pointers(std::vector<QByteArray>& words)
{
    std::vector<char*> result;
    for (QByteArray& word : words)
        result.push_back(word.data());
    result.push_back(nullptr);
    return result;
}

} // namespace

bool TerminalProcess::isPossible()
{
    int terminal = -1;
    int program = -1;
    if (openpty(&terminal, &program, nullptr, nullptr, nullptr) != 0)
        return false;
    close(terminal);
    close(program);
    return true;
}

TerminalProcess::TerminalProcess(const QString& program, const QStringList& arguments,
    TerminalSize size, const QStringList& environment)
{
    std::vector<QByteArray> words{program.toLocal8Bit()};
    for (const QString& argument : arguments)
        words.push_back(argument.toLocal8Bit());
    std::vector<QByteArray> variables;
    for (char** variable = environ; *variable; ++variable)
        variables.emplace_back(*variable);
    // Of two variables of one name the first counts.
    for (const QString& variable : environment)
        variables.insert(variables.begin(), variable.toLocal8Bit());
    const std::vector<char*> argv = pointers(words);
    const std::vector<char*> envp = pointers(variables);

    winsize window = {};
    window.ws_col = size.columns;
    window.ws_row = size.rows;
    m_child = forkpty(&m_terminal, nullptr, nullptr, &window);
    if (m_child < 0)
        qFatal("no terminal: %s", qPrintable(qt_error_string()));
    if (m_child == 0) {
        execve(argv.front(), argv.data(), envp.data());
        _exit(127);
    }
}

TerminalProcess::~TerminalProcess()
{
    hangUp();
    if (m_child > 0) {
        kill(m_child, SIGKILL);
        waitpid(m_child, nullptr, 0);
    }
}

void TerminalProcess::type(const QByteArray& keys)
{
    if (write(m_terminal, keys.constData(), static_cast<size_t>(keys.size())) != keys.size())
        qFatal("cannot type: %s", qPrintable(qt_error_string()));
}

/** False at the end of what the program writes. */
bool TerminalProcess::readMore()
{
    pollfd input{m_terminal, POLLIN, 0};
    if (poll(&input, 1, patience) <= 0)
        qFatal("the program neither writes nor ends; so far: %s", m_output.constData());
    char buffer[4096];
    const ssize_t size = read(m_terminal, buffer, sizeof(buffer));
    if (size <= 0)
        return false;
    m_output.append(buffer, static_cast<int>(size));
    return true;
}

void TerminalProcess::waitFor(const QByteArray& text)
{
    while (!m_output.contains(text)) {
        if (!readMore())
            qFatal("the program ends without \"%s\": %s", text.constData(), m_output.constData());
    }
}

void TerminalProcess::hangUp()
{
    if (m_terminal >= 0)
        close(m_terminal);
    m_terminal = -1;
}

int TerminalProcess::waitForEnd()
{
    while (m_terminal >= 0 && readMore()) { }
    int status = 0;
    const QDeadlineTimer deadline(patience);
    while (waitpid(m_child, &status, WNOHANG) == 0) {
        if (deadline.hasExpired())
            qFatal("the program does not end");
        QThread::msleep(5);
    }
    m_child = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
