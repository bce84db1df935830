#include "PicturePyramid.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

constexpr int kLeastTiles = 1024; // 256 MiB: enough for all levels of a 100-megapixel picture

// The four bytes of a pixel are summed two at a time, each in a 16-bit half.
quint32 mean(quint32 a, quint32 b, quint32 c, quint32 d)
{
    constexpr quint32 kMask = 0x00ff00ff;
    constexpr quint32 kRounding = 0x00020002;
    const quint32 even = (a & kMask) + (b & kMask) + (c & kMask) + (d & kMask) + kRounding;
    const quint32 odd = ((a >> 8) & kMask) + ((b >> 8) & kMask) + ((c >> 8) & kMask) +
                        ((d >> 8) & kMask) + kRounding;
    return ((even >> 2) & kMask) | (((odd >> 2) & kMask) << 8);
}

// An odd last row or column counts twice.
QImage halved(const QImage &image)
{
    const int width = (image.width() + 1) / 2;
    const int height = (image.height() + 1) / 2;
    QImage half(width, height, image.format());
    for (int y = 0; y < height; ++y) {
        const auto *upper = reinterpret_cast<const quint32 *>(image.constScanLine(2 * y));
        const auto *lower = reinterpret_cast<const quint32 *>(
            image.constScanLine(std::min(2 * y + 1, image.height() - 1)));
        auto *out = reinterpret_cast<quint32 *>(half.scanLine(y));
        const int pairs = image.width() / 2;
        for (int x = 0; x < pairs; ++x)
            out[x] = mean(upper[2 * x], upper[2 * x + 1], lower[2 * x], lower[2 * x + 1]);
        if (pairs < width) {
            const int last = image.width() - 1;
            out[pairs] = mean(upper[last], upper[last], lower[last], lower[last]);
        }
    }
    return half;
}

} // namespace

PicturePyramid::PicturePyramid()
    : tiles(kLeastTiles)
{
}

int PicturePyramid::levelForZoom(double zoom)
{
    return std::max(0, int(std::floor(-std::log2(zoom))));
}

void PicturePyramid::reset(const QSize &documentSize, const VeskScreenColours::Conversion &toScreen)
{
    document = documentSize;
    conversion = toScreen;
    tiles.clear();
}

// A level's pixels are at least half as large as the device's, so the visible part of a level has
// up to twice the viewport's width and height. Twice that leaves room for the tiles below.
void PicturePyramid::setViewport(const QSize &size)
{
    const int columns = 2 * size.width() / kTileSize + 2;
    const int rows = 2 * size.height() / kTileSize + 2;
    tiles.setMaxCost(std::max(kLeastTiles, 2 * columns * rows));
}

QSize PicturePyramid::levelSize(int level) const
{
    const auto reduced = [level](int length) { return ((length - 1) >> level) + 1; };
    if (document.isEmpty())
        return QSize(0, 0);
    return QSize(reduced(document.width()), reduced(document.height()));
}

QRect PicturePyramid::tileRect(const TileKey &key) const
{
    const QRect full(key.column * kTileSize, key.row * kTileSize, kTileSize, kTileSize);
    return full & QRect(QPoint(0, 0), levelSize(key.level));
}

const QImage *PicturePyramid::tile(const TileKey &key) const
{
    return tiles.object(key);
}

bool PicturePyramid::buildStep(const TileKey &key, const std::vector<SourceLayer> &layers)
{
    if (tiles.contains(key))
        return true;
    const QRect rect = tileRect(key);
    if (rect.isEmpty())
        return true;
    if (key.level > 1)
        return buildFromChildren(key, layers);
    buildFromDocument(key, layers);
    return true;
}

/// Colours are converted where they are fewest: after the halving.
void PicturePyramid::buildFromDocument(const TileKey &key, const std::vector<SourceLayer> &layers)
{
    const QRect rect = tileRect(key);
    const int pixels = 1 << key.level;
    const QRect region =
        QRect(rect.topLeft() * pixels, rect.size() * pixels) & QRect(QPoint(0, 0), document);
    pixelsRead += qint64(region.width()) * region.height();
    const QImage composed = composition::composedRegion(layers, region);
    auto made = std::make_unique<QImage>(key.level == 0 ? composed : halved(composed));
    if (conversion)
        conversion(*made);
    tiles.insert(key, made.release());
}

QImage PicturePyramid::documentPixels(const QRect &region, const std::vector<SourceLayer> &layers)
{
    QImage joined(region.size(), QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&joined);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (int row = region.top() / kTileSize; row <= region.bottom() / kTileSize; ++row) {
        for (int column = region.left() / kTileSize; column <= region.right() / kTileSize;
             ++column) {
            const TileKey key{0, column, row};
            if (!tile(key))
                buildFromDocument(key, layers);
            painter.drawImage(tileRect(key).topLeft() - region.topLeft(), *tile(key));
        }
    }
    return joined;
}

bool PicturePyramid::buildFromChildren(const TileKey &key, const std::vector<SourceLayer> &layers)
{
    const QRect rect = tileRect(key);
    const QRect below =
        QRect(rect.topLeft() * 2, rect.size() * 2) & QRect(QPoint(0, 0), levelSize(key.level - 1));
    QImage joined(below.size(), QImage::Format_ARGB32_Premultiplied);
    for (int i = 0; i < 4; ++i) {
        const TileKey child{key.level - 1, 2 * key.column + i % 2, 2 * key.row + i / 2};
        const QRect childRect = tileRect(child);
        if (childRect.isEmpty())
            continue;
        const QImage *childTile = tile(child);
        if (!childTile) {
            buildStep(child, layers);
            return false;
        }
        QPainter painter(&joined);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(childRect.topLeft() - below.topLeft(), *childTile);
    }
    tiles.insert(key, new QImage(halved(joined)));
    return true;
}
