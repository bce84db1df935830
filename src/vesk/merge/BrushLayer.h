#pragma once

#include <Stroke.h>

#include <QImage>
#include <QWidget>

class MergePreview;

/// Lies over the preview while one paints: shows the strokes, each shot's in its colour, what
/// moved, and the brush, and makes strokes of what the mouse does. The left button paints, the
/// right one or Alt erases, Shift takes a thing that moved; Ctrl and the wheel are the preview's.
/// GUI thread.
class BrushLayer : public QWidget
{
    Q_OBJECT

public:
    /// preview: borrowed; becomes the parent.
    explicit BrushLayer(MergePreview *preview);

    /// The colour that a shot's strokes have, by its place.
    static QColor colourOf(int shot);

    void setStrokes(const brush::Strokes &strokes);
    /// radius: in pixels of the reference.
    void setBrush(int shot, int radius, bool isErasing);
    /// The pixel of the reference that the picture begins with.
    void setStart(QPoint start);
    /// What moved, white on black, of the whole picture at any size; null for nothing.
    void setMoved(const QImage &mask);

Q_SIGNALS:
    void painted(const brush::Stroke &stroke);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    bool isPainting() const { return !current.points.empty(); }
    QPoint toReference(QPointF inView) const;
    QTransform toView() const;
    void addPoint(QPointF inView);
    void forgetTint();
    QImage tinted() const;
    void paintCurrent(QPainter &painter) const;
    void paintBrush(QPainter &painter) const;

    MergePreview *preview;
    brush::Strokes strokes;
    brush::Stroke current; // without points while none is painted
    QImage mask;           // of what moved
    QImage tint;           // over the whole picture; null until needed
    QSize tintedPicture;
    QPoint start;
    QPointF pointer;
    int shot = 0;
    int radius = 1;
    bool isErasing = false;
};
