#pragma once

#include <QImage>
#include <QWidget>

#include <utility>

class VeskCanvas;

/// Marks over a canvas what is clipped in the document: red where a channel is at its end, blue
/// where all are at 0; while a preview is shown, what is clipped in that.
/// Lets the mouse through. Looks at the pixels that the screen shows, so its cost is bounded by the
/// window. The canvas owns it. GUI thread.
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
        qint64 picture = 0; ///< whose levels
        QRectF place;       ///< of it in the widget
        QSize size;
        bool operator==(const View &other) const
        {
            return picture == other.picture && place == other.place && size == other.size;
        }
    };

    std::pair<QImage, QRectF> levels() const;
    void refresh(const QImage &picture, const QRectF &place);

    VeskCanvas *canvas;
    View shownView;
    QImage marks;
};
