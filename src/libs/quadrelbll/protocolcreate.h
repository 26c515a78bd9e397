// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include "cominfo.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QObject>

class ReplyFrame;
class SystemModel;

/**
 * The two blocks of a unit's configuration: serial ports at 0xF0001000 and IO lines at 0xF0001100.
 * Both are plain rows of records in list order, without head or count.
 *
 * Serial port, 7 bytes:
 *
 * | Offset | Width | Field |
 * |---|---|---|
 * | 0 | 4 | baud rate, little-endian |
 * | 4 | 1 | data bits |
 * | 5 | 1 | stop bits |
 * | 6 | 1 | inspection: 1 for value 0, 2 for value 1, 0 for value 2 |
 *
 * IO line, 2 bytes: 1, 0 for value 0; 0, 1 for value 1; 0, 0 for value 2.
 */
class ProtocolCreate : public QObject {
    Q_OBJECT

public:
    ProtocolCreate();
    explicit ProtocolCreate(QObject* parent);

    static QByteArray createComPackage(QList<ComInfo> ports);
    static QByteArray createComPackage(SystemModel model);
    static QByteArray createIOPackage(QList<IOType> lines);
    static QByteArray createIOPackage(SystemModel model);

    /**
     * Replaces the list of the model that the data type names; another data type changes nothing
     * and is not a fault. The rows end with the frame, not with the data length. On a fault the
     * model is left alone and the error is set.
     */
    static bool parseConfigPackage(
        uint dataType, QByteArray package, uint dataLength, SystemModel& model, QString& error);

private:
    static bool acceptWholeRecords(uint dataLength, uint recordSize, QString& error);
};
