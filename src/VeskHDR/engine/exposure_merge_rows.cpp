// The merge of one row, in stretches whose pixels and weights stay in the nearest cache. For each
// stretch, first the places of the weights in their table, in vectors; then the weights themselves,
// looked up one by one: processors do that faster than they gather vectors. Last the merge, each
// vector lane with one pixel of the result: its weighted sums stay in registers while the pictures
// are visited in order, so no buffer of sums is needed. The sums are the plain code's: single
// precision, the same additions in the same order, never fused with the multiplications; hence
// equal results, bit for bit.

#include "exposure_merge_rows.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "exposure_merge_rows.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

#include <QtGlobal>

#include <algorithm>
#include <cstring>

#ifndef VESK_MERGE_LOOK_UP
#define VESK_MERGE_LOOK_UP

namespace merge_rows {

/// Outside of the vector targets and without floats, so that the compiler makes no gather of it.
/// What bounds it are loads and stores, hence two indexes with one load.
inline void lookUp(const uint32_t *indexes, size_t size, const float *table, float *weights)
{
    constexpr int kFirst = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? 0 : 32;
    const auto copy = [table](uint64_t index, float *weight) {
        std::memcpy(weight, table + static_cast<uint32_t>(index), sizeof(*weight));
    };
    size_t x = 0;
    for (; x + 2 <= size; x += 2) {
        uint64_t pair;
        std::memcpy(&pair, indexes + x, sizeof(pair));
        copy(pair >> kFirst, weights + x);
        copy(pair >> (32 - kFirst), weights + x + 1);
    }
    if (x < size)
        copy(indexes[x], weights + x);
}

} // namespace merge_rows

#endif

HWY_BEFORE_NAMESPACE();
namespace merge_rows {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// The colour channel that begins at bit `shift`.
template <int shift, class D>
HWY_INLINE hn::Vec<D> channel(D words, hn::Vec<D> pixels)
{
    return hn::And(hn::ShiftRight<shift>(pixels), hn::Set(words, 0xFFU));
}

template <class D, class V = hn::Vec<D>>
HWY_INLINE V weightIndexes(D words, V pixels)
{
    const V red = channel<16>(words, pixels);
    const V green = channel<8>(words, pixels);
    const V blue = channel<0>(words, pixels);
    const V largest = hn::Max(hn::Max(red, green), blue);
    const V smallest = hn::Min(hn::Min(red, green), blue);
    return hn::Or(hn::ShiftLeft<8>(hn::Sub(largest, smallest)), smallest);
}

template <class D>
HWY_INLINE void findWeights(D words, const uint32_t *pixels, size_t from, size_t to,
                            uint32_t *indexes)
{
    for (size_t x = from; x < to; x += hn::Lanes(words))
        hn::StoreU(weightIndexes(words, hn::LoadU(words, pixels + x)), words, indexes + x);
}

template <class D, class V = hn::Vec<D>>
HWY_INLINE auto asFloats(D, V channel)
{
    return hn::ConvertTo(hn::Rebind<float, D>(), hn::BitCast(hn::Rebind<int32_t, D>(), channel));
}

/// The sum of two numbers below 2^16 without a fraction, as an integer in the low bits: it stands
/// in the last places of a float from 2^23 on. Spares the checks for overflow of a conversion.
template <class D, class V>
HWY_INLINE hn::Vec<D> lowBits(D words, V first, V second)
{
    const V sum = hn::Add(hn::Add(first, second), hn::Set(hn::Rebind<float, D>(), 8388608.0F));
    return hn::BitCast(words, sum);
}

/// Opaque pixels whose channels are the means, fractions cut off.
template <class D, class V>
HWY_INLINE hn::Vec<D> meanPixels(D words, V redSum, V greenSum, V blueSum, V weightSum)
{
    const hn::Rebind<float, D> floats;
    const V red = hn::Floor(hn::Div(redSum, weightSum));
    const V green = hn::Floor(hn::Div(greenSum, weightSum));
    const V blue = hn::Floor(hn::Div(blueSum, weightSum));
    const auto high = hn::ShiftLeft<16>(lowBits(words, red, hn::Zero(floats)));
    const auto low = lowBits(words, hn::Mul(green, hn::Set(floats, 256.0F)), blue);
    return hn::Or(hn::Or(high, low), hn::Set(words, 0xFF000000U));
}

template <class D>
HWY_INLINE void mergePixels(D words, const uint32_t *const *rows, size_t count, size_t first,
                            size_t from, size_t to, const merge::StretchWeights *weights,
                            uint32_t *out)
{
    const hn::Rebind<float, D> floats;
    for (size_t x = from; x < to; x += hn::Lanes(words)) {
        auto redSum = hn::Zero(floats);
        auto greenSum = hn::Zero(floats);
        auto blueSum = hn::Zero(floats);
        auto weightSum = hn::Zero(floats);
        for (size_t i = 0; i < count; ++i) {
            const auto pixels = hn::LoadU(words, rows[i] + first + x);
            const auto weight = hn::LoadU(floats, weights[i].weights + x);
            redSum = hn::Add(redSum, hn::Mul(asFloats(words, channel<16>(words, pixels)), weight));
            greenSum =
                hn::Add(greenSum, hn::Mul(asFloats(words, channel<8>(words, pixels)), weight));
            blueSum = hn::Add(blueSum, hn::Mul(asFloats(words, channel<0>(words, pixels)), weight));
            weightSum = hn::Add(weightSum, weight);
        }
        hn::StoreU(meanPixels(words, redSum, greenSum, blueSum, weightSum), words, out + first + x);
    }
}

void mergeRow(const uint32_t *const *rows, size_t count, size_t width, const float *table,
              merge::StretchWeights *weights, uint32_t *out)
{
    const hn::ScalableTag<uint32_t> vector;
    const hn::CappedTag<uint32_t, 1> single;
    alignas(merge::kCacheLine) uint32_t indexes[merge::kStretch];
    for (size_t first = 0; first < width; first += merge::kStretch) {
        const size_t size = std::min(merge::kStretch, width - first);
        const size_t inVectors = size - size % hn::Lanes(vector);
        for (size_t i = 0; i < count; ++i) {
            findWeights(vector, rows[i] + first, 0, inVectors, indexes);
            findWeights(single, rows[i] + first, inVectors, size, indexes);
            lookUp(indexes, size, table, weights[i].weights);
        }
        mergePixels(vector, rows, count, first, 0, inVectors, weights, out);
        mergePixels(single, rows, count, first, inVectors, size, weights, out);
    }
}

int64_t target()
{
    return HWY_TARGET;
}

} // namespace HWY_NAMESPACE
} // namespace merge_rows
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace merge_rows {
HWY_EXPORT(mergeRow);
HWY_EXPORT(target);
} // namespace merge_rows

void merge::mergeRow(const uint32_t *const *rows, size_t count, size_t width, const float *table,
                     StretchWeights *weights, uint32_t *out)
{
    HWY_DYNAMIC_DISPATCH(merge_rows::mergeRow)(rows, count, width, table, weights, out);
}

int64_t merge::rowTarget()
{
    return HWY_DYNAMIC_DISPATCH(merge_rows::target)();
}

#endif
