#include "fusion_rows.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "fusion_rows.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace fusion_rows {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// No vector is longer than the padding of the rows.
using Numbers = hn::CappedTag<uint16_t, 32>;
using Signed = hn::RebindToSigned<Numbers>;
using NumberVector = hn::Vec<Numbers>;

template <class D>
HWY_INLINE void storeChannel(D /*words*/, hn::Vec<D> channel, uint16_t *out)
{
    const hn::Rebind<uint16_t, D> half;
    const auto level = hn::BitCast(hn::RebindToSigned<D>(), channel);
    hn::StoreU(hn::DemoteTo(half, level), half, out);
}

template <class D>
HWY_INLINE void splitPixels(D words, const uint32_t *pixels, size_t x, uint16_t *const channels[3])
{
    const auto lowestByte = hn::Set(words, 0xFFU);
    const auto v = hn::LoadU(words, pixels + x);
    storeChannel(words, hn::And(hn::ShiftRight<16>(v), lowestByte), channels[0] + x);
    storeChannel(words, hn::And(hn::ShiftRight<8>(v), lowestByte), channels[1] + x);
    storeChannel(words, hn::And(v, lowestByte), channels[2] + x);
}

void split(const uint32_t *words, size_t count, uint16_t *const channels[3])
{
    const hn::CappedTag<uint32_t, 16> vector;
    const hn::CappedTag<uint32_t, 1> single;
    size_t x = 0;
    for (; x + hn::Lanes(vector) <= count; x += hn::Lanes(vector))
        splitPixels(vector, words, x, channels);
    for (; x < count; ++x)
        splitPixels(single, words, x, channels);
}

/// a + 3 b + 3 c + d.
template <class V>
HWY_INLINE V tapSum(V a, V b, V c, V d)
{
    const V middle = hn::Add(b, c);
    return hn::Add(hn::Add(hn::Add(a, d), middle), hn::Add(middle, middle));
}

/// (a + 3 b + 3 c + d) / 8, without leaving 16 bits.
template <class V>
HWY_INLINE V tapMean(V a, V b, V c, V d)
{
    const V middle = hn::AverageRound(b, c);
    return hn::AverageRound(middle, hn::AverageRound(middle, hn::AverageRound(a, d)));
}

/// (3 near + far) / 4.
template <class V>
HWY_INLINE V nearMean(V near, V far)
{
    return hn::AverageRound(near, hn::AverageRound(near, far));
}

HWY_INLINE void repeatEnds(uint16_t *row, size_t count)
{
    row[-1] = row[0];
    row[count] = row[count + 1] = row[count - 1];
}

/// taps: of four vectors, one.
template <class Taps>
HWY_INLINE void halve(const uint16_t *const rows[4], size_t count, size_t half, uint16_t *across,
                      uint16_t *out, Taps taps)
{
    const Numbers d;
    for (size_t x = 0; x < count; x += hn::Lanes(d))
        hn::StoreU(taps(hn::LoadU(d, rows[0] + x), hn::LoadU(d, rows[1] + x),
                        hn::LoadU(d, rows[2] + x), hn::LoadU(d, rows[3] + x)),
                   d, across + x);
    repeatEnds(across, count);
    for (size_t x = 0; x < half; x += hn::Lanes(d)) {
        NumberVector v0, v1, v2, v3;
        hn::LoadInterleaved2(d, across + 2 * x - 1, v0, v1);
        hn::LoadInterleaved2(d, across + 2 * x + 1, v2, v3);
        hn::StoreU(taps(v0, v1, v2, v3), d, out + x);
    }
}

void firstSmaller(const uint16_t *const rows[4], size_t count, size_t half, uint16_t *across,
                  uint16_t *out)
{
    halve(rows, count, half, across, out,
          [](auto a, auto b, auto c, auto d) HWY_ATTR { return tapSum(a, b, c, d); });
}

void smaller(const uint16_t *const rows[4], size_t count, size_t half, uint16_t *across,
             uint16_t *out)
{
    halve(rows, count, half, across, out,
          [](auto a, auto b, auto c, auto d) HWY_ATTR { return tapMean(a, b, c, d); });
}

void larger(const uint16_t *near, const uint16_t *far, size_t half, uint16_t *across, uint16_t *out)
{
    const Numbers d;
    for (size_t x = 0; x < half; x += hn::Lanes(d))
        hn::StoreU(nearMean(hn::LoadU(d, near + x), hn::LoadU(d, far + x)), d, across + x);
    repeatEnds(across, half);
    for (size_t x = 0; x < half; x += hn::Lanes(d)) {
        const auto middle = hn::LoadU(d, across + x);
        const auto even = nearMean(middle, hn::LoadU(d, across + x - 1));
        const auto odd = nearMean(middle, hn::LoadU(d, across + x + 1));
        hn::StoreInterleaved2(even, odd, d, out + 2 * x);
    }
}

/// The numbers of a row: as they stand, or of levels.
template <bool ofLevels>
HWY_INLINE NumberVector load(Numbers d, const uint16_t *row)
{
    const auto numbers = hn::LoadU(d, row);
    return ofLevels ? hn::ShiftLeft<6>(numbers) : numbers;
}

template <bool ofLevels>
HWY_INLINE void startRow(const uint16_t *numbers, const uint16_t *enlarged, size_t count,
                         uint16_t *base, uint16_t *sum)
{
    const Numbers d;
    for (size_t x = 0; x < count; x += hn::Lanes(d)) {
        auto v = load<ofLevels>(d, numbers + x);
        if (enlarged != nullptr)
            v = hn::Sub(v, hn::LoadU(d, enlarged + x));
        hn::StoreU(v, d, base + x);
        hn::StoreU(v, d, sum + x);
    }
}

template <bool ofLevels>
HWY_INLINE void addRow(const uint16_t *numbers, const uint16_t *enlarged, const uint16_t *base,
                       const uint16_t *weights, size_t count, uint16_t *sum)
{
    const Numbers d;
    const Signed s;
    for (size_t x = 0; x < count; x += hn::Lanes(d)) {
        auto v = hn::Sub(load<ofLevels>(d, numbers + x), hn::LoadU(d, base + x));
        if (enlarged != nullptr)
            v = hn::Sub(v, hn::LoadU(d, enlarged + x));
        const auto weight = hn::BitCast(s, hn::LoadU(d, weights + x));
        const auto part = hn::BitCast(d, hn::MulFixedPoint15(hn::BitCast(s, v), weight));
        hn::StoreU(hn::Add(hn::LoadU(d, sum + x), part), d, sum + x);
    }
}

void start(const uint16_t *numbers, const uint16_t *enlarged, size_t count, uint16_t *base,
           uint16_t *sum)
{
    startRow<false>(numbers, enlarged, count, base, sum);
}

void startLevels(const uint16_t *levels, const uint16_t *enlarged, size_t count, uint16_t *base,
                 uint16_t *sum)
{
    startRow<true>(levels, enlarged, count, base, sum);
}

void add(const uint16_t *numbers, const uint16_t *enlarged, const uint16_t *base,
         const uint16_t *weights, size_t count, uint16_t *sum)
{
    addRow<false>(numbers, enlarged, base, weights, count, sum);
}

void addLevels(const uint16_t *levels, const uint16_t *enlarged, const uint16_t *base,
               const uint16_t *weights, size_t count, uint16_t *sum)
{
    addRow<true>(levels, enlarged, base, weights, count, sum);
}

/// The average of unsigned numbers serves signed ones as well when both ends of the range swap.
HWY_INLINE NumberVector swapEnds(Numbers d, NumberVector v)
{
    return hn::Xor(v, hn::Set(d, 0x8000));
}

/// sum + enlarged, signed.
HWY_INLINE hn::Vec<Signed> total(Numbers d, const uint16_t *sum, const uint16_t *enlarged)
{
    const Signed s;
    const auto part = hn::BitCast(s, hn::LoadU(d, sum));
    if (enlarged == nullptr)
        return part;
    return hn::SaturatedAdd(part, hn::BitCast(s, swapEnds(d, hn::LoadU(d, enlarged))));
}

void finish(const uint16_t *sum, const uint16_t *enlarged, size_t count, uint16_t *out)
{
    const Numbers d;
    const size_t lanes = hn::Lanes(d);
    for (size_t x = 0; x < count; x += lanes) {
        const uint16_t *larger = enlarged == nullptr ? nullptr : enlarged + x;
        hn::StoreU(swapEnds(d, hn::BitCast(d, total(d, sum + x, larger))), d, out + x);
    }
}

/// Levels 0..255 from numbers, as words.
template <class D>
HWY_INLINE hn::Vec<D> levelWords(D words, const uint16_t *levels)
{
    return hn::PromoteTo(words, hn::LoadU(hn::Rebind<uint16_t, D>(), levels));
}

template <class D>
HWY_INLINE void joinPixels(D words, const uint16_t (*levels)[32], size_t from, uint32_t *out)
{
    const auto red = hn::ShiftLeft<16>(levelWords(words, levels[0] + from));
    const auto green = hn::ShiftLeft<8>(levelWords(words, levels[1] + from));
    const auto blue = levelWords(words, levels[2] + from);
    const auto opaque = hn::Set(words, 0xFF000000U);
    hn::StoreU(hn::Or(hn::Or(red, green), hn::Or(blue, opaque)), words, out);
}

HWY_INLINE void storeLevels(Numbers d, const uint16_t *sum, const uint16_t *enlarged,
                            uint16_t *levels)
{
    const Signed s;
    const auto rounded = hn::SaturatedAdd(total(d, sum, enlarged), hn::Set(s, 32));
    const auto inRange = hn::Min(hn::Max(hn::ShiftRight<6>(rounded), hn::Zero(s)), hn::Set(s, 255));
    hn::StoreU(hn::BitCast(d, inRange), d, levels);
}

void join(const uint16_t *const sums[3], const uint16_t *const enlarged[3], size_t count,
          uint32_t *words)
{
    const Numbers d;
    const hn::CappedTag<uint32_t, 16> vector;
    const hn::CappedTag<uint32_t, 1> single;
    alignas(64) uint16_t levels[3][32];
    for (size_t first = 0; first < count; first += hn::Lanes(d)) {
        for (size_t i = 0; i < 3; ++i)
            storeLevels(d, sums[i] + first, enlarged[i] + first, levels[i]);
        const size_t end = HWY_MIN(hn::Lanes(d), count - first);
        size_t x = 0;
        for (; x + hn::Lanes(vector) <= end; x += hn::Lanes(vector))
            joinPixels(vector, levels, x, words + first + x);
        for (; x < end; ++x)
            joinPixels(single, levels, x, words + first + x);
    }
}

void toUnit(const uint16_t *numbers, size_t count, float *levels)
{
    const hn::CappedTag<float, 16> floats;
    const hn::RebindToSigned<decltype(floats)> integers;
    const hn::Rebind<uint16_t, decltype(floats)> half;
    const auto unit = hn::Set(floats, fusion::ByteRows::kUnit);
    for (size_t x = 0; x < count; x += hn::Lanes(floats)) {
        const auto wide = hn::PromoteTo(integers, hn::LoadU(half, numbers + x));
        hn::StoreU(hn::Mul(hn::ConvertTo(floats, wide), unit), floats, levels + x);
    }
}

void toWeights(const float *shares, size_t count, uint16_t *weights)
{
    const hn::CappedTag<float, 16> floats;
    const hn::RebindToSigned<decltype(floats)> integers;
    const hn::Rebind<uint16_t, decltype(floats)> half;
    const auto full = hn::Set(floats, fusion::ByteRows::kFullWeight);
    const auto rounding = hn::Set(floats, 0.5F);
    for (size_t x = 0; x < count; x += hn::Lanes(floats)) {
        const auto scaled = hn::Add(hn::Mul(hn::LoadU(floats, shares + x), full), rounding);
        hn::StoreU(hn::DemoteTo(half, hn::ConvertTo(integers, scaled)), half, weights + x);
    }
}

} // namespace HWY_NAMESPACE
} // namespace fusion_rows
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace fusion_rows {
HWY_EXPORT(split);
HWY_EXPORT(firstSmaller);
HWY_EXPORT(smaller);
HWY_EXPORT(larger);
HWY_EXPORT(start);
HWY_EXPORT(startLevels);
HWY_EXPORT(add);
HWY_EXPORT(addLevels);
HWY_EXPORT(finish);
HWY_EXPORT(join);
HWY_EXPORT(toUnit);
HWY_EXPORT(toWeights);
} // namespace fusion_rows

using fusion::ByteRows;

void ByteRows::split(const Word *words, size_t count, Number *const channels[3])
{
    HWY_DYNAMIC_DISPATCH(fusion_rows::split)(words, count, channels);
}

void ByteRows::firstSmaller(const Number *const rows[4], size_t count, size_t half, Number *across,
                            Number *out)
{
    HWY_DYNAMIC_DISPATCH(fusion_rows::firstSmaller)(rows, count, half, across, out);
}

void ByteRows::smaller(const Number *const rows[4], size_t count, size_t half, Number *across,
                       Number *out)
{
    HWY_DYNAMIC_DISPATCH(fusion_rows::smaller)(rows, count, half, across, out);
}

void ByteRows::larger(const Number *near, const Number *far, size_t half, Number *across,
                      Number *out)
{
    HWY_DYNAMIC_DISPATCH(fusion_rows::larger)(near, far, half, across, out);
}

void ByteRows::start(const Number *numbers, const Number *enlarged, size_t count, Number *base,
                     Number *sum)
{
    HWY_DYNAMIC_DISPATCH(fusion_rows::start)(numbers, enlarged, count, base, sum);
}

void ByteRows::startLevels(const Number *levels, const Number *enlarged, size_t count, Number *base,
                           Number *sum)
{
    HWY_DYNAMIC_DISPATCH(fusion_rows::startLevels)(levels, enlarged, count, base, sum);
}

void ByteRows::add(const Number *numbers, const Number *enlarged, const Number *base,
                   const Number *weights, size_t count, Number *sum)
{
    HWY_DYNAMIC_DISPATCH(fusion_rows::add)(numbers, enlarged, base, weights, count, sum);
}

void ByteRows::addLevels(const Number *levels, const Number *enlarged, const Number *base,
                         const Number *weights, size_t count, Number *sum)
{
    HWY_DYNAMIC_DISPATCH(fusion_rows::addLevels)(levels, enlarged, base, weights, count, sum);
}

void ByteRows::finish(const Number *sum, const Number *enlarged, size_t count, Number *out)
{
    HWY_DYNAMIC_DISPATCH(fusion_rows::finish)(sum, enlarged, count, out);
}

void ByteRows::join(const Number *const sums[3], const Number *const enlarged[3], size_t count,
                    Word *words)
{
    HWY_DYNAMIC_DISPATCH(fusion_rows::join)(sums, enlarged, count, words);
}

void ByteRows::toUnit(const Number *numbers, size_t count, float *levels)
{
    HWY_DYNAMIC_DISPATCH(fusion_rows::toUnit)(numbers, count, levels);
}

void ByteRows::toWeights(const float *shares, size_t count, Number *weights)
{
    HWY_DYNAMIC_DISPATCH(fusion_rows::toWeights)(shares, count, weights);
}

#endif
