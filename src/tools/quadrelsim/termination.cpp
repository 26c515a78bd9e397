// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "termination.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// A signal handler may do little more than write: the event loop hears it at the other end.
int signalSockets[2];

void tellEventLoop(int /*signal*/)
{
    const int errorBefore = errno;
    const char byte = 1;
    const ssize_t written = write(signalSockets[0], &byte, sizeof(byte));
    static_cast<void>(written);
    errno = errorBefore;
}

} // namespace

void quitOnTermination()
{
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, signalSockets) != 0)
        return;
    auto* notifier =
        new QSocketNotifier(signalSockets[1], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, QCoreApplication::instance(),
        &QCoreApplication::quit);

    struct sigaction action = {};
    action.sa_handler = tellEventLoop;
    action.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
}
