#include "ScreenCurve.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

/// Below this the curve is a straight line.
constexpr float kFirst = 0x1p-9F;
constexpr int kDroppedBits = 14; // of a float's 23 behind the point

uint32_t bitsOf(float number)
{
    uint32_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

float numberOf(uint32_t bits)
{
    float number = 0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

double curveAt(double light)
{
    constexpr double kEndOfLine = 0.0031308;
    return light <= kEndOfLine ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

} // namespace

const ScreenCurve &ScreenCurve::shared()
{
    static const ScreenCurve curve;
    return curve;
}

ScreenCurve::ScreenCurve()
{
    for (uint32_t bits = bitsOf(kFirst); bits <= bitsOf(1.0F); bits += 1U << kDroppedBits)
        levels.push_back(float(curveAt(double(numberOf(bits)))));
}

float ScreenCurve::levelOf(float light) const
{
    if (!(light >= kFirst))
        return light > 0 ? 12.92F * light : 0.0F;
    if (light >= 1.0F)
        return 1.0F;
    const uint32_t bits = bitsOf(light) - bitsOf(kFirst);
    const uint32_t index = bits >> kDroppedBits;
    constexpr float kSteps = 1U << kDroppedBits;
    const float share = float(bits & ((1U << kDroppedBits) - 1)) / kSteps;
    return levels[index] + (levels[index + 1] - levels[index]) * share;
}
