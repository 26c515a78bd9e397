// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <array>
#include <optional>

namespace QuadrelUnit {

/** Four bytes in reading order: a version, or the octets of an address. */
using FourBytes = std::array<quint8, 4>;

/** Four numbers of 0 to 255 joined by dots, or nothing if the text is anything else. */
std::optional<FourBytes> parseFourBytes(const QString& text);
QString fourBytesText(const FourBytes& bytes);

/** The version that follows `version` when a unit counts its upgrades: the last number goes up. */
FourBytes followingVersion(const FourBytes& version);

/** What a unit says about itself, with its factory settings. */
struct UnitSettings {
    quint16 model = 0x7209;
    FourBytes version = {1, 0, 0, 0};
    quint64 serialNumber = 310000001;
    bool dhcp = false;
    FourBytes ip = {192, 168, 1, 100};
    FourBytes mask = {255, 255, 255, 0};
    FourBytes gateway = {192, 168, 1, 1};
    bool linkUp = true;
    quint8 serialPorts = 9;
    quint8 ioLines = 12;
    quint8 relays = 8;
    /** Comes after the information block, not in it. */
    quint8 infraredPorts = 4;

    /** The 13 bytes of the network cell. */
    QByteArray networkCell() const;
    /** The 32 bytes of the information block. */
    QByteArray informationBlock() const;
    /** What an information block says. */
    static UnitSettings fromInformationBlock(const QByteArray& block);
};

} // namespace QuadrelUnit
