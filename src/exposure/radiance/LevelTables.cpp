#include "LevelTables.h"

#include <algorithm>

namespace radiance {
namespace {

double smoothStep(double x)
{
    const double within = std::clamp(x, 0.0, 1.0);
    return within * within * (3.0 - 2.0 * within);
}

} // namespace

float weightOfLevel(double level)
{
    // Above this a level may be clipped in another channel's place or by the file's compression.
    constexpr double kClipped = 253.0 / 255;
    constexpr double kFallsFrom = 200.0 / 255;
    constexpr double kFullFrom = 40.0 / 255;
    return static_cast<float>(smoothStep(level / kFullFrom) *
                              smoothStep((kClipped - level) / (kClipped - kFallsFrom)));
}

LevelTables::LevelTables(const Response &response)
{
    const int levels = response.levels();
    for (int c = 0; c < 3; ++c) {
        std::vector<LevelWeight> &table = channels[size_t(c)];
        table.resize(size_t(levels));
        for (int level = 0; level < levels; ++level) {
            const float weight = weightOfLevel(double(level) / (levels - 1));
            table[size_t(level)] = {weight, weight * response.channel(c)[size_t(level)]};
        }
    }
}

} // namespace radiance
