#include "Movement.h"

#include "FlagRuns.h"

#include "parallel_rows.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>

namespace {

constexpr int kWhite = 250;
constexpr int kColourShift = 32; ///< of a place with a clipped channel

/// What the map makes of a block that mixes its darkest and its brightest level so that its mean
/// results. Whatever the block holds, the mean of the mapped levels lies between this and the
/// mapped mean, as far as the map bends one way only.
int mixedLevel(const motion::SmallShot &shot, const motion::LevelMaps::Map &map, size_t channel,
               size_t place)
{
    const int darkest = shot.darkest[channel][place];
    const int brightest = shot.brightest[channel][place];
    if (darkest == brightest)
        return map[static_cast<size_t>(darkest)];
    const int share = shot.levels[channel][place] - darkest;
    const int low = map[static_cast<size_t>(darkest)];
    const int high = map[static_cast<size_t>(brightest)];
    return low + (high - low) * share / (brightest - darkest);
}

/// What tells at once that next to no place differs: of two shots one's range of levels, the
/// other's level, and the maps from the one to the other.
class OneWay
{
public:
    OneWay(const motion::SmallShot &from, const motion::SmallShot &to,
           const motion::LevelMaps &maps, size_t fromIndex, size_t toIndex)
    {
        for (size_t i = 0; i < 3; ++i)
            channels[i] = {from.lowest[i].data(), from.highest[i].data(), to.levels[i].data(),
                           maps.map(fromIndex, toIndex, i).data()};
    }

    /// No channel's distance() is larger.
    int farthest(size_t place) const
    {
        return std::max(
            {channels[0].outside(place), channels[1].outside(place), channels[2].outside(place)});
    }

private:
    struct Channel
    {
        const uint8_t *lowest;
        const uint8_t *highest;
        const uint8_t *level;
        const uint8_t *map;

        int outside(size_t place) const
        {
            return std::max(map[lowest[place]] - level[place], level[place] - map[highest[place]]);
        }
    };

    std::array<Channel, 3> channels{};
};

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

/// Of a level of `to` from the range that `from` has there.
int motion::Movement::distance(size_t from, size_t to, size_t channel, size_t place) const
{
    const SmallShot &shot = shots[from];
    const LevelMaps::Map &map = maps.map(from, to, channel);
    const int level = shots[to].levels[channel][place];
    const int below = map[shot.lowest[channel][place]] - level;
    const int above = level - map[shot.highest[channel][place]];
    const int outside = std::max(below, above);
    if (outside <= kFaint)
        return outside;
    const int mixed = mixedLevel(shot, map, channel, place);
    return std::max(std::min(below, mixed - level), std::min(above, level - mixed));
}

/// Whether a channel of the block ends in white: then what the camera makes of the others is
/// another colour.
bool motion::Movement::isClipped(size_t shot, size_t place) const
{
    const SmallShot::Channels &brightest = shots[shot].brightest;
    return std::max({brightest[0][place], brightest[1][place], brightest[2][place]}) >= kWhite;
}

int motion::Movement::difference(size_t first, size_t second, size_t place) const
{
    if (shots[first].covered[place] == 0 || shots[second].covered[place] == 0)
        return 0;
    int largest = 0;
    for (size_t channel = 0; channel < 3; ++channel) {
        const int there = distance(first, second, channel, place);
        if (there > largest)
            largest = std::max(largest, std::min(there, distance(second, first, channel, place)));
    }
    if (largest > kFaint && (isClipped(first, place) || isClipped(second, place)))
        return largest - kColourShift;
    return largest;
}

void motion::Movement::addDifferences(size_t first, size_t second, Plane &strongest) const
{
    const auto width = static_cast<size_t>(shots[0].width);
    const OneWay there(shots[first], shots[second], maps, first, second);
    const OneWay back(shots[second], shots[first], maps, second, first);
    parallel::rows({shots[0].width * 4, shots[0].height}, [&](int begin, int end) {
        for (size_t place = size_t(begin) * width; place < size_t(end) * width; ++place) {
            if (there.farthest(place) <= kFaint || back.farthest(place) <= kFaint)
                continue; // as nearly everywhere
            const int largest = std::max<int>(strongest[place], difference(first, second, place));
            strongest[place] = static_cast<uint8_t>(largest);
        }
    });
}

motion::Plane motion::Movement::differences() const
{
    constexpr size_t kNeighbours = 2; ///< in brightness, to compare with
    Plane strongest(shots[0].covered.size());
    for (size_t i = 0; i < order.size(); ++i)
        for (size_t j = i + 1; j <= i + kNeighbours && j < order.size(); ++j)
            addDifferences(order[i], order[j], strongest);
    return strongest;
}

motion::Plane motion::Movement::changes() const
{
    constexpr int kLeastOf25 = 7;
    const Plane strongest = differences();
    const auto above = [&](int threshold) {
        Plane flags(strongest.size());
        for (size_t i = 0; i < flags.size(); ++i)
            flags[i] = static_cast<uint8_t>(strongest[i] > threshold);
        return planes::crowded(flags, shots[0].width, shots[0].height, 2, kLeastOf25);
    };
    const Plane clear = above(kThreshold);
    Plane changes = above(kFaint);
    const FlagRuns faint(changes, static_cast<size_t>(shots[0].width));
    std::vector<char> isClear(faint.groupCount());
    for (const FlagRuns::Run &run : faint.runs())
        if (std::memchr(&clear[run.begin], 1, run.end - run.begin) != nullptr)
            isClear[run.group] = 1;
    for (const FlagRuns::Run &run : faint.runs())
        if (isClear[run.group] == 0)
            std::fill_n(&changes[run.begin], run.end - run.begin, uint8_t(0));
    return changes;
}
