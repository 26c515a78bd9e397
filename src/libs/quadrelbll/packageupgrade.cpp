// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "packageupgrade.h"

#include <QtCore/QtEndian>

namespace {

template <typename Word> QByteArray littleEndian(Word value)
{
    QByteArray bytes(sizeof(Word), Qt::Uninitialized);
    qToLittleEndian(value, bytes.data());
    return bytes;
}

} // namespace

PackageUpgrade::PackageUpgrade(QObject* parent)
    : QObject(parent)
{
}

QByteArray PackageUpgrade::createWordPackage(ushort value)
{
    return littleEndian(value);
}

QByteArray PackageUpgrade::createStartWordPackage(ushort value)
{
    return createWordPackage(value);
}

QByteArray PackageUpgrade::createLengthPackage(uint value)
{
    return littleEndian(value);
}

QByteArray PackageUpgrade::createPositionPackage(uint value)
{
    return createLengthPackage(value);
}

QByteArray PackageUpgrade::createSizePackage(uint value)
{
    return createLengthPackage(value);
}

QByteArray PackageUpgrade::createCommandPackage(ushort first, ushort second)
{
    return createWordPackage(first) + createWordPackage(second);
}
