#include "mtb_rows.h"

#include <algorithm>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "mtb_rows.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace mtb_rows {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

template <class D>
HWY_INLINE void greyPixels(D words, const uint32_t *pixels, uint8_t *grey)
{
    const auto lowestByte = hn::Set(words, 0xFFU);
    const auto v = hn::LoadU(words, pixels);
    const auto red = hn::And(hn::ShiftRight<16>(v), lowestByte);
    const auto blue = hn::And(v, lowestByte);
    const auto green16 = hn::ShiftRight<4>(hn::And(v, hn::Set(words, 0xFF00U)));
    const auto sum = hn::Add(hn::Add(hn::Mul(red, hn::Set(words, 11U)), green16),
                             hn::Mul(blue, hn::Set(words, 5U)));
    const auto level = hn::BitCast(hn::Rebind<int32_t, D>(), hn::ShiftRight<5>(sum));
    const hn::Rebind<uint8_t, D> bytes;
    hn::StoreU(hn::DemoteTo(bytes, level), bytes, grey);
}

void greyRow(const uint32_t *words, size_t width, uint8_t *grey)
{
    const hn::ScalableTag<uint32_t> vector;
    const hn::CappedTag<uint32_t, 1> single;
    size_t x = 0;
    for (; x + hn::Lanes(vector) <= width; x += hn::Lanes(vector))
        greyPixels(vector, words + x, grey + x);
    for (; x < width; ++x)
        greyPixels(single, words + x, grey + x);
}

void packRow(const uint8_t *grey, size_t words, mtb::LevelRange range, uint64_t *bits)
{
    const hn::CappedTag<uint8_t, 64> bytes;
    const auto first = hn::Set(bytes, static_cast<uint8_t>(range.first));
    const auto last = hn::Set(bytes, static_cast<uint8_t>(range.last));
    for (size_t i = 0; i < words; ++i) {
        uint64_t word = 0;
        for (size_t x = 0; x < 64; x += hn::Lanes(bytes)) {
            const auto levels = hn::LoadU(bytes, grey + 64 * i + x);
            const auto inside = hn::Eq(hn::Min(hn::Max(levels, first), last), levels);
            uint64_t packed = 0;
            hn::StoreMaskBits(bytes, inside, reinterpret_cast<uint8_t *>(&packed));
            word |= packed << x;
        }
        bits[i] = word;
    }
}

HWY_INLINE int64_t ones(uint64_t word)
{
    return static_cast<int64_t>(hwy::PopCount(word));
}

/// Ones among the first `count` bits of a row.
HWY_INLINE int64_t onesInFront(const uint64_t *row, int64_t count)
{
    int64_t sum = 0;
    for (; count >= 64; count -= 64)
        sum += ones(*row++);
    return count > 0 ? sum + ones(*row << (64 - count)) : sum;
}

int64_t rowError(const mtb::RowPair &rows)
{
    int64_t differing = 0;
    for (size_t i = 0; i < rows.words; ++i)
        differing += ones(rows.reference[i] ^ rows.moved[i]);
    const int64_t passing = onesInFront(rows.referenceTrusted, differing);
    const int64_t begin = std::clamp<int64_t>(-int64_t(rows.shift), 0, rows.width);
    const int64_t end = std::clamp<int64_t>(passing - rows.shift, begin, rows.width);
    return onesInFront(rows.movedTrusted, end) - onesInFront(rows.movedTrusted, begin);
}

int64_t target()
{
    return HWY_TARGET;
}

} // namespace HWY_NAMESPACE
} // namespace mtb_rows
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace mtb_rows {
HWY_EXPORT(greyRow);
HWY_EXPORT(packRow);
HWY_EXPORT(rowError);
HWY_EXPORT(target);
} // namespace mtb_rows

void mtb::greyRow(const uint32_t *words, size_t width, uint8_t *grey)
{
    HWY_DYNAMIC_DISPATCH(mtb_rows::greyRow)(words, width, grey);
}

void mtb::packRow(const uint8_t *grey, size_t words, LevelRange range, uint64_t *bits)
{
    if (range.first > range.last)
        std::fill_n(bits, words, 0);
    else
        HWY_DYNAMIC_DISPATCH(mtb_rows::packRow)(grey, words, range, bits);
}

int64_t mtb::rowError(const RowPair &rows)
{
    return HWY_DYNAMIC_DISPATCH(mtb_rows::rowError)(rows);
}

int64_t mtb::rowTarget()
{
    return HWY_DYNAMIC_DISPATCH(mtb_rows::target)();
}

#endif
