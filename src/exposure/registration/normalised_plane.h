#pragma once

#include "grey_plane.h"

#include <cstdint>
#include <vector>

namespace registration {

/// A GreyPlane with local mean and contrast taken out, so that two exposures of a scene look alike:
/// (grey - mean) / (deviation + kNoiseFloor), in steps of 1 / kStepsPerDeviation, within +-127;
/// kNothing where there is no grey. Mean and deviation are those of the 32 x 32 values around, taken
/// every 8 values and interpolated between.
struct NormalisedPlane
{
    int8_t *row(int y) { return values.data() + static_cast<size_t>(y) * stride; }
    const int8_t *row(int y) const { return values.data() + static_cast<size_t>(y) * stride; }

    int width = 0;
    int height = 0;
    size_t stride = 0; ///< a multiple of kRowPadding; kNothing behind the width
    std::vector<int8_t> values;
};

constexpr int8_t kNothing = -128;
constexpr int kNodeDistance = 8;
constexpr float kStepsPerDeviation = 32.0F;
constexpr double kNoiseFloor = 8.0; ///< half a step of 8-bit pictures

/// Throws std::bad_alloc.
NormalisedPlane normalised(const GreyPlane &grey, const std::atomic<bool> &isCancelled);

} // namespace registration
