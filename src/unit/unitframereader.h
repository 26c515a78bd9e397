// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "framecutter.h"
#include "unitframe.h"

#include <QtCore/QString>

#include <optional>

namespace QuadrelUnit {

/**
 * Cuts a stream of bytes into frames.
 *
 * Bytes come in with feed() in pieces of any size, frames go out with next(). The first byte that
 * cannot belong to a frame breaks the reader for good: a stream that lost its place has no place to
 * go on from.
 */
class UnitFrameReader {
public:
    enum Direction { Requests, Replies };

    explicit UnitFrameReader(Direction direction = Requests);

    void feed(const QByteArray& bytes);
    /** The next whole frame, or nothing if bytes are missing or the reader is broken. */
    std::optional<UnitFrame> next();

    bool isBroken() const { return !m_error.isEmpty(); }
    /** Why the reader is broken, or an empty text. */
    QString error() const { return m_error; }
    /** Bytes that were fed and belong to no frame handed out so far. */
    int pendingBytes() const { return static_cast<int>(m_cutter.pending().size()); }

    /** The one request that a datagram is; or nothing, and the reason in `error`. */
    static std::optional<UnitFrame> datagram(const QByteArray& bytes, QString* error);

private:
    QString cutterError() const;

    QuadrelFrame::FrameCutter m_cutter;
    QString m_error;
};

} // namespace QuadrelUnit
