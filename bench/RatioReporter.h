#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// Prints the benchmarks as usual and keeps their medians, so that at the end the ratios between
/// them can be printed: those mean the same on every machine, milliseconds do not.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override;

    /// "title: 12.3 x   (goal: ...)", the median of `dividend` over that of `divisor`; nothing when
    /// one of them did not run.
    void printRatio(const std::string &title, const std::string &dividend,
                    const std::string &divisor, const std::string &goal) const;

private:
    std::map<std::string, double> medians; ///< by benchmark name
};
