// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "placement.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

/**
 * Two ways to the same result, measured in short turns one after the other.
 *
 * A turn gives one figure, in the unit of the row: the time of one piece of work, a rate, a size.
 */
class Comparison {
public:
    virtual ~Comparison() = default;
    virtual double ours() = 0;
    virtual double reference() = 0;
};

/** The medians of a row's turns; a ratio is that of two turns which followed each other. */
struct Result {
    double ours;
    double reference;
    double ratio;
    double lowerQuartile; ///< of the ratio
    double upperQuartile;
};

/** What the figures of a row must keep to. */
struct Limit {
    enum Kind { None, RatioAtMost, RatioAtLeast, DifferenceAtMost, OursAtMost };
    Kind kind = None;
    double value = 0;

    bool holds(const Result& result) const;
    std::string text() const;
};

/** A row of the table. */
struct Row {
    std::string name;
    std::string unit;
    Limit limit;
    /** How many turns of each the medians are taken from; at least 2. */
    int turns;
    /** Sets the comparison up; called when the row's turn has come, at the row's place. */
    std::function<std::unique_ptr<Comparison>()> make;
    Placement placement = Placement::Anywhere;
};

using Rows = std::vector<Row>;

/**
 * The row of a comparison between threads, once for each placement and with a limit for each. Where
 * only one processor can be used, there is only the first.
 */
Rows inBothPlacements(const Row& row, Limit onOneProcessor, Limit onTwoProcessors);

/** One list out of several. */
Rows joined(const std::vector<Rows>& lists);

Result measure(const Row& row);
