#include "LightMap.h"

#include "light_rows.h"
#include "look_pixels.h"
#include "parallel_rows.h"

#include <algorithm>

namespace exposure {
namespace {

constexpr int kWindowShare = 24; // of the longer side: the window's radius
constexpr double kEdge = 0.1;    // of the range: what differs by more is an edge

int cellsAlong(int pixels, int side)
{
    return (pixels + side - 1) / side;
}

/// Sums over windows of 2 * radius + 1 values, cut off at the ends.
void sumWindows(const double *values, int count, int stride, int radius, double *out)
{
    double sum = 0;
    for (int i = 0; i < std::min(radius, count); ++i)
        sum += values[i * stride];
    for (int i = 0; i < count; ++i) {
        if (i + radius < count)
            sum += values[(i + radius) * stride];
        if (i - radius - 1 >= 0)
            sum -= values[(i - radius - 1) * stride];
        out[i * stride] = sum;
    }
}

/// Means over square windows, cut off at the edges.
std::vector<double> windowMeans(const std::vector<double> &values, QSize size, int radius)
{
    std::vector<double> across(values.size());
    std::vector<double> means(values.size());
    const int width = size.width();
    for (int y = 0; y < size.height(); ++y)
        sumWindows(values.data() + y * width, width, 1, radius, across.data() + y * width);
    for (int x = 0; x < width; ++x)
        sumWindows(across.data() + x, size.height(), width, radius, means.data() + x);
    const auto lengthOf = [radius](int i, int count) {
        return std::min(i + radius, count - 1) - std::max(i - radius, 0) + 1;
    };
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < width; ++x)
            means[size_t(y * width + x)] /= lengthOf(x, width) * lengthOf(y, size.height());
    }
    return means;
}

template <typename Pixel>
double meanLuma(const QImage &picture, const QRect &cell)
{
    quint64 red = 0;
    quint64 green = 0;
    quint64 blue = 0;
    for (int y = cell.top(); y <= cell.bottom(); ++y) {
        const auto *row = reinterpret_cast<const Pixel *>(picture.constScanLine(y)) + cell.left();
        for (int x = 0; x < cell.width(); ++x) {
            red += look::red(row[x]);
            green += look::green(row[x]);
            blue += look::blue(row[x]);
        }
    }
    const double sum = 0.2126 * double(red) + 0.7152 * double(green) + 0.0722 * double(blue);
    return sum / (65535.0 * cell.width() * cell.height());
}

} // namespace

LightMap::LightMap(const QImage &picture)
    : side(std::max(1, cellsAlong(std::max(picture.width(), picture.height()), kSide)))
    , columns(cellsAlong(picture.width(), side))
    , rows(cellsAlong(picture.height(), side))
    , lines(size_t(columns) * size_t(rows))
{
    std::vector<double> lumas(lines.size());
    measure(picture, lumas);
    filter(lumas);
}

void LightMap::measure(const QImage &picture, std::vector<double> &lumas) const
{
    const bool isDeep = picture.depth() == 64;
    parallel::each(rows, [&](int row) {
        for (int column = 0; column < columns; ++column) {
            const QRect cell =
                QRect(column * side, row * side, side, side).intersected(picture.rect());
            lumas[size_t(row) * size_t(columns) + size_t(column)] =
                isDeep ? meanLuma<QRgba64>(picture, cell) : meanLuma<QRgb>(picture, cell);
        }
    });
}

void LightMap::filter(const std::vector<double> &lumas)
{
    const int radius = std::max(1, std::max(columns, rows) / kWindowShare);
    const QSize size(columns, rows);
    std::vector<double> squares(lumas);
    for (double &square : squares)
        square *= square;
    const std::vector<double> means = windowMeans(lumas, size, radius);
    std::vector<double> slopes = windowMeans(squares, size, radius);
    std::vector<double> offsets(means);
    for (size_t i = 0; i < lumas.size(); ++i) {
        const double variance = std::max(0.0, slopes[i] - means[i] * means[i]);
        slopes[i] = variance / (variance + kEdge * kEdge);
        offsets[i] = means[i] * (1.0 - slopes[i]);
    }
    slopes = windowMeans(slopes, size, radius);
    offsets = windowMeans(offsets, size, radius);
    for (size_t i = 0; i < lines.size(); ++i)
        lines[i] = {float(slopes[i]), float(offsets[i] * 65535.0)};
}

/// middle: of a pixel, from the picture's edge.
LightMap::Place LightMap::placeOf(float middle, int count) const
{
    const float place = middle / float(side) - 0.5F;
    const float inside = std::clamp(place, 0.0F, float(count - 1));
    const int first = int(inside);
    return {first, std::min(first + 1, count - 1), inside - float(first)};
}

LightMap::Line LightMap::mixed(const Line &a, const Line &b, float shareOfB)
{
    return {a.slope + (b.slope - a.slope) * shareOfB, a.offset + (b.offset - a.offset) * shareOfB};
}

LightMap::Line LightMap::at(int x, int y) const
{
    const Place row = placeOf(float(y) + 0.5F, rows);
    const Place column = placeOf(float(x) + 0.5F, columns);
    const Line *upper = lines.data() + row.first * columns;
    const Line *lower = lines.data() + row.second * columns;
    return mixed(mixed(upper[column.first], lower[column.first], row.share),
                 mixed(upper[column.second], lower[column.second], row.share), column.share);
}

/// The cells' own rows are mixed once for all pixels between them.
void LightMap::row(const Window &window, int x, int y, int count, float *slopes,
                   float *offsets) const
{
    const auto middle = [&window](int corner, int pixel) {
        return float(corner) + (float(pixel) + 0.5F) * window.step;
    };
    const auto columnOf = [&](int i) { return placeOf(middle(window.corner.x(), x + i), columns); };
    const Place place = placeOf(middle(window.corner.y(), y), rows);
    const Line *upper = lines.data() + place.first * columns;
    const Line *lower = lines.data() + place.second * columns;
    float cellSlopes[kSide + 1 + kCellsBehind] = {};
    float cellOffsets[kSide + 1 + kCellsBehind] = {};
    const int last = std::min(columnOf(count - 1).first + 1, columns);
    for (int column = columnOf(0).first; column <= last; ++column) {
        const int cell = std::min(column, columns - 1);
        const Line line = mixed(upper[cell], lower[cell], place.share);
        cellSlopes[column] = line.slope;
        cellOffsets[column] = line.offset;
    }
    mixCells({cellSlopes, cellOffsets, columns, float(side)},
             {float(window.corner.x()), window.step, x, size_t(count)}, slopes, offsets);
}

} // namespace exposure
