#include "canvas_painting.h"

#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include <algorithm>

namespace {

constexpr double kCrispZoom = 2; // from here on single pixels are shown as squares
constexpr int kDash = 4;
// The painter's filter reads beyond the edge of what is drawn.
constexpr int kFilterMargin = 2;

qint64 area(const QRect &rect)
{
    return qint64(rect.width()) * rect.height();
}

/// Whether the painter would have to do more than to copy pixels.
bool isCostly(const PicturePyramid &pyramid, const std::vector<SourceLayer> &layers)
{
    return pyramid.toScreen() || composition::bitsPerChannel(layers) > 8;
}

bool isSmooth(const CanvasView &view)
{
    return view.zoom() != 1 && view.zoom() < kCrispZoom;
}

qint64 paintFromDocument(QPainter &painter, const CanvasView &view, PicturePyramid &pyramid,
                         const std::vector<SourceLayer> &layers, const QRect &part)
{
    const QRect document(QPoint(0, 0), view.document());
    const QRect region = view.documentPixels(part).adjusted(-kFilterMargin, -kFilterMargin,
                                                            kFilterMargin, kFilterMargin) &
                         document;
    if (region.isEmpty())
        return 0;
    const QRectF target(view.toViewport(region.topLeft()), QSizeF(region.size()) * view.zoom());
    if (isCostly(pyramid, layers)) {
        painting::paintPicture(painter, view, pyramid.documentPixels(region, layers), target);
        return 0;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform, isSmooth(view));
    composition::drawLayers(painter, target, layers, region);
    return area(region);
}

// Picks pixels without a filter, so it reads as many as it draws.
qint64 paintRough(QPainter &painter, const CanvasView &view, const PicturePyramid &pyramid,
                  const std::vector<SourceLayer> &layers, const QRect &part, const QRect &target)
{
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    const QRect region = view.documentPixels(target);
    const QRect visible = target & part;
    if (region.isEmpty() || visible.isEmpty())
        return 0;
    if (!pyramid.toScreen()) {
        composition::drawLayers(painter, target, layers, region);
        return area(visible);
    }
    QImage picked(visible.size(), QImage::Format_ARGB32_Premultiplied);
    picked.fill(Qt::transparent);
    QPainter picking(&picked);
    composition::drawLayers(picking, target.translated(-visible.topLeft()), layers, region);
    picking.end();
    pyramid.toScreen()(picked);
    painter.drawImage(visible.topLeft(), picked);
    return area(visible);
}

} // namespace

bool painting::isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < 128;
}

QColor painting::surroundColor(const QPalette &palette)
{
    return isDark(palette) ? QColor(0x26, 0x26, 0x26) : QColor(0xc4, 0xc4, 0xc4);
}

std::vector<PicturePyramid::TileKey> painting::tilesIn(const CanvasView &view, const QRect &part)
{
    std::vector<PicturePyramid::TileKey> keys;
    const int level = PicturePyramid::levelForZoom(view.zoom());
    const QRect pixels = view.documentPixels(part);
    if (level == 0 || pixels.isEmpty())
        return keys;
    const auto tileOf = [level](int pixel) { return (pixel >> level) / PicturePyramid::kTileSize; };
    for (int row = tileOf(pixels.top()); row <= tileOf(pixels.bottom()); ++row) {
        for (int column = tileOf(pixels.left()); column <= tileOf(pixels.right()); ++column)
            keys.push_back({level, column, row});
    }
    return keys;
}

QRect painting::levelTarget(const CanvasView &view, int level, const QRect &levelRect)
{
    const double unit = double(1 << level);
    const QPointF first = view.toViewport(QPointF(levelRect.topLeft()) * unit);
    const QPointF end = view.toViewport(
        QPointF(levelRect.x() + levelRect.width(), levelRect.y() + levelRect.height()) * unit);
    return QRect(first.toPoint(), end.toPoint() - QPoint(1, 1));
}

void painting::paintCheckerboard(QPainter &painter, const QRect &part, const QPoint &origin,
                                 int square, bool isDark)
{
    QPixmap pattern(2 * square, 2 * square);
    pattern.fill(isDark ? QColor(0x50, 0x50, 0x50) : QColor(0xff, 0xff, 0xff));
    const QColor second = isDark ? QColor(0x3c, 0x3c, 0x3c) : QColor(0xd8, 0xd8, 0xd8);
    QPainter fields(&pattern);
    fields.fillRect(0, 0, square, square, second);
    fields.fillRect(square, square, square, square, second);
    fields.end();
    painter.setBrushOrigin(origin);
    painter.fillRect(part, QBrush(pattern));
}

qint64 painting::paintLayers(QPainter &painter, const CanvasView &view, PicturePyramid &pyramid,
                             const std::vector<SourceLayer> &layers, const QRect &part)
{
    const int level = PicturePyramid::levelForZoom(view.zoom());
    if (level == 0)
        return paintFromDocument(painter, view, pyramid, layers, part);
    qint64 pixelsRead = 0;
    for (const PicturePyramid::TileKey &key : tilesIn(view, part)) {
        const QRect target = levelTarget(view, level, pyramid.tileRect(key));
        if (const QImage *tile = pyramid.tile(key)) {
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawImage(target, *tile);
        } else {
            pixelsRead += paintRough(painter, view, pyramid, layers, part, target);
        }
    }
    return pixelsRead;
}

void painting::paintPicture(QPainter &painter, const CanvasView &view, const QImage &picture,
                            const QRectF &target)
{
    painter.setRenderHint(QPainter::SmoothPixmapTransform,
                          isSmooth(view) && target.size() != QSizeF(picture.size()));
    painter.drawImage(target, picture);
}

void painting::paintOutline(QPainter &painter, const QRect &rect, int phase, int lineWidth)
{
    const QRectF line =
        QRectF(rect).adjusted(lineWidth / 2.0, lineWidth / 2.0, -lineWidth / 2.0, -lineWidth / 2.0);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, lineWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(line);
    QPen dashes(Qt::white, lineWidth, Qt::CustomDashLine, Qt::FlatCap, Qt::MiterJoin);
    dashes.setDashPattern({kDash, kDash});
    dashes.setDashOffset(phase % (2 * kDash));
    painter.setPen(dashes);
    painter.drawRect(line);
}
