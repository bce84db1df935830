#pragma once

#include <cstddef>

/// Row functions of the weights, in single precision and vector instructions: the same operations
/// in the same order on every processor. Rows have kRowSlack numbers of padding, which is read and
/// written; rows that are read across have their ends repeated (WorkRows). Any thread, reentrant.
namespace weightRows {

/// Grey of levels 0..1 of red, green and blue.
void grey(const float *const channels[3], size_t count, float *out);

/// Mean of the numbers, and of their squares, over 2 x 2: `quarter` numbers each.
void moments(const float *upper, const float *lower, size_t quarter, float *means, float *squares);

/// Variance over 5 x 5 from five rows of `quarter` moments, each number written twice. across: two
/// rows to work in, of WorkRows.
void variances(const float *const means[5], const float *const squares[5], size_t quarter,
               float *const across[2], float *out);

/// Neutral weights, see docs/fusion.md.
void weights(const float *const channels[3], const float *variances, size_t count, float *out);

/// sums += weights; or sums = weights for the first.
void addUp(const float *weights, bool isFirst, size_t count, float *sums);

/// Weights over sums, or `equal` where the sum is 0.
void shares(const float *weights, const float *sums, float equal, size_t count, float *out);

} // namespace weightRows
