#pragma once

#include "SmallShot.h"

#include <array>
#include <cstdint>
#include <vector>

namespace motion {

/// How the levels of each shot become those of each other one, channel by channel: the level of the
/// same rank (M. Grossberg, S. Nayar, "Determining the Camera Response from Images: What Is
/// Knowable?", PAMI 25(11), 2003, section 4: histograms are enough, and movement hardly changes
/// them).
class LevelMaps
{
public:
    using Map = std::array<uint8_t, 256>;

    explicit LevelMaps(const std::vector<SmallShot> &shots);

    const Map &map(size_t from, size_t to, size_t channel) const
    {
        return maps[(from * count + to) * 3 + channel];
    }

private:
    size_t count;
    std::vector<Map> maps;
};

} // namespace motion
