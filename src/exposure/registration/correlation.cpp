#include "correlation.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "correlation.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace registration_correlation {
namespace HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR

// One lane does not hold two halves.
using registration::plain::correlate;
using registration::plain::dotProduct;

#else

namespace hn = hwy::HWY_NAMESPACE;
using registration::CorrelationInput;

/// Two sums of products; only their total is meant.
template <class V>
struct Sums
{
    V first;
    V second;
};

template <class D16, class D32, class V = hn::Vec<D32>>
HWY_INLINE void addRow(D16 values, D32 sums, const int16_t *a, const int16_t *b, size_t count,
                       Sums<V> &total)
{
    for (size_t x = 0; x < count; x += hn::Lanes(values)) {
        total.first = hn::ReorderWidenMulAccumulate(
            sums, hn::LoadU(values, a + x), hn::LoadU(values, b + x), total.first, total.second);
    }
}

template <class D32, class V>
HWY_INLINE int32_t totalOf(D32 sums, const Sums<V> &total)
{
    return hn::GetLane(hn::SumOfLanes(sums, hn::Add(total.first, total.second)));
}

void correlate(const CorrelationInput &input, int32_t *sums)
{
    const hn::CappedTag<int16_t, 32> values; // rows are padded for as many
    const hn::RepartitionToWide<decltype(values)> wide;
    for (size_t dy = 0; dy < input.offsets; ++dy) {
        for (size_t dx = 0; dx < input.offsets; ++dx) {
            Sums<hn::Vec<decltype(wide)>> total{hn::Zero(wide), hn::Zero(wide)};
            for (size_t y = 0; y < input.side; ++y) {
                addRow(values, wide, input.tile + y * input.tileStride,
                       input.patch + (y + dy) * input.patchStride + dx, input.side, total);
            }
            sums[dy * input.offsets + dx] = totalOf(wide, total);
        }
    }
}

int32_t dotProduct(const int16_t *a, const int16_t *b, size_t count)
{
    const hn::CappedTag<int16_t, 32> values;
    const hn::RepartitionToWide<decltype(values)> wide;
    const size_t inVectors = count - count % hn::Lanes(values);
    Sums<hn::Vec<decltype(wide)>> total{hn::Zero(wide), hn::Zero(wide)};
    addRow(values, wide, a, b, inVectors, total);
    return totalOf(wide, total) +
           registration::plain::dotProduct(a + inVectors, b + inVectors, count - inVectors);
}

#endif

} // namespace HWY_NAMESPACE
} // namespace registration_correlation
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace registration_correlation {
HWY_EXPORT(correlate);
HWY_EXPORT(dotProduct);
} // namespace registration_correlation

void registration::correlate(const CorrelationInput &input, int32_t *sums)
{
    HWY_DYNAMIC_DISPATCH(registration_correlation::correlate)(input, sums);
}

int32_t registration::dotProduct(const int16_t *a, const int16_t *b, size_t count)
{
    return HWY_DYNAMIC_DISPATCH(registration_correlation::dotProduct)(a, b, count);
}

#endif
