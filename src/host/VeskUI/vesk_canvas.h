#pragma once

#include "veskui_export.h"

#include <QPointF>
#include <QPointer>
#include <QSize>
#include <QVector>
#include <QWidget>

#include <array>
#include <memory>

class VeskContext;
class VeskSelection;

/// The view of one document: paints its layers over a checkerboard, zooms and pans. GUI thread.
///
/// Owned by the editor's window, never by a document. Borrows its context and selection; both
/// pointers turn null when their object goes away. The destructor calls VeskContext::forgetCanvas.
/// A document pixel covers zoom() device pixels. The cost of a repaint is bounded by the visible
/// area, whatever the size of the picture.
class VESKUI_EXPORT VeskCanvas : public QWidget
{
    Q_OBJECT

public:
    /// Number of pixels per 8-bit level.
    struct Histogram
    {
        std::array<quint32, 256> red{};
        std::array<quint32, 256> green{};
        std::array<quint32, 256> blue{};
        std::array<quint32, 256> luminosity{};
    };

    explicit VeskCanvas(QWidget *parent = nullptr);
    ~VeskCanvas() override;

    /// Drops what the canvas keeps of the picture shown so far (scaled copies, selection outline)
    /// and repaints. The context, the zoom and the histogram stay.
    virtual void resetCanvas();
    /// Makes the canvas show context (borrowed), or nothing with null.
    virtual void attachContext(VeskContext *context);
    VeskContext *context() const;

    /// The canvas timer moves the outline of the selection. Starting it sets its interval in
    /// milliseconds (0: the shortest that is sensible; negative values count as 0) and restarts a
    /// running one.
    void startCanvasTimer(int milliseconds);
    void stopCanvasTimer();
    bool isCanvasTimerActive() const;

    /// Sets the size of the document in pixels; negative lengths count as 0. refit also zooms so
    /// that the whole document is visible.
    void reSizeCanvas(int width, int height, bool refit);
    QSize canvasSize() const;

    /// Shows the outline of selection (borrowed), or none with null.
    void setSelection(VeskSelection *selection);
    VeskSelection *selection() const;

    /// Puts the middle of the document into the middle of the widget. repaint also schedules a
    /// repaint.
    void moveToCenter(bool repaint);

    /// Counts the pixels of the document anew and sends histogramChanged.
    void updateHistogram();
    const Histogram &histogram() const;

    /// Device pixels per document pixel.
    qreal zoom() const;
    static constexpr qreal kMinimumZoom = 1.0 / 128;
    static constexpr qreal kMaximumZoom = 32.0;

    /// Maps between widget coordinates and document pixels.
    QPointF toDocument(const QPointF &widgetPosition) const;
    QPointF toWidget(const QPointF &documentPosition) const;

public Q_SLOTS:
    /// Zooms to factor (moved into the bounds) and keeps what is in the middle of the widget.
    void setZoom(qreal factor);
    /// Zooms to factor and keeps what is at anchor (widget coordinates).
    void setZoomAt(qreal factor, const QPointF &anchor);
    void zoomIn();
    void zoomOut();
    /// The largest zoom at which the whole document is visible, at most 1; kept through resizes of
    /// the widget until the user zooms or pans.
    void zoomToFit();
    /// One document pixel to one device pixel.
    void zoomToActualSize();

Q_SIGNALS:
    void zoomChanged(qreal factor);
    void histogramChanged();
    /// The pointer is over that document pixel, or outside with (-1, -1).
    void pointerMoved(const QPoint &documentPixel);
};
