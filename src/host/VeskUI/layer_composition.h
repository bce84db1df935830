#pragma once

#include "veskui_export.h"

#include <QImage>
#include <QRect>

#include <vector>

class QPainter;
class VeskContext;

/// One visible layer of a document for the moment: it shares the layer's pixels, so it must not be
/// kept, or the next change of the layer would copy them all.
struct SourceLayer
{
    QImage picture;
    qreal opacity;
};

/// The visible layers of context (null for none), bottom to top.
VESKUI_EXPORT std::vector<SourceLayer> visibleLayers(const VeskContext *context);

/// Whether no transparency shows through in a document of that size.
bool isOpaque(const std::vector<SourceLayer> &layers, const QSize &documentSize);

/// What the layers show of region (document pixels), as a new
/// QImage::Format_ARGB32_Premultiplied image of region's size.
QImage composedRegion(const std::vector<SourceLayer> &layers, const QRect &region);

/// Draws what the layers show of region (document pixels) into target. Reads only the pixels that
/// the painter's filter needs.
void drawLayers(QPainter &painter, const QRectF &target, const std::vector<SourceLayer> &layers,
                const QRect &region);
