#pragma once

#include <QtCore/qglobal.h>

/** Packed BCD: two decimal digits a byte, the tens in the high nibble. */
namespace Bcd {

/** The byte for a number of 0 to 99; any other number gives the low 8 bits of the same sum. */
constexpr quint8 fromNumber(int number)
{
    return static_cast<quint8>(qint64(number) + 6 * qint64(number / 10));
}

/** The number of a byte. A nibble above 9 is no error: 0x1A is 20, 0xFF is 165. */
constexpr quint8 toNumber(quint8 byte)
{
    return static_cast<quint8>(byte - 6 * (byte >> 4));
}

} // namespace Bcd
