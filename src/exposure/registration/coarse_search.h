#pragma once

#include "shot_pyramid.h"
#include "transform.h"

namespace registration {

/// A first guess at how the reference lies over the shot.
struct CoarseStart
{
    Matrix toShot = identityMatrix();
    double score = 0.0; ///< normalised correlation of what overlaps
};

/// The shift, after a turn by so many degrees about the middle, at which the coarsest levels agree
/// best: all shifts are tried that leave two thirds of the width and height in common. Any thread.
CoarseStart coarseStart(const ShotPyramid &reference, const ShotPyramid &shot, double degrees,
                        const std::atomic<bool> &isCancelled);

} // namespace registration
