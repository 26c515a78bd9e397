// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitsettings.h"

#include "unitaddresses.h"

#include <QtCore/QStringList>
#include <QtCore/QtEndian>

#include <algorithm>

namespace QuadrelUnit {

namespace {

// Offsets in the information block.
constexpr int modelOffset = 0;
constexpr int versionOffset = 2;
constexpr int serialNumberOffset = 6;
constexpr int networkOffset = 14;
constexpr int linkOffset = 27;
constexpr int serialPortsOffset = 29;
constexpr int ioLinesOffset = 30;
constexpr int relaysOffset = 31;

// Offsets in the network cell.
constexpr int dhcpOffset = 0;
constexpr int ipOffset = 1;
constexpr int maskOffset = 5;
constexpr int gatewayOffset = 9;

quint8 byteAt(const QByteArray& bytes, int offset)
{
    return static_cast<quint8>(bytes.at(offset));
}

// The last octet of an address comes first on the unit.
void putAddress(QByteArray& bytes, int offset, const FourBytes& address)
{
    std::reverse_copy(address.begin(), address.end(), bytes.begin() + offset);
}

FourBytes addressAt(const QByteArray& bytes, int offset)
{
    FourBytes address;
    std::reverse_copy(bytes.begin() + offset, bytes.begin() + offset + 4, address.begin());
    return address;
}

} // namespace

std::optional<FourBytes> parseFourBytes(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char('.'));
    FourBytes bytes;
    if (parts.size() != static_cast<int>(bytes.size()))
        return std::nullopt;
    for (int i = 0; i < parts.size(); ++i) {
        bool isNumber = false;
        const ushort value = parts.at(i).toUShort(&isNumber);
        if (!isNumber || value > 0xFF)
            return std::nullopt;
        bytes.at(static_cast<std::size_t>(i)) = static_cast<quint8>(value);
    }
    return bytes;
}

QString fourBytesText(const FourBytes& bytes)
{
    return QStringLiteral("%1.%2.%3.%4").arg(bytes[0]).arg(bytes[1]).arg(bytes[2]).arg(bytes[3]);
}

FourBytes followingVersion(const FourBytes& version)
{
    FourBytes following;
    qToBigEndian(qFromBigEndian<quint32>(version.data()) + 1, following.data());
    return following;
}

QByteArray UnitSettings::networkCell() const
{
    QByteArray cell(Address::networkLength, '\0');
    cell[dhcpOffset] = dhcp ? 1 : 0;
    putAddress(cell, ipOffset, ip);
    putAddress(cell, maskOffset, mask);
    putAddress(cell, gatewayOffset, gateway);
    return cell;
}

QByteArray UnitSettings::informationBlock() const
{
    QByteArray block(Address::informationLength, '\0');
    qToLittleEndian(model, block.data() + modelOffset);
    std::copy(version.begin(), version.end(), block.begin() + versionOffset);
    qToLittleEndian(serialNumber, block.data() + serialNumberOffset);
    block.replace(networkOffset, Address::networkLength, networkCell());
    block[linkOffset] = linkUp ? 1 : 0;
    block[serialPortsOffset] = static_cast<char>(serialPorts);
    block[ioLinesOffset] = static_cast<char>(ioLines);
    block[relaysOffset] = static_cast<char>(relays);
    return block;
}

UnitSettings UnitSettings::fromInformationBlock(const QByteArray& block)
{
    const QByteArray cell = block.mid(networkOffset, Address::networkLength);
    UnitSettings settings;
    settings.model = qFromLittleEndian<quint16>(block.constData() + modelOffset);
    std::copy_n(block.begin() + versionOffset, settings.version.size(), settings.version.begin());
    settings.serialNumber = qFromLittleEndian<quint64>(block.constData() + serialNumberOffset);
    settings.dhcp = byteAt(cell, dhcpOffset) == 1;
    settings.ip = addressAt(cell, ipOffset);
    settings.mask = addressAt(cell, maskOffset);
    settings.gateway = addressAt(cell, gatewayOffset);
    settings.linkUp = byteAt(block, linkOffset) == 1;
    settings.serialPorts = byteAt(block, serialPortsOffset);
    settings.ioLines = byteAt(block, ioLinesOffset);
    settings.relays = byteAt(block, relaysOffset);
    return settings;
}

} // namespace QuadrelUnit
