#include "LineResampler.h"

#include <algorithm>
#include <cmath>

namespace registration {
namespace {

constexpr size_t kChannels = 4;
constexpr int kTapsBefore = int(kTaps) / 2 - 1;

double denominatorAt(const Matrix &matrix, QPointF point)
{
    return matrix[6] * point.x() + matrix[7] * point.y() + matrix[8];
}

/// How far the line of a row falls for each column of the shot, or no number.
double slopeOfRow(const Matrix &toShot, QSize size, double y)
{
    const QPointF step = mapped(toShot, QPointF(size.width(), y)) - mapped(toShot, QPointF(0, y));
    const double scale = step.x() / size.width();
    constexpr double kMostScale = 1.5;
    return scale > 1 / kMostScale && scale < kMostScale ? step.y() / step.x() : std::nan("");
}

/// Pixels from begin to end - 1 of a row that the shot covers: one piece, as the picture of a line
/// is one.
struct Covered
{
    Covered(const RowPlaces &places, const SourcePixels &shot)
    {
        const auto isCovered = [&](size_t i) {
            return places.x[i] >= 0 && places.x[i] <= (shot.width - 1) * kPhases &&
                   places.y[i] >= 0 && places.y[i] <= (shot.height - 1) * kPhases;
        };
        const size_t width = places.x.size();
        while (begin < width && !isCovered(begin))
            ++begin;
        end = width;
        while (end > begin && !isCovered(end - 1))
            --end;
    }

    size_t begin = 0;
    size_t end = 0;
};

} // namespace

bool areRowsLevel(const Matrix &toShot, QSize size)
{
    constexpr double kMostSlope = 1.0 / 16;
    constexpr double kMostTilt = 1.5;
    double least = denominatorAt(toShot, QPointF(0, 0));
    double most = least;
    for (const QPointF &corner : corners(size)) {
        least = std::min(least, denominatorAt(toShot, corner));
        most = std::max(most, denominatorAt(toShot, corner));
    }
    // So that what is no number, and what lies behind the camera, is not level.
    return most <= kMostTilt * least && std::abs(slopeOfRow(toShot, size, 0)) <= kMostSlope &&
           std::abs(slopeOfRow(toShot, size, size.height() - 1)) <= kMostSlope;
}

template <typename Channel>
LineResampler<Channel>::LineResampler(const SourcePixels &shot, const Matrix &matrix, int width)
    : source(shot)
    , toShot(matrix)
    , places(width)
    , downPlaces(size_t(shot.width))
    , columns(shot.width)
{
}

template <typename Channel>
void LineResampler<Channel>::makeRow(int y, Channel *out)
{
    findPlaces(toShot, y, places);
    const Covered covered(places, source);
    const size_t width = places.x.size();
    std::fill(out, out + kChannels * covered.begin, Channel{0});
    std::fill(out + kChannels * covered.end, out + kChannels * width, Channel{0});
    if (covered.begin == covered.end)
        return;
    const auto firstTap = [](int32_t place) { return place / kPhases - kTapsBefore; };
    const ColumnRange range{
        std::max(0, firstTap(places.x[covered.begin])),
        std::min(source.width, firstTap(places.x[covered.end - 1]) + int(kTaps))};
    findDownPlaces(y, range);
    filterDown(source, downPlaces.data(), range, columns);
    columns.repeatOutermost();
    filterAcross(columns, places.x.data() + covered.begin, covered.end - covered.begin,
                 source.isOpaque, out + kChannels * covered.begin);
}

/// The map takes lines to lines, so that even steps are exact.
template <typename Channel>
void LineResampler<Channel>::findDownPlaces(int y, ColumnRange range)
{
    constexpr double kFine = 1 << 24; // steps to a phase
    const QPointF from = mapped(toShot, QPointF(0, y));
    const QPointF across = mapped(toShot, QPointF(double(places.x.size()), y)) - from;
    const double slope = across.y() / across.x();
    const auto fixed = [](double rows) { return std::llround(rows * kPhases * kFine); };
    const int64_t step = fixed(slope);
    int64_t at = fixed(from.y() + slope * (range.begin - from.x()) + 0.5 / kPhases);
    for (int x = range.begin; x < range.end; ++x, at += step)
        downPlaces[size_t(x - range.begin)] = int32_t(at >> 24);
}

template class LineResampler<uint8_t>;
template class LineResampler<uint16_t>;

} // namespace registration
