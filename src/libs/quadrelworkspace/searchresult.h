// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <searchdevice.h>
#include <unitaddress.h>

#include <QtCore/QMap>
#include <QtCore/QString>

namespace QuadrelWorkspace {

/**
 * What a search has found, once each: a reply may also have been heard under the IPv6 form of the
 * unit's address, as another unit.
 */
QMap<QString, serverData> withoutMappedTwins(const QMap<QString, serverData>& found);

/** Where a unit takes requests: at the port that its reply names, or at the one of all units. */
UnitAddress addressOf(const serverData& unit);

} // namespace QuadrelWorkspace
