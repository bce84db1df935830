#pragma once

#include <cstddef>
#include <cstdint>

// Sums of products of values within +-128. The plain function is the definition; the others give
// the same, with vector instructions: whole numbers that never overflow, so the order of the sums
// does not matter. Any thread, reentrant.
namespace registration {

/// A square of the reference and the larger square of the shot that it is looked for in.
struct CorrelationInput
{
    const int16_t *tile;
    const int16_t *patch;
    size_t side;        ///< of the tile, at most kLargestTile
    size_t tileStride;  ///< side rounded up to a multiple of kRowPadding; zeros behind the side
    size_t patchStride; ///< tileStride + offsets or more
    size_t offsets;     ///< across and down
};

constexpr size_t kLargestTile = 96;

/// sums[dy * offsets + dx] = sum of tile(x, y) * patch(x + dx, y + dy).
void correlate(const CorrelationInput &input, int32_t *sums);

/// Sum of a[i] * b[i], i in 0..count-1; count at most 2^16.
int32_t dotProduct(const int16_t *a, const int16_t *b, size_t count);

namespace plain {

void correlate(const CorrelationInput &input, int32_t *sums);
int32_t dotProduct(const int16_t *a, const int16_t *b, size_t count);

} // namespace plain
} // namespace registration
