// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>

/**
 * Makes the control words of a firmware upgrade. All words are little-endian.
 *
 * The operations keep the names of the words they are used for, though several make the same bytes.
 */
class PackageUpgrade : public QObject {
    Q_OBJECT

public:
    explicit PackageUpgrade(QObject* parent = nullptr);

    /** 2 bytes for the word at 0x18200000. */
    static QByteArray createWordPackage(ushort value);
    /** 2 bytes for the start word at 0x18200002. */
    static QByteArray createStartWordPackage(ushort value);
    /** 4 bytes for the length at 0x01F00000. */
    static QByteArray createLengthPackage(uint value);
    /** 4 bytes for the position at 0x01F00004. */
    static QByteArray createPositionPackage(uint value);
    /** 4 bytes for the size at 0x01F0000C. */
    static QByteArray createSizePackage(uint value);
    /** 4 bytes, `first` and then `second`, for the command at 0x01F00008. */
    static QByteArray createCommandPackage(ushort first, ushort second);
};
