#pragma once

#include "veskui_export.h"

#include <QColorSpace>
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
/// for what is saved. Layers are laid one over the other with their colours as they are encoded, in
/// the profile of the lowest one: composing converts nothing. Layers are taken from a document on
/// the GUI thread; the rest may run on any.
namespace composition {

/// The visible layers of context (null for none), bottom to top.
VESKUI_EXPORT std::vector<SourceLayer> visibleLayers(const VeskContext *context);

/// Whether no transparency shows through in a document of that size.
bool isOpaque(const std::vector<SourceLayer> &layers, const QSize &documentSize);

/// 16 where a layer has more than 8 bits per channel, otherwise 8.
VESKUI_EXPORT int bitsPerChannel(const std::vector<SourceLayer> &layers);

/// Space of the colours that the layers show; invalid when it is not known.
VESKUI_EXPORT QColorSpace colorSpace(const std::vector<SourceLayer> &layers);

/// What the layers show of region (document pixels), as a new image of region's size; null when
/// there is no memory. bits: 8 gives QImage::Format_ARGB32_Premultiplied, deeper layers rounded; 16
/// gives QImage::Format_RGBA64_Premultiplied.
VESKUI_EXPORT QImage composedRegion(const std::vector<SourceLayer> &layers, const QRect &region,
                                    int bits = 8);

/// Colour of a document pixel, at bitsPerChannel.
QColor pixelColor(const std::vector<SourceLayer> &layers, const QPoint &pixel);

/// The whole document, as it is saved: at bitsPerChannel, with the colour profile and the
/// resolution of its lowest visible layer. Shares the pixels of a single opaque layer; otherwise as
/// composedRegion. Null without a layer.
VESKUI_EXPORT QImage composedPicture(const std::vector<SourceLayer> &layers,
                                     const QSize &documentSize);
/// The same of the layers that context (null for none) shows now. GUI thread.
VESKUI_EXPORT QImage composedPicture(const VeskContext *context);

/// Draws what the layers show of region (document pixels) into target. Reads only the pixels that
/// the painter's filter needs.
void drawLayers(QPainter &painter, const QRectF &target, const std::vector<SourceLayer> &layers,
                const QRect &region);

} // namespace composition
