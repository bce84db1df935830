#pragma once

#include "CanvasView.h"
#include "PicturePyramid.h"
#include "layer_composition.h"

#include <vector>

class QPainter;
class QPalette;

/// What a canvas paints. All positions are device pixels of the canvas; the painter's units must be
/// device pixels too. GUI thread.
namespace painting {

bool isDark(const QPalette &palette);

/// Around the document: neutral, so that it does not tint the eye's judgement of the picture.
QColor surroundColor(const QPalette &palette);

/// The tiles that show part, at the level that suits the zoom; none where the level is 0.
std::vector<PicturePyramid::TileKey> tilesIn(const CanvasView &view, const QRect &part);

/// Where a rectangle of a level's pixels is shown. Neighbours share their edges without a gap.
QRect levelTarget(const CanvasView &view, int level, const QRect &levelRect);

/// Shows transparency. origin: where the pattern starts; square: side of one field.
void paintCheckerboard(QPainter &painter, const QRect &part, const QPoint &origin, int square,
                       bool isDark);

/// Paints the layers inside part, which must lie in the document, in the colours that pyramid
/// converts them to. Returns how many pixels of the document it read: in proportion to part, not to
/// the document. Pixels of pyramid's tiles do not count. Where colours are converted or rounded to
/// 8 bits, what is shown at actual size or larger is kept in pyramid, too.
qint64 paintLayers(QPainter &painter, const CanvasView &view, PicturePyramid &pyramid,
                   const std::vector<SourceLayer> &layers, const QRect &part);

/// Paints a picture of a part of the document into target, smoothly where layers would be.
void paintPicture(QPainter &painter, const CanvasView &view, const QImage &picture,
                  const QRectF &target);

/// A dashed outline, visible on light and dark. phase moves the dashes; lineWidth: at least 1.
void paintOutline(QPainter &painter, const QRect &rect, int phase, int lineWidth);

} // namespace painting
