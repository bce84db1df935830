#pragma once

#include "CanvasOverlay.h"
#include "CropFrame.h"

class QComboBox;

/// A frame to be dragged over the canvas, with a bar for its ratio and its two ends. Enter or a
/// double click crops. GUI thread.
class CropTool : public CanvasOverlay
{
    Q_OBJECT

public:
    /// start: pixels that are in the frame at first; empty for all. covered: the part that all
    /// shots of a merge cover; empty when that is not known.
    CropTool(VeskCanvas *canvas, const QRect &start, const QRect &covered);

    /// Whole pixels of the document.
    QRect area() const;

Q_SIGNALS:
    void accepted(const QRect &area);

protected:
    void accept() override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *makeBar(const QRect &covered);
    void chooseRatio(int index);
    void placeBar();
    QRectF shownFrame() const;
    CropFrame::Grip gripAt(const QPointF &position) const;

    CropFrame frame;
    const QRect coveredArea;
    QComboBox *ratios;
    QWidget *bar;
    CropFrame::Grip held = CropFrame::Grip::None;
    QRectF takenFrame; // as it was when it was taken
    QPointF takenAt;   // document pixels
};
