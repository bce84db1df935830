#include "normalise_rows.h"

#include "grey_rows.h"
#include "normalised_plane.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "normalise_rows.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace registration_normalise {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
using registration::kCellSide;
using registration::kNoGrey;
using registration::kNothing;
using registration::kRounder;
using registration::kShares;

/// (greys - mean) * scale, clamped and rounded.
template <class D, class I, class V = hn::Vec<D>>
HWY_INLINE hn::Vec<I> normalisedValues(D floats, I integers, hn::Vec<I> greys, V mean, V scale)
{
    const V value = hn::Mul(hn::Sub(hn::ConvertTo(floats, greys), mean), scale);
    const V inside = hn::Min(hn::Max(value, hn::Set(floats, -127.0F)), hn::Set(floats, 127.0F));
    const V rounder = hn::Set(floats, kRounder);
    const auto rounded =
        hn::Sub(hn::BitCast(integers, hn::Add(inside, rounder)), hn::BitCast(integers, rounder));
    const auto isNothing = hn::Eq(greys, hn::Set(integers, int32_t{kNoGrey}));
    return hn::IfThenElse(isNothing, hn::Set(integers, int32_t{kNothing}), rounded);
}

void normaliseRow(const uint16_t *grey, size_t groups, const float *means, const float *scales,
                  int8_t *out)
{
    const hn::CappedTag<float, kCellSide> floats;
    const hn::Rebind<int32_t, decltype(floats)> integers;
    const hn::Rebind<uint16_t, decltype(floats)> halves;
    const hn::Rebind<int8_t, decltype(floats)> bytes;
    for (size_t group = 0; group < groups; ++group) {
        const auto mean = hn::Set(floats, means[group]);
        const auto scale = hn::Set(floats, scales[group]);
        const auto meanStep = hn::Set(floats, means[group + 1] - means[group]);
        const auto scaleStep = hn::Set(floats, scales[group + 1] - scales[group]);
        for (size_t i = 0; i < kCellSide; i += hn::Lanes(floats)) {
            const size_t x = group * kCellSide + i;
            const auto share = hn::LoadU(floats, kShares + i);
            const auto greys = hn::PromoteTo(integers, hn::LoadU(halves, grey + x));
            const auto values =
                normalisedValues(floats, integers, greys, hn::Add(mean, hn::Mul(meanStep, share)),
                                 hn::Add(scale, hn::Mul(scaleStep, share)));
            hn::StoreU(hn::DemoteTo(bytes, values), bytes, out + x);
        }
    }
}

} // namespace HWY_NAMESPACE
} // namespace registration_normalise
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace registration_normalise {
HWY_EXPORT(normaliseRow);
}

void registration::normaliseRow(const uint16_t *grey, size_t groups, const float *means,
                                const float *scales, int8_t *out)
{
    HWY_DYNAMIC_DISPATCH(registration_normalise::normaliseRow)(grey, groups, means, scales, out);
}

#endif
