#pragma once

#include <cstddef>
#include <cstdint>

/// Row functions of the gain map. Any thread, reentrant.
namespace display {

/// What is added to both pictures before they are compared, so that black has a gain as well.
constexpr float kGainOffset = 1.0F / 64.0F;

/// How a row of light becomes gains.
struct GainTerms
{
    float scale = 1.0F; ///< brings the light to the base's white
    float most = 1.0F;  ///< times as bright as the base that a pixel becomes, 1 to 2^8
};

/// log2((scale * light + offset) / base) for `count` samples, but from 0, where the base is as
/// bright as the light or brighter, to log2(most). base: linear, with kGainOffset added.
/// gains may be base.
void gainsOfRowPlain(const float *base, const float *light, size_t count, const GainTerms &terms,
                     float *gains);

/// The same in vector instructions, the best that the processor has.
void gainsOfRow(const float *base, const float *light, size_t count, const GainTerms &terms,
                float *gains);

/// The logarithm of numbers above 0 to the base of 2, within 1e-6; the same bits in both codes.
namespace log2_terms {

constexpr int32_t kHalfRoot = 0x3F3504F3; ///< bits of the square root of 1/2
constexpr int kExponentBits = 23;
// 2 / ln 2 / n, of the series of the inverse hyperbolic tangent.
constexpr float kTerm1 = 2.88539008F;
constexpr float kTerm3 = 0.961796694F;
constexpr float kTerm5 = 0.577078016F;
constexpr float kTerm7 = 0.412198583F;
constexpr float kTerm9 = 0.320598898F;

} // namespace log2_terms

} // namespace display
