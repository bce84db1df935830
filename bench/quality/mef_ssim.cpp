#include "mef_ssim.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr double kStability = (0.03 * 255) * (0.03 * 255); ///< C of the structural similarity
constexpr double kLargestPower = 10.0;                     ///< of the weights, where shots agree
const double kScaleWeights[mefSsim::kScales] = {0.0448, 0.2856, 0.3001};

/// Covariance under the window, of planes whose window means are known.
Plane covariance(const Plane &first, const Plane &firstMean, const Plane &second,
                 const Plane &secondMean)
{
    Plane result = planes::windowMean(planes::product(first, second));
    for (size_t i = 0; i < result.values.size(); ++i)
        result.values[i] -= firstMean.values[i] * secondMean.values[i];
    return result;
}

double covarianceOf(const mefSsim::Patches &patches, size_t i, size_t j, size_t place)
{
    return patches.covariances[std::max(i, j)][std::min(i, j)].values[place];
}

/// Contrast of each shot's patch: the length of the patch less its mean.
std::vector<double> contrasts(const mefSsim::Patches &patches, size_t place,
                              const std::vector<size_t> &shots)
{
    std::vector<double> result;
    for (const size_t shot : shots)
        result.push_back(std::sqrt(std::max(0.0, covarianceOf(patches, shot, shot, place))));
    return result;
}

/// Squared length of the sum of the patches, each times its factor.
double squaredLength(const mefSsim::Patches &patches, size_t place,
                     const std::vector<size_t> &shots, const std::vector<double> &factors)
{
    double sum = 0.0;
    for (size_t i = 0; i < shots.size(); ++i)
        for (size_t j = 0; j < shots.size(); ++j)
            sum += factors[i] * factors[j] * covarianceOf(patches, shots[i], shots[j], place);
    return std::max(0.0, sum);
}

/// The power of the contrast in the weights, from how much the structures agree (0..1).
double weightPower(double agreement)
{
    const double power = std::tan(M_PI / 2 * std::min(agreement, 1.0));
    return power >= 0.0 ? std::min(power, kLargestPower) : kLargestPower;
}

} // namespace

mefSsim::Patches mefSsim::patches(const std::vector<Plane> &shots, const Plane &result)
{
    std::vector<Plane> means;
    for (const Plane &shot : shots)
        means.push_back(planes::windowMean(shot));
    const Plane resultMean = planes::windowMean(result);
    Patches patches;
    patches.covariances.resize(shots.size());
    for (size_t i = 0; i < shots.size(); ++i) {
        for (size_t j = 0; j <= i; ++j)
            patches.covariances[i].push_back(covariance(shots[i], means[i], shots[j], means[j]));
        patches.withResult.push_back(covariance(shots[i], means[i], result, resultMean));
    }
    patches.resultVariance = covariance(result, resultMean, result, resultMean);
    return patches;
}

double mefSsim::placeQuality(const Patches &patches, size_t place, const std::vector<size_t> &shots)
{
    constexpr double kTiny = 1e-9;
    const std::vector<double> contrast = contrasts(patches, place, shots);
    const double best = *std::max_element(contrast.begin(), contrast.end());
    const double resultVariance = std::max(0.0, patches.resultVariance.values[place]);
    const double sumOfLengths = std::accumulate(contrast.begin(), contrast.end(), 0.0);
    const double lengthOfSum =
        std::sqrt(squaredLength(patches, place, shots, std::vector<double>(shots.size(), 1.0)));
    const double power = weightPower((lengthOfSum + kTiny) / (sumOfLengths + kTiny));
    std::vector<double> factors; // of the patches in the desired structure
    for (const double length : contrast)
        factors.push_back(std::pow(length / (best + kTiny), power) / (length + kTiny));
    const double length = std::sqrt(squaredLength(patches, place, shots, factors));
    double shared = 0.0;
    for (size_t i = 0; i < shots.size(); ++i)
        shared += factors[i] * patches.withResult[shots[i]].values[place];
    const double desiredWithResult = length > kTiny ? best * shared / length : 0.0;
    return (2 * desiredWithResult + kStability) / (best * best + resultVariance + kStability);
}

double mefSsim::combinedScales(const std::vector<double> &qualities)
{
    const double sum = std::accumulate(kScaleWeights, kScaleWeights + kScales, 0.0);
    double score = 1.0;
    for (size_t i = 0; i < qualities.size(); ++i)
        score *= std::pow(std::max(0.0, qualities[i]), kScaleWeights[i] / sum);
    return score;
}

double mefSsim::score(const std::vector<QImage> &shots, const QImage &result)
{
    std::vector<Plane> greys;
    for (const QImage &shot : shots)
        greys.push_back(planes::grey(shot));
    Plane grey = planes::grey(result);
    std::vector<size_t> all(shots.size());
    std::iota(all.begin(), all.end(), size_t(0));
    std::vector<double> qualities;
    for (int scale = 0; scale < kScales; ++scale) {
        const Patches local = patches(greys, grey);
        Plane map = local.resultVariance;
        for (size_t place = 0; place < map.values.size(); ++place)
            map.values[place] = placeQuality(local, place, all);
        qualities.push_back(planes::mean(map));
        for (Plane &plane : greys)
            plane = planes::halved(plane);
        grey = planes::halved(grey);
    }
    return combinedScales(qualities);
}
