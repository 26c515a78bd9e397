// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QString>

/**
 * A unit's reply, read without ever leaving its bounds: what lies past the end reads as 0.
 *
 * | Offset | Width | Field |
 * |---|---|---|
 * | 0 | 12 | head, of no interest here |
 * | 12 | 4 | data type: the address of the block, as two 16-bit halves, the low half first |
 * | 16 | 2 | data length: payload bytes that were asked for |
 * | 18 | data length | payload, the block |
 * | 18 + data length | 2 | trailer, never verified |
 *
 * Integers are little-endian. All offsets given to the readers count from the payload.
 */
class ReplyFrame {
public:
    static constexpr int payloadOffset = 18;

    /** Why a reply is not the answer to a request; in the order of the tests. */
    enum class Fault { None, TooShort, OtherDataType, OtherDataLength };

    /** A view of the bytes, which the caller keeps. */
    explicit ReplyFrame(const QByteArray& bytes)
        : m_bytes(reinterpret_cast<const uchar*>(bytes.constData()))
        , m_size(bytes.size())
    {
    }
    explicit ReplyFrame(QByteArray&& bytes) = delete;

    /** Tests size, data type and data length field. The field counts, not the real size. */
    Fault check(quint32 dataType, qint64 dataLength) const;

    /** What a codec says of each fault, marked for translation in its own context. */
    struct FaultTexts {
        const char* tooShort;
        const char* otherDataType;
        const char* otherDataLength;
    };

    /** Tests as check() does; false with the codec's text, translated in its `context`. */
    bool accept(quint32 dataType, qint64 dataLength, const QMetaObject& context,
        const FaultTexts& texts, QString& error) const;

    /** Bytes between head and trailer, whatever the data length field says; negative if too short.
     */
    int payloadSize() const;

    quint8 payloadByte(int offset) const { return byteAt(payloadOffset + offset); }
    quint16 payloadWord(int offset) const { return wordAt(payloadOffset + offset); }
    quint32 payloadDoubleWord(int offset) const;
    quint64 payloadQuadWord(int offset) const;

    /** `count` bytes as pairs of lower-case hexadecimal digits with one blank between the pairs. */
    QString payloadHexText(int offset, int count) const;

private:
    quint8 byteAt(int frameOffset) const { return frameOffset < m_size ? m_bytes[frameOffset] : 0; }
    quint16 wordAt(int frameOffset) const
    {
        return static_cast<quint16>(byteAt(frameOffset) | byteAt(frameOffset + 1) << 8);
    }

    const uchar* const m_bytes;
    const int m_size;
};
