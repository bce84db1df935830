#pragma once

#include "Movement.h"
#include "SmallShot.h"

#include <cstddef>
#include <vector>

namespace motion {

/// Places that touch one another, in the order of rows; at least one.
using Region = std::vector<size_t>;

/// Groups of touching flags (also across corners) of a plane of this width, of so many places at
/// least, in the order of their first places.
std::vector<Region> touching(const Plane &flags, int width, size_t least);

/// What one region of movement takes from the shots.
struct RegionChoice
{
    size_t reference = 0;   ///< the shot that what moved comes from
    std::vector<char> kept; ///< for each shot: it shows the same as the reference, here
};

/// Chooses for a region so that the best exposed and richest picture results: from the reference
/// and the shots that show the same. fixed: the reference, or a negative number for the best.
RegionChoice choose(const Region &region, const std::vector<SmallShot> &shots,
                    const Movement &movement, int fixed);

/// Whether a shot shows next to nothing there, too bright or too dark.
bool isClipped(const SmallShot &shot, size_t place);

} // namespace motion
