#pragma once

#include "Response.h"

#include <array>
#include <vector>

namespace radiance {

/// What a level counts, before the shot's exposure, and that times its light.
struct LevelWeight
{
    float weight = 0.0F;
    float weightedLight = 0.0F;
};

/// How much a level counts, 0..1: nothing where it is black or clipped, and little near there, so
/// that there is no seam where a shot begins to count. level: 0..1.
float weightOfLevel(double level);

/// The weights of all levels of a response, looked up in the place of computed. A value.
class LevelTables
{
public:
    explicit LevelTables(const Response &response);

    const LevelWeight *channel(int index) const { return channels[size_t(index)].data(); }

private:
    std::array<std::vector<LevelWeight>, 3> channels;
};

} // namespace radiance
