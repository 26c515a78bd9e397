// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal; not installed.
#pragma once

#include "framecutter.h"

#include <optional>

/** Cuts what arrives from a unit into reply frames. */
class ReplyReader {
public:
    enum Fault {
        NoFault,
        NotAFrame, ///< wrong magic, no reply, or a length that no frame has
        WrongChecksum
    };

    /** Takes bytes of a stream in; frames may come in pieces or several at a time. */
    void append(const char* bytes, int size);
    /** Takes a datagram in, which has to hold exactly one frame. */
    void appendDatagram(const char* bytes, int size);

    /**
     * The next complete frame; nothing while one is incomplete, and never again after a fault. The
     * view is good until more is taken in.
     */
    std::optional<QuadrelFrame::FrameView> takeFrame() { return m_cutter.next(); }

    Fault fault() const;
    /** Whether some bytes of a frame, but not all, have come in. */
    bool isMidFrame() const { return m_cutter.pending().size() > 0; }

private:
    QuadrelFrame::FrameCutter m_cutter{QuadrelFrame::FrameCutter::Direction::Replies};
    bool m_isWrongSize = false;
};
