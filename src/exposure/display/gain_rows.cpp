#include "gain_rows.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "gain_rows.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace gain_rows {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Floats = hn::CappedTag<float, 16>;
using Float = hn::Vec<Floats>;

/// In the order of the plain code, hence equal results.
HWY_INLINE Float log2Of(Floats d, Float x)
{
    using namespace display::log2_terms;
    const hn::RebindToSigned<Floats> words;
    const auto bits = hn::BitCast(words, x);
    const auto exponent = hn::ShiftRight<kExponentBits>(hn::Sub(bits, hn::Set(words, kHalfRoot)));
    const auto m = hn::BitCast(d, hn::Sub(bits, hn::ShiftLeft<kExponentBits>(exponent)));
    const auto one = hn::Set(d, 1.0F);
    const auto t = hn::Div(hn::Sub(m, one), hn::Add(m, one));
    const auto square = hn::Mul(t, t);
    auto series = hn::Add(hn::Set(d, kTerm7), hn::Mul(square, hn::Set(d, kTerm9)));
    series = hn::Add(hn::Set(d, kTerm5), hn::Mul(square, series));
    series = hn::Add(hn::Set(d, kTerm3), hn::Mul(square, series));
    series = hn::Add(hn::Set(d, kTerm1), hn::Mul(square, series));
    return hn::Add(hn::ConvertTo(d, exponent), hn::Mul(t, series));
}

/// As many samples as whole vectors hold; returns their number.
size_t gainsOfVectors(const float *base, const float *light, size_t count,
                      const display::GainTerms &terms, float *gains)
{
    const Floats d;
    const auto scale = hn::Set(d, terms.scale);
    const auto most = hn::Set(d, terms.most);
    const auto offset = hn::Set(d, display::kGainOffset);
    size_t i = 0;
    for (; i + hn::Lanes(d) <= count; i += hn::Lanes(d)) {
        const auto bright = hn::Add(hn::Mul(scale, hn::LoadU(d, light + i)), offset);
        const auto ratio = hn::Div(bright, hn::LoadU(d, base + i));
        const auto bounded = hn::Min(hn::Max(ratio, hn::Set(d, 1.0F)), most);
        hn::StoreU(log2Of(d, bounded), d, gains + i);
    }
    return i;
}

} // namespace HWY_NAMESPACE
} // namespace gain_rows
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace gain_rows {
HWY_EXPORT(gainsOfVectors);
} // namespace gain_rows

void display::gainsOfRow(const float *base, const float *light, size_t count,
                         const GainTerms &terms, float *gains)
{
    const size_t done =
        HWY_DYNAMIC_DISPATCH(gain_rows::gainsOfVectors)(base, light, count, terms, gains);
    gainsOfRowPlain(base + done, light + done, count - done, terms, gains + done);
}

#endif
