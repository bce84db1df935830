#include "stroke_parts.h"

#include "stroke_path.h"

#include "large_memory.h"
#include "parallel_rows.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>
#include <set>

namespace {

using brush::Stroke;
using brush::Strokes;

constexpr double kLeastRadius = 0.71; ///< no place is farther from the middle of some pixel

/// Places between two bounds of one row; none when the first is larger.
struct Span
{
    double begin;
    double end;

    void cut(const Span &other)
    {
        begin = std::max(begin, other.begin);
        end = std::min(end, other.end);
    }
    void join(const Span &other)
    {
        if (other.begin > other.end)
            return;
        const bool isFirst = begin > end;
        begin = isFirst ? other.begin : std::min(begin, other.begin);
        end = isFirst ? other.end : std::max(end, other.end);
    }
};

constexpr Span kNothing{1.0, -1.0};

Span spanOfDisc(QPointF centre, double radius, double y)
{
    const double square = radius * radius - (y - centre.y()) * (y - centre.y());
    if (square < 0.0)
        return kNothing;
    const double half = std::sqrt(square);
    return {centre.x() - half, centre.x() + half};
}

/// The x between which least <= x * slope + offset <= most.
Span spanBetween(double slope, double offset, double least, double most)
{
    constexpr double kFar = 1e9;
    if (slope == 0.0)
        return offset >= least && offset <= most ? Span{-kFar, kFar} : kNothing;
    const double one = (least - offset) / slope;
    const double other = (most - offset) / slope;
    return {std::min(one, other), std::max(one, other)};
}

/// Of the row at height y, what lies no farther than the radius from the line between two points:
/// two discs, and the oblong between them.
Span spanOfSegment(QPointF from, QPointF to, double radius, double y)
{
    Span span = spanOfDisc(from, radius, y);
    span.join(spanOfDisc(to, radius, y));
    const QPointF along = to - from;
    const double square = QPointF::dotProduct(along, along);
    if (square == 0.0)
        return span;
    const double below = y - from.y();
    const double width = radius * std::sqrt(square);
    Span oblong = spanBetween(along.x(), below * along.y() - from.x() * along.x(), 0.0, square);
    oblong.cut(spanBetween(along.y(), -below * along.x() - from.x() * along.y(), -width, width));
    span.join(oblong);
    return span;
}

/// A stroke in a picture's own pixels; the middle of the first is (0.5, 0.5).
struct Line
{
    Line(const Stroke &stroke, double scale)
        : label(static_cast<uchar>(stroke.shot + 1))
        , radius(std::max(stroke.radius * scale, kLeastRadius))
    {
        for (const QPoint &point : stroke.points)
            points.push_back((QPointF(point) + QPointF(0.5, 0.5)) * scale);
        const auto [top, bottom] =
            std::minmax_element(points.begin(), points.end(),
                                [](const QPointF &a, const QPointF &b) { return a.y() < b.y(); });
        highest = top->y() - radius;
        lowest = bottom->y() + radius;
    }

    uchar label;
    double radius;
    double highest;
    double lowest;
    std::vector<QPointF> points;
};

void paintSpan(const Span &span, int width, uchar label, uchar *row)
{
    if (span.begin > span.end)
        return;
    const double begin = std::max(0.0, std::ceil(span.begin - 0.5));
    const double end = std::min(double(width), std::floor(span.end - 0.5) + 1.0);
    if (begin < end)
        std::memset(row + int(begin), label, size_t(end) - size_t(begin));
}

void paintRow(const Line &line, int y, int width, uchar *row)
{
    const double middle = y + 0.5;
    if (middle < line.highest || middle > line.lowest)
        return;
    for (size_t i = 0; i < line.points.size(); ++i)
        paintSpan(
            spanOfSegment(line.points[i == 0 ? 0 : i - 1], line.points[i], line.radius, middle),
            width, line.label, row);
}

/// For each pixel the shot that it is to come from, counted from 1, or 0.
QImage labelsOf(const Strokes &strokes, QSize size, double scale)
{
    std::vector<Line> lines;
    for (const Stroke &stroke : strokes)
        if (!stroke.isThing())
            lines.emplace_back(stroke, scale);
    if (lines.empty())
        return {};
    QImage labels = memory::largeImage(size, QImage::Format_Grayscale8);
    if (labels.isNull())
        throw std::bad_alloc();
    uchar *bits = labels.bits();
    const qsizetype rowBytes = labels.bytesPerLine();
    parallel::rows(size, [&](int begin, int end) {
        for (int y = begin; y < end; ++y) {
            uchar *row = bits + y * rowBytes;
            std::memset(row, 0, size_t(size.width()));
            for (const Line &line : lines)
                paintRow(line, y, size.width(), row);
        }
    });
    return labels;
}

bool has(const QImage &labels, int label)
{
    for (int y = 0; y < labels.height(); ++y)
        if (std::memchr(labels.constScanLine(y), label, size_t(labels.width())) != nullptr)
            return true;
    return false;
}

/// 255 where the picture has the label.
QImage maskOf(const QImage &labels, int label)
{
    QImage mask = memory::largeImage(labels.size(), QImage::Format_Grayscale8);
    if (mask.isNull())
        throw std::bad_alloc();
    uchar *bits = mask.bits();
    const qsizetype rowBytes = mask.bytesPerLine();
    const int width = labels.width();
    parallel::rows(labels.size(), [&](int begin, int end) {
        for (int y = begin; y < end; ++y) {
            const uchar *from = labels.constScanLine(y);
            uchar *to = bits + y * rowBytes;
            for (int x = 0; x < width; ++x)
                to[x] = from[x] == label ? 255 : 0;
        }
    });
    return mask;
}

bool covers(const Stroke &stroke, QPoint place)
{
    for (size_t i = 0; i < stroke.points.size(); ++i)
        if (brush::distanceToSegment(place, stroke.points[i == 0 ? 0 : i - 1], stroke.points[i]) <=
            stroke.radius)
            return true;
    return false;
}

std::vector<motion::ThingTake> thingsOf(const Strokes &strokes, double scale)
{
    std::vector<const Stroke *> chosen;
    for (const Stroke &stroke : strokes) {
        if (stroke.isThing())
            chosen.push_back(&stroke);
        else if (stroke.shot == brush::kErase)
            chosen.erase(std::remove_if(chosen.begin(), chosen.end(),
                                        [&stroke](const Stroke *thing) {
                                            return covers(stroke, thing->points.front());
                                        }),
                         chosen.end());
    }
    std::vector<motion::ThingTake> things;
    for (const Stroke *thing : chosen) {
        const QPointF place = (QPointF(thing->points.front()) + QPointF(0.5, 0.5)) * scale;
        things.push_back(
            {thing->shot, QPoint(int(std::floor(place.x())), int(std::floor(place.y())))});
    }
    return things;
}

} // namespace

brush::Parts brush::parts(const Strokes &strokes, QSize size, double scale)
{
    Parts parts;
    parts.things = thingsOf(strokes, scale);
    const QImage labels = labelsOf(strokes, size, scale);
    std::set<int> shots;
    for (const Stroke &stroke : strokes)
        if (!stroke.isThing() && stroke.shot != kErase)
            shots.insert(stroke.shot);
    for (const int shot : shots)
        if (has(labels, shot + 1))
            parts.takes.push_back({shot, maskOf(labels, shot + 1)});
    return parts;
}
