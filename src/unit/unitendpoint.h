// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>
#include <QtNetwork/QHostAddress>

namespace QuadrelUnit {

/** Address and port as one text, an IPv6 address in brackets. */
inline QString endpointText(const QHostAddress& address, quint16 port)
{
    const bool isV6 = address.protocol() == QAbstractSocket::IPv6Protocol;
    return QString(isV6 ? QStringLiteral("[%1]:%2") : QStringLiteral("%1:%2"))
        .arg(address.toString())
        .arg(port);
}

} // namespace QuadrelUnit
