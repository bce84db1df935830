#include "mef_ssimd.h"

#include "Plane.h"
#include "mef_ssim.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace {

constexpr double kNoise = (0.03 * 255) * (0.03 * 255); ///< added to both sides of a correlation
constexpr double kLeastCorrelation = 0.5;
constexpr double kLargestStep = 25.5; ///< between the means of patches that agree

using LevelMap = std::array<double, 256>;

/// Levels counted up from 0, as shares of the plane.
LevelMap cumulativeHistogram(const Plane &plane)
{
    LevelMap shares{};
    for (const double value : plane.values)
        ++shares[static_cast<size_t>(std::clamp(value + 0.5, 0.0, 255.0))];
    std::partial_sum(shares.begin(), shares.end(), shares.begin());
    for (double &share : shares)
        share /= static_cast<double>(plane.values.size());
    return shares;
}

/// For each level of one shot the level of the other that has the same rank.
LevelMap levelMap(const Plane &from, const Plane &to)
{
    const LevelMap fromShares = cumulativeHistogram(from);
    const LevelMap toShares = cumulativeHistogram(to);
    LevelMap map{};
    for (size_t level = 0; level < map.size(); ++level) {
        const double below = level > 0 ? fromShares[level - 1] : 0.0;
        const double rank = (below + fromShares[level]) / 2;
        const auto found = std::lower_bound(toShares.begin(), toShares.end(), rank);
        map[level] = static_cast<double>(std::min<long>(found - toShares.begin(), 255));
    }
    return map;
}

Plane mapped(Plane plane, const LevelMap &map)
{
    for (double &value : plane.values)
        value = map[static_cast<size_t>(std::clamp(value + 0.5, 0.0, 255.0))];
    return plane;
}

/// Per place the step between the means of two shots' patches, the smaller of the two ways to map.
Plane meanSteps(const Plane &first, const Plane &second)
{
    const Plane firstMean = planes::windowMean(first);
    const Plane secondMean = planes::windowMean(second);
    const Plane firstMapped = planes::windowMean(mapped(first, levelMap(first, second)));
    const Plane secondMapped = planes::windowMean(mapped(second, levelMap(second, first)));
    Plane steps = firstMean;
    for (size_t i = 0; i < steps.values.size(); ++i)
        steps.values[i] = std::min(std::abs(firstMapped.values[i] - secondMean.values[i]),
                                   std::abs(secondMapped.values[i] - firstMean.values[i]));
    return steps;
}

/// One scale: which shots agree where, and the patches.
class Scale
{
public:
    Scale(const std::vector<Plane> &shots, const Plane &result);

    mefSsimd::Score score() const;

private:
    bool agree(size_t i, size_t j, size_t place) const;
    bool isStatic(size_t place) const;
    double dynamicQuality(size_t place) const;

    size_t count;
    mefSsim::Patches patches;
    std::vector<std::vector<Plane>> steps; ///< [i][j], j < i
};

Scale::Scale(const std::vector<Plane> &shots, const Plane &result)
    : count(shots.size())
    , patches(mefSsim::patches(shots, result))
    , steps(shots.size())
{
    for (size_t i = 0; i < count; ++i)
        for (size_t j = 0; j < i; ++j)
            steps[i].push_back(meanSteps(shots[i], shots[j]));
}

bool Scale::agree(size_t i, size_t j, size_t place) const
{
    if (i == j)
        return true;
    if (i < j)
        std::swap(i, j);
    if (steps[i][j].values[place] > kLargestStep)
        return false;
    const double lengths = std::sqrt(std::max(0.0, patches.covariances[i][i].values[place]) *
                                     std::max(0.0, patches.covariances[j][j].values[place]));
    const double shared = patches.covariances[i][j].values[place];
    return shared + kNoise >= kLeastCorrelation * (lengths + kNoise);
}

bool Scale::isStatic(size_t place) const
{
    for (size_t i = 0; i < count; ++i)
        for (size_t j = 0; j < i; ++j)
            if (!agree(i, j, place))
                return false;
    return true;
}

double Scale::dynamicQuality(size_t place) const
{
    double best = 0.0;
    for (size_t reference = 0; reference < count; ++reference) {
        std::vector<size_t> shots;
        for (size_t i = 0; i < count; ++i)
            if (agree(i, reference, place))
                shots.push_back(i);
        best = std::max(best, mefSsim::placeQuality(patches, place, shots));
    }
    return best;
}

mefSsimd::Score Scale::score() const
{
    std::vector<size_t> all(count);
    std::iota(all.begin(), all.end(), size_t(0));
    double sums[2] = {0.0, 0.0};
    size_t places[2] = {0, 0};
    for (size_t place = 0; place < patches.resultVariance.values.size(); ++place) {
        const bool isDynamic = !isStatic(place);
        sums[isDynamic] +=
            isDynamic ? dynamicQuality(place) : mefSsim::placeQuality(patches, place, all);
        ++places[isDynamic];
    }
    mefSsimd::Score score;
    score.staticQuality = places[0] > 0 ? sums[0] / static_cast<double>(places[0]) : 0.0;
    score.dynamicQuality = places[1] > 0 ? sums[1] / static_cast<double>(places[1]) : 0.0;
    const int regions = (places[0] > 0) + (places[1] > 0);
    score.quality = (score.staticQuality + score.dynamicQuality) / std::max(1, regions);
    score.dynamicShare = static_cast<double>(places[1]) /
                         static_cast<double>(std::max<size_t>(1, places[0] + places[1]));
    return score;
}

} // namespace

mefSsimd::Score mefSsimd::scores(const std::vector<QImage> &shots, const QImage &result)
{
    std::vector<Plane> greys;
    for (const QImage &shot : shots)
        greys.push_back(planes::grey(shot));
    Plane grey = planes::grey(result);
    std::vector<double> qualities;
    Score finest;
    for (int scale = 0; scale < mefSsim::kScales; ++scale) {
        const Score score = Scale(greys, grey).score();
        qualities.push_back(score.quality);
        if (scale == 0)
            finest = score;
        for (Plane &plane : greys)
            plane = planes::halved(plane);
        grey = planes::halved(grey);
    }
    finest.quality = mefSsim::combinedScales(qualities);
    return finest;
}

double mefSsimd::score(const std::vector<QImage> &shots, const QImage &result)
{
    return scores(shots, result).quality;
}
