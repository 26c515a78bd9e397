// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include <QtCore/QByteArray>

#include <algorithm>
#include <initializer_list>

/**
 * A block on its way to a unit: one slot of 512 zero bytes that is stored into by offset.
 *
 * A store past the end grows the block, with 0 in every byte that nothing was stored to; nothing
 * ever shortens it. Values keep their low bits.
 */
class RecordBlock {
public:
    /** Bytes that one record has on the unit. */
    static constexpr int slotSize = 512;

    RecordBlock()
        : m_bytes(slotSize, '\0')
    {
    }

    void storeByte(int offset, int value) { *room(offset, 1) = static_cast<uchar>(value); }

    /** Stores 16 bits, low byte first. */
    void storeWord(int offset, int value)
    {
        storeBytes(offset, {static_cast<quint8>(value), static_cast<quint8>(value >> 8)});
    }

    void storeBytes(int offset, std::initializer_list<quint8> bytes)
    {
        std::copy(bytes.begin(), bytes.end(), room(offset, static_cast<int>(bytes.size())));
    }

    void storeBytes(int offset, const QByteArray& bytes)
    {
        std::copy(bytes.begin(), bytes.end(), room(offset, bytes.size()));
    }

    QByteArray bytes() const { return m_bytes; }

private:
    /** Where `count` bytes are to be written from `offset` on; valid until the next call. */
    uchar* room(int offset, int count)
    {
        Q_ASSERT(offset >= 0 && count >= 0);
        // A plain resize would leave the new bytes as they come.
        const int missing = offset + count - m_bytes.size();
        if (missing > 0)
            m_bytes.append(missing, '\0');
        return reinterpret_cast<uchar*>(m_bytes.data()) + offset;
    }

    QByteArray m_bytes;
};
