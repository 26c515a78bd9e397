// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "kvprotocolparser.h"
#include "recordedrequest.h"

namespace {

PackageRequestProto3rd* keepRequest(const RecordedRequest& recorded)
{
    thread_local PackageRequestProto3rd request;
    request.description = recorded.toFrame();
    return &request;
}

} // namespace

QByteArray PackageRequestProto3rd::ParseSendRequest()
{
    return description;
}

PackageRequestProto3rd* KVProtocolParser::Get_CommonRead(
    unsigned char label, unsigned int address, unsigned int length)
{
    return keepRequest({false, label, address, length, QByteArray(), QString()});
}

PackageRequestProto3rd* KVProtocolParser::Set_CommonWrite(unsigned char label, unsigned int address,
    unsigned int length, QByteArray data, const QString& text)
{
    return keepRequest({true, label, address, length, data, text});
}
