// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal; not installed.
#pragma once

#include <mutex>

/** What clang's analysis of thread safety needs to know; nothing for other compilers. */
#if defined(__clang__)
#define LINK_ANNOTATION(x) __attribute__((x))
#else
#define LINK_ANNOTATION(x)
#endif

#define LINK_CAPABILITY(name) LINK_ANNOTATION(capability(name))
#define LINK_SCOPED_CAPABILITY LINK_ANNOTATION(scoped_lockable)
#define LINK_GUARDED_BY(mutex) LINK_ANNOTATION(guarded_by(mutex))
#define LINK_REQUIRES(...) LINK_ANNOTATION(requires_capability(__VA_ARGS__))
#define LINK_EXCLUDES(...) LINK_ANNOTATION(locks_excluded(__VA_ARGS__))
#define LINK_ACQUIRE(...) LINK_ANNOTATION(acquire_capability(__VA_ARGS__))
#define LINK_RELEASE(...) LINK_ANNOTATION(release_capability(__VA_ARGS__))

/** std::mutex, known to the analysis. */
class LINK_CAPABILITY("mutex") LinkMutex {
public:
    void lock() LINK_ACQUIRE() { m_mutex.lock(); }
    void unlock() LINK_RELEASE() { m_mutex.unlock(); }

private:
    std::mutex m_mutex;
};

/** Holds a mutex while it lives. */
class LINK_SCOPED_CAPABILITY LinkLock {
public:
    explicit LinkLock(LinkMutex& mutex) LINK_ACQUIRE(mutex)
        : m_mutex(mutex)
    {
        m_mutex.lock();
    }
    ~LinkLock() LINK_RELEASE() { m_mutex.unlock(); }
    LinkLock(const LinkLock&) = delete;
    LinkLock& operator=(const LinkLock&) = delete;

private:
    LinkMutex& m_mutex;
};
