#include "bench_pictures.h"

#include <QPoint>

#include <algorithm>
#include <cmath>

namespace {

/// Random values on a grid of `cell` pixels, interpolated between: a light in 0..1 at (x, y).
class LightGrid
{
public:
    LightGrid(QSize size, int cellSize, uint32_t seed)
        : cell(cellSize)
        , columns(size.width() / cellSize + 2)
        , values(static_cast<size_t>(columns) * static_cast<size_t>(size.height() / cellSize + 2))
    {
        for (float &value : values) {
            seed = seed * 1664525U + 1013904223U;
            value = static_cast<float>(seed >> 8) / 16777216.0F;
        }
    }

    float at(int x, int y) const
    {
        const float fx = static_cast<float>(x % cell) / static_cast<float>(cell);
        const float fy = static_cast<float>(y % cell) / static_cast<float>(cell);
        const size_t i = static_cast<size_t>(y / cell) * static_cast<size_t>(columns) +
                         static_cast<size_t>(x / cell);
        const auto below = i + static_cast<size_t>(columns);
        const float top = values[i] + (values[i + 1] - values[i]) * fx;
        const float bottom = values[below] + (values[below + 1] - values[below]) * fx;
        return top + (bottom - top) * fy;
    }

private:
    int cell;
    int columns;
    std::vector<float> values;
};

} // namespace

BenchBracket::BenchBracket(int count, QSize size)
{
    constexpr int margin = 40;
    const QSize canvas(size.width() + 2 * margin, size.height() + 2 * margin);
    const LightGrid fine(canvas, 11, 1);
    const LightGrid middle(canvas, 67, 2);
    const LightGrid coarse(canvas, 409, 3);
    for (int i = 0; i < count; ++i) {
        const QPoint origin(margin + 7 * i % 20, margin - 5 * i % 20);
        const float gain = 0.4F * std::pow(1.8F, static_cast<float>(i));
        auto picture = std::make_unique<QImage>(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y) {
            auto *row = reinterpret_cast<QRgb *>(picture->scanLine(y));
            for (int x = 0; x < size.width(); ++x) {
                const int u = origin.x() + x;
                const int v = origin.y() + y;
                const float light =
                    fine.at(u, v) * 0.25F + middle.at(u, v) * 0.35F + coarse.at(u, v) * 0.4F;
                const int level = std::clamp(static_cast<int>(light * gain * 255.0F), 0, 255);
                row[x] = qRgb(level, level * 7 / 8, std::min(255, level * 9 / 8));
            }
        }
        pictures.push_back(std::move(picture));
    }
}

QList<QImage *> BenchBracket::list() const
{
    QList<QImage *> list;
    for (const auto &picture : pictures)
        list.append(picture.get());
    return list;
}

QList<QImage *> BenchBracket::copies() const
{
    QList<QImage *> list;
    for (const auto &picture : pictures)
        list.append(new QImage(picture->copy()));
    return list;
}

QSize sizeOfMegapixels(double megapixels)
{
    const double height = std::sqrt(megapixels * 1e6 * 3 / 4);
    return {static_cast<int>(height * 4 / 3), static_cast<int>(height)};
}
