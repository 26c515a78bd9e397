// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitframe.h"

#include "framechecksum.h"
#include "quadrelframe.h"

#include <QtCore/QtEndian>

#include <algorithm>

namespace QuadrelUnit {

using namespace QuadrelFrame;

UnitFrame UnitFrame::readRequest(quint8 label, quint32 address, quint16 length)
{
    return {ReadRequest, label, address, length, QByteArray(), 0};
}

UnitFrame UnitFrame::writeRequest(quint8 label, quint32 address, const QByteArray& data)
{
    return {WriteRequest, label, address, static_cast<quint16>(data.size()), data, 0};
}

UnitFrame UnitFrame::replyTo(const UnitFrame& request, const QByteArray& data)
{
    const quint8 kind = request.isReadRequest() ? ReadReply : WriteReply;
    return {kind, request.label, request.address, static_cast<quint16>(data.size()), data, 0};
}

bool UnitFrame::isReadRequest() const
{
    return kind == ReadRequest;
}

bool UnitFrame::isWriteRequest() const
{
    return kind == WriteRequest;
}

void UnitFrame::steerTrailer(quint8 byte)
{
    // All 65536 values of the field give all 65536 checksums, so one of the first few hundred fits.
    const int behindPayload = headSize + payload.size();
    while (static_cast<quint8>(encode().at(behindPayload)) != byte)
        ++reserved;
}

QByteArray UnitFrame::encode() const
{
    const int checkedSize = headSize + payload.size();
    QByteArray frame(checkedSize + trailerSize, '\0');
    char* bytes = frame.data();
    std::copy(std::begin(magic), std::end(magic), bytes + magicOffset);
    bytes[kindOffset] = static_cast<char>(kind);
    bytes[labelOffset] = static_cast<char>(label);
    qToLittleEndian<quint16>(reserved, bytes + reservedOffset);
    qToLittleEndian<quint32>(static_cast<quint32>(payload.size()), bytes + payloadLengthOffset);
    qToLittleEndian<quint32>(address, bytes + addressOffset);
    qToLittleEndian<quint16>(dataLength, bytes + dataLengthOffset);
    std::copy(payload.begin(), payload.end(), bytes + payloadOffset);
    qToLittleEndian<quint16>(checksum(bytes, checkedSize), bytes + checkedSize);
    return frame;
}

} // namespace QuadrelUnit
