// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include <QtCore/QString>

/** Packed BCD: two decimal digits a byte, the tens in the high nibble. */
namespace Bcd {

/** The byte for a number of 0 to 99; any other number gives the low 8 bits of the same sum. */
constexpr quint8 fromNumber(int number)
{
    return static_cast<quint8>(qint64(number) + 6 * qint64(number / 10));
}

/** The number of a byte. A nibble above 9 is not an error: 0x1A is 20, 0xFF is 165. */
constexpr quint8 toNumber(quint8 byte)
{
    return static_cast<quint8>(byte - 6 * (byte >> 4));
}

/** The number of a byte with two digits, or with three if it is above 99. */
inline QString twoDigits(quint8 byte)
{
    return QString::number(toNumber(byte)).rightJustified(2, QLatin1Char('0'));
}

/** The year of a byte, which has no place for the century. A year below 10 has no leading zero. */
inline QString yearText(quint8 byte)
{
    return QStringLiteral("20") + QString::number(toNumber(byte));
}

} // namespace Bcd
