#pragma once

#include "ShotPyramid.h"
#include "Transform.h"

#include <vector>

namespace registration {

/// A first guess at how the reference lies over the shot.
struct CoarseStart
{
    Matrix toShot = identityMatrix();
    double score = 0.0; ///< normalised correlation of what overlaps
};

/// The shifts, after a turn by so many degrees about the middle, at which the coarsest levels agree
/// best: all are tried that leave two thirds of the width and height in common. The best comes
/// first, then those that come close to it, as in pictures of things that repeat: kMostStarts in
/// all. Any thread.
std::vector<CoarseStart> coarseStarts(const ShotPyramid &reference, const ShotPyramid &shot,
                                      double degrees, const std::atomic<bool> &isCancelled);

constexpr size_t kMostStarts = 6;

} // namespace registration
