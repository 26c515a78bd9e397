// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "kvprotocolparser.h"

#include "framechecksum.h"
#include "quadrelframe.h"

#include <QtCore/QtEndian>

#include <algorithm>

namespace {

using namespace QuadrelFrame;

QByteArray makeFrame(Kind kind, unsigned char label, unsigned int address, unsigned int dataLength,
    const QByteArray& payload)
{
    QByteArray frame(headSize + payload.size() + trailerSize, '\0');
    char* bytes = frame.data();
    std::copy(std::begin(magic), std::end(magic), bytes + magicOffset);
    bytes[kindOffset] = static_cast<char>(kind);
    bytes[labelOffset] = static_cast<char>(label);
    qToLittleEndian<quint32>(static_cast<quint32>(payload.size()), bytes + payloadLengthOffset);
    qToLittleEndian<quint32>(address, bytes + addressOffset);
    qToLittleEndian<quint16>(static_cast<quint16>(dataLength), bytes + dataLengthOffset);
    std::copy(payload.begin(), payload.end(), bytes + payloadOffset);

    const int checkedSize = headSize + payload.size();
    qToLittleEndian<quint16>(checksum(bytes, checkedSize), bytes + checkedSize);
    return frame;
}

PackageRequestProto3rd* keepRequest(QByteArray frame)
{
    thread_local PackageRequestProto3rd request;
    request = PackageRequestProto3rd(std::move(frame));
    return &request;
}

} // namespace

PackageRequestProto3rd* KVProtocolParser::Get_CommonRead(
    unsigned char label, unsigned int address, unsigned int length)
{
    return keepRequest(makeFrame(ReadRequest, label, address, length, QByteArray()));
}

PackageRequestProto3rd* KVProtocolParser::Set_CommonWrite(unsigned char label, unsigned int address,
    unsigned int length, QByteArray data, const QString& /*text*/)
{
    return keepRequest(makeFrame(WriteRequest, label, address, length, data));
}
