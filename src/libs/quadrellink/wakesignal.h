// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal; not installed.
#pragma once

/** A descriptor that wakes a poll() in another thread. */
class WakeSignal {
public:
    /** Throws std::system_error if there is no free descriptor. */
    WakeSignal();
    ~WakeSignal();
    WakeSignal(const WakeSignal&) = delete;
    WakeSignal& operator=(const WakeSignal&) = delete;

    int descriptor() const { return m_descriptor; }
    /** Also from the handler of a signal of the system: keeps errno. */
    void raise() noexcept;
    void clear() noexcept;

private:
    int m_descriptor;
};
