// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "packagedevice.h"

#include "devicemodel.h"
#include "replyframe.h"

#include <QtCore/QVector>

namespace {

constexpr ReplyFrame::FaultTexts frameFaults = {
    QT_TRANSLATE_NOOP("PackageDevice", "数据包长度小于最小数据包长度！"),
    QT_TRANSLATE_NOOP("PackageDevice", "请求数据类型与返回数据类型不一致！"),
    QT_TRANSLATE_NOOP("PackageDevice", "数据包长度与实际的数据包长度不一致！"),
};

enum Offset {
    ModelIdOffset = 0,
    VersionOffset = 2,
    SerialNumberOffset = 6,
    DhcpOffset = 14,
    IpOffset = 15,
    SubmaskOffset = 19,
    GatewayOffset = 23,
    LinkStateOffset = 27,
    ComNumberOffset = 29,
    IoNumberOffset = 30,
    RelayNumberOffset = 31,
    IrNumberOffset = 32
};

/** The network cell starts here within the block. */
constexpr int networkOffset = DhcpOffset;
constexpr int networkSize = LinkStateOffset - networkOffset;

constexpr int octetCount = 4;

QString dottedText(quint8 first, quint8 second, quint8 third, quint8 fourth)
{
    QString text = QString::number(first);
    for (const quint8 octet : {second, third, fourth})
        text += QLatin1Char('.') + QString::number(octet);
    return text;
}

QString versionText(const ReplyFrame& frame)
{
    return dottedText(frame.payloadByte(VersionOffset), frame.payloadByte(VersionOffset + 1),
        frame.payloadByte(VersionOffset + 2), frame.payloadByte(VersionOffset + 3));
}

QString addressText(const ReplyFrame& frame, int offset)
{
    return dottedText(frame.payloadByte(offset + 3), frame.payloadByte(offset + 2),
        frame.payloadByte(offset + 1), frame.payloadByte(offset));
}

/** Stores the address, least significant octet first; false if it does not have four items. */
bool storeAddress(QByteArray& package, int offset, const QString& address)
{
    const QVector<QStringRef> octets = address.splitRef(QLatin1Char('.'));
    if (octets.size() != octetCount)
        return false;
    for (int i = 0; i < octetCount; ++i)
        package[offset + octetCount - 1 - i] = static_cast<char>(octets.at(i).toInt());
    return true;
}

} // namespace

PackageDevice::PackageDevice(QObject* parent)
    : QObject(parent)
{
}

bool PackageDevice::parseDevicePackage(
    uint dataType, QByteArray package, uint dataLength, DeviceModel& device, QString& error)
{
    const ReplyFrame frame(package);
    if (!frame.accept(dataType, dataLength, staticMetaObject, frameFaults, error))
        return false;

    device.setModelId(frame.payloadWord(ModelIdOffset));
    device.setVersion(versionText(frame));
    device.setSN(frame.payloadQuadWord(SerialNumberOffset));
    const quint8 dhcp = frame.payloadByte(DhcpOffset);
    if (dhcp <= 1)
        device.setDHCPModel(dhcp == 1);
    device.setIP(addressText(frame, IpOffset));
    device.setSubMask(addressText(frame, SubmaskOffset));
    device.setGateWay(addressText(frame, GatewayOffset));
    const quint8 linkState = frame.payloadByte(LinkStateOffset);
    if (linkState <= 1)
        device.setEthLinkState(linkState == 1);
    device.setComNumber(frame.payloadByte(ComNumberOffset));
    device.setIoNumber(frame.payloadByte(IoNumberOffset));
    device.setRelayNumber(frame.payloadByte(RelayNumberOffset));
    device.setIRNumber(frame.payloadByte(IrNumberOffset));
    return true;
}

QByteArray PackageDevice::createNetWorkPackage(DeviceModel device)
{
    QByteArray package(networkSize, '\0');
    package[DhcpOffset - networkOffset] = device.getDHCPModel() ? 1 : 0;
    if (!storeAddress(package, IpOffset - networkOffset, device.getIP())
        || !storeAddress(package, SubmaskOffset - networkOffset, device.getSubMask())
        || !storeAddress(package, GatewayOffset - networkOffset, device.getGateWay()))
        return {};
    return package;
}

QByteArray PackageDevice::createResetPackage(bool retainIP)
{
    return QByteArray(1, retainIP ? 1 : 0);
}
