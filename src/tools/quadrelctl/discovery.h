// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <searchresult.h>

#include <QtCore/QMap>
#include <QtCore/QString>

#include <optional>

using FoundUnits = QMap<QString, serverData>;

/** What a search waits for. */
enum class SearchEnd { OfTime, FirstAnswer };

/**
 * Searches the network and shows a countdown meanwhile. With a name the search is the long one, for
 * units of any model. Throws CommandFailure if no unit answered.
 */
FoundUnits searchNetwork(SearchEnd end, const std::optional<QString>& upgradeName = std::nullopt);

using QuadrelWorkspace::addressOf;

/** Throws CommandFailure unless exactly one unit answers. */
UnitAddress findOnlyUnit();
