#include "unitframereader.h"

#include "framechecksum.h"
#include "quadrelframe.h"

#include <QtCore/QtEndian>

#include <algorithm>

namespace QuadrelUnit {

using namespace QuadrelFrame;

UnitFrameReader::UnitFrameReader(Direction direction)
    : m_direction(direction)
{
}

void UnitFrameReader::feed(const QByteArray& bytes)
{
    // Moving the rest after each frame would take a time that grows with the square of the bytes.
    if (m_start > m_buffer.size() / 2) {
        m_buffer.remove(0, m_start);
        m_start = 0;
    }
    m_buffer.append(bytes);
}

std::optional<UnitFrame> UnitFrameReader::next()
{
    if (!isBroken())
        m_error = headError();
    if (isBroken() || pendingBytes() < headSize)
        return std::nullopt;

    const char* bytes = pending();
    const int payloadSize =
        static_cast<int>(qFromLittleEndian<quint32>(bytes + payloadLengthOffset));
    if (pendingBytes() < headSize + payloadSize + trailerSize)
        return std::nullopt;

    UnitFrame frame;
    frame.kind = static_cast<quint8>(bytes[kindOffset]);
    frame.label = static_cast<quint8>(bytes[labelOffset]);
    frame.address = qFromLittleEndian<quint32>(bytes + addressOffset);
    frame.dataLength = qFromLittleEndian<quint16>(bytes + dataLengthOffset);
    frame.payload = QByteArray(bytes + payloadOffset, payloadSize);
    m_error = checkError(frame);
    if (isBroken())
        return std::nullopt;

    m_start += headSize + payloadSize + trailerSize;
    return frame;
}

// A bad head is told as soon as its bytes are there: the rest of garbage may never come.
QString UnitFrameReader::headError() const
{
    const char* bytes = pending();
    const int magicSize = std::min(pendingBytes(), static_cast<int>(sizeof(magic)));
    if (!std::equal(magic, magic + magicSize, bytes))
        return QStringLiteral("the bytes do not begin as a frame does");
    if (pendingBytes() <= kindOffset)
        return QString();

    const quint8 kind = static_cast<quint8>(bytes[kindOffset]);
    if (!isExpectedKind(kind))
        return QStringLiteral("unknown kind of frame 0x%1").arg(kind, 2, 16, QLatin1Char('0'));
    if (pendingBytes() < addressOffset)
        return QString();

    const quint32 payloadSize = qFromLittleEndian<quint32>(bytes + payloadLengthOffset);
    if (payloadSize > maximumPayload)
        return QStringLiteral("a payload of %1 bytes is over the limit of %2")
            .arg(payloadSize)
            .arg(maximumPayload);
    return QString();
}

QString UnitFrameReader::checkError(const UnitFrame& frame) const
{
    const int checkedSize = headSize + frame.payload.size();
    const char* bytes = pending();
    const quint16 expected = checksum(bytes, checkedSize);
    const quint16 found = qFromLittleEndian<quint16>(bytes + checkedSize);
    if (found != expected)
        return QStringLiteral("the CRC is 0x%1 and should be 0x%2")
            .arg(found, 4, 16, QLatin1Char('0'))
            .arg(expected, 4, 16, QLatin1Char('0'));
    if (frame.isReadRequest() && !frame.payload.isEmpty())
        return QStringLiteral("a read request carries %1 bytes").arg(frame.payload.size());
    if (frame.isWriteRequest() && frame.payload.size() != frame.dataLength)
        return QStringLiteral("a write request of %1 bytes carries %2")
            .arg(frame.dataLength)
            .arg(frame.payload.size());
    return QString();
}

bool UnitFrameReader::isExpectedKind(quint8 kind) const
{
    if (m_direction == Requests)
        return kind == ReadRequest || kind == WriteRequest;
    return kind == ReadReply || kind == WriteReply;
}

std::optional<UnitFrame> UnitFrameReader::datagram(const QByteArray& bytes, QString* error)
{
    UnitFrameReader reader;
    reader.feed(bytes);
    const std::optional<UnitFrame> frame = reader.next();
    if (reader.isBroken()) {
        *error = reader.error();
        return std::nullopt;
    }
    if (!frame) {
        *error = QStringLiteral("the frame ends after %1 bytes").arg(bytes.size());
        return std::nullopt;
    }
    if (reader.pendingBytes() > 0) {
        *error = QStringLiteral("%1 bytes follow the frame").arg(reader.pendingBytes());
        return std::nullopt;
    }
    return frame;
}

} // namespace QuadrelUnit
