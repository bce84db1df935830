#include "CanvasView.h"

#include <QtMath>

#include <algorithm>

namespace {

// A viewport of no size has no fit: any zoom will do until it has one.
double lengthRatio(int viewport, int document)
{
    return viewport > 0 && document > 0 ? double(viewport) / document : 1.0;
}

double settledOrigin(double origin, int viewport, double shown)
{
    const double room = viewport - shown;
    if (room >= 0)
        return std::floor(room / 2);
    return std::round(std::clamp(origin, std::floor(room), 0.0));
}

} // namespace

CanvasView::CanvasView(double minimumZoom, double maximumZoom)
    : minimum(minimumZoom)
    , maximum(maximumZoom)
{
}

void CanvasView::setViewport(const QSize &size)
{
    // What was in the middle stays in the middle.
    origin +=
        QPointF(size.width() - viewportSize.width(), size.height() - viewportSize.height()) / 2;
    viewportSize = size;
    applyFitZoom();
}

void CanvasView::setDocument(const QSize &size)
{
    documentSize = size.expandedTo(QSize(0, 0));
    applyFitZoom();
}

void CanvasView::setZoom(double zoom, const QPointF &anchor)
{
    setZoom(zoom, anchor, toDocument(anchor));
}

void CanvasView::setZoom(double zoom, const QPointF &anchor, const QPointF &fixed)
{
    scale = zoom > minimum ? std::min(zoom, maximum) : minimum; // also for what is no number
    fitted = false;
    origin = anchor - fixed * scale;
    settle();
}

void CanvasView::fit()
{
    fitted = true;
    applyFitZoom();
}

void CanvasView::center()
{
    origin = QPointF(viewportSize.width() - documentSize.width() * scale,
                     viewportSize.height() - documentSize.height() * scale) /
             2;
    settle();
}

void CanvasView::panBy(const QPointF &distance)
{
    fitted = false;
    origin += distance;
    settle();
}

QPointF CanvasView::toDocument(const QPointF &position) const
{
    return (position - origin) / scale;
}

QPointF CanvasView::toViewport(const QPointF &position) const
{
    return position * scale + origin;
}

QRect CanvasView::documentRect() const
{
    const QPointF end = toViewport(QPointF(documentSize.width(), documentSize.height()));
    const QPoint first = origin.toPoint();
    // Even the thinnest document shows as one device pixel.
    const auto length = [](double from, double to) {
        return std::max(1, qRound(to) - qRound(from));
    };
    if (documentSize.isEmpty())
        return QRect(first, QSize(0, 0));
    return QRect(first, QSize(length(origin.x(), end.x()), length(origin.y(), end.y())));
}

QRect CanvasView::documentPixels(const QRect &part) const
{
    const QPointF first = toDocument(part.topLeft());
    const QPointF end = toDocument(QPointF(part.x() + part.width(), part.y() + part.height()));
    const QRect pixels(QPoint(qFloor(first.x()), qFloor(first.y())),
                       QPoint(qCeil(end.x()) - 1, qCeil(end.y()) - 1));
    return pixels & QRect(QPoint(0, 0), documentSize);
}

double CanvasView::fitZoom() const
{
    const double ratio = std::min(lengthRatio(viewportSize.width(), documentSize.width()),
                                  lengthRatio(viewportSize.height(), documentSize.height()));
    return std::clamp(std::min(ratio, 1.0), minimum, maximum);
}

void CanvasView::applyFitZoom()
{
    if (fitted)
        scale = fitZoom();
    settle();
}

void CanvasView::settle()
{
    origin.setX(settledOrigin(origin.x(), viewportSize.width(), documentSize.width() * scale));
    origin.setY(settledOrigin(origin.y(), viewportSize.height(), documentSize.height() * scale));
}
