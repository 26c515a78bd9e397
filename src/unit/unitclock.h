// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>

#include <functional>
#include <optional>

namespace QuadrelUnit {

/**
 * The running clock of a unit: year, month, day, hour, minute and second, a byte of two decimal
 * digits each. Until it is set it shows the local time of this machine.
 */
class UnitClock {
public:
    /** Milliseconds since the Unix epoch; a test puts its own time here. */
    using TimeSource = std::function<qint64()>;

    UnitClock();

    void setTimeSource(TimeSource source) { m_now = std::move(source); }

    /** The six bytes of this moment. */
    QByteArray cell() const;
    /** Sets the clock. Six bytes that are no date and time change nothing: the result is false. */
    bool setCell(const QByteArray& cell);

    /** The most that a clock can be ahead of UTC, or late: 200 years, in milliseconds. */
    static constexpr qint64 largestLead = Q_INT64_C(200) * 366 * 24 * 3600 * 1000;

    /** Milliseconds that the clock is ahead of UTC since it was set; nothing if it never was. */
    std::optional<qint64> ahead() const { return m_ahead; }
    void setAhead(std::optional<qint64> milliseconds) { m_ahead = milliseconds; }

private:
    TimeSource m_now;
    std::optional<qint64> m_ahead;
};

} // namespace QuadrelUnit
