// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

/**
 * The figures of the frame that travels between a tool and a unit.
 *
 * Requests and replies share one layout, all integers little-endian:
 *
 * | Offset | Width | Field |
 * |---|---|---|
 * | 0 | 4 | magic, the bytes of "QDRL" |
 * | 4 | 1 | kind, see Kind |
 * | 5 | 1 | label: a reply repeats that of its request |
 * | 6 | 2 | reserved: 0 in a request, not looked at in a reply |
 * | 8 | 4 | payload length: bytes that follow the head; 0 in a read request and a write reply |
 * | 12 | 4 | address on the unit |
 * | 16 | 2 | data length: bytes asked for, or bytes carried |
 * | 18 | payload length | payload |
 * | 18 + payload length | 2 | CRC-16 of all bytes before it (ISO 3309), see checksum() |
 */
namespace QuadrelFrame {

constexpr char magic[] = {'Q', 'D', 'R', 'L'};

constexpr int magicOffset = 0;
constexpr int kindOffset = 4;
constexpr int labelOffset = 5;
constexpr int reservedOffset = 6;
constexpr int payloadLengthOffset = 8;
constexpr int addressOffset = 12;
constexpr int dataLengthOffset = 16;
constexpr int payloadOffset = 18;

constexpr int headSize = 18;
constexpr int trailerSize = 2;
/** The data length has 16 bits, so no frame that can be answered carries more. */
constexpr std::uint32_t maximumPayload = 0xFFFF;

enum Kind : std::uint8_t {
    ReadRequest = 0x01,
    WriteRequest = 0x02,
    ReadReply = 0x81,
    WriteReply = 0x82
};

} // namespace QuadrelFrame
