// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

/** What messages of the unit have in common. */
namespace QuadrelUnit {

/** "1 byte", "2 bytes". */
inline QString bytesText(qint64 count)
{
    return count == 1 ? QStringLiteral("1 byte") : QStringLiteral("%1 bytes").arg(count);
}

} // namespace QuadrelUnit
