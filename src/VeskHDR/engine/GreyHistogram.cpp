#include "GreyHistogram.h"

#include <algorithm>

void GreyHistogram::add(const GreyHistogram &other)
{
    for (size_t level = 0; level < counts.size(); ++level)
        counts[level] += other.counts[level];
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

void GreyCounter::add(const uint8_t *levels, size_t count)
{
    size_t i = 0;
    for (; i + 4 <= count; i += 4) {
        for (size_t set = 0; set < 4; ++set)
            ++sets[set][levels[i + set]];
    }
    for (; i < count; ++i)
        ++sets[0][levels[i]];
}

GreyHistogram GreyCounter::histogram() const
{
    GreyHistogram histogram;
    for (const auto &set : sets) {
        for (size_t level = 0; level < set.size(); ++level)
            histogram.counts[level] += set[level];
    }
    return histogram;
}

int GreyHistogram::percentileLevel(const std::vector<double> &cumulative, double percentile)
{
    const auto found = std::find_if(cumulative.begin(), cumulative.end(),
                                    [=](double fraction) { return fraction >= percentile; });
    return static_cast<int>(found - cumulative.begin());
}
