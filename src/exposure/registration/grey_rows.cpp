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

#else

namespace hn = hwy::HWY_NAMESPACE;
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
    return hn::BitCast(words, hn::SaturatedSub(hn::BitCast(bytes, asked),
                                               hn::BitCast(bytes, allowed)));
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

#endif

} // namespace HWY_NAMESPACE
} // namespace registration_grey
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace registration_grey {
HWY_EXPORT(greyOfWords);
HWY_EXPORT(greyOfPairs);
} // namespace registration_grey

void registration::greyOfWords(const WordRows &rows, uint16_t *out)
{
    HWY_DYNAMIC_DISPATCH(registration_grey::greyOfWords)(rows, out);
}

void registration::greyOfPairs(const WordRows &rows, uint16_t *out)
{
    HWY_DYNAMIC_DISPATCH(registration_grey::greyOfPairs)(rows, out);
}

#endif
