// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "console.h"

#include <algorithm>
#include <cerrno>
#include <climits>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr int linesASecond = 10;

QByteArray bytesOf(const QString& line)
{
    // A pipe that can be written takes so much at once.
    return line.toUtf8().left(PIPE_BUF - 1) + '\n';
}

bool isReady(int descriptor)
{
    pollfd state = {descriptor, POLLOUT, 0};
    return poll(&state, 1, 0) == 1 && (state.revents & POLLOUT) != 0;
}

void writeAll(int descriptor, const QByteArray& bytes)
{
    int position = 0;
    while (position < bytes.size()) {
        const ssize_t written = write(
            descriptor, bytes.constData() + position, static_cast<size_t>(bytes.size() - position));
        if (written < 0 && errno != EINTR)
            return;
        position += static_cast<int>(std::max<ssize_t>(written, 0));
    }
}

void offer(int descriptor, const QString& line)
{
    if (isReady(descriptor))
        writeAll(descriptor, bytesOf(line));
}

void offerMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text)
{
    offer(STDERR_FILENO, QStringLiteral("quadrelsim: ") + text);
}

} // namespace

void takeFrameworkMessages()
{
    qInstallMessageHandler(&offerMessage);
}

void printLine(const QString& line)
{
    writeAll(STDOUT_FILENO, bytesOf(line));
}

void offerLine(const QString& line)
{
    offer(STDOUT_FILENO, line);
}

void openStandardStreams()
{
    int descriptor = 0;
    do {
        descriptor = open("/dev/null", O_RDWR);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor >= 0)
        close(descriptor);
}

Log::Log()
{
    m_second.setSingleShot(true);
    m_second.setInterval(1000);
    connect(&m_second, &QTimer::timeout, this, &Log::endSecond);
}

Log::~Log()
{
    endSecond();
}

void Log::report(const QString& text)
{
    offer(STDERR_FILENO, QStringLiteral("quadrelsim: ") + text);
}

void Log::tellOfClient(const QString& text)
{
    if (!m_second.isActive())
        m_second.start();
    if (m_toldInSecond < linesASecond) {
        ++m_toldInSecond;
        report(text);
    } else {
        ++m_keptBack;
    }
}

void Log::endSecond()
{
    if (m_keptBack > 0)
        report(QStringLiteral("%1 more like these in this second").arg(m_keptBack));
    m_keptBack = 0;
    m_toldInSecond = 0;
}
