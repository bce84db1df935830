#include "RatioReporter.h"

#include <cstdio>

void RatioReporter::ReportRuns(const std::vector<Run> &runs)
{
    ConsoleReporter::ReportRuns(runs);
    for (const Run &run : runs) {
        if (run.aggregate_name == "median")
            medians[run.run_name.function_name] = run.GetAdjustedRealTime();
    }
}

void RatioReporter::printRatio(const std::string &title, const std::string &dividend,
                               const std::string &divisor, const std::string &goal) const
{
    const auto above = medians.find(dividend);
    const auto below = medians.find(divisor);
    if (above == medians.end() || below == medians.end() || below->second <= 0)
        return;
    std::printf("%-64s %8.2f x   (goal: %s)\n", title.c_str(), above->second / below->second,
                goal.c_str());
}
