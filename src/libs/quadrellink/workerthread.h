// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal; not installed.
#pragma once

#include <thread>
#include <utility>

#include <csignal>

/**
 * Starts a thread that takes no signals of the system: those are for the program's own threads.
 * Throws std::system_error if there can be no thread.
 */
template <typename Run> std::thread startWorkerThread(Run run)
{
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    std::thread thread;
    try {
        thread = std::thread(std::move(run));
    } catch (...) {
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
        throw;
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return thread;
}
