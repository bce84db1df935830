#pragma once

#include "normalised_plane.h"

#include <QSize>

namespace registration {

/// What a shot contributes to the search for motion.
struct ShotPyramid
{
    QSize size;                          ///< of the shot
    int finestScale = 1;                 ///< pixels of the shot per value of levels[0], in a row
    std::vector<NormalisedPlane> levels; ///< finest first, each of half the size of the one before

    int scale(size_t level) const { return finestScale << level; }
};

/// Pixels per value at the finest level for pictures of this size: 1 for small ones, 2 up to
/// 64 megapixels, 4 beyond.
int finestScale(QSize size);

/// finestScale: as finestScale() gives it for the reference. Levels go down to kCoarsestSide.
/// Throws std::bad_alloc.
ShotPyramid shotPyramid(const QImage &shot, int finestScale, const std::atomic<bool> &isCancelled);

constexpr int kCoarsestSide = 100; ///< the longer side of the last level is within this

} // namespace registration
