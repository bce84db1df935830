#pragma once

#include "radiance_options.h"

#include <array>
#include <vector>

namespace radiance {

/// The levels, 0..255, of one place of the scene in each shot.
struct LevelSample
{
    std::vector<std::array<unsigned char, 3>> levels; ///< red, green, blue of each shot
};

/// Places spread over the picture that are smooth in every shot, so that a shot that lies a pixel
/// beside the others hardly matters; covered by all shots and not masked in any. The picture is
/// parted into cells, and each gives its smoothest place if that is smooth enough.
/// shots: of one size, in Format_RGB32, ARGB32, RGBX64 or RGBA64 (also premultiplied).
std::vector<LevelSample> levelSamples(const std::vector<Shot> &shots);

} // namespace radiance
