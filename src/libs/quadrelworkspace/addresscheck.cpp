// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "addresscheck.h"

#include "workspace.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

#include <algorithm>

namespace QuadrelWorkspace {

namespace {

quint32 toNumber(const QString& address)
{
    quint32 number = 0;
    const QStringList parts = address.split(QLatin1Char('.'));
    for (const QString& part : parts)
        number = number << 8 | part.toUInt();
    return number;
}

} // namespace

bool isIpv4Text(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("^(0|[1-9][0-9]{0,2})\\z"));
    const QStringList parts = text.split(QLatin1Char('.'));
    return parts.size() == 4 && std::all_of(parts.begin(), parts.end(), [](const QString& part) {
        return number.match(part).hasMatch() && part.toInt() <= 255;
    });
}

QString networkFault(const QString& ipText, const QString& maskText, const QString& gatewayText)
{
    const quint32 ip = toNumber(ipText);
    const quint32 mask = toNumber(maskText);
    const quint32 gateway = toNumber(gatewayText);
    const quint32 hostBits = ~mask;
    if (mask == 0 || hostBits < 3 || (hostBits & (hostBits + 1)) != 0)
        return Workspace::tr("%1 is not a subnet mask for a unit").arg(maskText);
    if (ip >> 28 >= 0xE || ip >> 24 == 0)
        return Workspace::tr("%1 is not an address for a unit").arg(ipText);
    if ((ip & hostBits) == 0 || (ip & hostBits) == hostBits)
        return Workspace::tr("%1 is the network or the broadcast address of its subnet")
            .arg(ipText);
    if (gateway != 0 && ((gateway ^ ip) & mask) != 0)
        return Workspace::tr("the gateway %1 is not in the subnet of %2").arg(gatewayText, ipText);
    return QString();
}

} // namespace QuadrelWorkspace
