#pragma once

#include "MotionFit.h"

namespace registration {

/// How one shot lies over another, as found from the two alone.
struct PairResult
{
    Kind kind = Kind::Unaligned;
    Matrix toShot = identityMatrix(); ///< from the reference's pixel centres to the shot's
    double confidence = 0.0;
    double residualPixels = 0.0;
    double agreement = 0.0; ///< summed correlation of the tiles that agree
    Reason reason = Reason::NoMatch;
    double movement = 0.0;    ///< pixels by which a turn and shift alone moves a corner, at most
    double placesMoved = 0.0; ///< pixels by which nine in ten of the places that agree move at most
};

/// From a coarse shift, level by level, to the motion: tiles of the reference are found in the
/// shot, a motion is fitted, and the next level starts from it. Where things repeat, several shifts
/// are followed to the end, and the one counts whose tiles are most alike. When all ends in doubt,
/// it is tried again from turns of some degrees. What is still in doubt is looked for more widely,
/// there and back: where the two ways agree to a pixel, the doubt is gone, as chance does not do
/// that. mostly: Kind::Rigid or Kind::Perspective. Any
/// thread, reentrant; uses all cores inside. Throws std::bad_alloc. Returns an unaligned pair when
/// cancelled.
PairResult registerPair(const ShotPyramid &reference, const ShotPyramid &shot, Kind mostly,
                        const std::atomic<bool> &isCancelled);

} // namespace registration
