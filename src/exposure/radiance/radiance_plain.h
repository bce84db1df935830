#pragma once

#include "Response.h"
#include "radiance_options.h"

#include <vector>

namespace radiance {

/// The merge of merge() without any haste, once the curve and the exposures are known: the
/// definition that the fast one equals to the bit. shots: in the order of their exposures, all in
/// Format_RGB32 or ARGB32 for kByteLevels levels of the response, all in RGBX64 or RGBA64 else.
/// exposures: that of the reference is 1.
Result mergePlain(const std::vector<Shot> &shots, const std::vector<float> &exposures,
                  const Response &response);

} // namespace radiance
