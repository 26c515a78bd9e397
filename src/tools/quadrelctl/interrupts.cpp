// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "interrupts.h"

#include "tool.h"

#include <unitwork.h>

#include <atomic>
#include <cerrno>
#include <csignal>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace {

int wakeDescriptor = -1;
std::atomic<bool> wasInterrupted{false};
std::atomic<QuadrelWorkspace::UnitWork*> watched{nullptr};

void handleInterrupt(int)
{
    const int keptErrno = errno;
    wasInterrupted = true;
    const eventfd_t count = 1;
    [[maybe_unused]] const ssize_t written = write(wakeDescriptor, &count, sizeof(count));
    if (QuadrelWorkspace::UnitWork* const work = watched)
        work->abort();
    errno = keptErrno;
}

void installHandler()
{
    wakeDescriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (wakeDescriptor < 0)
        throw CommandFailure{
            Tool::tr("interrupts can't be watched: %1").arg(qt_error_string(errno))};
    struct sigaction action = {};
    action.sa_handler = handleInterrupt;
    action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

} // namespace

void Interrupts::watch(QuadrelWorkspace::UnitWork* work)
{
    if (wakeDescriptor < 0)
        installHandler();
    watched = work;
}

bool Interrupts::arePending()
{
    return wasInterrupted;
}

void Interrupts::throwIfPending()
{
    if (wasInterrupted)
        throw CommandFailure{Tool::tr("interrupted"), Interrupted};
}

void Interrupts::awaitInput(int descriptor)
{
    if (wakeDescriptor < 0)
        return;
    pollfd waited[] = {{wakeDescriptor, POLLIN, 0}, {descriptor, POLLIN, 0}};
    while (poll(waited, 2, -1) < 0 && errno == EINTR)
        throwIfPending();
    throwIfPending();
}
