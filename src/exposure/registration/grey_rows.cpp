#include "grey_rows.h"

#include "grey_plane.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "grey_rows.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace registration_grey {
namespace HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR

// One lane cannot be split into bytes.
using registration::plain::greyOfPairs;
using registration::plain::greyOfWords;
using registration::plain::halveRow;
using registration::plain::sumCells;

#else

namespace hn = hwy::HWY_NAMESPACE;
using registration::CellSums;
using registration::kCellSide;
using registration::kFirstClipped;
using registration::kFirstGrey;
using registration::kNoGrey;
using registration::WordRows;

/// Not 0 where a channel is clipped or alpha is not full.
template <class D, class V = hn::Vec<D>>
HWY_INLINE V nothing(D words, V pixels)
{
    constexpr uint32_t kLast = kFirstClipped - 1;
    const hn::Repartition<uint8_t, D> bytes;
    const V allowed = hn::Set(words, kLast << 16 | kLast << 8 | kLast);
    const V asked = hn::Xor(pixels, hn::Set(words, 0xFF000000U));
    return hn::BitCast(words,
                       hn::SaturatedSub(hn::BitCast(bytes, asked), hn::BitCast(bytes, allowed)));
}

/// Red and blue in 16 bits each.
template <class D, class V = hn::Vec<D>>
HWY_INLINE V redBlue(D words, V pixels)
{
    return hn::And(pixels, hn::Set(words, 0x00FF00FFU));
}

template <class D, class V = hn::Vec<D>>
HWY_INLINE V green(D words, V pixels)
{
    return hn::And(hn::ShiftRight<8>(pixels), hn::Set(words, 0xFFU));
}

/// Stores the brightness of four pixels; redBlues and greens: their sums.
template <class D, class V = hn::Vec<D>>
HWY_INLINE void store(D words, V redBlues, V greens, V nothings, uint16_t *out)
{
    const hn::Rebind<int32_t, D> integers;
    const hn::Rebind<uint16_t, D> halves;
    const V sum = hn::Add(hn::Add(hn::ShiftRight<16>(redBlues), hn::ShiftLeft<1>(greens)),
                          hn::And(redBlues, hn::Set(words, 0xFFFFU)));
    const auto values = hn::BitCast(integers, sum);
    const auto isSeen = hn::And(hn::Eq(hn::BitCast(integers, nothings), hn::Zero(integers)),
                                hn::Gt(values, hn::Set(integers, kFirstGrey - 1)));
    const auto result = hn::IfThenElse(isSeen, values, hn::Set(integers, int32_t{kNoGrey}));
    hn::StoreU(hn::DemoteTo(halves, result), halves, out);
}

void greyOfWords(const WordRows &rows, uint16_t *out)
{
    const hn::ScalableTag<uint32_t> words;
    const auto opaque = hn::Set(words, rows.opaque);
    size_t x = 0;
    for (; x + hn::Lanes(words) <= rows.width; x += hn::Lanes(words)) {
        const auto pixels = hn::Or(hn::LoadU(words, rows.upper + x), opaque);
        store(words, hn::ShiftLeft<2>(redBlue(words, pixels)),
              hn::ShiftLeft<2>(green(words, pixels)), nothing(words, pixels), out + x);
    }
    registration::plain::greyOfWords({rows.upper + x, nullptr, rows.width - x, rows.opaque},
                                     out + x);
}

template <class D>
HWY_INLINE void greyOfPairVector(D words, const WordRows &rows, size_t x, uint16_t *out)
{
    const auto opaque = hn::Set(words, rows.opaque);
    hn::Vec<D> a;
    hn::Vec<D> b;
    hn::Vec<D> c;
    hn::Vec<D> d;
    hn::LoadInterleaved2(words, rows.upper + 2 * x, a, b);
    hn::LoadInterleaved2(words, rows.lower + 2 * x, c, d);
    a = hn::Or(a, opaque);
    b = hn::Or(b, opaque);
    c = hn::Or(c, opaque);
    d = hn::Or(d, opaque);
    const auto redBlues = hn::Add(hn::Add(redBlue(words, a), redBlue(words, b)),
                                  hn::Add(redBlue(words, c), redBlue(words, d)));
    const auto greens = hn::Add(hn::Add(green(words, a), green(words, b)),
                                hn::Add(green(words, c), green(words, d)));
    const auto nothings = hn::Or(hn::Or(nothing(words, a), nothing(words, b)),
                                 hn::Or(nothing(words, c), nothing(words, d)));
    store(words, redBlues, greens, nothings, out + x);
}

void greyOfPairs(const WordRows &rows, uint16_t *out)
{
    const hn::ScalableTag<uint32_t> words;
    size_t x = 0;
    for (; x + hn::Lanes(words) <= rows.width; x += hn::Lanes(words))
        greyOfPairVector(words, rows, x, out);
    registration::plain::greyOfPairs(
        {rows.upper + 2 * x, rows.lower + 2 * x, rows.width - x, rows.opaque}, out + x);
}

/// 1 where there is a grey.
template <class D, class V = hn::Vec<D>>
HWY_INLINE V isThere(D greys, V v)
{
    return hn::IfThenElseZero(hn::Ne(v, hn::Set(greys, kNoGrey)), hn::Set(greys, uint16_t{1}));
}

template <class D, class V = hn::Vec<D>>
HWY_INLINE V orZero(D greys, V v)
{
    return hn::IfThenElseZero(hn::Ne(v, hn::Set(greys, kNoGrey)), v);
}

/// sum / count, rounded as halveRow() has it; a third by its reciprocal, exact for such sums.
template <class D, class V = hn::Vec<D>>
HWY_INLINE V meanOf(D greys, V sum, V count)
{
    const V one = hn::Set(greys, uint16_t{1});
    const V two = hn::Set(greys, uint16_t{2});
    const V half = hn::ShiftRight<1>(hn::Add(sum, one));
    const V third = hn::MulHigh(sum, hn::Set(greys, uint16_t{21846}));
    const V quarter = hn::ShiftRight<2>(hn::Add(sum, two));
    const V few = hn::IfThenElse(hn::Eq(count, two), half, hn::Set(greys, kNoGrey));
    const V many = hn::IfThenElse(hn::Eq(count, hn::Set(greys, uint16_t{3})), third, quarter);
    return hn::IfThenElse(hn::Gt(count, two), many, few);
}

void halveRow(const uint16_t *upper, const uint16_t *lower, size_t width, uint16_t *out)
{
    const hn::ScalableTag<uint16_t> greys;
    size_t x = 0;
    for (; x + hn::Lanes(greys) <= width; x += hn::Lanes(greys)) {
        hn::Vec<decltype(greys)> a;
        hn::Vec<decltype(greys)> b;
        hn::Vec<decltype(greys)> c;
        hn::Vec<decltype(greys)> d;
        hn::LoadInterleaved2(greys, upper + 2 * x, a, b);
        hn::LoadInterleaved2(greys, lower + 2 * x, c, d);
        const auto count = hn::Add(hn::Add(isThere(greys, a), isThere(greys, b)),
                                   hn::Add(isThere(greys, c), isThere(greys, d)));
        const auto sum = hn::Add(hn::Add(orZero(greys, a), orZero(greys, b)),
                                 hn::Add(orZero(greys, c), orZero(greys, d)));
        hn::StoreU(meanOf(greys, sum, count), greys, out + x);
    }
    registration::plain::halveRow(upper + 2 * x, lower + 2 * x, width - x, out + x);
}

template <class D, class V>
HWY_INLINE uint32_t total(D, V v)
{
    return static_cast<uint32_t>(hn::GetLane(hn::SumOfLanes(D(), v)));
}

HWY_INLINE CellSums sumCell(const uint16_t *cell, size_t stride, size_t lines)
{
    const hn::CappedTag<uint16_t, kCellSide> greys;
    const hn::RebindToSigned<decltype(greys)> numbers;
    const hn::RepartitionToWide<decltype(numbers)> wide;
    const auto one = hn::Set(numbers, int16_t{1});
    auto counts = hn::Zero(greys);
    auto sums = hn::Zero(wide);
    auto squares = hn::Zero(wide);
    auto moreSums = hn::Zero(wide); // the other half of the lanes, on targets that keep it apart
    auto moreSquares = hn::Zero(wide);
    for (size_t y = 0; y < lines; ++y) {
        const auto v = hn::LoadU(greys, cell + y * stride);
        const auto number = hn::BitCast(numbers, orZero(greys, v));
        counts = hn::Add(counts, isThere(greys, v));
        sums = hn::ReorderWidenMulAccumulate(wide, number, one, sums, moreSums);
        squares = hn::ReorderWidenMulAccumulate(wide, number, number, squares, moreSquares);
    }
    auto moreCounts = hn::Zero(wide);
    const auto count = hn::ReorderWidenMulAccumulate(wide, hn::BitCast(numbers, counts), one,
                                                     hn::Zero(wide), moreCounts);
    return {total(wide, hn::Add(count, moreCounts)), total(wide, hn::Add(sums, moreSums)),
            total(wide, hn::Add(squares, moreSquares))};
}

void sumCells(const uint16_t *greys, size_t stride, size_t lines, size_t cells, CellSums *out)
{
    for (size_t i = 0; i < cells; ++i)
        out[i] = sumCell(greys + i * kCellSide, stride, lines);
}

#endif

} // namespace HWY_NAMESPACE
} // namespace registration_grey
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace registration_grey {
HWY_EXPORT(greyOfWords);
HWY_EXPORT(greyOfPairs);
HWY_EXPORT(halveRow);
HWY_EXPORT(sumCells);
} // namespace registration_grey

void registration::greyOfWords(const WordRows &rows, uint16_t *out)
{
    HWY_DYNAMIC_DISPATCH(registration_grey::greyOfWords)(rows, out);
}

void registration::greyOfPairs(const WordRows &rows, uint16_t *out)
{
    HWY_DYNAMIC_DISPATCH(registration_grey::greyOfPairs)(rows, out);
}

void registration::halveRow(const uint16_t *upper, const uint16_t *lower, size_t width,
                            uint16_t *out)
{
    HWY_DYNAMIC_DISPATCH(registration_grey::halveRow)(upper, lower, width, out);
}

void registration::sumCells(const uint16_t *greys, size_t stride, size_t lines, size_t cells,
                            CellSums *out)
{
    HWY_DYNAMIC_DISPATCH(registration_grey::sumCells)(greys, stride, lines, cells, out);
}

#endif
