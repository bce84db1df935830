#include "engine_pictures.h"

#include <QDir>

#include <algorithm>
#include <cmath>

namespace {

/// Value noise: random values on a grid, interpolated between.
double valueNoise(double x, double y, uint32_t seed)
{
    const auto gridValue = [seed](int gx, int gy) {
        uint32_t hash = seed ^ static_cast<uint32_t>(gx) * 0x9E3779B1U ^
                        static_cast<uint32_t>(gy) * 0x85EBCA77U;
        hash = (hash ^ hash >> 15) * 0x2C1B3C6DU;
        hash = (hash ^ hash >> 12) * 0x297A2D39U;
        return (hash ^ hash >> 15) / 4294967295.0;
    };
    const int gx = static_cast<int>(std::floor(x));
    const int gy = static_cast<int>(std::floor(y));
    const double fx = x - gx;
    const double fy = y - gy;
    const double top = gridValue(gx, gy) * (1 - fx) + gridValue(gx + 1, gy) * fx;
    const double bottom = gridValue(gx, gy + 1) * (1 - fx) + gridValue(gx + 1, gy + 1) * fx;
    return top * (1 - fy) + bottom * fy;
}

} // namespace

QList<QImage *> pictures::list(const Owned &pictures)
{
    QList<QImage *> pointers;
    for (const auto &picture : pictures)
        pointers.append(picture.get());
    return pointers;
}

QImage pictures::noise(QSize size, QImage::Format format, std::mt19937 &random)
{
    QImage image(size, format);
    for (int y = 0; y < image.height(); ++y) {
        uchar *row = image.scanLine(y);
        std::generate(row, row + image.bytesPerLine(),
                      [&] { return static_cast<uchar>(random()); });
    }
    if (format == QImage::Format_Indexed8 || format == QImage::Format_Mono ||
        format == QImage::Format_MonoLSB) {
        // Some indexes have no entry, as in a damaged file.
        const int entries = format == QImage::Format_Indexed8 ? 200 : 2;
        QList<QRgb> table(entries);
        std::generate(table.begin(), table.end(), [&] { return static_cast<QRgb>(random()); });
        image.setColorTable(table);
    }
    return image;
}

QImage pictures::greyNoise(QSize size, std::mt19937 &random)
{
    QList<QRgb> table;
    for (int level = 0; level < 256; ++level)
        table.append(qRgb(level, level, level));
    QImage grey = noise(size, QImage::Format_Indexed8, random);
    grey.setColorTable(table);
    return grey;
}

std::unique_ptr<QImage> pictures::greyRow(const QList<int> &levels)
{
    auto grey = std::make_unique<QImage>(int(levels.size()), 1, QImage::Format_Indexed8);
    grey->setColorTable({0xFF000000, 0xFFFFFFFF});
    for (int x = 0; x < levels.size(); ++x)
        grey->scanLine(0)[x] = uchar(levels[x]);
    return grey;
}

QImage pictures::scene(QSize size, QPoint origin, double exposure, uint32_t seed)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const double u = origin.x() + x;
            const double v = origin.y() + y;
            double light = 0;
            for (const double cell : {9.0, 31.0, 90.0, 250.0})
                light += valueNoise(u / cell, v / cell, seed) / 4;
            const int level = std::clamp(static_cast<int>(255 * light * exposure), 0, 255);
            const int tint =
                std::clamp(static_cast<int>(level * valueNoise(u / 50, v / 50, seed + 1)), 0, 255);
            row[x] = qRgb(level, (level + tint) / 2, tint);
        }
    }
    return image;
}

QStringList pictures::photographs(const QString &nameFilter)
{
    const QDir folder(qEnvironmentVariable("VESK_TEST_PICTURES"));
    QStringList paths;
    for (const QString &name : folder.entryList({nameFilter}, QDir::Files, QDir::Name))
        paths.append(folder.filePath(name));
    return paths;
}
