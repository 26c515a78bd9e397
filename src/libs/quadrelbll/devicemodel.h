// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QObject>
#include <QtCore/QString>

#include "quadrelbll_global.h"

/**
 * The record of one control unit, and the key under which DeviceManagerModel keeps what is known of
 * it.
 *
 * | Field          | Default        | Meaning                                              |
 * |----------------|----------------|------------------------------------------------------|
 * | `ModelID`      | 0x7209         | model code of the unit, 16 bits                      |
 * | `SN`           | 0              | serial number, 64 bits; has no property, see setSN() |
 * | `version`      | empty          | firmware version, four decimals joined by dots       |
 * | `DHCP`         | false          | the unit takes its address by DHCP                   |
 * | `ip`           | "192.168.1.10" | IPv4 address, dotted                                 |
 * | `submask`      | empty          | subnet mask, dotted                                  |
 * | `gateway`      | empty          | gateway, dotted                                      |
 * | `ethlinkstate` | false          | the Ethernet link is up                              |
 * | `comnum`       | 0              | number of serial ports                               |
 * | `ionum`        | 0              | number of IO lines                                   |
 * | `relaynum`     | 0              | number of relays                                     |
 * | `irnum`        | 0              | number of infra-red ports                            |
 * | `name`         | empty          | device name, for the user interface                  |
 * | `pattern`      | empty          | device pattern, for the user interface               |
 * | `type`         | empty          | device type, for the user interface                  |
 *
 * The unit does not report the last three: only the application fills them.
 *
 * The record is a value although it is a QObject: it is copied freely, a copy has no parent and
 * lives on the thread that made it. Nothing is validated, neither an address nor a negative count.
 * The properties are bound to the fields, with no notification. The record has no lock: copies may
 * go to other threads, one object is not to be written from two.
 */
class QUADRELBLL_EXPORT DeviceModel : public QObject {
    Q_OBJECT
    /** The model code. */
    Q_PROPERTY(ushort ModelID MEMBER ModelID)
    /** The firmware version. */
    Q_PROPERTY(QString version MEMBER version)
    /** Whether the unit takes its address by DHCP. */
    Q_PROPERTY(bool DHCP MEMBER DHCP)
    /** The IPv4 address, dotted. */
    Q_PROPERTY(QString ip MEMBER ip)
    /** The subnet mask, dotted. */
    Q_PROPERTY(QString submask MEMBER submask)
    /** The gateway, dotted. */
    Q_PROPERTY(QString gateway MEMBER gateway)
    /** Whether the Ethernet link is up. */
    Q_PROPERTY(bool ethlinkstate MEMBER ethlinkstate)
    /** The number of serial ports. */
    Q_PROPERTY(int comnum MEMBER comnum)
    /** The number of IO lines. */
    Q_PROPERTY(int ionum MEMBER ionum)
    /** The number of relays. */
    Q_PROPERTY(int relaynum MEMBER relaynum)
    /** The number of infra-red ports. */
    Q_PROPERTY(int irnum MEMBER irnum)
    /** The device name. */
    Q_PROPERTY(QString name MEMBER name)
    /** The device type. */
    Q_PROPERTY(QString type MEMBER type)
    /** The device pattern. */
    Q_PROPERTY(QString pattern MEMBER pattern)

public:
    /** A record with the defaults of the table and no parent. */
    DeviceModel();
    /** Copies the fifteen fields of `other`; the copy has no parent. */
    DeviceModel(const DeviceModel& other);
    /** Copies the fifteen fields of `other`; parent, object name and connections stay. */
    DeviceModel& operator=(const DeviceModel& other);

    /** True when all fifteen fields are equal; texts compare exactly, in their case too. */
    bool operator==(const DeviceModel& other) const;
    /** True when any field differs. */
    bool operator!=(const DeviceModel& other) const;
    /**
     * True when any field differs: devices have no order. For two different records `a < b` and `b
     * < a` both hold. Which devices the registry finds again follows from this, see
     * DeviceManagerModel.
     */
    bool operator<(const DeviceModel& other) const;
    /** The same as operator<, so that `a <= a` is false. */
    bool operator<=(const DeviceModel& other) const;

    /** Sets the model code. */
    void setModelId(unsigned short modelId);
    /** The model code; 0x7209 by default. */
    unsigned short getModelId();

    /** Sets the serial number; there is no property for it. */
    void setSN(unsigned long long serialNumber);
    /** The serial number. */
    unsigned long long getSN();

    /** Sets the firmware version, four decimals joined by dots. */
    void setVersion(QString version);
    /** The firmware version. */
    QString getVersion();

    /** Sets whether the unit takes its address by DHCP. */
    void setDHCPModel(bool dhcp);
    /** Whether the unit takes its address by DHCP. */
    bool getDHCPModel();

    /** Sets the IPv4 address, dotted. */
    void setIP(QString ip);
    /** The IPv4 address, dotted. */
    QString getIP();

    /** Sets the subnet mask, dotted. */
    void setSubMask(QString subMask);
    /** The subnet mask, dotted. */
    QString getSubMask();

    /** Sets the gateway, dotted. */
    void setGateWay(QString gateWay);
    /** The gateway, dotted. */
    QString getGateWay();

    /** Sets whether the Ethernet link is up. */
    void setEthLinkState(bool linkUp);
    /** Whether the Ethernet link is up. */
    bool getEthLinkState();

    /** Sets the number of serial ports. */
    void setComNumber(int number);
    /** The number of serial ports. */
    int getComNumber();

    /** Sets the number of IO lines. */
    void setIoNumber(int number);
    /** The number of IO lines. */
    int getIoNumber();

    /** Sets the number of relays. */
    void setRelayNumber(int number);
    /** The number of relays. */
    int getRelayNumber();

    /** Sets the number of infra-red ports. */
    void setIRNumber(int number);
    /** The number of infra-red ports. */
    int getIRNumber();

    /** Sets the device name. */
    void setName(QString name);
    /** The device name. */
    QString getName();

    /** Sets the device pattern. */
    void setPattern(QString pattern);
    /** The device pattern. */
    QString getPattern();

    /** Sets the device type. */
    void setType(QString type);
    /** The device type. */
    QString getType();

private:
    unsigned short ModelID = 0x7209;
    unsigned long long SN = 0;
    QString version;
    bool DHCP = false;
    QString ip = QStringLiteral("192.168.1.10");
    QString submask;
    QString gateway;
    bool ethlinkstate = false;
    int comnum = 0;
    int ionum = 0;
    int relaynum = 0;
    int irnum = 0;
    QString name;
    QString pattern;
    QString type;
};

Q_DECLARE_METATYPE(DeviceModel)
