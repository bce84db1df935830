#include "grey_histogram.h"

#include <algorithm>

void GreyHistogram::add(const GreyHistogram &other)
{
    for (size_t level = 0; level < counts.size(); ++level)
        counts[level] += other.counts[level];
}

void GreyHistogram::add(const uint8_t *levels, size_t count)
{
    // Neighbours are often equal: several sets of counters keep one increment from waiting for the
    // other.
    std::array<std::array<uint32_t, 256>, 4> sets = {};
    size_t i = 0;
    for (; i + 4 <= count; i += 4) {
        for (size_t set = 0; set < 4; ++set)
            ++sets[set][levels[i + set]];
    }
    for (; i < count; ++i)
        ++sets[0][levels[i]];
    for (size_t level = 0; level < counts.size(); ++level)
        counts[level] += qint64(sets[0][level]) + sets[1][level] + sets[2][level] + sets[3][level];
}

std::vector<double> GreyHistogram::cumulative(double pixelCount) const
{
    const double share = pixelCount > 0 ? 1.0 / pixelCount : 0.0;
    std::vector<double> fractions(counts.size());
    double sum = 0.0;
    for (size_t level = 0; level < counts.size(); ++level) {
        sum = static_cast<double>(counts[level]) * share + sum;
        fractions[level] = sum;
    }
    return fractions;
}

int percentileLevel(const std::vector<double> &cumulative, double percentile)
{
    const auto found = std::find_if(cumulative.begin(), cumulative.end(),
                                    [=](double fraction) { return fraction >= percentile; });
    return static_cast<int>(found - cumulative.begin());
}
