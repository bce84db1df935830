// A vector lane for each pixel, in single precision: the plain code's operations in its order,
// never fused, hence equal results.

#include "tone_rows.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "tone_rows.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace exposure_tones {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
using exposure::ChannelRow;
using exposure::Tones;

constexpr float kTop = 65535.0F;

template <class D, class V = hn::Vec<D>>
HWY_INLINE V clamped(D floats, V values)
{
    return hn::Min(hn::Max(values, hn::Zero(floats)), hn::Set(floats, kTop));
}

template <class D, class V = hn::Vec<D>>
HWY_INLINE V load(D floats, const uint16_t *values)
{
    const hn::Rebind<uint16_t, D> halves;
    const hn::Rebind<int32_t, D> integers;
    return hn::ConvertTo(floats, hn::PromoteTo(integers, hn::LoadU(halves, values)));
}

template <class D, class V = hn::Vec<D>>
HWY_INLINE void store(D floats, V values, uint16_t *out)
{
    const hn::Rebind<uint16_t, D> halves;
    const hn::Rebind<int32_t, D> integers;
    const V rounded = hn::Add(clamped(floats, values), hn::Set(floats, 0.5F));
    hn::StoreU(hn::DemoteTo(halves, hn::ConvertTo(integers, rounded)), halves, out);
}

template <class D, class V = hn::Vec<D>>
HWY_INLINE V gainOf(D floats, const Tones &tones, const ChannelRow &row, size_t x, V luma)
{
    const V one = hn::Set(floats, 1.0F);
    const V line = hn::Add(hn::Mul(hn::LoadU(floats, row.slopes + x), luma),
                           hn::LoadU(floats, row.offsets + x));
    const V surroundings = hn::Mul(clamped(floats, line), hn::Set(floats, 1.0F / kTop));
    const V dark = hn::Sub(one, surroundings);
    const V lift = hn::Mul(hn::Set(floats, tones.shadows), hn::Mul(hn::Mul(dark, dark), dark));
    const V drop = hn::Mul(hn::Set(floats, tones.highlights),
                           hn::Mul(hn::Mul(surroundings, surroundings), dark));
    return hn::Add(hn::Add(one, lift), drop);
}

template <class D>
HWY_INLINE void applyTo(D floats, const Tones &tones, const ChannelRow &row, size_t x)
{
    using V = hn::Vec<D>;
    const V red = load(floats, row.red + x);
    const V green = load(floats, row.green + x);
    const V blue = load(floats, row.blue + x);
    const V luma = hn::Add(
        hn::Add(hn::Mul(hn::Set(floats, 0.2126F), red), hn::Mul(hn::Set(floats, 0.7152F), green)),
        hn::Mul(hn::Set(floats, 0.0722F), blue));
    const V gain = tones.hasTones ? gainOf(floats, tones, row, x, luma) : hn::Set(floats, 1.0F);
    const V grey = hn::Mul(luma, gain);
    const V saturation = hn::Set(floats, tones.saturation);
    const auto mixed = [&](V channel) HWY_ATTR {
        const V away = hn::Sub(hn::Mul(channel, gain), grey);
        return hn::Add(grey, hn::Mul(away, saturation));
    };
    store(floats, mixed(red), row.red + x);
    store(floats, mixed(green), row.green + x);
    store(floats, mixed(blue), row.blue + x);
}

void applyTones(const Tones &tones, const ChannelRow &row)
{
    const hn::ScalableTag<float> vector;
    const hn::CappedTag<float, 1> single;
    const size_t lanes = hn::Lanes(vector);
    size_t x = 0;
    for (; x + lanes <= row.width; x += lanes)
        applyTo(vector, tones, row, x);
    for (; x < row.width; ++x)
        applyTo(single, tones, row, x);
}

} // namespace HWY_NAMESPACE
} // namespace exposure_tones
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace exposure_tones {
HWY_EXPORT(applyTones);
} // namespace exposure_tones

void exposure::applyTones(const Tones &tones, const ChannelRow &row)
{
    HWY_DYNAMIC_DISPATCH(exposure_tones::applyTones)(tones, row);
}

#endif
