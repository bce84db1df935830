#include "stroke_path.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// The point between first and last that is farthest from the line between them, and how far.
std::pair<size_t, double> farthest(const std::vector<QPoint> &points, size_t first, size_t last)
{
    std::pair<size_t, double> found{first, -1.0};
    for (size_t i = first + 1; i < last; ++i) {
        const double distance = brush::distanceToSegment(points[i], points[first], points[last]);
        if (distance > found.second)
            found = {i, distance};
    }
    return found;
}

} // namespace

double brush::distanceToSegment(QPointF place, QPointF from, QPointF to)
{
    const QPointF along = to - from;
    const double length = QPointF::dotProduct(along, along);
    const double share =
        length > 0.0 ? std::clamp(QPointF::dotProduct(place - from, along) / length, 0.0, 1.0)
                     : 0.0;
    const QPointF away = place - (from + share * along);
    return std::sqrt(QPointF::dotProduct(away, away));
}

std::vector<QPoint> brush::simplified(const std::vector<QPoint> &points, double tolerance)
{
    std::vector<char> isKept(points.size());
    isKept.front() = isKept.back() = 1;
    std::vector<std::pair<size_t, size_t>> open{{0, points.size() - 1}};
    while (!open.empty()) {
        const auto [first, last] = open.back();
        open.pop_back();
        const auto [middle, distance] = farthest(points, first, last);
        if (distance <= tolerance)
            continue;
        isKept[middle] = 1;
        open.push_back({first, middle});
        open.push_back({middle, last});
    }
    std::vector<QPoint> kept;
    for (size_t i = 0; i < points.size(); ++i)
        if (isKept[i] != 0 && (kept.empty() || kept.back() != points[i]))
            kept.push_back(points[i]);
    return kept;
}
