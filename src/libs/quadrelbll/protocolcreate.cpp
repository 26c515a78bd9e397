// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "protocolcreate.h"

#include "replyframe.h"
#include "systemmodel.h"

#include <QtCore/QVariant>
#include <QtCore/QtEndian>

namespace {

constexpr ReplyFrame::FaultTexts frameFaults = {
    QT_TRANSLATE_NOOP("ProtocolCreate", "数据包长度小于最小数据包长度！"),
    QT_TRANSLATE_NOOP("ProtocolCreate", "请求数据类型与返回数据类型不一致！"),
    // The other codecs word this fault in another way.
    QT_TRANSLATE_NOOP("ProtocolCreate", "数据包长度与请求数据长度不一致！"),
};

constexpr uint comDataType = 0xF0001000;
constexpr uint ioDataType = 0xF0001100;

constexpr int comRecordSize = 7;
constexpr int baudRateOffset = 0;
constexpr int dataBitsOffset = 4;
constexpr int stopBitsOffset = 5;
constexpr int inspectionOffset = 6;

constexpr qint8 noInspectionByte = 0;
constexpr qint8 inspection1Byte = 1;
constexpr qint8 inspection2Byte = 2;

constexpr int ioRecordSize = 2;

qint8 inspectionByte(inspectionType inspection)
{
    switch (inspection) {
    case INSPECTION_1:
        return inspection1Byte;
    case INSPECTION_2:
        return inspection2Byte;
    default:
        return noInspectionByte;
    }
}

void storePort(ComInfo port, char* record)
{
    qToLittleEndian<qint32>(port.getBaudRate(), record + baudRateOffset);
    record[dataBitsOffset] = static_cast<char>(port.getDataBits());
    record[stopBitsOffset] = static_cast<char>(port.getStopBits());
    record[inspectionOffset] = static_cast<char>(inspectionByte(port.getInspectionType()));
}

void storeLine(IOType line, char* record)
{
    record[0] = line == IO_TYPE_1 || line == IO_TYPE_2 ? 0 : 1;
    record[1] = line == IO_TYPE_1 ? 1 : 0;
}

int signedByte(const ReplyFrame& frame, int offset)
{
    return static_cast<qint8>(frame.payloadByte(offset));
}

void readInspection(int byte, ComInfo& port)
{
    switch (byte) {
    case noInspectionByte:
        port.setProperty("insType", INSPECTION_NONE);
        break;
    case inspection1Byte:
        port.setProperty("insType", INSPECTION_1);
        break;
    case inspection2Byte:
        port.setProperty("insType", INSPECTION_2);
        break;
    default:
        break;
    }
}

ComInfo portAt(const ReplyFrame& frame, int record)
{
    ComInfo port;
    port.setProperty(
        "baudRate", static_cast<qint32>(frame.payloadDoubleWord(record + baudRateOffset)));
    port.setProperty("dataBits", signedByte(frame, record + dataBitsOffset));
    port.setProperty("stopBits", signedByte(frame, record + stopBitsOffset));
    readInspection(signedByte(frame, record + inspectionOffset), port);
    return port;
}

/** The value of a pair; one that is in no table repeats the line before it. */
IOType lineAt(const ReplyFrame& frame, int record, IOType lineBefore)
{
    const quint8 first = frame.payloadByte(record);
    const quint8 second = frame.payloadByte(record + 1);
    if (first == 1)
        return IO_TYPE_0;
    if (first == 0 && second == 0)
        return IO_TYPE_2;
    if (first == 0 && second == 1)
        return IO_TYPE_1;
    return lineBefore;
}

QList<ComInfo> portsOf(const ReplyFrame& frame)
{
    QList<ComInfo> ports;
    for (int record = 0; record < frame.payloadSize(); record += comRecordSize)
        ports.append(portAt(frame, record));
    return ports;
}

QList<IOType> linesOf(const ReplyFrame& frame)
{
    QList<IOType> lines;
    IOType line = IO_TYPE_0;
    for (int record = 0; record < frame.payloadSize(); record += ioRecordSize) {
        line = lineAt(frame, record, line);
        lines.append(line);
    }
    return lines;
}

} // namespace

ProtocolCreate::ProtocolCreate() = default;

ProtocolCreate::ProtocolCreate(QObject* parent)
    : QObject(parent)
{
}

QByteArray ProtocolCreate::createComPackage(QList<ComInfo> ports)
{
    QByteArray package(ports.size() * comRecordSize, '\0');
    char* record = package.data();
    for (const ComInfo& port : qAsConst(ports)) {
        storePort(port, record);
        record += comRecordSize;
    }
    return package;
}

QByteArray ProtocolCreate::createComPackage(SystemModel model)
{
    return createComPackage(model.getComInfo());
}

QByteArray ProtocolCreate::createIOPackage(QList<IOType> lines)
{
    QByteArray package(lines.size() * ioRecordSize, '\0');
    char* record = package.data();
    for (const IOType line : qAsConst(lines)) {
        storeLine(line, record);
        record += ioRecordSize;
    }
    return package;
}

QByteArray ProtocolCreate::createIOPackage(SystemModel model)
{
    return createIOPackage(model.getIOType());
}

bool ProtocolCreate::parseConfigPackage(
    uint dataType, QByteArray package, uint dataLength, SystemModel& model, QString& error)
{
    const ReplyFrame frame(package);
    if (!frame.accept(dataType, dataLength, staticMetaObject, frameFaults, error))
        return false;

    if (dataType == comDataType) {
        if (!acceptWholeRecords(dataLength, comRecordSize, error))
            return false;
        model.setComInfo(portsOf(frame));
    } else if (dataType == ioDataType) {
        if (!acceptWholeRecords(dataLength, ioRecordSize, error))
            return false;
        model.setIOType(linesOf(frame));
    }
    return true;
}

bool ProtocolCreate::acceptWholeRecords(uint dataLength, uint recordSize, QString& error)
{
    if (dataLength % recordSize == 0)
        return true;
    error = tr("数据包不完整！");
    return false;
}
