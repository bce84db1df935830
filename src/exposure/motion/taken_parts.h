#pragma once

#include <QImage>
#include <QPoint>

#include <atomic>
#include <vector>

namespace motion {

/// A part of the picture that is to come from one shot, whatever moved there.
struct Take
{
    int shot = 0; ///< its index
    QImage mask;  ///< Format_Grayscale8 of the shots' size: the part is where it is not 0
};

/// What moved at a place is to come from this shot, whole.
struct ThingTake
{
    int shot = 0; ///< its index
    QPoint place; ///< a pixel of the shots
};

/// Joins parts that somebody has chosen shots for to the masks of find(). Each comes from its shot
/// alone; a soft edge lies around it, as wide as three to five blocks of half the side that
/// movement is looked for with (two pixels at least). Of takes that share a place the later counts.
/// Where a shot does not cover, its part does not reach, and what was there before stays.
/// takes: of shots that are there. shots: 2 to 64 of one size, in any format; borrowed for the
/// call. masks: one for each of them, null for all of it; or none, as if all were null. They stay
/// as they are where nothing is taken. Returns false when it was cancelled; the masks are of no use
/// then. Throws std::bad_alloc. Any thread, reentrant; uses all cores inside the call.
bool addTakes(const std::vector<Take> &takes, const std::vector<QImage> &shots,
              std::vector<QImage> &masks, const std::atomic<bool> *cancelled = nullptr);

} // namespace motion
