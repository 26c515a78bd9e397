// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "cominfo.h"

namespace {

bool registerEnumerations()
{
    qRegisterMetaType<inspectionType>("inspectionType");
    qRegisterMetaType<IOType>("IOType");
    return true;
}

} // namespace

ComInfo::ComInfo()
{
    static const bool registered = registerEnumerations();
    Q_UNUSED(registered)
}

ComInfo::ComInfo(const ComInfo& other)
    : QObject(nullptr)
    , baudRate(other.baudRate)
    , dataBits(other.dataBits)
    , stopBits(other.stopBits)
    , insType(other.insType)
{
}

ComInfo& ComInfo::operator=(const ComInfo& other)
{
    if (this == &other)
        return *this;
    baudRate = other.baudRate;
    dataBits = other.dataBits;
    stopBits = other.stopBits;
    insType = other.insType;
    return *this;
}

bool ComInfo::operator==(const ComInfo& other) const
{
    return baudRate == other.baudRate && stopBits == other.stopBits && insType == other.insType
        && dataBits == other.dataBits;
}

void ComInfo::setBaudRate(int bitsPerSecond)
{
    baudRate = bitsPerSecond;
}

int ComInfo::getBaudRate()
{
    return baudRate;
}

void ComInfo::setDataBits(int bits)
{
    dataBits = bits;
}

int ComInfo::getDataBits()
{
    return dataBits;
}

void ComInfo::setStopBits(int bits)
{
    stopBits = bits;
}

int ComInfo::getStopBits()
{
    return stopBits;
}

void ComInfo::setInspectionType(inspectionType inspection)
{
    insType = inspection;
}

inspectionType ComInfo::getInspectionType()
{
    return insType;
}
