#include "line_rows.h"

#include <algorithm>
#include <array>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "line_rows.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

#ifndef VESK_LINE_ROWS_SHARED
#define VESK_LINE_ROWS_SHARED

namespace registration_line {

using registration::kPhases;
using registration::kTaps;
using registration::SourcePixels;

constexpr int kPhaseBits = 7;
constexpr int kTapsBefore = int(kTaps) / 2 - 1;

/// The six rows that a filter reads, those beyond the shot replaced by the nearest.
struct TapRows
{
    TapRows(const SourcePixels &source, int firstRow)
        : first(firstRow)
    {
        for (int y = 0; y < int(kTaps); ++y)
            rows[size_t(y)] =
                source.bits + size_t(std::clamp(first + y, 0, source.height - 1)) * source.rowBytes;
    }

    const int first;
    std::array<const uint8_t *, kTaps> rows;
};

/// The weights of a phase, each four times over, for the channels of a pixel; and one phase more,
/// which counts for no pixel, so that there is always one behind another.
using WordWeights = std::array<uint64_t, 8 * (size_t(kPhases) + 1)>;
inline const WordWeights &wordWeights()
{
    static const WordWeights weights = [] {
        WordWeights all{};
        for (size_t i = 0; i < 8 * size_t(kPhases); ++i)
            all[i] = uint64_t(uint16_t(registration::filterPhases()[i / 8][i % 8])) *
                     0x0001000100010001U;
        return all;
    }();
    return weights;
}

using FloatWeights = std::array<float, 8 * size_t(kPhases)>;
inline const FloatWeights &floatWeights()
{
    static const FloatWeights weights = [] {
        FloatWeights all{};
        for (size_t i = 0; i < all.size(); ++i)
            all[i] = float(registration::filterPhases()[i / 8][i % 8]) / registration::kWeightOne;
        return all;
    }();
    return weights;
}

inline const float *floatWeights(int32_t place)
{
    return floatWeights().data() + 8 * size_t(place & (kPhases - 1));
}

/// Where the run of columns ends that the line crosses between the same two rows.
inline int runEnd(const int32_t *places, int begin, int end)
{
    const int32_t row = places[begin] >> kPhaseBits;
    int x = begin + 1;
    while (x < end && places[x] >> kPhaseBits == row)
        ++x;
    return x;
}

} // namespace registration_line

#endif

HWY_BEFORE_NAMESPACE();
namespace registration_line {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
using registration::ColumnRange;
using registration::LineColumns;

#if HWY_TARGET == HWY_SCALAR

// One lane does not hold the channels of a pixel.
HWY_INLINE void downWords(const SourcePixels &source, const int32_t *places, ColumnRange range,
                          LineColumns<uint8_t> &columns)
{
    registration::plain::filterDown(source, places, range, columns);
}

HWY_INLINE void acrossWords(const LineColumns<uint8_t> &columns, const int32_t *places,
                            size_t count, bool isOpaque, uint8_t *out)
{
    registration::plain::filterAcross(columns, places, count, isOpaque, out);
}

HWY_INLINE void downDeep(const SourcePixels &source, const int32_t *places, ColumnRange range,
                         LineColumns<uint16_t> &columns)
{
    registration::plain::filterDown(source, places, range, columns);
}

HWY_INLINE void acrossDeep(const LineColumns<uint16_t> &columns, const int32_t *places,
                           size_t count, bool isOpaque, uint16_t *out)
{
    registration::plain::filterAcross(columns, places, count, isOpaque, out);
}

#else

// 8 bits: as many pixels at a time as a vector has room for with 16 bits per channel.
using Halves = hn::ScalableTag<int16_t>;
using Bytes = hn::Rebind<uint8_t, Halves>;
using Pixels = hn::Repartition<uint64_t, Halves>; ///< a lane for each pixel's halves
using Words = hn::Rebind<uint32_t, Pixels>;       ///< a lane for each pixel's bytes
using Numbers = hn::Rebind<int32_t, Pixels>;

/// Lanes from several places. Not by the processor's own instruction for it, which is slow where
/// microcode guards it.
template <typename Tag, typename Number>
HWY_INLINE hn::Vec<Tag> gathered(Tag tag, const Number *base, const int32_t *places, int shift)
{
    if constexpr (hn::MaxLanes(Tag()) == 1) {
        return hn::LoadU(tag, base + (places[0] >> shift));
    } else {
        const hn::Half<Tag> half;
        constexpr size_t kHalf = hn::MaxLanes(Tag()) / 2;
        return hn::Combine(tag, gathered(half, base, places + kHalf, shift),
                           gathered(half, base, places, shift));
    }
}

/// The weights of pixels whose phases are one, or two next to another: mostly so, as places drift
/// slowly along a line.
class CloseWeights
{
public:
    HWY_INLINE CloseWeights(const uint64_t *ofFirst, hn::Vec<Numbers> phasesAbove)
        : weights(ofFirst)
        , isSecond(hn::MaskFromVec(hn::BitCast(
              Pixels(), hn::PromoteTo(hn::RebindToSigned<Pixels>(), hn::Neg(phasesAbove)))))
    {
    }

    HWY_INLINE hn::Vec<Halves> ofTap(size_t tap) const
    {
        const Pixels pixels;
        return hn::BitCast(Halves(), hn::IfThenElse(isSecond, hn::Set(pixels, weights[8 + tap]),
                                                    hn::Set(pixels, weights[tap])));
    }

private:
    const uint64_t *const weights;
    const hn::Mask<Pixels> isSecond;
};

/// The weights of any phases.
class AnyWeights
{
public:
    HWY_INLINE AnyWeights(const uint64_t *allWeights, hn::Vec<Numbers> phases)
        : weights(allWeights)
    {
        hn::StoreU(hn::ShiftLeft<3>(phases), Numbers(), indexes);
    }

    HWY_INLINE hn::Vec<Halves> ofTap(size_t tap) const
    {
        return hn::BitCast(Halves(), gathered(Pixels(), weights + tap, indexes, 0));
    }

private:
    const uint64_t *const weights;
    int32_t indexes[hn::MaxLanes(Numbers())];
};

/// Calls with the weights that the places of some pixels ask for.
template <typename Filter>
HWY_INLINE hn::Vec<Halves> withWeights(const uint64_t *all, const int32_t *places,
                                       const Filter &filter)
{
    const Numbers numbers;
    const int32_t last = places[hn::Lanes(numbers) - 1] & (kPhases - 1);
    const int32_t least = std::min(places[0] & (kPhases - 1), last);
    const auto phases = hn::And(hn::LoadU(numbers, places), hn::Set(numbers, kPhases - 1));
    const auto above = hn::Sub(phases, hn::Set(numbers, least));
    if (hn::AllTrue(numbers, hn::Eq(hn::ShiftRight<1>(above), hn::Zero(numbers))))
        return filter(CloseWeights(all + 8 * least, above));
    return filter(AnyWeights(all, phases));
}

/// The sum over the taps of what at(tap) gives.
template <typename Weights, typename At>
HWY_INLINE hn::Vec<Halves> weightedSum(const Weights &weights, const At &at)
{
    static_assert(kTaps == 6);
    const auto product = [&](size_t tap)
                             HWY_ATTR { return hn::MulFixedPoint15(at(tap), weights.ofTap(tap)); };
    const auto first = hn::Add(hn::Add(product(0), product(1)), product(2));
    const auto last = hn::Add(hn::Add(product(3), product(4)), product(5));
    return hn::Add(first, last);
}

HWY_INLINE void downVector(const TapRows &from, const uint64_t *weights, const int32_t *places,
                           int x, LineColumns<uint8_t> &columns)
{
    const Halves halves;
    const Bytes bytes;
    const auto pixels = [&](size_t y) HWY_ATTR { return hn::LoadU(bytes, from.rows[y] + 4 * x); };
    const auto sums = withWeights(weights, places, [&](const auto &ofPhases) HWY_ATTR {
        return weightedSum(ofPhases, [&](size_t y) HWY_ATTR {
            return hn::ShiftLeft<7>(hn::PromoteTo(halves, pixels(y)));
        });
    });
    hn::StoreU(sums, halves, columns.sums(x));
    const auto least = hn::Min(hn::Min(pixels(1), pixels(2)), hn::Min(pixels(3), pixels(4)));
    const auto most = hn::Max(hn::Max(pixels(1), pixels(2)), hn::Max(pixels(3), pixels(4)));
    hn::StoreU(least, bytes, columns.least(x));
    hn::StoreU(most, bytes, columns.most(x));
}

/// Of the columns in a vector, those that the line crosses between the same two rows as the first.
HWY_INLINE int runLength(const int32_t *places)
{
    const Numbers numbers;
    const auto rows = hn::ShiftRight<kPhaseBits>(hn::LoadU(numbers, places));
    const auto others = hn::Ne(rows, hn::Set(numbers, places[0] >> kPhaseBits));
    const auto first = hn::FindFirstTrue(numbers, others);
    return first < 0 ? int(hn::Lanes(numbers)) : int(first);
}

void downWords(const SourcePixels &source, const int32_t *places, ColumnRange range,
               LineColumns<uint8_t> &columns)
{
    const int lanes = int(hn::Lanes(Pixels()));
    const uint64_t *weights = wordWeights().data();
    const int32_t *const atColumn = places - range.begin;
    int x = range.begin;
    // What a vector writes beyond its run is written again by the next one.
    while (x + lanes <= range.end) {
        const TapRows from(source, (atColumn[x] >> kPhaseBits) - kTapsBefore);
        int length = lanes;
        for (; length == lanes && x + lanes <= range.end; x += length) {
            if (atColumn[x] >> kPhaseBits != from.first + kTapsBefore)
                break;
            length = runLength(atColumn + x);
            downVector(from, weights, atColumn + x, x, columns);
        }
    }
    registration::plain::filterDown(source, atColumn + x, {x, range.end}, columns);
}

/// Columns next to one another, one for each pixel, as pixels in the size of the shot have them.
struct ColumnRun
{
    const LineColumns<uint8_t> &columns;
    const int first;

    HWY_INLINE hn::Vec<Halves> sums(size_t tap) const
    {
        return hn::LoadU(Halves(), columns.sums(first + int(tap)));
    }
    HWY_INLINE hn::Vec<Bytes> least(int tap) const
    {
        return hn::LoadU(Bytes(), columns.least(first + tap));
    }
    HWY_INLINE hn::Vec<Bytes> most(int tap) const
    {
        return hn::LoadU(Bytes(), columns.most(first + tap));
    }
};

/// Columns anywhere.
struct ColumnsOf
{
    const LineColumns<uint8_t> &columns;
    const int32_t *const places;

    HWY_INLINE hn::Vec<Halves> sums(size_t tap) const
    {
        const int16_t *base = columns.sums(int(tap) - kTapsBefore);
        return hn::BitCast(Halves(), gathered(Pixels(), reinterpret_cast<const uint64_t *>(base),
                                              places, kPhaseBits));
    }
    HWY_INLINE hn::Vec<Bytes> least(int tap) const
    {
        return bytes(columns.least(tap - kTapsBefore));
    }
    HWY_INLINE hn::Vec<Bytes> most(int tap) const { return bytes(columns.most(tap - kTapsBefore)); }

    HWY_INLINE hn::Vec<Bytes> bytes(const uint8_t *base) const
    {
        return hn::BitCast(Bytes(), gathered(Words(), reinterpret_cast<const uint32_t *>(base),
                                             places, kPhaseBits));
    }
};

template <typename Columns>
HWY_INLINE void acrossVector(const Columns &columns, const uint64_t *weights, const int32_t *places,
                             uint32_t opaque, uint8_t *out)
{
    const Halves halves;
    const Bytes bytes;
    const Words words;
    const auto sums = withWeights(weights, places, [&](const auto &ofPhases) HWY_ATTR {
        return weightedSum(ofPhases, [&](size_t x) HWY_ATTR { return columns.sums(x); });
    });
    const auto least = hn::Min(hn::Min(columns.least(1), columns.least(2)),
                               hn::Min(columns.least(3), columns.least(4)));
    const auto most = hn::Max(hn::Max(columns.most(1), columns.most(2)),
                              hn::Max(columns.most(3), columns.most(4)));
    const auto levels = hn::ShiftRight<5>(hn::Add(sums, hn::Set(halves, int16_t{16})));
    const auto inside = hn::Min(hn::Max(hn::DemoteTo(bytes, levels), least), most);
    const auto full = hn::Set(words, 0xFF000000U);
    const auto alpha = hn::And(hn::Or(hn::BitCast(words, least), hn::Set(words, opaque)), full);
    const auto pixels = hn::Or(hn::BitCast(words, inside), full);
    hn::StoreU(hn::IfThenElseZero(hn::Eq(alpha, full), pixels), words,
               reinterpret_cast<uint32_t *>(out));
}

HWY_INLINE bool areNeighbours(const int32_t *places)
{
    const Numbers numbers;
    const auto columns = hn::ShiftRight<kPhaseBits>(hn::LoadU(numbers, places));
    return hn::AllTrue(numbers, hn::Eq(columns, hn::Iota(numbers, places[0] >> kPhaseBits)));
}

void acrossWords(const LineColumns<uint8_t> &columns, const int32_t *places, size_t count,
                 bool isOpaque, uint8_t *out)
{
    const size_t lanes = hn::Lanes(Pixels());
    const uint64_t *weights = wordWeights().data();
    const uint32_t opaque = isOpaque ? 0xFF000000U : 0;
    size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        const int32_t *group = places + i;
        if (areNeighbours(group))
            acrossVector(ColumnRun{columns, (group[0] >> kPhaseBits) - kTapsBefore}, weights, group,
                         opaque, out + 4 * i);
        else
            acrossVector(ColumnsOf{columns, group}, weights, group, opaque, out + 4 * i);
    }
    registration::plain::filterAcross(columns, places + i, count - i, isOpaque, out + 4 * i);
}

// 16 bits: pixel by pixel.
using Floats = hn::CappedTag<float, 4>;
using Deep = hn::Rebind<uint16_t, Floats>;
using Whole = hn::Rebind<int32_t, Floats>;

HWY_INLINE hn::Vec<Deep> deepPixel(const uint8_t *row, int x)
{
    return hn::LoadU(Deep(), reinterpret_cast<const uint16_t *>(row) + 4 * x);
}

HWY_INLINE void downPixel(const TapRows &from, int32_t place, int x, LineColumns<uint16_t> &columns)
{
    const Floats floats;
    const float *weights = floatWeights(place);
    auto sum = hn::Zero(floats);
    for (size_t y = 0; y < kTaps; ++y) {
        const auto pixel =
            hn::ConvertTo(floats, hn::PromoteTo(Whole(), deepPixel(from.rows[y], x)));
        sum = hn::Add(sum, hn::Mul(pixel, hn::Set(floats, weights[y])));
    }
    hn::StoreU(sum, floats, columns.sums(x));
    auto least = deepPixel(from.rows[1], x);
    auto most = least;
    for (size_t y = 2; y <= 4; ++y) {
        least = hn::Min(least, deepPixel(from.rows[y], x));
        most = hn::Max(most, deepPixel(from.rows[y], x));
    }
    hn::StoreU(least, Deep(), columns.least(x));
    hn::StoreU(most, Deep(), columns.most(x));
}

void downDeep(const SourcePixels &source, const int32_t *places, ColumnRange range,
              LineColumns<uint16_t> &columns)
{
    const int32_t *const atColumn = places - range.begin;
    for (int x = range.begin; x < range.end;) {
        const int end = runEnd(atColumn, x, range.end);
        const TapRows from(source, (atColumn[x] >> kPhaseBits) - kTapsBefore);
        for (; x < end; ++x)
            downPixel(from, atColumn[x], x, columns);
    }
}

HWY_INLINE void acrossPixel(const LineColumns<uint16_t> &columns, int32_t place, bool isOpaque,
                            uint16_t *out)
{
    const Floats floats;
    const Deep deep;
    const float *weights = floatWeights(place);
    const int first = (place >> kPhaseBits) - kTapsBefore;
    auto sum = hn::Zero(floats);
    for (int x = 0; x < int(kTaps); ++x)
        sum = hn::Add(
            sum, hn::Mul(hn::LoadU(floats, columns.sums(first + x)), hn::Set(floats, weights[x])));
    auto least = hn::LoadU(deep, columns.least(first + 1));
    auto most = hn::LoadU(deep, columns.most(first + 1));
    for (int x = 2; x <= 4; ++x) {
        least = hn::Min(least, hn::LoadU(deep, columns.least(first + x)));
        most = hn::Max(most, hn::LoadU(deep, columns.most(first + x)));
    }
    const auto levels = hn::DemoteTo(deep, hn::NearestInt(sum));
    hn::StoreU(hn::Min(hn::Max(levels, least), most), deep, out);
    uint16_t alpha[4];
    hn::StoreU(least, deep, alpha);
    out[3] = 0xFFFF;
    if (!isOpaque && alpha[3] < 0xFFFF)
        hn::StoreU(hn::Zero(deep), deep, out);
}

void acrossDeep(const LineColumns<uint16_t> &columns, const int32_t *places, size_t count,
                bool isOpaque, uint16_t *out)
{
    for (size_t i = 0; i < count; ++i)
        acrossPixel(columns, places[i], isOpaque, out + 4 * i);
}

#endif

} // namespace HWY_NAMESPACE
} // namespace registration_line
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace registration_line {
HWY_EXPORT(downWords);
HWY_EXPORT(acrossWords);
HWY_EXPORT(downDeep);
HWY_EXPORT(acrossDeep);
} // namespace registration_line

void registration::filterDown(const SourcePixels &source, const int32_t *places, ColumnRange range,
                              LineColumns<uint8_t> &columns)
{
    HWY_DYNAMIC_DISPATCH(registration_line::downWords)(source, places, range, columns);
}

void registration::filterDown(const SourcePixels &source, const int32_t *places, ColumnRange range,
                              LineColumns<uint16_t> &columns)
{
    HWY_DYNAMIC_DISPATCH(registration_line::downDeep)(source, places, range, columns);
}

void registration::filterAcross(const LineColumns<uint8_t> &columns, const int32_t *places,
                                size_t count, bool isOpaque, uint8_t *out)
{
    HWY_DYNAMIC_DISPATCH(registration_line::acrossWords)(columns, places, count, isOpaque, out);
}

void registration::filterAcross(const LineColumns<uint16_t> &columns, const int32_t *places,
                                size_t count, bool isOpaque, uint16_t *out)
{
    HWY_DYNAMIC_DISPATCH(registration_line::acrossDeep)(columns, places, count, isOpaque, out);
}

#endif
