#include "resample.h"

#include <algorithm>
#include <cmath>

namespace registration {
namespace {

/// A shot's outline in the reference, for asking what lies inside.
struct Outline
{
    Matrix toShot;
    QSize size;

    bool covers(QPointF point) const
    {
        constexpr double kSlack = 1.0 / 256; // what the resampling rounds away
        const QPointF at = mapped(toShot, point);
        return at.x() >= -kSlack && at.y() >= -kSlack && at.x() <= size.width() - 1 + kSlack &&
               at.y() <= size.height() - 1 + kSlack;
    }
};

using Outlines = std::vector<Outline>;

/// The four corners suffice: outlines are convex.
bool areCovering(const Outlines &outlines, const QRect &area)
{
    if (area.isEmpty())
        return false;
    for (QPointF corner : corners(area.size())) {
        for (const Outline &outline : outlines) {
            if (!outline.covers(corner + area.topLeft()))
                return false;
        }
    }
    return true;
}

/// The whole, smaller by a share of each side, about the same middle.
QRect shrunk(const QRect &whole, double share)
{
    const int x = static_cast<int>(std::ceil(whole.width() * share / 2));
    const int y = static_cast<int>(std::ceil(whole.height() * share / 2));
    return whole.adjusted(x, y, -x, -y);
}

/// The largest that is covered of those about the middle. Empty when there is none.
QRect largestShrunk(const Outlines &outlines, const QRect &whole)
{
    double covered = 1.0;
    for (double step = 0.5; step * std::max(whole.width(), whole.height()) > 0.25; step /= 2) {
        if (areCovering(outlines, shrunk(whole, covered - step)))
            covered -= step;
    }
    return covered < 1.0 ? shrunk(whole, covered) : QRect();
}

constexpr int kLargestStep = 1 << 16; // halved, such steps make up any distance

using Move = std::array<int, 4>; ///< of the sides, as QRect::adjusted() has them

/// Moves one side as far out as all stay covered.
QRect grown(const Outlines &outlines, const QRect &whole, QRect area, const Move &out)
{
    for (int step = kLargestStep; step > 0; step /= 2) {
        const QRect wider =
            area.adjusted(out[0] * step, out[1] * step, out[2] * step, out[3] * step);
        if (whole.contains(wider) && areCovering(outlines, wider))
            area = wider;
    }
    return area;
}

} // namespace

QRect commonArea(const std::vector<Transform> &transforms, const std::vector<QSize> &sizes,
                 QSize referenceSize)
{
    constexpr Move kMoves[] = {{-1, 0, 0, 0}, {0, -1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    Outlines outlines;
    for (size_t i = 0; i < transforms.size(); ++i)
        outlines.push_back({inverse(transforms[i].matrix), sizes[i]});
    const QRect whole(QPoint(0, 0), referenceSize);
    if (areCovering(outlines, whole))
        return whole;
    QRect area = largestShrunk(outlines, whole);
    if (area.isEmpty())
        return {};
    for (const Move &move : kMoves)
        area = grown(outlines, whole, area, move);
    return area;
}

} // namespace registration
