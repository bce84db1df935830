#include "block_rows.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "block_rows.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

#include <algorithm>

HWY_BEFORE_NAMESPACE();
namespace block_rows {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using motion::BlockRow;
using motion::BlockWords;

#if HWY_TARGET == HWY_SCALAR

void measureWholeBlocks(const BlockWords &words, size_t blocks, const BlockRow &out)
{
    motion::measureBlocksPlain(words, 0, blocks, out);
}

#else

using Words = hn::CappedTag<uint32_t, 16>;
using Bytes = hn::Repartition<uint8_t, Words>;
using Halves = hn::Repartition<uint16_t, Words>;
using Word = hn::Vec<Words>;

/// Pixels that are measured at a time: what is gathered of them stays in the nearest cache.
constexpr size_t kStretch = 512;

/// What is gathered of each column, then of pairs of columns, and so on up to blocks. Sums are two
/// of 16 bits in a word, of blue and red or of green: 16 x 16 levels of 255 fit.
struct Gathered
{
    alignas(64) uint32_t redBlue[kStretch + 64];
    alignas(64) uint32_t green[kStretch + 64];
    alignas(64) uint32_t darkest[kStretch + 64];
    alignas(64) uint32_t brightest[kStretch + 64];
};

HWY_INLINE Word sum(Words d, Word a, Word b)
{
    const Halves halves;
    return hn::BitCast(d, hn::Add(hn::BitCast(halves, a), hn::BitCast(halves, b)));
}

HWY_INLINE Word darker(Words d, Word a, Word b)
{
    const Bytes bytes;
    return hn::BitCast(d, hn::Min(hn::BitCast(bytes, a), hn::BitCast(bytes, b)));
}

HWY_INLINE Word brighter(Words d, Word a, Word b)
{
    const Bytes bytes;
    return hn::BitCast(d, hn::Max(hn::BitCast(bytes, a), hn::BitCast(bytes, b)));
}

/// Down the rows; `count` columns from the one at `first`.
HWY_INLINE void gatherColumns(const BlockWords &words, size_t first, size_t count, Gathered &to)
{
    const Words d;
    const auto evenBytes = hn::Set(d, 0xFF00FFU);
    const auto greenByte = hn::Set(d, 0xFFU);
    for (size_t x = 0; x < count; x += hn::Lanes(d)) {
        auto redBlue = hn::Zero(d);
        auto green = hn::Zero(d);
        auto darkest = hn::LoadU(d, words.rows[0] + first + x);
        auto brightest = darkest;
        for (size_t row = 0; row < words.rowCount; ++row) {
            const auto v = hn::LoadU(d, words.rows[row] + first + x);
            redBlue = sum(d, redBlue, hn::And(v, evenBytes));
            green = sum(d, green, hn::And(hn::ShiftRight<8>(v), greenByte));
            darkest = darker(d, darkest, v);
            brightest = brighter(d, brightest, v);
        }
        hn::Store(redBlue, d, to.redBlue + x);
        hn::Store(green, d, to.green + x);
        hn::Store(darkest, d, to.darkest + x);
        hn::Store(brightest, d, to.brightest + x);
    }
}

/// Neighbours become one.
template <class Join>
HWY_INLINE void joinPairs(uint32_t *numbers, size_t half, Join join)
{
    const Words d;
    for (size_t x = 0; x < half; x += hn::Lanes(d)) {
        Word even, odd;
        hn::LoadInterleaved2(d, numbers + 2 * x, even, odd);
        hn::Store(join(d, even, odd), d, numbers + x);
    }
}

HWY_INLINE void joinColumns(size_t count, size_t side, Gathered &gathered)
{
    const auto add = [](Words d, Word a, Word b) HWY_ATTR { return sum(d, a, b); };
    const auto low = [](Words d, Word a, Word b) HWY_ATTR { return darker(d, a, b); };
    const auto high = [](Words d, Word a, Word b) HWY_ATTR { return brighter(d, a, b); };
    for (; side > 1; side /= 2) {
        count /= 2;
        joinPairs(gathered.redBlue, count, add);
        joinPairs(gathered.green, count, add);
        joinPairs(gathered.darkest, count, low);
        joinPairs(gathered.brightest, count, high);
    }
}

/// The lowest bytes of the words.
HWY_INLINE void storeBytes(Words d, Word v, size_t count, uint8_t *out)
{
    const hn::Rebind<uint8_t, Words> bytes;
    alignas(64) uint8_t room[16];
    const auto lowest = hn::And(v, hn::Set(d, 0xFFU));
    const auto packed = hn::DemoteTo(bytes, hn::BitCast(hn::RebindToSigned<Words>(), lowest));
    if (count >= hn::Lanes(d)) {
        hn::StoreU(packed, bytes, out);
        return;
    }
    hn::Store(packed, bytes, room);
    std::copy(room, room + count, out);
}

HWY_INLINE void storeExtremes(Words d, Word v, size_t count, size_t block,
                              const std::array<uint8_t *, 3> &out)
{
    storeBytes(d, hn::ShiftRight<16>(v), count, out[0] + block);
    storeBytes(d, hn::ShiftRight<8>(v), count, out[1] + block);
    storeBytes(d, v, count, out[2] + block);
}

/// `count` blocks from the gathered ones, to the one at `first`.
HWY_INLINE void storeBlocks(const Gathered &gathered, const BlockWords &words, size_t first,
                            size_t count, const BlockRow &out)
{
    const Words d;
    const int shift =
        2 * static_cast<int>(hwy::Num0BitsBelowLS1Bit_Nonzero32(uint32_t(words.side)));
    const auto rounding = hn::Set(d, 1U << (shift - 1));
    const auto countsAsOpaque = hn::Set(d, words.hasAlpha ? 0U : 255U);
    const auto opaque = hn::Set(d, 255U);
    const auto lowerHalf = hn::Set(d, 0xFFFFU);
    for (size_t x = 0; x < count; x += hn::Lanes(d)) {
        const size_t left = count - x;
        const size_t block = first + x;
        const auto mean = [&](Word total) HWY_ATTR {
            return hn::ShiftRightSame(hn::Add(total, rounding), shift);
        };
        const auto redBlue = hn::Load(d, gathered.redBlue + x);
        storeBytes(d, mean(hn::ShiftRight<16>(redBlue)), left, out.means[0] + block);
        storeBytes(d, mean(hn::And(hn::Load(d, gathered.green + x), lowerHalf)), left,
                   out.means[1] + block);
        storeBytes(d, mean(hn::And(redBlue, lowerHalf)), left, out.means[2] + block);
        const auto darkest = hn::Load(d, gathered.darkest + x);
        storeExtremes(d, darkest, left, block, out.darkest);
        storeExtremes(d, hn::Load(d, gathered.brightest + x), left, block, out.brightest);
        const auto covered = hn::Eq(hn::Or(hn::ShiftRight<24>(darkest), countsAsOpaque), opaque);
        storeBytes(d, hn::IfThenElseZero(covered, hn::Set(d, 1U)), left, out.covered + block);
    }
}

void measureWholeBlocks(const BlockWords &words, size_t blocks, const BlockRow &out)
{
    const size_t atATime = kStretch / words.side;
    Gathered gathered;
    for (size_t block = 0; block < blocks; block += atATime) {
        const size_t count = HWY_MIN(atATime, blocks - block);
        gatherColumns(words, block * words.side, count * words.side, gathered);
        joinColumns(count * words.side, words.side, gathered);
        storeBlocks(gathered, words, block, count, out);
    }
}

#endif

} // namespace HWY_NAMESPACE
} // namespace block_rows
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace block_rows {
HWY_EXPORT(measureWholeBlocks);
} // namespace block_rows

void motion::measureBlocks(const BlockWords &words, const BlockRow &out)
{
    const size_t blocks = (words.width + words.side - 1) / words.side;
    // Vectors may read a few pixels behind the blocks that they measure.
    constexpr size_t kLargestVector = 16;
    size_t whole = words.width / words.side;
    if (words.rowCount < words.side)
        whole = 0;
    while (whole > 0 && whole * words.side + kLargestVector > words.width)
        --whole;
    if (whole > 0)
        HWY_DYNAMIC_DISPATCH(block_rows::measureWholeBlocks)(words, whole, out);
    measureBlocksPlain(words, whole, blocks, out);
}

#endif
