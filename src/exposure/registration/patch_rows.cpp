#include "patch_rows.h"

#include "normalised_plane.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "patch_rows.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace registration_patch {
namespace HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR

using registration::plain::readPatch; // a segment needs eight lanes

#else

namespace hn = hwy::HWY_NAMESPACE;
using registration::kNothing;
using registration::kSegment;
using registration::PatchInput;
using registration::SegmentPlace;

using Numbers = hn::CappedTag<int16_t, kSegment>;
using Vector = hn::Vec<Numbers>;

HWY_INLINE Vector load(const int8_t *from)
{
    return hn::PromoteTo(Numbers(), hn::LoadU(hn::Rebind<int8_t, Numbers>(), from));
}

/// first * (all parts - part) + second * part.
HWY_INLINE Vector between(Vector first, Vector second, int part)
{
    const Numbers numbers;
    constexpr int kParts = 1 << registration::kFractionBits;
    return hn::Add(hn::Mul(first, hn::Set(numbers, static_cast<int16_t>(kParts - part))),
                   hn::Mul(second, hn::Set(numbers, static_cast<int16_t>(part))));
}

HWY_INLINE int interpolateSegment(const int8_t *upper, const int8_t *lower,
                                  const SegmentPlace &place, int16_t *out)
{
    const Numbers numbers;
    const Vector a = load(upper);
    const Vector b = load(upper + 1);
    const Vector c = load(lower);
    const Vector d = load(lower + 1);
    const auto isThere =
        hn::Ne(hn::Min(hn::Min(a, b), hn::Min(c, d)), hn::Set(numbers, int16_t{kNothing}));
    const Vector two = hn::Set(numbers, int16_t{2});
    const Vector above = hn::ShiftRight<2>(hn::Add(between(a, b, place.partX), two));
    const Vector below = hn::ShiftRight<2>(hn::Add(between(c, d, place.partX), two));
    const Vector half = hn::Set(numbers, int16_t{128});
    const Vector value = hn::ShiftRight<8>(hn::Add(between(above, below, place.partY), half));
    hn::StoreU(hn::IfThenElseZero(isThere, value), numbers, out);
    return static_cast<int>(hn::CountTrue(numbers, isThere));
}

int readPatch(const PatchInput &input, int16_t *out)
{
    int there = 0;
    for (int line = 0; line < input.lines; ++line) {
        for (int segment = 0; segment < input.segments; ++segment) {
            const SegmentPlace place(input, segment, line);
            int16_t *to = out + size_t(line) * input.outStride + size_t(segment) * kSegment;
            if (!place.isInside(input)) {
                hn::StoreU(hn::Zero(Numbers()), Numbers(), to);
                continue;
            }
            const int8_t *upper = input.plane + size_t(place.y) * input.stride + size_t(place.x);
            there += interpolateSegment(upper, upper + input.stride, place, to);
        }
    }
    return there;
}

#endif

} // namespace HWY_NAMESPACE
} // namespace registration_patch
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace registration_patch {
HWY_EXPORT(readPatch);
}

int registration::readPatch(const PatchInput &input, int16_t *out)
{
    return HWY_DYNAMIC_DISPATCH(registration_patch::readPatch)(input, out);
}

#endif
