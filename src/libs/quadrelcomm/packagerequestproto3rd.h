// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>

/** One request on its way to a unit. Objects are made by KVProtocolParser, which keeps them. */
class PackageRequestProto3rd {
public:
    PackageRequestProto3rd() = default;
    explicit PackageRequestProto3rd(QByteArray frame);

    /** The complete frame of the request, ready to be sent. */
    QByteArray ParseSendRequest() const;

private:
    QByteArray m_frame;
};
