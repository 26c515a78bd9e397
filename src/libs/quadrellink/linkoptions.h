// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "framelog.h"

#include <memory>

/** How a transport or a session treats time and lost datagrams. */
struct LinkOptions {
    /** Three over UDP, none over TCP. */
    static constexpr int usualRetries = -1;

    /**
     * The time limit of one try, in milliseconds: connecting, sending and the reply together. A
     * negative number sets no limit.
     */
    int timeout = 3000;
    /**
     * How often a request is sent again when no reply came. Only reads are repeated, and writes
     * that leave the same on the unit when they are sent twice: the configuration, the events and
     * the triggers with their counts, and the remark. Never repeated: network settings, a reset,
     * the clock, and all of an upgrade.
     */
    int retries = usualRetries;
    /** Where each frame is written down; null for nowhere. Several sessions may share a log. */
    std::shared_ptr<FrameLog> log;
};
