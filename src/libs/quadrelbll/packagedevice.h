// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>

class DeviceModel;
class ReplyFrame;

/**
 * The device information block, by which a unit says what it is, and the two small blocks that go
 * the other way.
 *
 * | Offset | Width | Field | Form |
 * |---|---|---|---|
 * | 0 | 2 | model id | integer |
 * | 2 | 4 | version | decimal numbers, first byte first |
 * | 6 | 8 | serial number | integer |
 * | 14 | 1 | DHCP | 1 or 0 |
 * | 15 | 4 | IP address | least significant octet first |
 * | 19 | 4 | subnet mask | least significant octet first |
 * | 23 | 4 | gateway | least significant octet first |
 * | 27 | 1 | Ethernet link is up | 1 or 0 |
 * | 29 | 1 | serial ports | number |
 * | 30 | 1 | IO lines | number |
 * | 31 | 1 | relays | number |
 * | 32 | 1 | infra-red ports | number, one byte after the 32 that are asked for |
 */
class PackageDevice : public QObject {
    Q_OBJECT

public:
    explicit PackageDevice(QObject* parent = nullptr);

    /**
     * Reads a reply into the device. Its name, pattern and type are not in the block and stay; so
     * do DHCP and link state if their byte is neither 0 nor 1. On a fault the device is left alone
     * and the error is set.
     */
    static bool parseDevicePackage(
        uint dataType, QByteArray package, uint dataLength, DeviceModel& device, QString& error);

    /**
     * The 13 bytes of the network cell: DHCP, address, mask and gateway as at offsets 14 to 26
     * above. Empty if one of the three does not have four items.
     */
    static QByteArray createNetWorkPackage(DeviceModel device);

    /** One byte: whether the unit keeps its address over the reset. */
    static QByteArray createResetPackage(bool retainIP);

private:
};
