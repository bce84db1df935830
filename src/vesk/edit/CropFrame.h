#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

/// The frame of a crop within a picture: what becomes of it when it is dragged. Lengths are pixels
/// of the picture. A ratio of width to height is kept when there is one.
class CropFrame
{
public:
    enum class Grip {
        None,
        Inside,
        Left,
        Right,
        Top,
        Bottom,
        TopLeft,
        TopRight,
        BottomLeft,
        BottomRight
    };

    explicit CropFrame(QSizeF pictureSize);

    const QRectF &rect() const { return frame; }
    /// Moved into the picture, and to the ratio.
    void setRect(const QRectF &rect);
    double ratio() const { return widthToHeight; }
    /// 0: free. The frame keeps its middle, and as much as it can.
    void setRatio(double ratio);

    /// What of the frame lies at a point, within reach of it.
    Grip gripAt(QPointF point, double reach) const;
    /// Moves what grip holds by a distance, from the frame as it was when it was taken.
    void drag(const QRectF &from, Grip grip, QPointF distance);

private:
    void keepInside();

    const QRectF picture;
    QRectF frame;
    double widthToHeight = 0;
};
