// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QtEndian>

/** A reply with the given data length field, which may lie about the payload. */
inline QByteArray replyFrame(quint32 dataType, const QByteArray& payload, int dataLength)
{
    // Nobody may read head or trailer for more than what is in them.
    QByteArray frame(12, '\x5A');
    frame.append(6, '\0');
    qToLittleEndian<quint32>(dataType, frame.data() + 12);
    qToLittleEndian<quint16>(static_cast<quint16>(dataLength), frame.data() + 16);
    return frame + payload + QByteArray(2, '\0');
}

/** A reply as a unit sends it. */
inline QByteArray replyFrame(quint32 dataType, const QByteArray& payload)
{
    return replyFrame(dataType, payload, payload.size());
}

/** The bytes filled up with 0 to the size of a slot. */
inline QByteArray slotOf(const QByteArray& bytes, int size = 512)
{
    return bytes + QByteArray(qMax(0, size - bytes.size()), '\0');
}

/** The bytes of hexadecimal text, for tables. */
inline QByteArray hex(const char* text)
{
    return QByteArray::fromHex(text);
}
