#pragma once

#include <cstddef>
#include <cstdint>

// One row of a NormalisedPlane. The plain function is the definition; the other gives the same to
// the bit, with vector instructions: each value comes from single-precision operations of its own,
// in the same order and never fused. Any thread, reentrant.
namespace registration {

/// Of `groups` * kCellSide greys. means, scales: groups + 1 numbers at the ends of the groups.
void normaliseRow(const uint16_t *grey, size_t groups, const float *means, const float *scales,
                  int8_t *out);

/// Adding this to a number of some hundred leaves the nearest integer in the last bits.
constexpr float kRounder = 12582912.0F;

/// Where the values of a group stand between its ends.
alignas(32) constexpr float kShares[8] = {0.0625F, 0.1875F, 0.3125F, 0.4375F,
                                          0.5625F, 0.6875F, 0.8125F, 0.9375F};

namespace plain {

void normaliseRow(const uint16_t *grey, size_t groups, const float *means, const float *scales,
                  int8_t *out);

} // namespace plain
} // namespace registration
