// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "quadrelframe.h"

#include <cstddef>
#include <cstdint>

namespace QuadrelFrame {

inline std::uint16_t littleEndian16(const char* bytes)
{
    const auto* const octets = reinterpret_cast<const unsigned char*>(bytes);
    return static_cast<std::uint16_t>(octets[0] | octets[1] << 8);
}

inline std::uint32_t littleEndian32(const char* bytes)
{
    return littleEndian16(bytes) | static_cast<std::uint32_t>(littleEndian16(bytes + 2)) << 16;
}

/** The fields of a frame that lies elsewhere; of at least headSize bytes. */
class FrameView {
public:
    FrameView(const char* bytes, std::size_t size)
        : m_bytes(bytes)
        , m_size(size)
    {
    }

    const char* bytes() const { return m_bytes; }
    std::size_t size() const { return m_size; }

    std::uint8_t kind() const { return static_cast<std::uint8_t>(m_bytes[kindOffset]); }
    std::uint8_t label() const { return static_cast<std::uint8_t>(m_bytes[labelOffset]); }
    std::uint32_t payloadSize() const { return littleEndian32(m_bytes + payloadLengthOffset); }
    std::uint32_t address() const { return littleEndian32(m_bytes + addressOffset); }
    std::uint16_t dataLength() const { return littleEndian16(m_bytes + dataLengthOffset); }
    const char* payload() const { return m_bytes + payloadOffset; }

private:
    const char* m_bytes;
    std::size_t m_size;
};

} // namespace QuadrelFrame
