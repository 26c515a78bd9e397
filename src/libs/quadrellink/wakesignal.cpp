// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "wakesignal.h"

#include <cerrno>
#include <system_error>

#include <sys/eventfd.h>
#include <unistd.h>

WakeSignal::WakeSignal()
    : m_descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (m_descriptor < 0)
        throw std::system_error(errno, std::system_category());
}

WakeSignal::~WakeSignal()
{
    close(m_descriptor);
}

void WakeSignal::raise() noexcept
{
    const int keptErrno = errno;
    const eventfd_t count = 1;
    // A full counter is as good: the descriptor is readable then.
    [[maybe_unused]] const ssize_t written = write(m_descriptor, &count, sizeof(count));
    errno = keptErrno;
}

void WakeSignal::clear() noexcept
{
    eventfd_t count = 0;
    [[maybe_unused]] const ssize_t size = read(m_descriptor, &count, sizeof(count));
}
