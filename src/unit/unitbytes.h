// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QtEndian>

/** How numbers are stored in a unit's memory. */
namespace QuadrelUnit {

/** The bytes of an integer, the lowest first. */
template <typename Integer> QByteArray littleEndian(Integer value)
{
    QByteArray bytes(sizeof(Integer), '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

/** The byte of two decimal digits of a number from 0 to 99, the tens in its high half. */
inline char toBcd(int number)
{
    return static_cast<char>(number / 10 * 16 + number % 10);
}

} // namespace QuadrelUnit
