#pragma once

#include "Look.h"

#include <cstdint>
#include <vector>

namespace exposure {

/// What becomes of each channel value, 0 to 65535, on the scale of 0 to `top` (255 or 65535): black
/// and white point, then exposure in linear light (values are taken as encoded like sRGB), then
/// contrast along an S-shaped curve that leaves black and white where they are. Never falling.
std::vector<uint16_t> levelCurve(const Look &look, int top);

} // namespace exposure
