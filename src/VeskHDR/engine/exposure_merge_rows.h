#pragma once

#include <cstddef>
#include <cstdint>

/// The merge of one row.
namespace merge {

constexpr size_t kCacheLine = 64;

/// Pixels that mergeRow takes at a time.
constexpr size_t kStretch = 256;

/// Room for the weights of one picture in one stretch. A vector that straddles two cache lines
/// would be read in two turns.
struct alignas(kCacheLine) StretchWeights
{
    float weights[kStretch];
};

/// Merges one row of several pictures with vector instructions, the best that the processor has.
/// rows: `count` >= 1 rows of `width` words 0xAARRGGBB; out: as many words, alpha 255, no overlap
/// with the rows. table: weights::table(). weights: `count` entries to work in, the caller's so
/// that they are made once for many rows. Any thread, reentrant.
void mergeRow(const uint32_t *const *rows, size_t count, size_t width, const float *table,
              StretchWeights *weights, uint32_t *out);

/// The instructions that run at present, by Highway's number (hwy::TargetName).
int64_t rowTarget();

} // namespace merge
