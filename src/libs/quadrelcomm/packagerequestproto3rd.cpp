// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "packagerequestproto3rd.h"

#include <utility>

PackageRequestProto3rd::PackageRequestProto3rd(QByteArray frame)
    : m_frame(std::move(frame))
{
}

QByteArray PackageRequestProto3rd::ParseSendRequest() const
{
    return m_frame;
}
