#include "LevelMaps.h"

#include <algorithm>
#include <numeric>

namespace {

/// How many places have this level or a lower one.
using Ranks = std::array<int64_t, 256>;

/// Of the places that all shots cover, so that the ranks mean the same.
Ranks ranks(const motion::SmallShot &shot, size_t channel, const std::vector<uint8_t> &covered)
{
    Ranks result{};
    for (size_t i = 0; i < covered.size(); ++i)
        result[shot.levels[channel][i]] += covered[i];
    std::partial_sum(result.begin(), result.end(), result.begin());
    return result;
}

/// The level that the middle one of the places with the level has in the other shot.
motion::LevelMaps::Map mapBetween(const Ranks &from, const Ranks &to)
{
    motion::LevelMaps::Map map{};
    size_t found = 0;
    for (size_t level = 0; level < map.size(); ++level) {
        const int64_t below = level > 0 ? from[level - 1] : 0;
        const int64_t middle = (below + from[level] + 1) / 2;
        while (found < 255 && to[found] < middle)
            ++found;
        map[level] = static_cast<uint8_t>(found);
    }
    return map;
}

std::vector<uint8_t> coveredByAll(const std::vector<motion::SmallShot> &shots)
{
    std::vector<uint8_t> covered = shots.front().covered;
    for (const motion::SmallShot &shot : shots)
        for (size_t i = 0; i < covered.size(); ++i)
            covered[i] &= shot.covered[i];
    return covered;
}

} // namespace

motion::LevelMaps::LevelMaps(const std::vector<SmallShot> &shots)
    : count(shots.size())
    , maps(count * count * 3)
{
    const std::vector<uint8_t> covered = coveredByAll(shots);
    for (size_t channel = 0; channel < 3; ++channel) {
        std::vector<Ranks> all;
        for (const SmallShot &shot : shots)
            all.push_back(ranks(shot, channel, covered));
        for (size_t from = 0; from < count; ++from)
            for (size_t to = 0; to < count; ++to)
                maps[(from * count + to) * 3 + channel] = mapBetween(all[from], all[to]);
    }
}
