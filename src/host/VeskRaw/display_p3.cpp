#include "display_p3.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int kLevels = 65536;

/// From linear ProPhoto RGB (white D50) by CIE XYZ, adapted to D65 by Bradford's transformation, to
/// linear Display P3. Each row adds up to 1: white stays white.
constexpr double kFromProPhoto[3][3] = {{1.632516, -0.379672, -0.252844},
                                        {-0.153679, 1.166680, -0.013001},
                                        {0.010390, -0.062804, 1.052414}};

/// IEC 61966-2-1.
double encoded(double light)
{
    return light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

const std::array<std::uint16_t, kLevels> &curve()
{
    static const std::array<std::uint16_t, kLevels> levels = [] {
        std::array<std::uint16_t, kLevels> made{};
        for (int i = 0; i < kLevels; ++i)
            made[std::size_t(i)] =
                static_cast<std::uint16_t>(std::lround(encoded(i / 65535.0) * 65535));
        return made;
    }();
    return levels;
}

void changePrimaries(std::uint16_t *pixel)
{
    const double from[3] = {double(pixel[0]), double(pixel[1]), double(pixel[2])};
    for (int i = 0; i < 3; ++i) {
        const double *row = kFromProPhoto[i];
        const double light = row[0] * from[0] + row[1] * from[1] + row[2] * from[2];
        pixel[i] = static_cast<std::uint16_t>(std::clamp(light + 0.5, 0.0, 65535.0));
    }
}

} // namespace

void display_p3::turn(std::uint16_t *samples, std::int64_t count, int channels)
{
    for (std::int64_t i = 0; i < count && channels == 3; ++i, samples += channels)
        changePrimaries(samples);
}

void display_p3::encode(std::uint16_t *samples, std::int64_t count)
{
    const std::array<std::uint16_t, kLevels> &levels = curve();
    for (std::int64_t i = 0; i < count; ++i)
        samples[i] = levels[samples[i]];
}
