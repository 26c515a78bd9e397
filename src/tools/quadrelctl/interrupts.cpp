#include "interrupts.h"

#include "tool.h"
#include "unitsession.h"

#include <atomic>
#include <cerrno>
#include <csignal>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace {

int wakeDescriptor = -1;
std::atomic<bool> wasInterrupted{false};
std::atomic<UnitSession*> abortedSession{nullptr};

void handleInterrupt(int)
{
    const int keptErrno = errno;
    wasInterrupted = true;
    const eventfd_t count = 1;
    [[maybe_unused]] const ssize_t written = write(wakeDescriptor, &count, sizeof(count));
    if (UnitSession* const session = abortedSession)
        session->abort();
    errno = keptErrno;
}

} // namespace

void Interrupts::watch()
{
    if (wakeDescriptor >= 0)
        return;
    wakeDescriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (wakeDescriptor < 0)
        throw CommandFailure{
            Tool::tr("interrupts can't be watched: %1").arg(qt_error_string(errno))};
    struct sigaction action = {};
    action.sa_handler = handleInterrupt;
    action.sa_flags = SA_RESETHAND | SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

void Interrupts::throwIfAny()
{
    if (wasInterrupted)
        throw CommandFailure{Tool::tr("interrupted"), Interrupted};
}

void Interrupts::awaitInput(int descriptor)
{
    pollfd waited[] = {{wakeDescriptor, POLLIN, 0}, {descriptor, POLLIN, 0}};
    while (poll(waited, 2, -1) < 0 && errno == EINTR)
        throwIfAny();
    throwIfAny();
}

void Interrupts::pause(int milliseconds)
{
    pollfd waited = {wakeDescriptor, POLLIN, 0};
    poll(&waited, 1, milliseconds);
    throwIfAny();
}

void Interrupts::setSession(UnitSession* session)
{
    abortedSession = session;
}
