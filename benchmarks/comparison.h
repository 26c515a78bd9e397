#pragma once

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

/** What the two figures of a row must keep to. */
struct Limit {
    enum Kind { None, RatioAtMost, RatioAtLeast, DifferenceAtMost };
    Kind kind = None;
    double value = 0;

    bool holds(double ours, double reference) const;
    std::string text() const;
};

/** A row of the table. */
struct Row {
    std::string name;
    std::string unit;
    Limit limit;
    /** How many turns of each the medians are taken from. */
    int turns;
    /** Sets the comparison up; called when the row's turn has come. */
    std::function<std::unique_ptr<Comparison>()> make;
};

struct Result {
    double ours;
    double reference;

    double ratio() const { return ours / reference; }
};

Result measure(const Row& row);

/** The rows of each source file. */
std::vector<Row> signalExchangeRows();
std::vector<Row> unitExchangeRows();
std::vector<Row> modbusExchangeRows();
std::vector<Row> codecRows();
std::vector<Row> projectFileRows();
std::vector<Row> processRows();
