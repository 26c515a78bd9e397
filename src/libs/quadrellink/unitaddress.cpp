// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitaddress.h"

#include <QtCore/QUrl>

std::optional<UnitAddress> UnitAddress::fromText(const QString& text)
{
    const bool hasScheme = text.contains(QStringLiteral("://"));
    const QUrl url(hasScheme ? text : QStringLiteral("tcp://") + text, QUrl::StrictMode);
    const bool isUdp = url.scheme() == QStringLiteral("udp");
    if (!url.isValid() || (!isUdp && url.scheme() != QStringLiteral("tcp")))
        return std::nullopt;
    const bool hasMore =
        !url.userInfo().isEmpty() || !url.path().isEmpty() || url.hasQuery() || url.hasFragment();
    const int port = url.port(defaultPort);
    if (url.host().isEmpty() || hasMore || port == 0)
        return std::nullopt;
    return UnitAddress{isUdp ? Udp : Tcp, url.host(), static_cast<std::uint16_t>(port)};
}

QString UnitAddress::toText() const
{
    const QString scheme = protocol == Udp ? QStringLiteral("udp") : QStringLiteral("tcp");
    const bool isIpv6 = host.contains(QLatin1Char(':'));
    const QString authority = isIpv6 ? QStringLiteral("[%1]").arg(host) : host;
    return QStringLiteral("%1://%2:%3").arg(scheme, authority, QString::number(port));
}
