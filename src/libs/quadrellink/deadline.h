// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal; not installed.
#pragma once

#include <algorithm>
#include <chrono>
#include <climits>
#include <optional>

/** A point in time until which to wait, or none. */
class Deadline {
public:
    using Clock = std::chrono::steady_clock;

    /** `milliseconds` from now; a negative number has no end. */
    explicit Deadline(int milliseconds)
    {
        if (milliseconds >= 0)
            m_end = Clock::now() + std::chrono::milliseconds(milliseconds);
    }

    bool isEndless() const { return !m_end; }
    bool isOver() const { return m_end && Clock::now() >= *m_end; }

    /** What is left; the longest time there is without an end. */
    Clock::duration left() const
    {
        if (!m_end)
            return Clock::duration::max();
        return std::max(*m_end - Clock::now(), Clock::duration::zero());
    }

    /** What is left for poll(): at least 0, or -1 without an end. */
    int remaining() const
    {
        if (!m_end)
            return -1;
        const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(left()).count();
        return static_cast<int>(std::min<decltype(milliseconds)>(milliseconds, INT_MAX));
    }

    /** The end of the first of so many equal parts of what is left. */
    Deadline share(int parts) const
    {
        Deadline first = *this;
        if (m_end)
            first.m_end = Clock::now() + left() / parts;
        return first;
    }

private:
    std::optional<Clock::time_point> m_end;
};
