// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "devicemodel.h"

#include <utility>

DeviceModel::DeviceModel() = default;

DeviceModel::DeviceModel(const DeviceModel& other)
    : QObject(nullptr)
    , ModelID(other.ModelID)
    , SN(other.SN)
    , version(other.version)
    , DHCP(other.DHCP)
    , ip(other.ip)
    , submask(other.submask)
    , gateway(other.gateway)
    , ethlinkstate(other.ethlinkstate)
    , comnum(other.comnum)
    , ionum(other.ionum)
    , relaynum(other.relaynum)
    , irnum(other.irnum)
    , name(other.name)
    , pattern(other.pattern)
    , type(other.type)
{
}

DeviceModel& DeviceModel::operator=(const DeviceModel& other)
{
    if (this == &other)
        return *this;
    ModelID = other.ModelID;
    SN = other.SN;
    version = other.version;
    DHCP = other.DHCP;
    ip = other.ip;
    submask = other.submask;
    gateway = other.gateway;
    ethlinkstate = other.ethlinkstate;
    comnum = other.comnum;
    ionum = other.ionum;
    relaynum = other.relaynum;
    irnum = other.irnum;
    name = other.name;
    pattern = other.pattern;
    type = other.type;
    return *this;
}

bool DeviceModel::operator==(const DeviceModel& other) const
{
    return ModelID == other.ModelID && version == other.version && DHCP == other.DHCP
        && ip == other.ip && submask == other.submask && gateway == other.gateway
        && ethlinkstate == other.ethlinkstate && comnum == other.comnum && ionum == other.ionum
        && relaynum == other.relaynum && irnum == other.irnum && name == other.name
        && type == other.type && SN == other.SN && pattern == other.pattern;
}

bool DeviceModel::operator!=(const DeviceModel& other) const
{
    return !(*this == other);
}

bool DeviceModel::operator<(const DeviceModel& other) const
{
    return *this != other;
}

bool DeviceModel::operator<=(const DeviceModel& other) const
{
    return *this != other;
}

void DeviceModel::setModelId(unsigned short modelId)
{
    ModelID = modelId;
}

unsigned short DeviceModel::getModelId()
{
    return ModelID;
}

void DeviceModel::setSN(unsigned long long serialNumber)
{
    SN = serialNumber;
}

unsigned long long DeviceModel::getSN()
{
    return SN;
}

void DeviceModel::setVersion(QString text)
{
    version = std::move(text);
}

QString DeviceModel::getVersion()
{
    return version;
}

void DeviceModel::setDHCPModel(bool dhcp)
{
    DHCP = dhcp;
}

bool DeviceModel::getDHCPModel()
{
    return DHCP;
}

void DeviceModel::setIP(QString address)
{
    ip = std::move(address);
}

QString DeviceModel::getIP()
{
    return ip;
}

void DeviceModel::setSubMask(QString subMask)
{
    submask = std::move(subMask);
}

QString DeviceModel::getSubMask()
{
    return submask;
}

void DeviceModel::setGateWay(QString gateWay)
{
    gateway = std::move(gateWay);
}

QString DeviceModel::getGateWay()
{
    return gateway;
}

void DeviceModel::setEthLinkState(bool linkUp)
{
    ethlinkstate = linkUp;
}

bool DeviceModel::getEthLinkState()
{
    return ethlinkstate;
}

void DeviceModel::setComNumber(int number)
{
    comnum = number;
}

int DeviceModel::getComNumber()
{
    return comnum;
}

void DeviceModel::setIoNumber(int number)
{
    ionum = number;
}

int DeviceModel::getIoNumber()
{
    return ionum;
}

void DeviceModel::setRelayNumber(int number)
{
    relaynum = number;
}

int DeviceModel::getRelayNumber()
{
    return relaynum;
}

void DeviceModel::setIRNumber(int number)
{
    irnum = number;
}

int DeviceModel::getIRNumber()
{
    return irnum;
}

void DeviceModel::setName(QString text)
{
    name = std::move(text);
}

QString DeviceModel::getName()
{
    return name;
}

void DeviceModel::setPattern(QString text)
{
    pattern = std::move(text);
}

QString DeviceModel::getPattern()
{
    return pattern;
}

void DeviceModel::setType(QString text)
{
    type = std::move(text);
}

QString DeviceModel::getType()
{
    return type;
}
