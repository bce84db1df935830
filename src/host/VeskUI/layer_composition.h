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

/// What the layers of a document show together: the one rule for the canvas, for the histogram and
/// for what is saved. Layers are laid one over the other in 8 bits, their colours as they are
/// encoded: a profile converts nothing. Layers are taken from a document on the GUI thread; the
/// rest may run on any.
namespace composition {

/// The visible layers of context (null for none), bottom to top.
VESKUI_EXPORT std::vector<SourceLayer> visibleLayers(const VeskContext *context);

/// Whether no transparency shows through in a document of that size.
bool isOpaque(const std::vector<SourceLayer> &layers, const QSize &documentSize);

/// What the layers show of region (document pixels), as a new
/// QImage::Format_ARGB32_Premultiplied image of region's size; null when there is no memory.
VESKUI_EXPORT QImage composedRegion(const std::vector<SourceLayer> &layers, const QRect &region);

/// The whole document, as it is saved, with the colour profile and the resolution of its lowest
/// visible layer. Shares the pixels of a single opaque layer; otherwise as composedRegion. Null
/// without a layer.
VESKUI_EXPORT QImage composedPicture(const std::vector<SourceLayer> &layers,
                                     const QSize &documentSize);
/// The same of the layers that context (null for none) shows now. GUI thread.
VESKUI_EXPORT QImage composedPicture(const VeskContext *context);

/// Draws what the layers show of region (document pixels) into target. Reads only the pixels that
/// the painter's filter needs.
void drawLayers(QPainter &painter, const QRectF &target, const std::vector<SourceLayer> &layers,
                const QRect &region);

} // namespace composition
