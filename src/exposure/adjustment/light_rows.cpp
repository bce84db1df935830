// A vector lane for each pixel, in single precision: the map's own operations in their order, never
// fused, hence equal results.

#include "light_rows.h"

#include <cstdint>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "light_rows.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace exposure_light {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
using exposure::CellRow;
using exposure::PixelRow;

/// What one of two neighbouring cells has, from the first cell of the lanes on.
template <class D, class I, class V = hn::Vec<D>>
HWY_INLINE V mixed(D floats, const float *cells, I indices, V share)
{
    const V a = hn::TableLookupLanes(hn::LoadU(floats, cells), indices);
    const V b = hn::TableLookupLanes(hn::LoadU(floats, cells + 1), indices);
    return hn::Add(a, hn::Mul(hn::Sub(b, a), share));
}

/// Behind the last cell's middle lies none: its share of the next, which is itself again, is 0.
template <class D>
HWY_INLINE void mixAt(D floats, const CellRow &cells, const PixelRow &pixels, size_t i,
                      float *slopes, float *offsets)
{
    const hn::RebindToSigned<D> integers;
    const auto number = hn::Iota(integers, pixels.first + int32_t(i));
    const auto half = hn::Set(floats, 0.5F);
    const auto middle = hn::Add(
        hn::Set(floats, pixels.corner),
        hn::Mul(hn::Add(hn::ConvertTo(floats, number), half), hn::Set(floats, pixels.step)));
    const auto place = hn::Sub(hn::Div(middle, hn::Set(floats, cells.side)), half);
    const auto inside =
        hn::Min(hn::Max(place, hn::Zero(floats)), hn::Set(floats, float(cells.count - 1)));
    const auto cell = hn::ConvertTo(integers, inside);
    const auto share = hn::Sub(inside, hn::ConvertTo(floats, cell));
    const int first = hn::GetLane(cell);
    const auto indices =
        hn::IndicesFromVec(floats, hn::Sub(cell, hn::Set(integers, int32_t(first))));
    hn::StoreU(mixed(floats, cells.slopes + first, indices, share), floats, slopes + i);
    hn::StoreU(mixed(floats, cells.offsets + first, indices, share), floats, offsets + i);
}

void mixCells(const CellRow &cells, const PixelRow &pixels, float *slopes, float *offsets)
{
    const hn::CappedTag<float, exposure::kCellsBehind> vector;
    const hn::CappedTag<float, 1> single;
    const size_t lanes = hn::Lanes(vector);
    // The lanes' cells have to be neighbours, no more of them than lanes.
    const bool isDense = pixels.step * float(lanes) < cells.side * (float(lanes) - 2);
    size_t i = 0;
    for (; isDense && i + lanes <= pixels.count; i += lanes)
        mixAt(vector, cells, pixels, i, slopes, offsets);
    for (; i < pixels.count; ++i)
        mixAt(single, cells, pixels, i, slopes, offsets);
}

} // namespace HWY_NAMESPACE
} // namespace exposure_light
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace exposure_light {
HWY_EXPORT(mixCells);
} // namespace exposure_light

void exposure::mixCells(const CellRow &cells, const PixelRow &pixels, float *slopes, float *offsets)
{
    HWY_DYNAMIC_DISPATCH(exposure_light::mixCells)(cells, pixels, slopes, offsets);
}

#endif
