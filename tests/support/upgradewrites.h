// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitbytes.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>

struct UpgradeWrite {
    quint32 address;
    QByteArray data;
};

/** All writes of an upgrade, in the order in which a unit takes them. */
inline QList<UpgradeWrite> upgradeWrites(const QByteArray& streamed, const QByteArray& addressed)
{
    using QuadrelUnit::littleEndian;
    constexpr int chunk = 2048;
    QList<UpgradeWrite> writes = {
        {0x01F00000, littleEndian(streamed.size() + addressed.size())},
        {0x01F00004, littleEndian(0)},
        {0x01F0000C, littleEndian(addressed.size())},
        {0x01F00008, QByteArray::fromHex("02000100")},
    };
    for (int i = 0; i < addressed.size(); i += chunk)
        writes.append({0x06000000 + static_cast<quint32>(i), addressed.mid(i, chunk)});
    writes += QList<UpgradeWrite>{
        {0x18200002, QByteArray::fromHex("0972")},
        {0x18200000, QByteArray::fromHex("0000")},
        {0x01F00000, littleEndian(streamed.size())},
        {0x01F00004, littleEndian(0)},
        {0x01F0000C, littleEndian(streamed.size())},
        {0x01F00008, QByteArray::fromHex("02000200")},
    };
    for (int i = 0; i < streamed.size(); i += chunk)
        writes.append({0x18000000, streamed.mid(i, chunk)});
    return writes;
}
