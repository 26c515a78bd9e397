// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal; not installed.
#pragma once

#include "deadline.h"

#include <chrono>

#include <poll.h>

/**
 * How the thread that receives waits for a reply. Of that thread alone.
 *
 * To wake a thread on an idle processor takes longer than a whole exchange with a unit on this
 * machine. While replies follow each other fast, the thread therefore stays awake, on the processor
 * of the operation: that one is awake then, too. Where others have work for the processor, it
 * sleeps: they keep it awake, and need it.
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

    /** Moves the thread to the processor on which the operation runs. */
    void follow(int processor);
    /** Nothing is awaited any more: the next wait sleeps. */
    void rest() { m_awakeUntil = {}; }

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
    int m_processor = -1;
};
