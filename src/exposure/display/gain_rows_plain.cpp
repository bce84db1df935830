#include "gain_rows.h"

#include <algorithm>
#include <cstring>

namespace {

/// x = m 2^e with m from the root of 1/2 to that of 2; log2 m = 2 atanh((m - 1) / (m + 1)) / ln 2.
float log2Of(float x)
{
    using namespace display::log2_terms;
    int32_t bits = 0;
    std::memcpy(&bits, &x, sizeof bits);
    const int32_t exponent = (bits - kHalfRoot) >> kExponentBits;
    bits -= exponent * (1 << kExponentBits);
    float m = 0.0F;
    std::memcpy(&m, &bits, sizeof m);
    const float t = (m - 1.0F) / (m + 1.0F);
    const float square = t * t;
    float series = kTerm7 + square * kTerm9;
    series = kTerm5 + square * series;
    series = kTerm3 + square * series;
    series = kTerm1 + square * series;
    return static_cast<float>(exponent) + t * series;
}

} // namespace

void display::gainsOfRowPlain(const float *base, const float *light, size_t count,
                              const GainTerms &terms, float *gains)
{
    for (size_t i = 0; i < count; ++i) {
        const float ratio = (terms.scale * light[i] + kGainOffset) / base[i];
        gains[i] = log2Of(std::min(std::max(ratio, 1.0F), terms.most));
    }
}
