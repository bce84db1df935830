#pragma once

#include <QtGlobal>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// How often each grey level 0..255 occurs in a picture.
struct GreyHistogram
{
    std::array<qint64, 256> counts = {};

    void add(const GreyHistogram &other);

    /// Entry i: the fraction of `pixelCount` pixels whose level is at most i. 256 entries.
    std::vector<double> cumulative(double pixelCount) const;

    /// Smallest grey level that at least this fraction (0..1) of the pixels does not exceed, from a
    /// cumulative histogram; 256 if there is none.
    static int percentileLevel(const std::vector<double> &cumulative, double percentile);
};

/// Counts grey levels, fewer than 2^32 in all.
class GreyCounter
{
public:
    void add(const uint8_t *levels, size_t count);
    GreyHistogram histogram() const;

private:
    // Neighbours are often equal: several sets of counters keep one increment from waiting for the
    // other.
    std::array<std::array<uint32_t, 256>, 4> sets = {};
};
