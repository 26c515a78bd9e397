// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <system_error>

#include <sys/resource.h>
#include <unistd.h>

/** As long as it lives, this program can open nothing more. */
class WithoutDescriptors {
public:
    WithoutDescriptors()
    {
        // The sanitizer needs a descriptor to check an object of a type that it has not met before.
        try {
            throw std::system_error(std::error_code());
        } catch (const std::system_error& known) {
            m_known = known.code();
        }
        getrlimit(RLIMIT_NOFILE, &m_before);
        // Not 0: the event loop asks for what is open already.
        const int lowestFree = dup(STDERR_FILENO);
        close(lowestFree);
        const rlimit none = {static_cast<rlim_t>(lowestFree), m_before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &none);
    }
    ~WithoutDescriptors() { setrlimit(RLIMIT_NOFILE, &m_before); }
    WithoutDescriptors(const WithoutDescriptors&) = delete;
    WithoutDescriptors& operator=(const WithoutDescriptors&) = delete;

private:
    std::error_code m_known;
    rlimit m_before = {};
};
