#pragma once

#include <cstddef>
#include <cstdint>

/// Pixels that mergeRow takes at a time.
constexpr size_t kMergeStretch = 256;

/// Merges one row of several pictures with vector instructions, the best that the processor has.
/// rows: `count` >= 1 rows of `width` words 0xAARRGGBB; out: as many words, alpha 255, no overlap
/// with the rows. table: weights::table(). weights: room for count * kMergeStretch weights, the
/// caller's so that it is taken once for many rows. Any thread, reentrant.
void mergeRow(const uint32_t *const *rows, size_t count, size_t width, const float *table,
              float *weights, uint32_t *out);
