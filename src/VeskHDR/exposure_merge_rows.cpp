// The merge of one row. Each vector lane holds one pixel of the result: its weighted sums stay in
// registers while the pictures are visited in order, so no buffer of sums is needed. The sums are
// the plain code's: single precision, the same additions in the same order, never fused with the
// multiplications; hence equal results, bit for bit.

#include "exposure_merge_rows.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "exposure_merge_rows.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace merge_rows {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

template <class D, class V = hn::Vec<D>>
HWY_INLINE V lowestByte(D words, V pixels)
{
    return hn::And(pixels, hn::Set(words, 0xFFU));
}

/// Weight of each pixel: looked up at its largest and smallest colour channel.
template <class D, class V = hn::Vec<D>>
HWY_INLINE auto weightsOf(D, V red, V green, V blue, const float *table)
{
    const hn::Rebind<int32_t, D> indexes;
    const V largest = hn::Max(hn::Max(red, green), blue);
    const V smallest = hn::Min(hn::Min(red, green), blue);
    const V index = hn::Or(hn::ShiftLeft<8>(hn::Sub(largest, smallest)), smallest);
    return hn::GatherIndex(hn::Rebind<float, D>(), table, hn::BitCast(indexes, index));
}

template <class D, class F>
HWY_INLINE F asFloat(D, hn::Vec<D> channel)
{
    const hn::Rebind<int32_t, D> ints;
    return hn::ConvertTo(hn::Rebind<float, D>(), hn::BitCast(ints, channel));
}

template <class D, class F>
HWY_INLINE hn::Vec<D> mean(D words, F sum, F weight)
{
    const hn::Rebind<int32_t, D> ints;
    return hn::BitCast(words, hn::ConvertTo(ints, hn::Div(sum, weight)));
}

template <class D>
HWY_INLINE void mergePixels(D words, const uint32_t *const *rows, size_t count, size_t x,
                            const float *table, uint32_t *out)
{
    const hn::Rebind<float, D> floats;
    using F = hn::Vec<decltype(floats)>;
    F redSum = hn::Zero(floats);
    F greenSum = hn::Zero(floats);
    F blueSum = hn::Zero(floats);
    F weightSum = hn::Zero(floats);
    for (size_t i = 0; i < count; ++i) {
        const auto pixels = hn::LoadU(words, rows[i] + x);
        const auto red = lowestByte(words, hn::ShiftRight<16>(pixels));
        const auto green = lowestByte(words, hn::ShiftRight<8>(pixels));
        const auto blue = lowestByte(words, pixels);
        const F weight = weightsOf(words, red, green, blue, table);
        redSum = hn::Add(redSum, hn::Mul(asFloat<D, F>(words, red), weight));
        greenSum = hn::Add(greenSum, hn::Mul(asFloat<D, F>(words, green), weight));
        blueSum = hn::Add(blueSum, hn::Mul(asFloat<D, F>(words, blue), weight));
        weightSum = hn::Add(weightSum, weight);
    }
    const auto red = hn::ShiftLeft<16>(mean(words, redSum, weightSum));
    const auto green = hn::ShiftLeft<8>(mean(words, greenSum, weightSum));
    const auto blue = mean(words, blueSum, weightSum);
    const auto alpha = hn::Set(words, 0xFF000000U);
    hn::StoreU(hn::Or(hn::Or(alpha, red), hn::Or(green, blue)), words, out + x);
}

void mergeRow(const uint32_t *const *rows, size_t count, size_t width, const float *table,
              uint32_t *out)
{
    const hn::ScalableTag<uint32_t> vector;
    const hn::CappedTag<uint32_t, 1> single;
    size_t x = 0;
    for (; x + hn::Lanes(vector) <= width; x += hn::Lanes(vector))
        mergePixels(vector, rows, count, x, table, out);
    for (; x < width; ++x)
        mergePixels(single, rows, count, x, table, out);
}

} // namespace HWY_NAMESPACE
} // namespace merge_rows
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace merge_rows {
HWY_EXPORT(mergeRow);
}

void mergeRow(const uint32_t *const *rows, size_t count, size_t width, const float *weights,
              uint32_t *out)
{
    HWY_DYNAMIC_DISPATCH(merge_rows::mergeRow)(rows, count, width, weights, out);
}

#endif
