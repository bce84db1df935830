#include "coarse_search.h"

#include "correlation.h"
#include "parallel_rows.h"

#include <algorithm>
#include <cmath>

namespace registration {
namespace {

constexpr int kSmallestShare = 3;   ///< shifts reach a third of the picture
constexpr double kRivalShare = 0.8; ///< of the best rank, to be worth a closer look

int reachOf(int length)
{
    return length / kSmallestShare;
}

size_t padded(int length)
{
    return (size_t(length) + kRowPadding - 1) / kRowPadding * kRowPadding;
}

/// A level as numbers to multiply, zero where there is nothing and in margins all around, as wide
/// as the search reaches; with sums of squares.
class CoarseView
{
public:
    /// span: that rows can be read over, not counting the margins; at least the columns.
    CoarseView(int columns, int lines, int span, int reach)
        : width(columns)
        , height(lines)
        , margin(reach)
        , stride(padded(span) + 2 * size_t(reach))
        , values(stride * size_t(lines))
        , sums(size_t(columns + 1) * size_t(lines + 1))
    {
    }

    /// The first value; `margin` zeros before it, and behind the last as many after the padding.
    int16_t *row(int y) { return values.data() + size_t(y) * stride + margin; }
    const int16_t *row(int y) const { return values.data() + size_t(y) * stride + margin; }

    /// To call when all values are there.
    void sumUp()
    {
        for (int y = 0; y < height; ++y) {
            int64_t line = 0;
            for (int x = 0; x < width; ++x) {
                line += row(y)[x] * row(y)[x];
                sumAt(x + 1, y + 1) = sumAt(x + 1, y) + line;
            }
        }
    }

    int64_t squaresIn(int x, int y, QSize size) const
    {
        const auto at = [this](int column, int line) {
            return sums[size_t(line) * size_t(width + 1) + size_t(column)];
        };
        const int right = x + size.width();
        const int bottom = y + size.height();
        return at(right, bottom) - at(x, bottom) - at(right, y) + at(x, y);
    }

    const int width;
    const int height;
    const int margin;

private:
    int64_t &sumAt(int x, int y) { return sums[size_t(y) * size_t(width + 1) + size_t(x)]; }

    const size_t stride;
    std::vector<int16_t> values;
    std::vector<int64_t> sums; ///< of the squares above and to the left
};

CoarseView straightView(const NormalisedPlane &plane, int span, int reach)
{
    CoarseView view(plane.width, plane.height, span, reach);
    for (int y = 0; y < plane.height; ++y) {
        for (int x = 0; x < plane.width; ++x)
            view.row(y)[x] = plane.row(y)[x] != kNothing ? plane.row(y)[x] : int8_t{0};
    }
    view.sumUp();
    return view;
}

/// A turn about the middle of a plane of this size, from the view to the plane.
Matrix turnAbout(QSizeF size, double degrees)
{
    const double angle = degrees * 3.14159265358979323846 / 180.0;
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double x = (size.width() - 1) / 2.0;
    const double y = (size.height() - 1) / 2.0;
    return {c, -s, x - c * x + s * y, s, c, y - s * x - c * y, 0, 0, 1};
}

CoarseView turnedView(const NormalisedPlane &plane, int span, int reach, double degrees)
{
    CoarseView view(plane.width, plane.height, span, reach);
    const Matrix turn = turnAbout(QSizeF(plane.width, plane.height), degrees);
    for (int y = 0; y < plane.height; ++y) {
        for (int x = 0; x < plane.width; ++x) {
            const QPoint from = mapped(turn, QPointF(x, y)).toPoint();
            const bool isInside =
                from.x() >= 0 && from.y() >= 0 && from.x() < plane.width && from.y() < plane.height;
            const int8_t value = isInside ? plane.row(from.y())[from.x()] : kNothing;
            view.row(y)[x] = value != kNothing ? value : int8_t{0};
        }
    }
    view.sumUp();
    return view;
}

struct Shift
{
    int x = 0;
    int y = 0;
    double score = -1.0;
    double rank = -1.0; ///< the score, less where little overlaps
};

Shift shiftScore(const CoarseView &reference, const CoarseView &shot, int dx, int dy)
{
    const int left = std::max(0, -dx);
    const int top = std::max(0, -dy);
    const QSize common(std::min(reference.width, shot.width - dx) - left,
                       std::min(reference.height, shot.height - dy) - top);
    if (common.isEmpty())
        return {};
    int64_t products = 0;
    for (int y = top; y < top + common.height(); ++y)
        products += dotProduct(reference.row(y), shot.row(y + dy) + dx, padded(reference.width));
    const double squares = double(reference.squaresIn(left, top, common)) *
                           double(shot.squaresIn(left + dx, top + dy, common));
    const double score = double(products) / std::sqrt(std::max(1.0, squares));
    const double share =
        double(common.width()) * common.height() / (double(reference.width) * reference.height);
    return {dx, dy, score, score * std::sqrt(share)};
}

/// The scores of all shifts.
struct ShiftMap
{
    int reachX;
    int reachY;
    std::vector<Shift> shifts;

    const Shift &at(int dx, int dy) const
    {
        const int columns = 2 * reachX + 1;
        return shifts[size_t(dy + reachY) * size_t(columns) + size_t(dx + reachX)];
    }

    /// No neighbour is better.
    bool isTop(const Shift &shift) const
    {
        for (int y = std::max(-reachY, shift.y - 1); y <= std::min(reachY, shift.y + 1); ++y) {
            for (int x = std::max(-reachX, shift.x - 1); x <= std::min(reachX, shift.x + 1); ++x) {
                if (at(x, y).rank > shift.rank)
                    return false;
            }
        }
        return true;
    }
};

ShiftMap scoredShifts(const CoarseView &reference, const CoarseView &shot,
                      const std::atomic<bool> &isCancelled)
{
    ShiftMap map{reference.margin, reachOf(reference.height), {}};
    const int columns = 2 * map.reachX + 1;
    const int lines = 2 * map.reachY + 1;
    map.shifts.resize(size_t(columns) * size_t(lines));
    parallel::each(lines, [&](int line) {
        for (int i = 0; i < columns && !isCancelled; ++i) {
            map.shifts[size_t(line) * size_t(columns) + size_t(i)] =
                shiftScore(reference, shot, i - map.reachX, line - map.reachY);
        }
    });
    return map;
}

/// The tops that come close to the best one, which comes first.
std::vector<Shift> tops(const ShiftMap &map)
{
    std::vector<Shift> found;
    for (const Shift &shift : map.shifts) {
        if (shift.rank > 0 && map.isTop(shift))
            found.push_back(shift);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const Shift &a, const Shift &b) { return a.rank > b.rank; });
    const auto isFar = [&](const Shift &s) { return s.rank < kRivalShare * found.front().rank; };
    found.erase(std::find_if(found.begin(), found.end(), isFar), found.end());
    found.resize(std::min(found.size(), kMostStarts));
    return found;
}

} // namespace

std::vector<CoarseStart> coarseStarts(const ShotPyramid &reference, const ShotPyramid &shot,
                                      double degrees, const std::atomic<bool> &isCancelled)
{
    if (isCancelled)
        return {}; // the pyramids may lack their small levels
    const size_t level = std::min(reference.levels.size(), shot.levels.size()) - 1;
    const NormalisedPlane &plane = shot.levels[level];
    const int reach = reachOf(reference.levels[level].width);
    const int span = std::max(reference.levels[level].width, plane.width);
    const CoarseView referenceView = straightView(reference.levels[level], span, reach);
    const CoarseView shotView =
        degrees == 0.0 ? straightView(plane, span, reach) : turnedView(plane, span, reach, degrees);
    const double scale = reference.scale(level);
    const Matrix turn = turnAbout(QSizeF(shot.size), degrees);
    std::vector<CoarseStart> starts;
    for (const Shift &shift : tops(scoredShifts(referenceView, shotView, isCancelled)))
        starts.push_back(
            {product(turn, shiftMatrix(shift.x * scale, shift.y * scale)), shift.score});
    return starts;
}

} // namespace registration
