// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "frameview.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace QuadrelFrame {

/**
 * Cuts a stream of bytes into frames with good checksums.
 *
 * Bytes come in with append() in pieces of any size, frames go out with next(). The first byte that
 * can't belong to a frame breaks the cutter for good: a stream that lost its place has no place to
 * go on from. The time is in proportion to the bytes; the memory is that of what was appended and
 * not yet taken.
 */
class FrameCutter {
public:
    enum class Direction { Requests, Replies };
    enum class Fault {
        None,
        NoMagic,        ///< the bytes don't begin as a frame does
        UnknownKind,    ///< no frame of this direction has this kind
        PayloadTooLong, ///< a length that no frame has
        WrongChecksum
    };

    explicit FrameCutter(Direction direction);

    void append(const char* bytes, std::size_t size);

    /**
     * The next whole frame; nothing while bytes are missing, and never again after a fault. The
     * view is good until the next append().
     */
    std::optional<FrameView> next();

    Fault fault() const { return m_fault; }
    /** Bytes that were appended and belong to no frame handed out; the faulty ones come first. */
    FrameView pending() const { return {m_bytes.data() + m_start, m_bytes.size() - m_start}; }

private:
    Fault faultOfHead() const;
    bool isExpected(std::uint8_t kind) const;

    Direction m_direction;
    std::string m_bytes;
    /** Where the bytes begin that are not handed out. */
    std::size_t m_start = 0;
    Fault m_fault = Fault::None;
};

} // namespace QuadrelFrame
