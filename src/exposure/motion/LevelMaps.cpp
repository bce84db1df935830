#include "LevelMaps.h"

#include "parallel_rows.h"

#include <algorithm>
#include <numeric>

namespace {

/// How many places have this level or a lower one.
using Ranks = std::array<int64_t, 256>;

/// Of places that are the same for all shots, so that the ranks mean the same.
Ranks ranks(const motion::SmallShot &shot, size_t channel, const std::vector<uint8_t> &counted)
{
    const uint8_t *levels = shot.levels[channel].data();
    std::array<Ranks, 4> counts{}; // so that no sum waits for the one before
    for (size_t i = 0; i < counted.size(); ++i)
        counts[i % 4][levels[i]] += counted[i];
    Ranks result{};
    for (const Ranks &part : counts)
        for (size_t level = 0; level < result.size(); ++level)
            result[level] += part[level];
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

/// Of these places those where no shot mixes unlike levels in a block: the mean of mapped levels is
/// not the mapped mean. Or all, when that leaves few.
std::vector<uint8_t> unmixed(const std::vector<motion::SmallShot> &shots, size_t channel,
                             const std::vector<uint8_t> &covered)
{
    constexpr int kUnlike = 48;
    constexpr int kFewest = 4; // one of so many
    std::vector<uint8_t> alike = covered;
    for (const motion::SmallShot &shot : shots) {
        const uint8_t *darkest = shot.darkest[channel].data();
        const uint8_t *brightest = shot.brightest[channel].data();
        for (size_t i = 0; i < alike.size(); ++i)
            alike[i] &= static_cast<uint8_t>(brightest[i] - darkest[i] <= kUnlike);
    }
    const auto count = [](const std::vector<uint8_t> &flags) {
        return std::count(flags.begin(), flags.end(), 1);
    };
    return count(alike) * kFewest >= count(covered) ? alike : covered;
}

} // namespace

motion::LevelMaps::LevelMaps(const std::vector<SmallShot> &shots)
    : count(shots.size())
    , maps(count * count * 3)
{
    const std::vector<uint8_t> covered = coveredByAll(shots);
    std::array<std::vector<uint8_t>, 3> counted;
    parallel::each(3, [&](int channel) {
        counted[size_t(channel)] = unmixed(shots, size_t(channel), covered);
    });
    std::vector<Ranks> all(3 * count);
    parallel::each(static_cast<int>(all.size()), [&](int i) {
        const size_t channel = size_t(i) % 3;
        all[size_t(i)] = ranks(shots[size_t(i) / 3], channel, counted[channel]);
    });
    for (size_t from = 0; from < count; ++from)
        for (size_t to = 0; to < count; ++to)
            for (size_t channel = 0; channel < 3; ++channel)
                maps[(from * count + to) * 3 + channel] =
                    mapBetween(all[3 * from + channel], all[3 * to + channel]);
}
