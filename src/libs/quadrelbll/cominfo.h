// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QObject>

#include "quadrelbll_global.h"

/**
 * The parity inspection of a serial port. The value is the contract; the byte that a unit stores is
 * another number.
 */
enum inspectionType : int {
    INSPECTION_1 = 0,   /**< stored as byte 1 */
    INSPECTION_2 = 1,   /**< stored as byte 2 */
    INSPECTION_NONE = 2 /**< stored as byte 0; the default */
};
Q_DECLARE_METATYPE(inspectionType)

/**
 * The setting of one IO line. The value is the contract; a unit stores a pair of bytes.
 */
enum IOType : int {
    IO_TYPE_0 = 0, /**< stored as bytes 1, 0 */
    IO_TYPE_1 = 1, /**< stored as bytes 0, 1 */
    IO_TYPE_2 = 2  /**< stored as bytes 0, 0 */
};
Q_DECLARE_METATYPE(IOType)

/**
 * The settings of one serial port.
 *
 * | Field      | Default         | Meaning                              |
 * |------------|-----------------|--------------------------------------|
 * | `baudRate` | 115200          | bits per second                      |
 * | `dataBits` | 8               | data bits of a character             |
 * | `stopBits` | 1               | stop bits of a character             |
 * | `insType`  | INSPECTION_NONE | parity inspection                    |
 *
 * No value is validated. The record is a value: a copy has no parent. The properties are bound to
 * the fields, with no notification. The record has no lock; copies may go to other threads.
 */
class QUADRELBLL_EXPORT ComInfo : public QObject {
    Q_OBJECT
    ///@{
    /** The field of this name. */
    Q_PROPERTY(int baudRate MEMBER baudRate)
    Q_PROPERTY(int dataBits MEMBER dataBits)
    Q_PROPERTY(int stopBits MEMBER stopBits)
    Q_PROPERTY(inspectionType insType MEMBER insType)
    ///@}

public:
    /**
     * A record with the defaults of the table and no parent. The first one registers the meta-types
     * "inspectionType" and "IOType", so that a QVariant carries them.
     */
    ComInfo();
    /** Copies the four fields of `other`; the copy has no parent. */
    ComInfo(const ComInfo& other);
    /** Copies the four fields of `other`; parent, object name and connections stay. */
    ComInfo& operator=(const ComInfo& other);
    /** True when all four fields are equal. */
    bool operator==(const ComInfo& other) const;

    ///@{
    /** The baud rate, in bits per second. */
    void setBaudRate(int bitsPerSecond);
    int getBaudRate();
    ///@}

    ///@{
    /** The number of data bits. */
    void setDataBits(int bits);
    int getDataBits();
    ///@}

    ///@{
    /** The number of stop bits. */
    void setStopBits(int bits);
    int getStopBits();
    ///@}

    ///@{
    /** The parity inspection. */
    void setInspectionType(inspectionType inspection);
    inspectionType getInspectionType();
    ///@}

private:
    int baudRate = 115200;
    int dataBits = 8;
    int stopBits = 1;
    inspectionType insType = INSPECTION_NONE;
};
