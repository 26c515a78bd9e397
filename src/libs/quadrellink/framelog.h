// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "quadrellink_global.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <chrono>
#include <memory>

/**
 * A log of the frames between sessions and units, for support cases.
 *
 * Each frame is a line of UTF-8: the time in UTC; the unit; ">" for a request, "<" for a reply that
 * was taken, "-" for one that was dropped; the label; "read" or "write"; the address with the name
 * of its place in the unit's memory; the number of bytes; the payload in hexadecimal digits; and
 * for a reply the time since its request was sent:
 *
 *     2026-11-21T17:46:39.120Z tcp://10.0.0.7:3801 > 17 read 0xF0020000 (event count) 1
 *     2026-11-21T17:46:39.122Z tcp://10.0.0.7:3801 < 17 read 0xF0020000 (event count) 1 20 1.874 ms
 *
 * A line that can't be written is lost, and hasFailed() says so. All calls may come from any
 * thread.
 */
class QUADRELLINK_EXPORT FrameLog {
public:
    /** The log of a program without one. */
    static std::shared_ptr<FrameLog> toStandardError();
    /**
     * Appends to the file. One that would outgrow `maximumSize` bytes is renamed to "PATH.1" first,
     * and the one of that name to "PATH.2", up to `keptFiles`; the last is deleted. Null, and the
     * system's reason in `error`, if the file can't be opened.
     */
    static std::shared_ptr<FrameLog> toFile(const QString& path, QString& error,
        qint64 maximumSize = qint64{16} * 1024 * 1024, int keptFiles = 3);

    ~FrameLog();
    FrameLog(const FrameLog&) = delete;
    FrameLog& operator=(const FrameLog&) = delete;

    /** What became of a frame. */
    enum Direction : char { Sent = '>', Received = '<', Dropped = '-' };
    /** Writes down a frame; `duration` is left out where it is negative. */
    void add(const QString& unit, Direction direction, const QByteArray& frame,
        std::chrono::nanoseconds duration = std::chrono::nanoseconds(-1));

    /** Whether a line could not be written, for want of space for example. */
    bool hasFailed() const;

private:
    class Q_DECL_HIDDEN Private;
    explicit FrameLog(std::unique_ptr<Private> d);
    std::unique_ptr<Private> d;
};
