#pragma once

#include <sys/resource.h>

/** As long as it lives, this program can open nothing more. */
class WithoutDescriptors {
public:
    WithoutDescriptors()
    {
        getrlimit(RLIMIT_NOFILE, &m_before);
        const rlimit none = {0, m_before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &none);
    }
    ~WithoutDescriptors() { setrlimit(RLIMIT_NOFILE, &m_before); }
    WithoutDescriptors(const WithoutDescriptors&) = delete;
    WithoutDescriptors& operator=(const WithoutDescriptors&) = delete;

private:
    rlimit m_before = {};
};
