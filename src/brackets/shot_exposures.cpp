#include "shot_exposures.h"

#include "Shot.h"

#include <cmath>
#include <functional>
#include <optional>

namespace {

using Measure = std::function<std::optional<double>(const Shot &)>;

std::optional<double> exposureOf(const Shot &shot)
{
    const std::optional<double> stops = shot.exposureStops();
    return stops ? std::optional<double>(std::exp2(*stops)) : std::nullopt;
}

std::optional<double> timeOf(const Shot &shot)
{
    return shot.exposureSeconds > 0.0 ? std::optional<double>(shot.exposureSeconds) : std::nullopt;
}

std::optional<double> biasOf(const Shot &shot)
{
    return shot.exposureBias ? std::optional<double>(std::exp2(*shot.exposureBias)) : std::nullopt;
}

/// Nothing unless all shots tell.
std::vector<double> measured(const std::vector<Shot> &shots, const Measure &measure)
{
    std::vector<double> exposures;
    for (const Shot &shot : shots) {
        const std::optional<double> exposure = measure(shot);
        if (!exposure)
            return {};
        exposures.push_back(*exposure);
    }
    return exposures;
}

} // namespace

brackets::ShotExposures brackets::shotExposures(const QStringList &paths)
{
    std::vector<Shot> shots;
    for (const QString &path : paths)
        shots.push_back(brackets::readShot(path).shot);
    ShotExposures exposures;
    exposures.relative = measured(shots, &exposureOf);
    exposures.hasScale = !exposures.relative.empty();
    for (const Measure &measure : {Measure(&timeOf), Measure(&biasOf)}) {
        if (exposures.relative.empty())
            exposures.relative = measured(shots, measure);
    }
    return exposures;
}

double brackets::luminanceOfWhite(double exposure)
{
    constexpr double kSaturation = 78.0;
    constexpr double kLens = 0.65;
    return kSaturation / (kLens * exposure);
}
