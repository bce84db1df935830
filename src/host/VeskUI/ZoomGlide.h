#pragma once

#include <QPointF>
#include <QVariantAnimation>

class CanvasView;

/// Moves the zoom of a view in small steps, at an even speed to the eye. GUI thread.
class ZoomGlide : public QVariantAnimation
{
    Q_OBJECT

public:
    /// view: borrowed, must outlive it.
    explicit ZoomGlide(CanvasView &view, QObject *parent = nullptr);

    /// Where it is going; where the view is while it rests.
    double target() const;
    /// To zoom, so that what is at anchor (device pixels) now stays there.
    void startTo(double zoom, const QPointF &anchor, int milliseconds);

Q_SIGNALS:
    void moved();

private:
    void step(const QVariant &logZoom);

    CanvasView &view;
    QPointF fixedAnchor;
    QPointF fixed; // what stays at the anchor, document pixels
};
