// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "replyreader.h"

using namespace QuadrelFrame;

void ReplyReader::append(const char* bytes, int size)
{
    m_cutter.append(bytes, static_cast<std::size_t>(size));
}

void ReplyReader::appendDatagram(const char* bytes, int size)
{
    *this = ReplyReader();
    const FrameView frame(bytes, static_cast<std::size_t>(size));
    m_isWrongSize = size < headSize + trailerSize
        || frame.payloadSize() != static_cast<std::uint32_t>(size - headSize - trailerSize);
    // One that is too short or too long is none, whatever it holds.
    if (!m_isWrongSize)
        append(bytes, size);
}

ReplyReader::Fault ReplyReader::fault() const
{
    if (m_isWrongSize)
        return NotAFrame;
    switch (m_cutter.fault()) {
    case FrameCutter::Fault::None:
        return NoFault;
    case FrameCutter::Fault::WrongChecksum:
        return WrongChecksum;
    default:
        return NotAFrame;
    }
}
