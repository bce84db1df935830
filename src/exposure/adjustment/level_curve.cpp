#include "level_curve.h"
#include "parallel_rows.h"

#include <algorithm>
#include <cmath>

namespace exposure {
namespace {

constexpr int kLevels = 65536;
constexpr int kAtATime = 4096; // the powers take most of the time of a look on a small picture

double toLinear(double encoded)
{
    return encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
}

double toEncoded(double linear)
{
    return linear <= 0.0031308 ? linear * 12.92 : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
}

/// From 0 to 1 and through the middle; steep there for positive contrast, flat for negative.
double curved(double value, double contrast)
{
    if (contrast == 0.0)
        return value;
    const double steep = std::exp2(std::abs(contrast) * 2);
    const double side = value < 0.5 ? value * 2 : 2 - value * 2;
    const double bent = std::pow(side, contrast < 0 ? 1 / steep : steep) / 2;
    return value < 0.5 ? bent : 1 - bent;
}

/// What lies between two levels with equal values has theirs: with 8 bits most of it.
template <typename LevelOf>
void fillBetween(std::vector<uint16_t> &curve, int first, int last, const LevelOf &levelOf)
{
    if (curve[size_t(first)] == curve[size_t(last)]) {
        std::fill(curve.begin() + first, curve.begin() + last, curve[size_t(first)]);
    } else if (last - first > 1) {
        const int middle = (first + last) / 2;
        curve[size_t(middle)] = levelOf(middle);
        fillBetween(curve, first, middle, levelOf);
        fillBetween(curve, middle, last, levelOf);
    }
}

} // namespace

std::vector<uint16_t> levelCurve(const Look &look, int top)
{
    const double gain = std::exp2(look.exposure);
    const double range = look.whitePoint - look.blackPoint;
    std::vector<uint16_t> curve(kLevels);
    const auto levelOf = [&](int level) {
        const double stretched =
            std::clamp((level / double(kLevels - 1) - look.blackPoint) / range, 0.0, 1.0);
        const double bright = gain == 1.0 ? stretched : toEncoded(toLinear(stretched) * gain);
        const double value = curved(std::clamp(bright, 0.0, 1.0), look.contrast);
        return uint16_t(std::lround(value * top));
    };
    parallel::each(kLevels / kAtATime, [&](int part) {
        const int first = part * kAtATime;
        const int last = first + kAtATime - 1;
        curve[size_t(first)] = levelOf(first);
        curve[size_t(last)] = levelOf(last);
        fillBetween(curve, first, last, levelOf);
    });
    return curve;
}

} // namespace exposure
