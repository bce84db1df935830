#pragma once

#include <cstdint>

/// Display P3 (the primaries of SMPTE RP 431-2, white D65, the curve of sRGB), which this release
/// of LibRaw does not put out.
namespace display_p3 {

/// Turns count pixels of linear ProPhoto RGB, red first, into linear Display P3 in place; grey ones
/// have one channel. 16 bits a channel. What lies outside is cut off.
void turn(std::uint16_t *samples, std::int64_t count, int channels);

/// Puts the curve on count linear samples, in place.
void encode(std::uint16_t *samples, std::int64_t count);

} // namespace display_p3
