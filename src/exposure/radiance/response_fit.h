#pragma once

#include "Response.h"
#include "level_samples.h"

#include <optional>
#include <vector>

namespace radiance {

/// The exposures, and the curve where it was asked for, that make the shots agree.
struct ResponseFit
{
    std::vector<double> exposures; ///< in an unknown common unit
    std::vector<double> light;     ///< of 256 levels, rising; empty unless recovered
};

/// Starts from the exposures that are known (all above 0), or from none (empty), and from the light
/// of each of 256 levels that the profile tells. The exposures are then the known ones, moved where
/// the pixels say so beyond doubt, or those that the pixels alone tell.
/// The curve can be told only where exposures are known.
ResponseFit fitResponse(const std::vector<LevelSample> &samples, size_t shots,
                        const std::vector<double> &knownExposures, const Response &profile,
                        bool recoversCurve);

} // namespace radiance
