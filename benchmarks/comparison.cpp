#include "comparison.h"

#include <benchmark/benchmark.h>

#include <cstdio>

namespace {

/** Takes the medians that the framework makes of a row's repetitions. */
class MedianReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
                m_result = {run.counters.at("ours"), run.counters.at("reference")};
        }
    }

    Result result() const { return m_result; }

private:
    Result m_result = {};
};

} // namespace

bool Limit::holds(double ours, double reference) const
{
    switch (kind) {
    case RatioAtMost:
        return ours / reference <= value;
    case RatioAtLeast:
        return ours / reference >= value;
    case DifferenceAtMost:
        return ours - reference <= value;
    case None:
        break;
    }
    return true;
}

std::string Limit::text() const
{
    const char* const forms[] = {"", "<= %g", ">= %g", "+ %g"};
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, forms[kind], value);
    return buffer;
}

Result measure(const Row& row)
{
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
            state.counters["ours"] = oursFirst ? first : second;
            state.counters["reference"] = oursFirst ? second : first;
            // The counters are what is measured.
            state.SetIterationTime(1);
        }
    };
    benchmark::RegisterBenchmark(row.name.c_str(), runTurns)
        ->UseManualTime()
        ->Iterations(1)
        ->Repetitions(row.turns);
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::ClearRegisteredBenchmarks();
    return reporter.result();
}
