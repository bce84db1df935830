#include "regions.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using motion::Movement;
using motion::Region;
using motion::SmallShot;

/// A shot shows the same as the reference when no more of the region's places disagree.
constexpr double kLargestDisagreement = 0.04;

/// How well exposed and how rich in contrast the shot is there, as the fusion weighs pixels.
float richness(const SmallShot &shot, size_t place)
{
    float square = 0.0F;
    for (const SmallShot::Levels &channel : shot.levels) {
        const float distance = static_cast<float>(channel[place]) / 255 - 0.5F;
        square += distance * distance;
    }
    const auto step = static_cast<float>(shot.highest[1][place] - shot.lowest[1][place]);
    const float shown = motion::isClipped(shot, place) ? 0.1F : 1.0F;
    return std::exp(-2 * square) * (step + 1) * shown;
}

std::vector<char> showSame(const Region &region, size_t shots, const Movement &movement,
                           size_t reference)
{
    std::vector<char> same(shots);
    for (size_t shot = 0; shot < shots; ++shot) {
        const auto disagreeing = std::count_if(region.begin(), region.end(), [&](size_t place) {
            return shot != reference && movement.disagree(shot, reference, place);
        });
        same[shot] = static_cast<double>(disagreeing) <=
                     kLargestDisagreement * static_cast<double>(region.size());
    }
    return same;
}

double sumOfBest(const Region &region, const std::vector<SmallShot> &shots,
                 const std::vector<char> &kept)
{
    double sum = 0.0;
    for (const size_t place : region) {
        float best = 0.0F;
        for (size_t shot = 0; shot < shots.size(); ++shot)
            if (kept[shot] != 0)
                best = std::max(best, richness(shots[shot], place));
        sum += std::log(static_cast<double>(best));
    }
    return sum;
}

/// Appends the flagged places around one to the region and clears their flags.
void takeNeighbours(motion::Plane &left, size_t width, size_t place, Region &region)
{
    const size_t x = place % width;
    const size_t y = place / width;
    const size_t height = left.size() / width;
    for (size_t row = y - (y > 0 ? 1 : 0); row <= std::min(y + 1, height - 1); ++row) {
        for (size_t column = x - (x > 0 ? 1 : 0); column <= std::min(x + 1, width - 1); ++column) {
            const size_t next = row * width + column;
            if (left[next] == 0)
                continue;
            left[next] = 0;
            region.push_back(next);
        }
    }
}

} // namespace

std::vector<Region> motion::touching(const Plane &flags, int width)
{
    std::vector<Region> regions;
    Plane left = flags;
    for (size_t start = 0; start < left.size(); ++start) {
        if (left[start] == 0)
            continue;
        Region region{start};
        left[start] = 0;
        for (size_t i = 0; i < region.size(); ++i)
            takeNeighbours(left, static_cast<size_t>(width), region[i], region);
        regions.push_back(region);
    }
    return regions;
}

bool motion::isClipped(const SmallShot &shot, size_t place)
{
    constexpr int kBright = 250;
    constexpr int kDark = 5;
    const auto isBright = [&](const SmallShot::Levels &channel) {
        return channel[place] >= kBright;
    };
    const auto isDark = [&](const SmallShot::Levels &channel) { return channel[place] <= kDark; };
    return std::any_of(shot.levels.begin(), shot.levels.end(), isBright) ||
           std::all_of(shot.levels.begin(), shot.levels.end(), isDark);
}

motion::RegionChoice motion::choose(const Region &region, const std::vector<SmallShot> &shots,
                                    const Movement &movement, int fixed)
{
    RegionChoice best;
    double bestSum = -std::numeric_limits<double>::infinity();
    for (size_t reference = 0; reference < shots.size(); ++reference) {
        if (fixed >= 0 && reference != static_cast<size_t>(fixed))
            continue;
        const std::vector<char> kept = showSame(region, shots.size(), movement, reference);
        const double sum = sumOfBest(region, shots, kept);
        if (sum > bestSum) {
            best = {reference, kept};
            bestSum = sum;
        }
    }
    return best;
}
