// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal; not installed.
#pragma once

#include "frameview.h"
#include "memorymap.h"

#include <QtCore/QByteArray>

#include <cstdint>

/** A request, and what its reply must look like. */
class Exchange {
public:
    enum class Verdict {
        Answer,      ///< the reply to the request
        Foreign,     ///< a late or repeated reply, to something else
        WrongLength, ///< a reply to the request with another number of bytes than it asked for
    };

    Exchange() = default;
    /** Of a whole frame. */
    explicit Exchange(const QByteArray& frame)
        : m_frame(frame)
    {
    }

    const QByteArray& frame() const { return m_frame; }
    QuadrelFrame::FrameView view() const
    {
        return {m_frame.constData(), static_cast<std::size_t>(m_frame.size())};
    }
    bool isRead() const { return view().kind() == QuadrelFrame::ReadRequest; }

    /** Whether the unit is the same after the request has reached it twice. */
    bool mayRepeat() const { return isRead() || QuadrelFrame::mayRepeatWrite(view().address()); }

    Verdict judge(const QuadrelFrame::FrameView& reply) const
    {
        const QuadrelFrame::FrameView request = view();
        const auto kind = isRead() ? QuadrelFrame::ReadReply : QuadrelFrame::WriteReply;
        if (reply.label() != request.label() || reply.kind() != kind
            || reply.address() != request.address())
            return Verdict::Foreign;
        const std::uint16_t asked = isRead() ? request.dataLength() : 0;
        const bool fits = reply.payloadSize() == asked && reply.dataLength() == asked;
        return fits ? Verdict::Answer : Verdict::WrongLength;
    }

private:
    QByteArray m_frame;
};
