#include "ViewLock.h"

#include <VeskCanvas.h>

#include <QScopedValueRollback>

void ViewLock::setLocked(bool isLocked)
{
    isOn = isLocked;
    follow(canvases[0]);
}

bool ViewLock::isLinked(const VeskCanvas *canvas) const
{
    return canvas && (canvas == canvases[0] || canvas == canvases[1]);
}

void ViewLock::link(VeskCanvas *first, VeskCanvas *second)
{
    const bool wasFirst = isLinked(first);
    const bool wasSecond = isLinked(second);
    for (VeskCanvas *canvas : canvases) {
        if (canvas)
            canvas->disconnect(this);
    }
    canvases[0] = first;
    canvases[1] = second;
    for (VeskCanvas *canvas : canvases) {
        if (canvas)
            connect(canvas, &VeskCanvas::viewMoved, this, [this, canvas] { follow(canvas); });
    }
    if (!wasFirst || !wasSecond)
        follow(wasSecond ? second : first);
}

void ViewLock::follow(const VeskCanvas *moved)
{
    VeskCanvas *other = moved == canvases[0] ? canvases[1] : canvases[0];
    if (!isOn || isFollowing || !moved || !other)
        return;
    const QSizeF from = moved->canvasSize();
    const QSizeF to = other->canvasSize();
    if (from.isEmpty() || to.isEmpty())
        return;
    const QScopedValueRollback<bool> guard(isFollowing, true);
    if (moved->isFitted()) { // so that it stays fitted when the panes change their widths
        other->zoomToFit();
        return;
    }
    const QPointF middle = moved->toDocument(QRectF(moved->rect()).center());
    other->showPlace(
        moved->zoom() * from.width() / to.width(),
        {middle.x() * to.width() / from.width(), middle.y() * to.height() / from.height()});
}
