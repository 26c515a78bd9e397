#include "bcd.h"

quint8 Bcd::fromNumber(int number)
{
    return static_cast<quint8>(qint64(number) + 6 * qint64(number / 10));
}

quint8 Bcd::toNumber(quint8 byte)
{
    return static_cast<quint8>(byte - 6 * (byte >> 4));
}
