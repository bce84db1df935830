#include "regions.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

using motion::Movement;
using motion::Region;
using motion::SmallShot;

/// A shot shows the same as the reference when no more of the region's places disagree.
constexpr double kLargestDisagreement = 0.04;

/// How many places of a region are looked at to choose for it, evenly spread.
constexpr size_t kMostSamples = 20000;

/// Logarithm of how well exposed and how rich in contrast the shot is there, as the fusion weighs
/// pixels.
double richness(const SmallShot &shot, size_t place)
{
    constexpr double kClipped = -2.3; // a tenth
    double square = 0.0;
    for (const SmallShot::Levels &channel : shot.levels) {
        const double distance = channel[place] / 255.0 - 0.5;
        square += distance * distance;
    }
    const double step = shot.highest[1][place] - shot.lowest[1][place];
    return -2 * square + std::log(step + 1) + (motion::isClipped(shot, place) ? kClipped : 0.0);
}

Region samplesOf(const Region &region)
{
    const size_t step = (region.size() + kMostSamples - 1) / kMostSamples;
    Region samples;
    for (size_t i = 0; i < region.size(); i += step)
        samples.push_back(region[i]);
    return samples;
}

/// For each pair of shots, [i * shots + j]: they show the same.
std::vector<char> samePairs(const Region &samples, size_t shots, const Movement &movement)
{
    std::vector<char> same(shots * shots, 1);
    for (size_t i = 0; i < shots; ++i) {
        for (size_t j = 0; j < i; ++j) {
            const auto disagreeing =
                std::count_if(samples.begin(), samples.end(),
                              [&](size_t place) { return movement.disagree(i, j, place); });
            const double most = kLargestDisagreement * static_cast<double>(samples.size());
            same[i * shots + j] = same[j * shots + i] = static_cast<double>(disagreeing) <= most;
        }
    }
    return same;
}

/// The samples' richness in each shot, shot after shot.
std::vector<double> richnessOf(const Region &samples, const std::vector<SmallShot> &shots)
{
    std::vector<double> result;
    for (const SmallShot &shot : shots)
        for (const size_t place : samples)
            result.push_back(richness(shot, place));
    return result;
}

/// Over the samples, of the richest of the shots that are kept.
double sumOfBest(const std::vector<double> &rich, size_t samples, const char *kept, size_t shots)
{
    double sum = 0.0;
    for (size_t i = 0; i < samples; ++i) {
        double best = -std::numeric_limits<double>::infinity();
        for (size_t shot = 0; shot < shots; ++shot)
            if (kept[shot] != 0)
                best = std::max(best, rich[shot * samples + i]);
        sum += best;
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
        regions.push_back(std::move(region));
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
    const size_t count = shots.size();
    const Region samples = samplesOf(region);
    const std::vector<char> same = samePairs(samples, count, movement);
    const std::vector<double> rich = richnessOf(samples, shots);
    size_t best = 0;
    double bestSum = -std::numeric_limits<double>::infinity();
    for (size_t reference = 0; reference < count; ++reference) {
        const double sum = sumOfBest(rich, samples.size(), &same[reference * count], count);
        const bool isFixed = fixed >= 0 && reference == static_cast<size_t>(fixed);
        if (isFixed || (fixed < 0 && sum > bestSum)) {
            best = reference;
            bestSum = sum;
        }
    }
    const auto kept = same.begin() + static_cast<long>(best * count);
    return {best, std::vector<char>(kept, kept + static_cast<long>(count))};
}
