// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Benchmarks whose figures are known: the turns of each side follow a list.
#include "report.h"

#include <sched.h>

namespace {

/** Gives the figures of a list, one a turn, and begins again at its end. */
class Turns {
public:
    explicit Turns(std::vector<double> figures)
        : m_figures(std::move(figures))
    {
    }

    double next() { return m_figures.at(m_next++ % m_figures.size()); }

private:
    std::vector<double> m_figures;
    std::size_t m_next = 0;
};

class Fixed : public Comparison {
public:
    Fixed(std::vector<double> ours, std::vector<double> reference)
        : m_ours(std::move(ours))
        , m_reference(std::move(reference))
    {
    }

    double ours() override { return m_ours.next(); }
    double reference() override { return m_reference.next(); }

private:
    Turns m_ours;
    Turns m_reference;
};

/** How many processors a new thread of each side may run on. */
class Processors : public Comparison {
public:
    double ours() override { return count(); }

    double reference() override
    {
        const OtherSide side;
        return count();
    }

private:
    static int count()
    {
        cpu_set_t processors;
        CPU_ZERO(&processors);
        sched_getaffinity(0, sizeof processors, &processors);
        return CPU_COUNT(&processors);
    }
};

/** 1 if both sides have the same processors. */
class SameProcessors : public Comparison {
public:
    double ours() override
    {
        cpu_set_t here;
        cpu_set_t there;
        CPU_ZERO(&here);
        CPU_ZERO(&there);
        sched_getaffinity(0, sizeof here, &here);
        const OtherSide side;
        sched_getaffinity(0, sizeof there, &there);
        return CPU_EQUAL(&here, &there) ? 1 : 0;
    }

    double reference() override { return 1; }
};

Row fixed(const char* name, Limit limit, const std::vector<double>& ours,
    const std::vector<double>& reference)
{
    return {name, "us", limit, 5, [=] { return std::make_unique<Fixed>(ours, reference); }};
}

Rows rows()
{
    return joined({
        {
            fixed("at most, holds", {Limit::RatioAtMost, 2}, {20}, {10}),
            fixed("at most, missed", {Limit::RatioAtMost, 1.9}, {20}, {10}),
            fixed("at least, holds", {Limit::RatioAtLeast, 2}, {20}, {10}),
            fixed("at least, missed", {Limit::RatioAtLeast, 2.1}, {20}, {10}),
            fixed("difference, holds", {Limit::DifferenceAtMost, 10}, {20}, {10}),
            fixed("difference, missed", {Limit::DifferenceAtMost, 9}, {20}, {10}),
            fixed("ours, holds", {Limit::OursAtMost, 20}, {20}, {10}),
            fixed("ours, missed", {Limit::OursAtMost, 19}, {20}, {10}),
            fixed("no limit", {}, {20}, {10}),
            // The ratios are 9, 1, 1, 2, 2; that of the medians would be 1.5.
            fixed("paired", {}, {90, 3, 3, 4, 2}, {10, 3, 3, 2, 1}),
        },
        inBothPlacements(
            {"processors of a side", "", {}, 2, [] { return std::make_unique<Processors>(); }}, {},
            {}),
        inBothPlacements(
            {"same processors", "", {}, 2, [] { return std::make_unique<SameProcessors>(); }}, {},
            {}),
    });
}

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv, rows);
}
