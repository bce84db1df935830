#pragma once

#include "grey_plane.h"

#include <cstdint>

namespace registration {

/// A GreyPlane with local mean and contrast taken out, so that two exposures of a scene look alike:
/// (grey - mean) / (deviation + kNoiseFloor), in steps of 1 / kStepsPerDeviation, within +-127;
/// kNothing where there is no grey and in the padding. Mean and deviation are those of the 32 x 32
/// values around, taken every 8 values and interpolated between.
using NormalisedPlane = Plane<int8_t>;

constexpr int8_t kNothing = -128;
constexpr float kStepsPerDeviation = 32.0F;
constexpr double kNoiseFloor = 8.0; ///< half a step of 8-bit pictures

/// Throws std::bad_alloc.
NormalisedPlane normalised(const GreyPlane &grey, const std::atomic<bool> &isCancelled);

} // namespace registration
