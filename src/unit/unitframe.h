// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMetaType>

namespace QuadrelUnit {

/** One request or reply, taken apart. Its layout in bytes is in docs/frame-format.md. */
struct UnitFrame {
    quint8 kind = 0;
    quint8 label = 0;
    quint32 address = 0;
    /** Bytes asked for in a read request, bytes carried in a write request and a read reply. */
    quint16 dataLength = 0;
    QByteArray payload;
    quint16 reserved = 0;

    static UnitFrame readRequest(quint8 label, quint32 address, quint16 length);
    /** A request that writes `data`, of which no more than 65535 bytes fit. */
    static UnitFrame writeRequest(quint8 label, quint32 address, const QByteArray& data);
    /** The reply to `request`; `data` is what was read, and is left out for a write. */
    static UnitFrame replyTo(const UnitFrame& request, const QByteArray& data = QByteArray());

    bool isReadRequest() const;
    bool isWriteRequest() const;

    /** Chooses the reserved field so that the byte after the payload, the CRC's low one, is
     * `byte`. */
    void steerTrailer(quint8 byte);

    /** The frame as it travels, with its CRC. */
    QByteArray encode() const;
};

} // namespace QuadrelUnit

Q_DECLARE_METATYPE(QuadrelUnit::UnitFrame)
