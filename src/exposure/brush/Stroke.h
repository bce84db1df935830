#pragma once

#include <QPoint>

#include <vector>

/// What somebody paints over a merged picture to choose shots for its parts.
namespace brush {

constexpr int kErase = -1; ///< in place of a shot: what was painted is no more

/// One stroke of a round brush, or the choice of a moving thing. In pixels of the reference shot,
/// so that strokes fit the merge at any size.
struct Stroke
{
    int shot = kErase;          ///< index of the shot that the part comes from
    int radius = 0;             ///< 0: the thing that moved at the only point
    std::vector<QPoint> points; ///< one or more

    bool isThing() const { return radius == 0; }
    bool operator==(const Stroke &other) const
    {
        return shot == other.shot && radius == other.radius && points == other.points;
    }
    bool operator!=(const Stroke &other) const { return !(*this == other); }
};

using Strokes = std::vector<Stroke>; ///< in the order in which they were painted

} // namespace brush
