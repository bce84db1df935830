#include "layer_composition.h"

#include <VeskContext.h>
#include <VeskLayerBase.h>
#include <VeskLayerManager.h>

#include <QPainter>

#include <algorithm>

namespace {

bool isDeep(const SourceLayer &layer)
{
    const QPixelFormat pixels = layer.picture.pixelFormat();
    return std::max({pixels.redSize(), pixels.greenSize(), pixels.blueSize(), pixels.blackSize()}) >
           8;
}

QImage::Format composedFormat(int bits)
{
    return bits > 8 ? QImage::Format_RGBA64_Premultiplied : QImage::Format_ARGB32_Premultiplied;
}

/// Whether the layer alone makes up the region.
bool fills(const SourceLayer &layer, const QRect &region)
{
    return layer.opacity >= 1 && layer.picture.rect().contains(region);
}

} // namespace

std::vector<SourceLayer> composition::visibleLayers(const VeskContext *context)
{
    std::vector<SourceLayer> layers;
    if (!context)
        return layers;
    const VeskLayerManager *manager = context->getLayerManager();
    for (int i = 0; i < manager->count(); ++i) {
        const VeskLayerBase *layer = manager->layerAt(i);
        if (!layer->isVisible() || layer->getAlpha() <= 0)
            continue;
        const QImage picture = layer->picture();
        if (!picture.isNull())
            layers.push_back({picture, qreal(layer->getAlpha())});
    }
    return layers;
}

bool composition::isOpaque(const std::vector<SourceLayer> &layers, const QSize &documentSize)
{
    const QRect document(QPoint(0, 0), documentSize);
    return std::any_of(layers.begin(), layers.end(), [&document](const SourceLayer &layer) {
        return layer.opacity >= 1 && !layer.picture.hasAlphaChannel() &&
               layer.picture.rect().contains(document);
    });
}

int composition::bitsPerChannel(const std::vector<SourceLayer> &layers)
{
    return std::any_of(layers.begin(), layers.end(), isDeep) ? 16 : 8;
}

QColorSpace composition::colorSpace(const std::vector<SourceLayer> &layers)
{
    return layers.empty() ? QColorSpace() : layers.front().picture.colorSpace();
}

QImage composition::composedRegion(const std::vector<SourceLayer> &layers, const QRect &region,
                                   int bits)
{
    // The painter takes its time over deep pixels.
    if (layers.size() == 1 && fills(layers.front(), region) && isDeep(layers.front()))
        return layers.front().picture.copy(region).convertToFormat(composedFormat(bits));
    QImage composed(region.size(), composedFormat(bits));
    if (composed.isNull())
        return composed;
    composed.fill(Qt::transparent);
    QPainter painter(&composed);
    drawLayers(painter, composed.rect(), layers, region);
    return composed;
}

QColor composition::pixelColor(const std::vector<SourceLayer> &layers, const QPoint &pixel)
{
    // The painter takes a picture of one pixel for a colour of 8 bits.
    const QRect around(pixel - QPoint(1, 1), QSize(3, 3));
    return composedRegion(layers, around, bitsPerChannel(layers)).pixelColor(1, 1);
}

QImage composition::composedPicture(const std::vector<SourceLayer> &layers,
                                    const QSize &documentSize)
{
    if (layers.empty())
        return {};
    const SourceLayer &lowest = layers.front();
    if (layers.size() == 1 && lowest.opacity >= 1 && lowest.picture.size() == documentSize)
        return lowest.picture;
    QImage composed =
        composedRegion(layers, QRect(QPoint(0, 0), documentSize), bitsPerChannel(layers));
    composed.setColorSpace(lowest.picture.colorSpace());
    composed.setDotsPerMeterX(lowest.picture.dotsPerMeterX());
    composed.setDotsPerMeterY(lowest.picture.dotsPerMeterY());
    return composed;
}

QImage composition::composedPicture(const VeskContext *context)
{
    const QSize size = context ? context->getLayerManager()->size() : QSize();
    return composedPicture(visibleLayers(context), size);
}

void composition::drawLayers(QPainter &painter, const QRectF &target,
                             const std::vector<SourceLayer> &layers, const QRect &region)
{
    const qreal scaleX = target.width() / region.width();
    const qreal scaleY = target.height() / region.height();
    for (const SourceLayer &layer : layers) {
        const QRect part = region & layer.picture.rect();
        if (part.isEmpty())
            continue;
        const QPointF first(target.x() + (part.x() - region.x()) * scaleX,
                            target.y() + (part.y() - region.y()) * scaleY);
        painter.setOpacity(layer.opacity);
        painter.drawImage(QRectF(first, QSizeF(part.width() * scaleX, part.height() * scaleY)),
                          layer.picture, part);
    }
    painter.setOpacity(1);
}
