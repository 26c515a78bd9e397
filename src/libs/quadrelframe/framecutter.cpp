// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "framecutter.h"

#include "framechecksum.h"

#include <algorithm>

namespace QuadrelFrame {

FrameCutter::FrameCutter(Direction direction)
    : m_direction(direction)
{
}

void FrameCutter::append(const char* bytes, std::size_t size)
{
    // What is left moves only when more than that has been taken, so that each byte moves once.
    if (m_start > m_bytes.size() / 2) {
        m_bytes.erase(0, m_start);
        m_start = 0;
    }
    m_bytes.append(bytes, size);
}

std::optional<FrameView> FrameCutter::next()
{
    if (m_fault == Fault::None)
        m_fault = faultOfHead();
    const FrameView rest = pending();
    if (m_fault != Fault::None || rest.size() < headSize)
        return std::nullopt;

    const std::size_t checkedSize = headSize + rest.payloadSize();
    if (rest.size() < checkedSize + trailerSize)
        return std::nullopt;
    if (checksum(rest.bytes(), static_cast<int>(checkedSize))
        != littleEndian16(rest.bytes() + checkedSize)) {
        m_fault = Fault::WrongChecksum;
        return std::nullopt;
    }
    m_start += checkedSize + trailerSize;
    return FrameView(rest.bytes(), checkedSize + trailerSize);
}

/** Of the bytes that are there: the rest of something else may never come. */
FrameCutter::Fault FrameCutter::faultOfHead() const
{
    const FrameView rest = pending();
    const std::size_t compared = std::min(rest.size(), sizeof(magic));
    if (!std::equal(magic, magic + compared, rest.bytes()))
        return Fault::NoMagic;
    if (rest.size() > kindOffset && !isExpected(rest.kind()))
        return Fault::UnknownKind;
    if (rest.size() >= addressOffset && rest.payloadSize() > maximumPayload)
        return Fault::PayloadTooLong;
    return Fault::None;
}

bool FrameCutter::isExpected(std::uint8_t kind) const
{
    if (m_direction == Direction::Requests)
        return kind == ReadRequest || kind == WriteRequest;
    return kind == ReadReply || kind == WriteReply;
}

} // namespace QuadrelFrame
