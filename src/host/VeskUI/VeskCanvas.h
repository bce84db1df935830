#pragma once

#include "veskui_export.h"

#include <QBasicTimer>
#include <QColor>
#include <QImage>
#include <QPointF>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <QWidget>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class CanvasView;
class PicturePyramid;
class QTouchEvent;
class VeskContext;
class VeskSelection;
class ZoomGlide;
struct SourceLayer;

/// The view of one document: paints its layers over a checkerboard, zooms and pans.
///
/// Mouse: the wheel zooms around the pointer, dragging pans, a double click changes between the
/// whole document and actual size. Trackpad: two fingers pan, a pinch zooms. Touch screen: fingers
/// hold the picture. Keyboard: the arrow keys pan.
///
/// Owned by the editor's window, never by a document. Borrows its context and selection; both
/// pointers turn null when their object goes away. No context points at the canvas any more once it
/// is destroyed. GUI thread only.
///
/// The cost of a repaint is bounded by the visible area, whatever the size of the picture: what is
/// shown smaller is painted from reduced copies, which are made in short pieces of work between
/// repaints. Until a copy is there the pixels are picked without smoothing. Colours are those of
/// the screen (see VeskScreenColours); copies keep them, so that they are converted once.
///
/// A tool calls stopCanvasTimer, startCanvasTimer, reSizeCanvas, setSelection, moveToCenter and
/// updateHistogram, and the virtual resetCanvas and attachContext.
class VESKUI_EXPORT VeskCanvas : public QWidget
{
    Q_OBJECT

public:
    /// What of a document is seen in the canvas, and where.
    struct Sight
    {
        QSize document;
        QRect pixels; ///< of the document, those that are seen in part, too
        QSize size;   ///< of a picture of them that suits the screen; not more than pixels
        QRectF place; ///< of that picture in the widget; whole device pixels below actual size
        bool operator==(const Sight &other) const
        {
            return document == other.document && pixels == other.pixels && size == other.size &&
                   place == other.place;
        }
        bool operator!=(const Sight &other) const { return !(*this == other); }
    };
    /// What a document is going to show, at the size of the screen.
    struct Preview
    {
        Sight sight;
        QImage levels;  ///< in the colours of the document
        QImage picture; ///< in those of the screen
    };

    /// Number of pixels per 8-bit level; fully transparent pixels are not counted.
    struct Histogram
    {
        std::array<quint32, 256> red{};
        std::array<quint32, 256> green{};
        std::array<quint32, 256> blue{};
        std::array<quint32, 256> luminosity{}; // Rec. 709 luma
    };

    static constexpr qreal kMinimumZoom = 1.0 / 128;
    static constexpr qreal kMaximumZoom = 32.0;

    /// parent, if any, owns the canvas.
    explicit VeskCanvas(QWidget *parent = nullptr);
    ~VeskCanvas() override;

    /// Drops what the canvas keeps of the picture shown so far (reduced copies) and ends what the
    /// user is doing with it (dragging, a zoom under way), then repaints. The context, the
    /// selection, the zoom and the histogram stay.
    virtual void resetCanvas();
    /// Makes the canvas show the layers of context (borrowed), or nothing with null, and follow
    /// their changes. The size of the document is set by reSizeCanvas.
    virtual void attachContext(VeskContext *context);
    VeskContext *context() const;

    /// The canvas timer moves the outline of the selection. Starting it sets its interval in
    /// milliseconds (anything below 50, also 0, counts as 50) and restarts a running one. While no
    /// outline is visible it costs nothing.
    void startCanvasTimer(int milliseconds);
    void stopCanvasTimer();
    bool isCanvasTimerActive() const { return isTimerOn; }

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

    /// Counts the pixels of the document anew and sends histogramChanged. Takes time in proportion
    /// to the document's pixels.
    void updateHistogram();
    /// What updateHistogram counted last; all zero before.
    const Histogram &histogram() const { return levels; }

    /// Device pixels per document pixel: 1 is actual size ("100 %") on every screen.
    qreal zoom() const;
    /// Whether the zoom follows the size of the widget, see zoomToFit.
    bool isFitted() const;

    /// Maps between widget coordinates and document pixels.
    QPointF toDocument(const QPointF &widgetPosition) const;
    QPointF toWidget(const QPointF &documentPosition) const;

    /// Colour of a document pixel as its layers hold it, at bitsPerChannel and in the document's
    /// own space; invalid outside of the document.
    QColor colorAt(const QPoint &documentPixel) const;
    /// How the screen shows a colour of the document.
    QColor onScreen(const QColor &color) const;
    /// 8 or 16, the depth of the document's deepest visible layer.
    int bitsPerChannel() const;

    /// What would be seen of a document with that size: a size that the canvas has not is fitted.
    Sight sight(const QSize &document) const;
    /// Shows the preview instead of the layers. Without one for the present view nothing happens.
    void showPreview(const Preview &preview);
    /// The layers show what the preview did, or are to be seen again. It stays until their reduced
    /// copies are there, or the answer of a renderer, so that nothing flickers; it also goes when
    /// the view is moved.
    void endPreview();
    /// What is shown instead of the layers; null when it is the layers. Valid until it ends.
    const Preview *preview() const { return shownPreview ? &*shownPreview : nullptr; }

    /// Who shows the layers better than their reduced copies, which are soft, is asked when these
    /// are there, below actual size. It must answer each call by showRendition, then or later.
    using Renderer = std::function<void(int number)>;
    void setRenderer(const Renderer &newRenderer);
    /// The answer to the call with that number; shown until the layers or the view change, unless
    /// that is so already. Without a picture the reduced copies are seen.
    void showRendition(int number, const Preview &answer);

    /// Document pixels read for painting since construction: a measure of the work done that does
    /// not depend on the machine.
    qint64 paintedPixelsRead() const;

public Q_SLOTS:
    /// Zooms to factor (moved into the bounds) and keeps what is in the middle of the widget.
    void setZoom(qreal factor);
    /// Zooms to factor and keeps what is at anchor (widget coordinates) as far as the edges allow.
    void setZoomAt(qreal factor, const QPointF &anchor);
    /// Zooms to factor and brings that position of the document into the middle of the widget, as
    /// far as the edges allow.
    void showPlace(qreal factor, const QPointF &documentPosition);
    /// One step; a step that would pass actual size stops there.
    void zoomIn();
    void zoomOut();
    /// The largest zoom at which the whole document is visible, at most 1; kept through resizes of
    /// the widget until the user zooms or pans.
    void zoomToFit();
    /// One document pixel to one device pixel.
    void zoomToActualSize();

Q_SIGNALS:
    void zoomChanged(qreal factor);
    /// Another part of the document is shown, or the same part larger or smaller.
    void viewMoved();
    void histogramChanged();
    /// The pointer is over that document pixel, which has that colour (as colorAt): it has moved,
    /// or the picture under it has. (-1, -1) and an invalid colour when it is not over the
    /// document.
    void pointerMoved(const QPoint &documentPixel, const QColor &color);

protected:
    bool event(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    QPointF toDevice(const QPointF &widgetPosition) const;
    QRect toDevice(const QRect &widgetRect) const;
    QRect toWidgetRect(const QRect &deviceRect) const;
    void updateViewport();
    void viewChanged();

    void stepZoom(qreal factor, const QPointF &anchor);
    void glideZoom(qreal factor, const QPointF &anchor);
    void followFingers(const QTouchEvent &event);
    void panBy(const QPointF &widgetDistance);
    void reportPointer();
    void updateCursor();

    void contentChanged();
    void scheduleTiles();
    void buildTiles();

    CanvasView viewOf(const QSize &document) const;
    void dropPreview();
    void dropReplacedPreview();
    void dropRendition();
    bool isRendered() const;
    void settle();

    void paintPreview(QPainter &painter, const Preview &preview, const QRect &part) const;
    void paintCheckerboard(QPainter &painter, const QRect &shown,
                           const CanvasView &shownView) const;
    void paintPart(QPainter &painter, const std::vector<SourceLayer> &layers, const QRect &part);
    QRect outlineRect() const;
    void moveOutline();
    void updateOutlineTimer();

    std::unique_ptr<CanvasView> view;
    std::unique_ptr<PicturePyramid> pyramid;
    QPointer<VeskContext> shownContext;
    QPointer<VeskSelection> shownSelection;
    Histogram levels;
    std::optional<Preview> shownPreview;
    bool isPreviewEnding = false;
    Renderer renderer;
    std::optional<Preview> rendition;
    bool isRenditionAsked = false;
    int renditionNumber = 0; // answers to an earlier one are stale

    ZoomGlide *zoomGlide;
    qreal reportedZoom = 1;
    std::optional<QPointF> pointerPosition; // of the mouse over the widget
    QPointF dragPosition;
    bool isDragging = false;

    QBasicTimer tileTimer;
    QBasicTimer outlineTimer;
    int outlineMs = 0;
    int outlinePhase = 0;
    bool isTimerOn = false;
    qint64 directPixelsRead = 0;
};
