// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitframereader.h"

#include "framechecksum.h"
#include "quadrelframe.h"
#include "unittexts.h"

namespace QuadrelUnit {

using namespace QuadrelFrame;

namespace {

UnitFrame copyOf(const FrameView& view)
{
    UnitFrame frame;
    frame.kind = view.kind();
    frame.label = view.label();
    frame.address = view.address();
    frame.dataLength = view.dataLength();
    frame.payload = QByteArray(view.payload(), static_cast<int>(view.payloadSize()));
    return frame;
}

/** What is wrong with a frame whose checksum is right, or an empty text. */
QString requestError(const UnitFrame& frame)
{
    if (frame.isReadRequest() && !frame.payload.isEmpty())
        return QStringLiteral("a read request carries %1").arg(bytesText(frame.payload.size()));
    if (frame.isWriteRequest() && frame.payload.size() != frame.dataLength)
        return QStringLiteral("a write request of %1 carries %2")
            .arg(bytesText(frame.dataLength))
            .arg(frame.payload.size());
    return QString();
}

QString checksumError(const FrameView& frame)
{
    const int checkedSize = headSize + static_cast<int>(frame.payloadSize());
    return QStringLiteral("the CRC is 0x%1 and should be 0x%2")
        .arg(littleEndian16(frame.bytes() + checkedSize), 4, 16, QLatin1Char('0'))
        .arg(checksum(frame.bytes(), checkedSize), 4, 16, QLatin1Char('0'));
}

} // namespace

UnitFrameReader::UnitFrameReader(Direction direction)
    : m_cutter(
        direction == Requests ? FrameCutter::Direction::Requests : FrameCutter::Direction::Replies)
{
}

void UnitFrameReader::feed(const QByteArray& bytes)
{
    m_cutter.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

std::optional<UnitFrame> UnitFrameReader::next()
{
    if (isBroken())
        return std::nullopt;
    const std::optional<FrameView> view = m_cutter.next();
    if (!view) {
        m_error = cutterError();
        return std::nullopt;
    }
    const UnitFrame frame = copyOf(*view);
    m_error = requestError(frame);
    if (isBroken())
        return std::nullopt;
    return frame;
}

QString UnitFrameReader::cutterError() const
{
    const FrameView rest = m_cutter.pending();
    switch (m_cutter.fault()) {
    case FrameCutter::Fault::None:
        return QString();
    case FrameCutter::Fault::NoMagic:
        return QStringLiteral("the bytes do not begin as a frame does");
    case FrameCutter::Fault::UnknownKind:
        return QStringLiteral("unknown kind of frame 0x%1")
            .arg(rest.kind(), 2, 16, QLatin1Char('0'));
    case FrameCutter::Fault::PayloadTooLong:
        return QStringLiteral("a payload of %1 bytes is over the limit of %2")
            .arg(rest.payloadSize())
            .arg(maximumPayload);
    case FrameCutter::Fault::WrongChecksum:
        return checksumError(rest);
    }
    return QString();
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
        *error = QStringLiteral("the frame ends after %1").arg(bytesText(bytes.size()));
        return std::nullopt;
    }
    if (reader.pendingBytes() > 0) {
        *error =
            QStringLiteral("the frame is followed by %1").arg(bytesText(reader.pendingBytes()));
        return std::nullopt;
    }
    return frame;
}

} // namespace QuadrelUnit
