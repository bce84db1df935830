#include "virtual_exposures.h"

#include <algorithm>
#include <cmath>

std::vector<float> develop::virtualExposures(const LightRange &range, double exposure)
{
    constexpr double kHighest = 0.8; // where the brightest lies in the darkest shot
    constexpr double kLowest = 0.05; // where the darkest lies in the brightest
    constexpr double kStep = 2.0;    // stops
    const double first = std::log2(kHighest) - range.bright;
    const double last = std::max(first, std::log2(kLowest) - range.dark);
    const auto steps = std::min(std::ceil((last - first) / kStep), double(kMostExposures - 1));
    std::vector<float> gains;
    for (int i = 0; i <= int(steps); ++i) {
        const double stops = steps > 0.0 ? first + (last - first) * i / steps : first;
        gains.push_back(static_cast<float>(std::exp2(stops + exposure)));
    }
    return gains;
}
