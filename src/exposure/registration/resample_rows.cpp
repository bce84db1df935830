#include "resample_rows.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "resample_rows.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace registration_resample {
namespace HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR

// One lane does not hold the channels of two pixels.
using registration::plain::resampleWords;

#else

namespace hn = hwy::HWY_NAMESPACE;
using registration::BorderPixels;
using registration::kTaps;
using registration::SourcePixels;
using registration::TapPlace;
using registration::TapWeights;

using Halves = hn::CappedTag<int16_t, 8>; ///< the channels of two pixels
using Bytes = hn::CappedTag<uint8_t, 16>;

/// Two pixels of a column of pairs, filtered down.
HWY_INLINE hn::Vec<Halves> filteredDown(const uint8_t *bits, size_t rowBytes,
                                        const TapWeights &down)
{
    const Halves halves;
    const hn::Rebind<uint8_t, Halves> bytes;
    auto sum = hn::Zero(halves);
    for (size_t y = 0; y < kTaps; ++y) {
        const auto pixels = hn::PromoteTo(halves, hn::LoadU(bytes, bits + y * rowBytes));
        sum = hn::Add(sum, hn::MulFixedPoint15(hn::ShiftLeft<7>(pixels), hn::Set(halves, down[y])));
    }
    return sum;
}

/// One weight for the channels of the first pixel, the next one for those of the second.
HWY_INLINE hn::Vec<Halves> weightPair(const TapWeights &weights, size_t first)
{
    const Halves halves;
    return hn::ConcatLowerLower(halves, hn::Set(halves, weights[first + 1]),
                                hn::Set(halves, weights[first]));
}

/// The four channels, clamped to nothing yet, in the lower half.
HWY_INLINE hn::Vec<Halves> filtered(const uint8_t *bits, size_t rowBytes, const TapWeights &across,
                                    const TapWeights &down)
{
    const Halves halves;
    auto sum = hn::Zero(halves);
    for (size_t x = 0; x < kTaps; x += 2) {
        sum = hn::Add(sum, hn::MulFixedPoint15(filteredDown(bits + 4 * x, rowBytes, down),
                                               weightPair(across, x)));
    }
    sum = hn::Add(sum, hn::ConcatUpperUpper(halves, sum, sum));
    return hn::ShiftRight<5>(hn::Add(sum, hn::Set(halves, int16_t{16})));
}

struct Range
{
    hn::Vec<Bytes> least;
    hn::Vec<Bytes> most;
};

/// What the channels have in the nearest 4 x 4 pixels, in the lowest four bytes.
HWY_INLINE Range rangeOf(const uint8_t *bits, size_t rowBytes)
{
    const Bytes bytes;
    const hn::Repartition<uint32_t, Bytes> words;
    const uint8_t *row = bits + rowBytes + 4;
    Range range{hn::LoadU(bytes, row), hn::LoadU(bytes, row)};
    for (size_t y = 1; y < 4; ++y) {
        const auto pixels = hn::LoadU(bytes, row + y * rowBytes);
        range.least = hn::Min(range.least, pixels);
        range.most = hn::Max(range.most, pixels);
    }
    const auto swap2 = [&](auto v) {
        return hn::BitCast(bytes, hn::Shuffle1032(hn::BitCast(words, v)));
    };
    const auto swap1 = [&](auto v) {
        return hn::BitCast(bytes, hn::Shuffle2301(hn::BitCast(words, v)));
    };
    range.least = hn::Min(range.least, swap2(range.least));
    range.least = hn::Min(range.least, swap1(range.least));
    range.most = hn::Max(range.most, swap2(range.most));
    range.most = hn::Max(range.most, swap1(range.most));
    return range;
}

HWY_INLINE uint32_t lowestWord(hn::Vec<Bytes> pixels)
{
    return hn::GetLane(hn::BitCast(hn::Repartition<uint32_t, Bytes>(), pixels));
}

HWY_INLINE uint32_t resampled(const uint8_t *bits, size_t rowBytes, const TapWeights &across,
                              const TapWeights &down, uint32_t opaque)
{
    const Bytes bytes;
    const Halves halves;
    const Range range = rangeOf(bits, rowBytes);
    if ((lowestWord(range.least) | opaque) < 0xFF000000U)
        return 0;
    const auto channels = filtered(bits, rowBytes, across, down);
    const auto narrow = hn::DemoteTo(hn::Rebind<uint8_t, Halves>(), channels);
    const auto inside =
        hn::Min(hn::Max(hn::ZeroExtendVector(bytes, narrow), range.least), range.most);
    return lowestWord(inside) | 0xFF000000U;
}

void resampleWords(const SourcePixels &source, const TapPlace *places, size_t count, uint32_t *out)
{
    const auto &phases = registration::filterPhases();
    const uint32_t opaque = source.isOpaque ? 0xFF000000U : 0;
    for (size_t i = 0; i < count; ++i) {
        const TapPlace &place = places[i];
        const TapWeights &across = phases[place.phaseX];
        const TapWeights &down = phases[place.phaseY];
        if (!place.isCovered) {
            out[i] = 0;
        } else if (registration::isInner(source, place)) {
            const uint8_t *bits = source.bits + size_t(place.y) * source.rowBytes +
                                  size_t(place.x) * sizeof(uint32_t);
            out[i] = resampled(bits, source.rowBytes, across, down, opaque);
        } else {
            const BorderPixels<uint32_t> border(source, place);
            out[i] = resampled(reinterpret_cast<const uint8_t *>(border.pixels.data()),
                               kTaps * sizeof(uint32_t), across, down, opaque);
        }
    }
}

#endif

} // namespace HWY_NAMESPACE
} // namespace registration_resample
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace registration_resample {
HWY_EXPORT(resampleWords);
}

void registration::resampleWords(const SourcePixels &source, const TapPlace *places, size_t count,
                                 uint32_t *out)
{
    HWY_DYNAMIC_DISPATCH(registration_resample::resampleWords)(source, places, count, out);
}

#endif
