#pragma once

#include <cstddef>
#include <cstdint>

/// Merges one row of several pictures with vector instructions, the best that the processor has.
/// rows: `count` >= 1 rows of `width` words 0xAARRGGBB; out: as many words, alpha 255, no overlap
/// with the rows. weights: weights::table(). Any thread, reentrant.
void mergeRow(const uint32_t *const *rows, size_t count, size_t width, const float *weights,
              uint32_t *out);
