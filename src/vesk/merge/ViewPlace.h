#pragma once

#include <QPointF>
#include <QRect>
#include <QSize>

/// Where a picture lies in a view: its zoom and its middle. View coordinates are those of widgets;
/// the zoom is 1 where a pixel of the picture is one of the screen. A value.
class ViewPlace
{
public:
    /// density: pixels of the screen for one of the widget.
    void setView(QSizeF size, double density);
    void setPicture(QSize size);
    QSize picture() const { return pictureSize; }

    /// As large as it fits, also after the view has another size.
    void fit();
    bool isFit() const { return chosenZoom == 0.0; }
    /// Keeps what stands at that place of the view there, as far as the edges allow.
    void zoomTo(double zoom, QPointF at);
    double zoom() const;
    void pan(QPointF by);

    /// Of the view, all that the picture takes.
    QRectF target() const;
    /// Of the view, where that area of the picture lies.
    QRectF targetOf(const QRect &area) const;
    /// Of the picture, all that is seen.
    QRect visible() const;
    QPointF toPicture(QPointF inView) const;

private:
    double scale() const { return zoom() / density; }

    QSizeF viewSize;
    double density = 1;
    QSize pictureSize{0, 0};
    double chosenZoom = 0; // 0: fit
    QPointF middle;        // of the view, in the picture
};
