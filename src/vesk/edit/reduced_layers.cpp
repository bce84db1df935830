#include "reduced_layers.h"

#include <QColorSpace>
#include <QPainter>

#include <algorithm>

reduced_layers::Place reduced_layers::placeOf(QSize layer, const QRect &part, QSize size)
{
    Place place;
    place.covered = part & QRect(QPoint(), layer);
    if (place.covered == part)
        return {part, size, QRectF(QPointF(), size)};
    if (place.covered.isEmpty())
        return {};
    const double scale = double(size.width()) / part.width();
    place.size = QSize(std::max(1, qRound(place.covered.width() * scale)),
                       std::max(1, qRound(place.covered.height() * scale)));
    place.rect = {QPointF(place.covered.topLeft() - part.topLeft()) * scale, QSizeF(place.size)};
    return place;
}

QImage reduced_layers::composed(const QList<Layer> &layers, QSize size)
{
    QList<Layer> seen = layers;
    seen.removeIf([](const Layer &layer) { return layer.picture.isNull(); });
    if (seen.isEmpty())
        return {};
    const QImage &lowest = seen.constFirst().picture;
    if (seen.size() == 1 && seen.constFirst().opacity >= 1 && lowest.size() == size)
        return lowest;
    const bool isDeep = std::any_of(seen.cbegin(), seen.cend(),
                                    [](const Layer &each) { return each.picture.depth() == 64; });
    QImage result(size, isDeep ? QImage::Format_RGBA64_Premultiplied
                               : QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    for (const Layer &layer : std::as_const(seen)) {
        painter.setOpacity(layer.opacity);
        painter.drawImage(layer.rect, layer.picture);
    }
    painter.end();
    result.setColorSpace(lowest.colorSpace());
    return result;
}
