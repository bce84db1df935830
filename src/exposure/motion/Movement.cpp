#include "Movement.h"

#include "planes.h"
#include "regions.h"

#include "parallel_rows.h"

#include <algorithm>
#include <numeric>

namespace {

std::vector<size_t> orderByBrightness(const std::vector<motion::SmallShot> &shots)
{
    std::vector<uint64_t> sums;
    for (const motion::SmallShot &shot : shots)
        sums.push_back(std::accumulate(shot.levels[1].begin(), shot.levels[1].end(), uint64_t(0)));
    std::vector<size_t> order(shots.size());
    std::iota(order.begin(), order.end(), size_t(0));
    std::stable_sort(order.begin(), order.end(),
                     [&](size_t a, size_t b) { return sums[a] < sums[b]; });
    return order;
}

} // namespace

motion::Movement::Movement(const std::vector<SmallShot> &smallShots)
    : shots(smallShots)
    , maps(smallShots)
    , order(orderByBrightness(smallShots))
{
}

/// Of a level of `to` from the range that the surroundings in `from` have there.
int motion::Movement::distance(size_t from, size_t to, size_t channel, size_t place) const
{
    const LevelMaps::Map &map = maps.map(from, to, channel);
    const int level = shots[to].levels[channel][place];
    const int below = map[shots[from].lowest[channel][place]] - level;
    const int above = level - map[shots[from].highest[channel][place]];
    return std::max(below, above);
}

int motion::Movement::difference(size_t first, size_t second, size_t place) const
{
    if (shots[first].covered[place] == 0 || shots[second].covered[place] == 0)
        return 0;
    int largest = 0;
    for (size_t channel = 0; channel < 3; ++channel)
        largest = std::max(largest, std::min(distance(first, second, channel, place),
                                             distance(second, first, channel, place)));
    return largest;
}

/// As difference, of one channel at adjoining places.
void motion::Movement::addChannelDifferences(size_t first, size_t second, size_t channel,
                                             size_t begin, size_t end, uint8_t *strongest) const
{
    const SmallShot &a = shots[first];
    const SmallShot &b = shots[second];
    const uint8_t *toSecond = maps.map(first, second, channel).data();
    const uint8_t *toFirst = maps.map(second, first, channel).data();
    const uint8_t *aLevels = a.levels[channel].data();
    const uint8_t *bLevels = b.levels[channel].data();
    const uint8_t *aLowest = a.lowest[channel].data();
    const uint8_t *bLowest = b.lowest[channel].data();
    const uint8_t *aHighest = a.highest[channel].data();
    const uint8_t *bHighest = b.highest[channel].data();
    for (size_t i = begin; i < end; ++i) {
        const int there =
            std::max(toSecond[aLowest[i]] - bLevels[i], bLevels[i] - toSecond[aHighest[i]]);
        const int back =
            std::max(toFirst[bLowest[i]] - aLevels[i], aLevels[i] - toFirst[bHighest[i]]);
        const int difference = std::min(there, back) * (a.covered[i] & b.covered[i]);
        strongest[i] = static_cast<uint8_t>(std::max<int>(strongest[i], difference));
    }
}

void motion::Movement::addDifferences(size_t first, size_t second, Plane &strongest) const
{
    const auto width = static_cast<size_t>(shots[0].width);
    parallel::rows({shots[0].width * 4, shots[0].height}, [&](int begin, int end) {
        for (size_t channel = 0; channel < 3; ++channel)
            addChannelDifferences(first, second, channel, size_t(begin) * width,
                                  size_t(end) * width, strongest.data());
    });
}

motion::Plane motion::Movement::changes() const
{
    constexpr size_t kNeighbours = 2; ///< in brightness, to compare with
    constexpr int kLeastOf25 = 7;
    Plane strongest(shots[0].covered.size());
    for (size_t i = 0; i < order.size(); ++i)
        for (size_t j = i + 1; j <= i + kNeighbours && j < order.size(); ++j)
            addDifferences(order[i], order[j], strongest);
    const auto above = [&](int threshold) {
        Plane flags(strongest.size());
        for (size_t i = 0; i < flags.size(); ++i)
            flags[i] = static_cast<uint8_t>(strongest[i] > threshold);
        return planes::crowded(flags, shots[0].width, shots[0].height, 2, kLeastOf25);
    };
    const Plane clear = above(kThreshold);
    Plane changes = above(kFaint);
    for (const Region &region : touching(changes, shots[0].width))
        if (std::none_of(region.begin(), region.end(), [&](size_t i) { return clear[i] != 0; }))
            for (const size_t place : region)
                changes[place] = 0;
    return changes;
}
