#pragma once

#include <cstdint>

namespace sample {

/// Well mixed 64 bits of a counter (the splitmix64 finisher). All randomness of the bracket comes
/// from here, keyed by position, so that the number of threads cannot change a result.
inline std::uint64_t hashed(std::uint64_t key)
{
    key += 0x9E3779B97F4A7C15ULL;
    key = (key ^ (key >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    key = (key ^ (key >> 27U)) * 0x94D049BB133111EBULL;
    return key ^ (key >> 31U);
}

/// Uniform in 0..1 (1 excluded).
inline float uniform(std::uint64_t key)
{
    return static_cast<float>(hashed(key) >> 40U) * (1.0F / 16777216.0F);
}

/// Smooth random field over the plane, 0..1, features of size 1.
float valueNoise(float x, float y);

/// Sum of octaves of valueNoise, each twice as fine and half as strong, 0..1.
float fractalNoise(float x, float y, int octaves);

} // namespace sample
