// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>

#include <algorithm>
#include <cstddef>
#include <cstdint>

/** Hands out the bytes of one input in their order; after the end everything is 0 or empty. */
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size)
        : m_bytes(reinterpret_cast<const char*>(data), static_cast<int>(size))
    {
    }

    bool isEmpty() const { return m_position == m_bytes.size(); }

    quint8 byte() { return isEmpty() ? 0 : static_cast<quint8>(m_bytes.at(m_position++)); }
    quint16 word()
    {
        const quint16 low = byte();
        return static_cast<quint16>(low | byte() << 8);
    }
    /** The next bytes, fewer if there are fewer. */
    QByteArray bytes(int size)
    {
        const QByteArray taken = m_bytes.mid(m_position, size);
        m_position += taken.size();
        return taken;
    }
    QByteArray rest() { return bytes(m_bytes.size()); }

private:
    QByteArray m_bytes;
    int m_position = 0;
};
