// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "documenttree.h"
#include "finding.h"
#include "unitcontents.h"

#include <QtCore/QVector>

#include <vector>

namespace QuadrelDocument {

/** What of a record counts in comparisons: without its number and what follows from other fields.
 */
DocumentNode comparedFields(const Contents& contents, Section section, int index);
/** comparedFields() of each record of the section. */
std::vector<DocumentNode> comparedRecords(const Contents& contents, Section section);

/**
 * For each record of `after` the place of the one in `before` that it is most likely the same as,
 * or -1. Equal ones find each other first, then those that have most in common, at least half.
 */
QVector<int> bestMatches(
    const std::vector<DocumentNode>& before, const std::vector<DocumentNode>& after);

} // namespace QuadrelDocument
