#pragma once

#include "LevelMaps.h"
#include "SmallShot.h"
#include "planes.h"

#include <vector>

namespace motion {

/// Tells where shots disagree, beyond noise, beyond half a block of misregistration and beyond what
/// the exposures make of the mixture of levels inside a block. Borrows the shots. Any thread,
/// reentrant.
class Movement
{
public:
    static constexpr int kThreshold = 12;
    static constexpr int kFaint = 7;

    explicit Movement(const std::vector<SmallShot> &shots);

    /// By how many levels of 255 the shots differ at this place, after one's levels are mapped to
    /// the other's: the way with the smaller difference counts, so that a shot that shows nothing
    /// there, being clipped or noisy, agrees. 0 or less where they do not, or one does not cover.
    int difference(size_t first, size_t second, size_t place) const;

    bool disagree(size_t first, size_t second, size_t place) const
    {
        return difference(first, second, place) > kThreshold;
    }

    /// 1 where shots that follow one another in brightness disagree by more than kThreshold, and
    /// around there where they do by more than kFaint; single places are left out.
    Plane changes() const;

    /// By how much shots that follow one another in brightness differ at most, where that is more
    /// than kFaint; elsewhere no more than that.
    Plane differences() const;

    /// Shots from the darkest to the brightest.
    const std::vector<size_t> &byBrightness() const { return order; }

private:
    int distance(size_t from, size_t to, size_t channel, size_t place) const;
    bool isClipped(size_t shot, size_t place) const;
    void addDifferences(size_t first, size_t second, Plane &strongest) const;

    const std::vector<SmallShot> &shots;
    LevelMaps maps;
    std::vector<size_t> order;
};

} // namespace motion
