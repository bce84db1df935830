#include "weight_rows.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "weight_rows.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace weight_rows {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// No vector is longer than the padding of the rows.
using Floats = hn::CappedTag<float, 16>;
using FloatVector = hn::Vec<Floats>;

void grey(const float *const channels[3], size_t count, float *out)
{
    const Floats d;
    const auto quarter = hn::Set(d, 0.25F);
    for (size_t x = 0; x < count; x += hn::Lanes(d)) {
        const auto outer = hn::Add(hn::LoadU(d, channels[0] + x), hn::LoadU(d, channels[2] + x));
        const auto green = hn::LoadU(d, channels[1] + x);
        hn::StoreU(hn::Mul(hn::Add(outer, hn::Add(green, green)), quarter), d, out + x);
    }
}

void moments(const float *upper, const float *lower, size_t quarter, float *means, float *squares)
{
    const Floats d;
    const auto share = hn::Set(d, 0.25F);
    for (size_t x = 0; x < quarter; x += hn::Lanes(d)) {
        FloatVector a, b, c, e;
        hn::LoadInterleaved2(d, upper + 2 * x, a, b);
        hn::LoadInterleaved2(d, lower + 2 * x, c, e);
        hn::StoreU(hn::Mul(hn::Add(hn::Add(a, b), hn::Add(c, e)), share), d, means + x);
        const auto upperSum = hn::Add(hn::Mul(a, a), hn::Mul(b, b));
        const auto lowerSum = hn::Add(hn::Mul(c, c), hn::Mul(e, e));
        hn::StoreU(hn::Mul(hn::Add(upperSum, lowerSum), share), d, squares + x);
    }
}

/// The five numbers, the outermost first.
HWY_INLINE FloatVector sumOfFive(FloatVector a, FloatVector b, FloatVector c, FloatVector d,
                                 FloatVector e)
{
    return hn::Add(hn::Add(hn::Add(a, e), hn::Add(b, d)), c);
}

HWY_INLINE void sumRows(const float *const rows[5], size_t count, float *out)
{
    const Floats d;
    for (size_t x = 0; x < count; x += hn::Lanes(d))
        hn::StoreU(sumOfFive(hn::LoadU(d, rows[0] + x), hn::LoadU(d, rows[1] + x),
                             hn::LoadU(d, rows[2] + x), hn::LoadU(d, rows[3] + x),
                             hn::LoadU(d, rows[4] + x)),
                   d, out + x);
    out[-1] = out[-2] = out[0];
    out[count] = out[count + 1] = out[count - 1];
}

HWY_INLINE FloatVector windowMean(Floats d, const float *sums)
{
    const auto sum = sumOfFive(hn::LoadU(d, sums - 2), hn::LoadU(d, sums - 1), hn::LoadU(d, sums),
                               hn::LoadU(d, sums + 1), hn::LoadU(d, sums + 2));
    return hn::Mul(sum, hn::Set(d, 0.04F));
}

void variances(const float *const means[5], const float *const squares[5], size_t quarter,
               float *const across[2], float *out)
{
    const Floats d;
    sumRows(means, quarter, across[0]);
    sumRows(squares, quarter, across[1]);
    for (size_t x = 0; x < quarter; x += hn::Lanes(d)) {
        const auto mean = windowMean(d, across[0] + x);
        const auto square = windowMean(d, across[1] + x);
        const auto variance = hn::Max(hn::Sub(square, hn::Mul(mean, mean)), hn::Zero(d));
        hn::StoreInterleaved2(variance, variance, d, out + 2 * x);
    }
}

HWY_INLINE FloatVector squaredDistance(Floats d, const float *levels)
{
    const auto distance = hn::Sub(hn::LoadU(d, levels), hn::Set(d, 0.5F));
    return hn::Mul(distance, distance);
}

/// exp(-4 x) for x in 0..0.75, within 2 %: ((1 - x / 4 + x^2 / 32))^16.
HWY_INLINE FloatVector bell(Floats d, FloatVector x)
{
    const auto line = hn::Sub(hn::Set(d, 1.0F), hn::Mul(x, hn::Set(d, 0.25F)));
    auto value = hn::Add(hn::Mul(hn::Mul(x, x), hn::Set(d, 0.03125F)), line);
    for (int i = 0; i < 4; ++i)
        value = hn::Mul(value, value);
    return value;
}

void weights(const float *const channels[3], const float *variances, size_t count, float *out)
{
    const Floats d;
    for (size_t x = 0; x < count; x += hn::Lanes(d)) {
        const auto square = hn::Add(
            hn::Add(squaredDistance(d, channels[0] + x), squaredDistance(d, channels[1] + x)),
            squaredDistance(d, channels[2] + x));
        const auto contrast = hn::Add(hn::LoadU(d, variances + x), hn::Set(d, 0.0003F));
        hn::StoreU(hn::Mul(bell(d, square), hn::Mul(contrast, contrast)), d, out + x);
    }
}

void addUp(const float *weights, bool isFirst, size_t count, float *sums)
{
    const Floats d;
    for (size_t x = 0; x < count; x += hn::Lanes(d)) {
        const auto sum = isFirst ? hn::Zero(d) : hn::LoadU(d, sums + x);
        hn::StoreU(hn::Add(sum, hn::LoadU(d, weights + x)), d, sums + x);
    }
}

void shares(const float *weights, const float *sums, float equal, size_t count, float *out)
{
    const Floats d;
    for (size_t x = 0; x < count; x += hn::Lanes(d)) {
        const auto sum = hn::LoadU(d, sums + x);
        const auto share = hn::Div(hn::LoadU(d, weights + x), sum);
        hn::StoreU(hn::IfThenElse(hn::Gt(sum, hn::Zero(d)), share, hn::Set(d, equal)), d, out + x);
    }
}

} // namespace HWY_NAMESPACE
} // namespace weight_rows
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace weight_rows {
HWY_EXPORT(grey);
HWY_EXPORT(moments);
HWY_EXPORT(variances);
HWY_EXPORT(weights);
HWY_EXPORT(addUp);
HWY_EXPORT(shares);
} // namespace weight_rows

void weightRows::grey(const float *const channels[3], size_t count, float *out)
{
    HWY_DYNAMIC_DISPATCH(weight_rows::grey)(channels, count, out);
}

void weightRows::moments(const float *upper, const float *lower, size_t quarter, float *means,
                         float *squares)
{
    HWY_DYNAMIC_DISPATCH(weight_rows::moments)(upper, lower, quarter, means, squares);
}

void weightRows::variances(const float *const means[5], const float *const squares[5],
                           size_t quarter, float *const across[2], float *out)
{
    HWY_DYNAMIC_DISPATCH(weight_rows::variances)(means, squares, quarter, across, out);
}

void weightRows::weights(const float *const channels[3], const float *variances, size_t count,
                         float *out)
{
    HWY_DYNAMIC_DISPATCH(weight_rows::weights)(channels, variances, count, out);
}

void weightRows::addUp(const float *weights, bool isFirst, size_t count, float *sums)
{
    HWY_DYNAMIC_DISPATCH(weight_rows::addUp)(weights, isFirst, count, sums);
}

void weightRows::shares(const float *weights, const float *sums, float equal, size_t count,
                        float *out)
{
    HWY_DYNAMIC_DISPATCH(weight_rows::shares)(weights, sums, equal, count, out);
}

#endif
