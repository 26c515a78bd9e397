// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "comparison.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>

namespace {

const char* const lowerQuartile = "lower quartile";
const char* const upperQuartile = "upper quartile";

/** The value that so many quarters of the others do not exceed. */
template <int Quarters> double quartile(const std::vector<double>& values)
{
    std::vector<double> sorted = values;
    std::sort(sorted.begin(), sorted.end());
    return sorted.at((sorted.size() - 1) * Quarters / 4);
}

/** Takes what the framework makes of a row's repetitions. */
class ResultReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Aggregate)
                takeStatistic(run);
        }
    }

    Result result() const { return m_result; }

private:
    void takeStatistic(const Run& run)
    {
        const double ratio = run.counters.at("ratio");
        if (run.aggregate_name == "median") {
            m_result.ours = run.counters.at("ours");
            m_result.reference = run.counters.at("reference");
            m_result.ratio = ratio;
        } else if (run.aggregate_name == lowerQuartile) {
            m_result.lowerQuartile = ratio;
        } else if (run.aggregate_name == upperQuartile) {
            m_result.upperQuartile = ratio;
        }
    }

    Result m_result = {};
};

} // namespace

bool Limit::holds(const Result& result) const
{
    switch (kind) {
    case RatioAtMost:
        return result.ratio <= value;
    case RatioAtLeast:
        return result.ratio >= value;
    case DifferenceAtMost:
        return result.ours - result.reference <= value;
    case OursAtMost:
        return result.ours <= value;
    case None:
        break;
    }
    return true;
}

std::string Limit::text() const
{
    const char* const forms[] = {
        "", "ratio <= %g", "ratio >= %g", "ours <= reference + %g", "ours <= %g"};
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, forms[kind], value);
    return buffer;
}

Rows inBothPlacements(const Row& row, Limit onOneProcessor, Limit onTwoProcessors)
{
    Row one = row;
    one.name += ", one processor";
    one.limit = onOneProcessor;
    one.placement = Placement::OneProcessor;
    Row two = row;
    two.name += ", two processors";
    two.limit = onTwoProcessors;
    two.placement = Placement::TwoProcessors;
    return usableProcessors() > 1 ? Rows{one, two} : Rows{one};
}

Rows joined(const std::vector<Rows>& lists)
{
    Rows rows;
    for (const Rows& list : lists)
        rows.insert(rows.end(), list.begin(), list.end());
    return rows;
}

Result measure(const Row& row)
{
    const Placed placed(row.placement);
    std::unique_ptr<Comparison> comparison;
    bool oursFirst = true;
    const auto runTurns = [&](benchmark::State& state) {
        if (!comparison)
            comparison = row.make();
        // Who comes second may find the machine warmed up by the other.
        oursFirst = !oursFirst;
        for (auto _ : state) {
            const double first = oursFirst ? comparison->ours() : comparison->reference();
            const double second = oursFirst ? comparison->reference() : comparison->ours();
            const double ours = oursFirst ? first : second;
            const double reference = oursFirst ? second : first;
            state.counters["ours"] = ours;
            state.counters["reference"] = reference;
            state.counters["ratio"] = ours / reference;
            // The counters are what is measured.
            state.SetIterationTime(1);
        }
    };
    benchmark::RegisterBenchmark(row.name.c_str(), runTurns)
        ->UseManualTime()
        ->Iterations(1)
        ->Repetitions(row.turns)
        ->ComputeStatistics(lowerQuartile, quartile<1>)
        ->ComputeStatistics(upperQuartile, quartile<3>);
    ResultReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::ClearRegisteredBenchmarks();
    return reporter.result();
}
