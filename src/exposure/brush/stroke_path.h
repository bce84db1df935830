#pragma once

#include <QPoint>
#include <QPointF>

#include <vector>

/// Lines that a brush follows. Any thread, reentrant.
namespace brush {

/// The line with fewer points, none of the old ones farther than `tolerance` from it (D. Douglas,
/// T. Peucker, "Algorithms for the Reduction of the Number of Points Required to Represent a
/// Digitized Line or Its Caricature", Cartographica 10(2), 1973). points: one or more.
std::vector<QPoint> simplified(const std::vector<QPoint> &points, double tolerance);

/// How far the place is from the line between two points.
double distanceToSegment(QPointF place, QPointF from, QPointF to);

} // namespace brush
