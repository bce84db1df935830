#include "ViewPlace.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLeastZoom = 0.02;
constexpr double kMostZoom = 16.0;

/// Where the picture begins along one axis: centred when it fits, without gaps otherwise.
double startOf(double wanted, double length, double room)
{
    return length <= room ? (room - length) / 2 : std::clamp(wanted, room - length, 0.0);
}

} // namespace

void ViewPlace::setView(QSizeF size, double newDensity)
{
    viewSize = size;
    density = newDensity;
}

void ViewPlace::setPicture(QSize given)
{
    const QSize size = given.expandedTo({0, 0}); // that of a null picture
    if (size != pictureSize && !isFit())         // the same part of the scene
        middle = {middle.x() * size.width() / std::max(1, pictureSize.width()),
                  middle.y() * size.height() / std::max(1, pictureSize.height())};
    pictureSize = size;
}

void ViewPlace::fit()
{
    chosenZoom = 0;
}

double ViewPlace::zoom() const
{
    if (!isFit())
        return chosenZoom;
    if (pictureSize.isEmpty() || viewSize.isEmpty())
        return 1;
    return density * std::min(viewSize.width() / pictureSize.width(),
                              viewSize.height() / pictureSize.height());
}

void ViewPlace::zoomTo(double zoom, QPointF at)
{
    const QPointF held = toPicture(at);
    chosenZoom = std::clamp(zoom, kLeastZoom, kMostZoom);
    const QPointF fromMiddle = at - QPointF(viewSize.width() / 2, viewSize.height() / 2);
    middle = held - fromMiddle / scale();
    pan({});
}

/// The middle stays where the edges let the view be.
void ViewPlace::pan(QPointF by)
{
    middle -= by / scale();
    const QPointF centre(viewSize.width() / 2, viewSize.height() / 2);
    middle = toPicture(centre);
}

QRectF ViewPlace::target() const
{
    const QSizeF size = QSizeF(pictureSize) * scale();
    QPointF start(viewSize.width() / 2 - middle.x() * scale(),
                  viewSize.height() / 2 - middle.y() * scale());
    start = {startOf(start.x(), size.width(), viewSize.width()),
             startOf(start.y(), size.height(), viewSize.height())};
    // On whole pixels of the screen, so that a zoom of 1 shows the picture's own.
    start = {std::round(start.x() * density) / density, std::round(start.y() * density) / density};
    return {start, size};
}

QRectF ViewPlace::targetOf(const QRect &area) const
{
    return {target().topLeft() + QPointF(area.topLeft()) * scale(), QSizeF(area.size()) * scale()};
}

QRect ViewPlace::visible() const
{
    const QRectF seen(toPicture({0, 0}), toPicture({viewSize.width(), viewSize.height()}));
    return seen.toAlignedRect() & QRect(QPoint(), pictureSize);
}

QPointF ViewPlace::toPicture(QPointF inView) const
{
    return (inView - target().topLeft()) / scale();
}
