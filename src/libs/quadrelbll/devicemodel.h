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
    ///@{
    /** The field of this name. */
    Q_PROPERTY(ushort ModelID MEMBER ModelID)
    Q_PROPERTY(QString version MEMBER version)
    Q_PROPERTY(bool DHCP MEMBER DHCP)
    Q_PROPERTY(QString ip MEMBER ip)
    Q_PROPERTY(QString submask MEMBER submask)
    Q_PROPERTY(QString gateway MEMBER gateway)
    Q_PROPERTY(bool ethlinkstate MEMBER ethlinkstate)
    Q_PROPERTY(int comnum MEMBER comnum)
    Q_PROPERTY(int ionum MEMBER ionum)
    Q_PROPERTY(int relaynum MEMBER relaynum)
    Q_PROPERTY(int irnum MEMBER irnum)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString type MEMBER type)
    Q_PROPERTY(QString pattern MEMBER pattern)
    ///@}

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

    ///@{
    /** The model code; 0x7209 by default. */
    void setModelId(unsigned short modelId);
    unsigned short getModelId();
    ///@}

    ///@{
    /** The serial number. */
    void setSN(unsigned long long serialNumber);
    unsigned long long getSN();
    ///@}

    ///@{
    /** The firmware version. */
    void setVersion(QString version);
    QString getVersion();
    ///@}

    ///@{
    /** Whether the unit takes its address by DHCP. */
    void setDHCPModel(bool dhcp);
    bool getDHCPModel();
    ///@}

    ///@{
    /** The IPv4 address, dotted. */
    void setIP(QString ip);
    QString getIP();
    ///@}

    ///@{
    /** The subnet mask, dotted. */
    void setSubMask(QString subMask);
    QString getSubMask();
    ///@}

    ///@{
    /** The gateway, dotted. */
    void setGateWay(QString gateWay);
    QString getGateWay();
    ///@}

    ///@{
    /** Whether the Ethernet link is up. */
    void setEthLinkState(bool linkUp);
    bool getEthLinkState();
    ///@}

    ///@{
    /** The number of serial ports. */
    void setComNumber(int number);
    int getComNumber();
    ///@}

    ///@{
    /** The number of IO lines. */
    void setIoNumber(int number);
    int getIoNumber();
    ///@}

    ///@{
    /** The number of relays. */
    void setRelayNumber(int number);
    int getRelayNumber();
    ///@}

    ///@{
    /** The number of infra-red ports. */
    void setIRNumber(int number);
    int getIRNumber();
    ///@}

    ///@{
    /** The device name. */
    void setName(QString name);
    QString getName();
    ///@}

    ///@{
    /** The device pattern. */
    void setPattern(QString pattern);
    QString getPattern();
    ///@}

    ///@{
    /** The device type. */
    void setType(QString type);
    QString getType();
    ///@}

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
