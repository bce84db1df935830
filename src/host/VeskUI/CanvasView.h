#pragma once

#include <QPointF>
#include <QRect>
#include <QSize>

/// Which part of a document a viewport shows, and how large. Positions and lengths of the viewport
/// are device pixels, those of the document are document pixels.
///
/// Along each axis a document that is smaller than the viewport is centred, a larger one leaves no
/// gap at an edge. The document's corner falls on a whole device pixel, so that a zoom of 1 shows
/// the pixels as they are.
class CanvasView
{
public:
    CanvasView(double minimumZoom, double maximumZoom);

    void setViewport(const QSize &size);
    void setDocument(const QSize &size);
    QSize viewport() const { return viewportSize; }
    QSize document() const { return documentSize; }

    /// Device pixels per document pixel.
    double zoom() const { return scale; }
    /// Changes the zoom (moved into the bounds) so that what is at anchor stays there, as far as
    /// the edges allow.
    void setZoom(double zoom, const QPointF &anchor);
    /// The same, so that the document's position fixed comes to anchor.
    void setZoom(double zoom, const QPointF &anchor, const QPointF &fixed);
    /// The largest zoom, at most 1, at which the whole document is visible. Kept while the viewport
    /// or the document changes, until setZoom or panBy.
    void fit();
    bool isFitted() const { return fitted; }
    void center();
    void panBy(const QPointF &distance);

    QPointF toDocument(const QPointF &position) const;
    QPointF toViewport(const QPointF &position) const;
    /// Where the document lies in the viewport.
    QRect documentRect() const;
    /// Document pixels that are at least partly inside part of the viewport.
    QRect documentPixels(const QRect &part) const;

private:
    double fitZoom() const;
    void applyFitZoom();
    void settle();

    const double minimum;
    const double maximum;
    QSize viewportSize;
    QSize documentSize;
    double scale = 1;
    QPointF origin; // of the document, in the viewport
    bool fitted = true;
};
