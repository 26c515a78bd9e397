// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "searchresult.h"

#include <QtCore/QRegularExpression>
#include <QtNetwork/QHostAddress>

namespace QuadrelWorkspace {

QMap<QString, serverData> withoutMappedTwins(const QMap<QString, serverData>& found)
{
    QMap<QString, serverData> units;
    for (auto it = found.begin(); it != found.end(); ++it) {
        bool isIpv4 = false;
        const QHostAddress ipv4(QHostAddress(it.key()).toIPv4Address(&isIpv4));
        const QString address = isIpv4 ? ipv4.toString() : it.key();
        if (address != it.key() && found.contains(address))
            continue;
        serverData unit = it.value();
        unit.ip = address;
        units.insert(address, unit);
    }
    return units;
}

UnitAddress addressOf(const serverData& unit)
{
    static const QRegularExpression port(QStringLiteral(";port=(\\d+)(;|$)"));
    const QByteArray reply = unit.data;
    bool isNumber = false;
    const ushort named = port.match(QString::fromUtf8(reply)).captured(1).toUShort(&isNumber);
    UnitAddress address;
    address.host = QString(unit.ip);
    if (isNumber && named != 0)
        address.port = named;
    return address;
}

} // namespace QuadrelWorkspace
