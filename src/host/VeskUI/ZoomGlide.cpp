#include "ZoomGlide.h"
#include "CanvasView.h"

#include <cmath>

ZoomGlide::ZoomGlide(CanvasView &movedView, QObject *parent)
    : QVariantAnimation(parent)
    , view(movedView)
{
    setEasingCurve(QEasingCurve::OutCubic);
    connect(this, &QVariantAnimation::valueChanged, this, &ZoomGlide::step);
}

double ZoomGlide::target() const
{
    return state() == Running ? std::exp2(endValue().toDouble()) : view.zoom();
}

void ZoomGlide::startTo(double zoom, const QPointF &anchor, int milliseconds)
{
    stop();
    fixedAnchor = anchor;
    fixed = view.toDocument(anchor);
    setStartValue(std::log2(view.zoom()));
    setEndValue(std::log2(zoom));
    setDuration(milliseconds);
    start();
}

void ZoomGlide::step(const QVariant &logZoom)
{
    if (state() != Running)
        return; // its start and end are only being set
    view.setZoom(std::exp2(logZoom.toDouble()), fixedAnchor, fixed);
    Q_EMIT moved();
}
