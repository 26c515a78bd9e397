// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal; not installed.
#pragma once

#include "deadline.h"

#include <chrono>

#include <poll.h>

/**
 * How an operation waits for a reply. Of one thread at a time.
 *
 * To wake a thread on an idle processor takes longer than a whole exchange with a unit on this
 * machine. While replies follow each other fast, the thread therefore stays awake. Where others
 * have work for the processor, it sleeps: they keep it awake, and need it.
 */
class InputWait {
public:
    using Clock = Deadline::Clock;

    /** What ended a wait. */
    struct Events {
        bool isWoken;
        bool hasInput;
    };

    /** Waits on two descriptors, of which the second may be -1, but no longer than `limit`. */
    Events wait(int wake, int socket, Clock::duration limit);

private:
    bool waitAwake(pollfd (&waited)[2], Clock::duration limit);
    void noteInput();

    Clock::time_point m_lastInput;
    /** Until then the thread does not sleep. */
    Clock::time_point m_awakeUntil;
    /** Others had work for the processor while the thread stayed awake for this reply. */
    bool m_isProcessorNeeded = false;
    int m_repliesWhereNeeded = 0;
    /** Replies that the thread still sleeps for. */
    int m_naps = 0;
};
