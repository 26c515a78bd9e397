#pragma once

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
    int pendingBytes() const { return m_buffer.size() - m_start; }

    /** The one request that a datagram is; or nothing, and the reason in `error`. */
    static std::optional<UnitFrame> datagram(const QByteArray& bytes, QString* error);

private:
    QString headError() const;
    QString checkError(const UnitFrame& frame) const;
    bool isExpectedKind(quint8 kind) const;

    const char* pending() const { return m_buffer.constData() + m_start; }

    Direction m_direction;
    QByteArray m_buffer;
    /** Where in the buffer the bytes begin that belong to no frame handed out so far. */
    int m_start = 0;
    QString m_error;
};

} // namespace QuadrelUnit
