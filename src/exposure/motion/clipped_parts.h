#pragma once

#include "regions.h"

namespace motion {

/// A part of a region in which the region's reference shows nothing, and the shots that show it
/// instead: one, and those that agree with it.
struct ClippedPart
{
    Region places;
    std::vector<char> shots; ///< for each shot: it may be used there
};

/// The parts of a region where the reference and the shots kept with it are clipped and another
/// shot is not. That is the nearest in brightness of those that agree with the reference all around
/// it: so nothing that moved is cut through at its edge.
std::vector<ClippedPart> clippedParts(const Region &region, const RegionChoice &choice,
                                      const std::vector<SmallShot> &shots,
                                      const Movement &movement);

} // namespace motion
