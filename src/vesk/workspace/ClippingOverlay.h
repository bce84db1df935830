#pragma once

#include <QImage>
#include <QWidget>

class VeskCanvas;

/// Marks over a canvas what is clipped in the document: red where a channel is at its end, blue
/// where all are at 0. Lets the mouse through. Looks at the pixels that the screen shows, so its
/// cost is bounded by the window. The canvas owns it. GUI thread.
class ClippingOverlay : public QWidget
{
    Q_OBJECT

public:
    explicit ClippingOverlay(VeskCanvas *canvas);

    /// What is clipped of the pixels in those columns and rows: transparent elsewhere. Any thread.
    static QImage mask(const QImage &picture, const QList<int> &columns, const QList<int> &rows);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    struct View
    {
        qint64 picture = 0;
        QPointF corner;
        double zoom = 0;
        QSize size;
        bool operator==(const View &other) const
        {
            return picture == other.picture && corner == other.corner && zoom == other.zoom &&
                   size == other.size;
        }
    };

    void refresh(const QImage &picture);

    VeskCanvas *canvas;
    View shownView;
    QImage shown;
};
