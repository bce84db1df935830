#pragma once

#include "LightRange.h"

#include <vector>

namespace develop {

/// The most shots that the light is shown as.
constexpr size_t kMostExposures = 8;

/// The exposures of the bracket that shows all of the light: gains, from the one that keeps the
/// brightest below white up to the one that shows the darkest well, two stops apart unless that
/// makes too many. At least one; the least number that does.
std::vector<float> virtualExposures(const LightRange &range, double exposure);

} // namespace develop
