#pragma once

#include <QImage>
#include <QList>
#include <QRect>

/// The layers of a document in a part of it, with fewer pixels, each for itself. Any thread.
namespace reduced_layers {

/// How a layer of that size is seen in a part of the document, which is `size` pixels large.
struct Place
{
    QRect covered; ///< pixels of the layer; empty: it is not seen
    QSize size;    ///< of its own picture of them
    QRectF rect;   ///< where that lies among those of other layers
};
Place placeOf(QSize layer, const QRect &part, QSize size);

struct Layer
{
    QImage picture; ///< as large as Place::size
    QRectF rect;
    double opacity;
};
/// What the layers (bottom to top; those with null pictures count for nothing) show together. One
/// opaque layer that fills all keeps its depth and its format, others are composed with 8 or 16
/// bits as the canvas does. Null without layers.
QImage composed(const QList<Layer> &layers, QSize size);

} // namespace reduced_layers
