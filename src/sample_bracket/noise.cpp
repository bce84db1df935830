#include "noise.h"

#include "Vector3.h"

namespace {

float latticeValue(std::int32_t x, std::int32_t y)
{
    auto bits =
        static_cast<std::uint32_t>(x) * 0x8DA6B343U ^ static_cast<std::uint32_t>(y) * 0xD8163841U;
    bits = (bits ^ (bits >> 15U)) * 0x2C1B3C6DU;
    bits = (bits ^ (bits >> 12U)) * 0x297A2D39U;
    bits ^= bits >> 15U;
    return static_cast<float>(bits >> 8U) * (1.0F / 16777216.0F);
}

} // namespace

float sample::valueNoise(float x, float y)
{
    const float floorX = std::floor(x);
    const float floorY = std::floor(y);
    const auto column = static_cast<std::int32_t>(floorX);
    const auto row = static_cast<std::int32_t>(floorY);
    const float u = smoothStep(0.0F, 1.0F, x - floorX);
    const float v = smoothStep(0.0F, 1.0F, y - floorY);
    const float low = mix(latticeValue(column, row), latticeValue(column + 1, row), u);
    const float high = mix(latticeValue(column, row + 1), latticeValue(column + 1, row + 1), u);
    return mix(low, high, v);
}

float sample::fractalNoise(float x, float y, int octaves)
{
    float sum = 0.0F;
    float strength = 0.5F;
    float total = 0.0F;
    for (int octave = 0; octave < octaves; ++octave) {
        sum += strength * valueNoise(x, y);
        total += strength;
        strength *= 0.5F;
        // The offsets keep the lattices of the octaves from lining up.
        x = 2.0F * x + 17.3F;
        y = 2.0F * y + 41.7F;
    }
    return sum / total;
}
