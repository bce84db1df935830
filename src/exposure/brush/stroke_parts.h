#pragma once

#include "Stroke.h"
#include "taken_parts.h"

#include <QSize>

namespace brush {

/// What strokes ask of a merge, in the terms that it takes.
struct Parts
{
    std::vector<motion::Take> takes; ///< one for each shot with a part; no two share a pixel
    std::vector<motion::ThingTake> things;
};

/// The parts of a picture of this size, with `scale` of its pixels to one of the reference that the
/// strokes are on. A pixel belongs to a stroke when its middle is no farther from the line through
/// the middles of the stroke's points than the radius; where strokes cross, the later counts. An
/// erasing stroke also takes the things whose place it covers.
/// size: not empty. Throws std::bad_alloc. Any thread, reentrant; uses all cores inside the call.
Parts parts(const Strokes &strokes, QSize size, double scale = 1.0);

} // namespace brush
