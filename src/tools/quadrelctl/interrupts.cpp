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
/** After so many the program ends at once. */
constexpr int lastOfRun = 3;

std::atomic<int> interrupts{0};
std::atomic<QuadrelWorkspace::UnitWork*> watched{nullptr};

void handleInterrupt(int)
{
    const int keptErrno = errno;
    ++interrupts;
    const eventfd_t count = 1;
    [[maybe_unused]] const ssize_t written = write(wakeDescriptor, &count, sizeof(count));
    if (QuadrelWorkspace::UnitWork* const work = watched)
        work->abort();
    errno = keptErrno;
}

void handleInterruptOfRun(int signal)
{
    handleInterrupt(signal);
    if (interrupts < lastOfRun)
        return;
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void installHandler(void (*handler)(int), int flags)
{
    if (wakeDescriptor < 0)
        wakeDescriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (wakeDescriptor < 0)
        throw CommandFailure{
            Tool::tr("interrupts can't be watched: %1").arg(qt_error_string(errno))};
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = flags | SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

} // namespace

void Interrupts::watch(QuadrelWorkspace::UnitWork* work)
{
    if (wakeDescriptor < 0)
        installHandler(handleInterrupt, static_cast<int>(SA_RESETHAND));
    watched = work;
}

int Interrupts::watchRun()
{
    installHandler(handleInterruptOfRun, 0);
    return wakeDescriptor;
}

int Interrupts::take()
{
    eventfd_t count = 0;
    [[maybe_unused]] const ssize_t size = read(wakeDescriptor, &count, sizeof(count));
    return interrupts;
}

bool Interrupts::arePending()
{
    return interrupts > 0;
}

void Interrupts::throwIfPending()
{
    if (arePending())
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
