#include "VeskCanvas.h"
#include "FingerGrip.h"
#include "VeskScreenColours.h"
#include "ZoomGlide.h"
#include "canvas_painting.h"
#include "picture_histogram.h"

#include <VeskContext.h>
#include <VeskSelection.h>

#include <QElapsedTimer>
#include <QInputDevice>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QStyle>
#include <QTimerEvent>
#include <QTouchEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kShortestOutlineMs = 50;
constexpr int kTileBudgetMs = 8; // leaves time for input between pieces of work
constexpr int kLongestGlideMs = 140;
constexpr qreal kZoomStep = 1.4142135623730951;
constexpr qreal kWheelUnitsPerDoubling = 360; // three notches
constexpr int kCheckerSquare = 8;             // device-independent pixels
constexpr qreal kKeyPan = 0.1;                // share of the widget per key press

qreal stepped(qreal zoom, qreal factor)
{
    const qreal next = zoom * factor;
    const bool isPassingActualSize = (zoom < 1 && next > 1) || (zoom > 1 && next < 1);
    return isPassingActualSize
               ? 1
               : std::clamp(next, VeskCanvas::kMinimumZoom, VeskCanvas::kMaximumZoom);
}

} // namespace

VeskCanvas::VeskCanvas(QWidget *parent)
    : QWidget(parent)
    , view(std::make_unique<CanvasView>(kMinimumZoom, kMaximumZoom))
    , pyramid(std::make_unique<PicturePyramid>())
    , zoomGlide(new ZoomGlide(*view, this))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(64, 64);
    setAttribute(Qt::WA_AcceptTouchEvents);
    connect(&VeskScreenColours::getInstance(), &VeskScreenColours::changed, this,
            &VeskCanvas::contentChanged);
    connect(zoomGlide, &ZoomGlide::moved, this, &VeskCanvas::viewChanged);
}

VeskCanvas::~VeskCanvas()
{
    VeskContext::forgetCanvas(this);
}

void VeskCanvas::resetCanvas()
{
    zoomGlide->stop();
    isDragging = false;
    dropPreview();
    updateCursor();
    contentChanged();
}

void VeskCanvas::attachContext(VeskContext *context)
{
    if (shownContext)
        shownContext->disconnect(this);
    shownContext = context;
    dropPreview();
    if (context) {
        connect(context, &VeskContext::layersChanged, this, &VeskCanvas::contentChanged);
        connect(context, &QObject::destroyed, this, &VeskCanvas::contentChanged);
    }
    contentChanged();
}

VeskContext *VeskCanvas::context() const
{
    return shownContext;
}

void VeskCanvas::contentChanged()
{
    const QColorSpace space = composition::colorSpace(composition::visibleLayers(shownContext));
    pyramid->reset(view->document(), VeskScreenColours::getInstance().toScreen(space));
    if (isPreviewEnding || !shownContext) // it stood for what was there before
        dropPreview();
    dropRendition();
    scheduleTiles();
    update();
    reportPointer();
}

// --- Size, zoom and position ---

void VeskCanvas::reSizeCanvas(int width, int height, bool refit)
{
    zoomGlide->stop();
    updateViewport();
    view->setDocument(QSize(width, height));
    if (refit)
        view->fit();
    contentChanged();
    viewChanged();
}

QSize VeskCanvas::canvasSize() const
{
    return view->document();
}

void VeskCanvas::moveToCenter(bool repaint)
{
    zoomGlide->stop();
    updateViewport();
    view->center();
    updateCursor();
    if (repaint)
        update();
}

qreal VeskCanvas::zoom() const
{
    return view->zoom();
}

bool VeskCanvas::isFitted() const
{
    return view->isFitted();
}

QPointF VeskCanvas::toDocument(const QPointF &widgetPosition) const
{
    return view->toDocument(toDevice(widgetPosition));
}

QPointF VeskCanvas::toWidget(const QPointF &documentPosition) const
{
    return view->toViewport(documentPosition) / devicePixelRatioF();
}

QPointF VeskCanvas::toDevice(const QPointF &widgetPosition) const
{
    return widgetPosition * devicePixelRatioF();
}

QRect VeskCanvas::toDevice(const QRect &widgetRect) const
{
    return QRectF(toDevice(QPointF(widgetRect.topLeft())),
                  QSizeF(widgetRect.size()) * devicePixelRatioF())
        .toAlignedRect();
}

QRect VeskCanvas::toWidgetRect(const QRect &deviceRect) const
{
    const qreal ratio = devicePixelRatioF();
    return QRectF(QPointF(deviceRect.topLeft()) / ratio, QSizeF(deviceRect.size()) / ratio)
        .toAlignedRect();
}

// A hidden widget learns its size only when it is shown, and no event tells that the window has
// moved to a screen with another pixel ratio: so whatever depends on the viewport asks first.
void VeskCanvas::updateViewport()
{
    const QSize device = toDevice(rect()).size();
    if (device == view->viewport())
        return;
    view->setViewport(device);
    pyramid->setViewport(device);
    viewChanged();
}

void VeskCanvas::viewChanged()
{
    if (shownPreview && shownPreview->sight != sight(shownPreview->sight.document))
        dropPreview();
    dropRendition();
    update();
    scheduleTiles();
    updateCursor();
    reportPointer();
    Q_EMIT viewMoved();
    if (view->zoom() == reportedZoom)
        return;
    reportedZoom = view->zoom();
    Q_EMIT zoomChanged(reportedZoom);
}

void VeskCanvas::setZoom(qreal factor)
{
    setZoomAt(factor, QRectF(rect()).center());
}

void VeskCanvas::setZoomAt(qreal factor, const QPointF &anchor)
{
    zoomGlide->stop();
    updateViewport();
    view->setZoom(factor, toDevice(anchor));
    viewChanged();
}

void VeskCanvas::showPlace(qreal factor, const QPointF &documentPosition)
{
    zoomGlide->stop();
    updateViewport();
    view->setZoom(factor, toDevice(QRectF(rect()).center()), documentPosition);
    viewChanged();
}

void VeskCanvas::zoomIn()
{
    stepZoom(kZoomStep, QRectF(rect()).center());
}

void VeskCanvas::zoomOut()
{
    stepZoom(1 / kZoomStep, QRectF(rect()).center());
}

void VeskCanvas::stepZoom(qreal factor, const QPointF &anchor)
{
    setZoomAt(stepped(zoom(), factor), anchor);
}

void VeskCanvas::zoomToFit()
{
    zoomGlide->stop();
    updateViewport();
    view->fit();
    viewChanged();
}

void VeskCanvas::zoomToActualSize()
{
    setZoom(1);
}

// Steps that come while the view still glides add up.
void VeskCanvas::glideZoom(qreal factor, const QPointF &anchor)
{
    const qreal to = stepped(zoomGlide->target(), factor);
    const int duration = std::min(
        style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this), kLongestGlideMs);
    if (duration <= 0) // the user wants no animations
        setZoomAt(to, anchor);
    else
        zoomGlide->startTo(to, toDevice(anchor), duration);
}

void VeskCanvas::panBy(const QPointF &widgetDistance)
{
    zoomGlide->stop();
    view->panBy(toDevice(widgetDistance));
    viewChanged();
}

// --- Input ---

bool VeskCanvas::event(QEvent *event)
{
    if (event->type() == QEvent::TouchBegin || event->type() == QEvent::TouchUpdate) {
        const auto *touch = static_cast<QTouchEvent *>(event);
        // Trackpads come as wheel and native gestures.
        if (touch->device()->type() == QInputDevice::DeviceType::TouchScreen) {
            followFingers(*touch);
            event->accept();
            return true;
        }
    }
    if (event->type() == QEvent::NativeGesture) {
        const auto *gesture = static_cast<QNativeGestureEvent *>(event);
        if (gesture->gestureType() == Qt::ZoomNativeGesture) {
            setZoomAt(zoom() * (1 + gesture->value()), gesture->position());
            return true;
        }
    }
    return QWidget::event(event);
}

// Read from the touch points themselves: Qt's pinch gesture counts steps twice.
void VeskCanvas::followFingers(const QTouchEvent &event)
{
    const FingerGrip before(event.points(), &QEventPoint::lastPosition);
    const FingerGrip now(event.points(), &QEventPoint::position);
    const bool isPinch = before.spread > 0 && now.spread > 0;
    if (!isPinch && isFitted())
        return; // nowhere to go
    zoomGlide->stop();
    const QPointF held = view->toDocument(toDevice(before.center));
    view->setZoom(isPinch ? zoom() * now.spread / before.spread : zoom(), toDevice(now.center),
                  held);
    viewChanged();
}

void VeskCanvas::wheelEvent(QWheelEvent *event)
{
    const bool isTrackpad = event->source() == Qt::MouseEventSynthesizedBySystem;
    if (isTrackpad && !(event->modifiers() & Qt::ControlModifier))
        panBy(event->pixelDelta());
    else if (event->angleDelta().y() != 0)
        glideZoom(std::exp2(event->angleDelta().y() / kWheelUnitsPerDoubling), event->position());
    event->accept();
}

void VeskCanvas::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton && event->button() != Qt::MiddleButton) {
        QWidget::mousePressEvent(event);
        return;
    }
    isDragging = true;
    dragPosition = event->position();
    updateCursor();
}

void VeskCanvas::mouseMoveEvent(QMouseEvent *event)
{
    pointerPosition = event->position();
    if (isDragging) {
        const QPointF distance = event->position() - dragPosition;
        dragPosition = event->position();
        // A fitted view has nowhere to go: it stays fitted when the hand trembles.
        if (!isFitted())
            panBy(distance);
    }
    reportPointer();
}

void VeskCanvas::mouseReleaseEvent(QMouseEvent *event)
{
    isDragging = false;
    updateCursor();
    QWidget::mouseReleaseEvent(event);
}

void VeskCanvas::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (isFitted())
        setZoomAt(1, event->position());
    else
        zoomToFit();
}

void VeskCanvas::leaveEvent(QEvent *)
{
    pointerPosition.reset();
    Q_EMIT pointerMoved(QPoint(-1, -1), QColor());
}

void VeskCanvas::keyPressEvent(QKeyEvent *event)
{
    const qreal x = width() * kKeyPan;
    const qreal y = height() * kKeyPan;
    switch (event->key()) {
    case Qt::Key_Left:
        return panBy({x, 0});
    case Qt::Key_Right:
        return panBy({-x, 0});
    case Qt::Key_Up:
        return panBy({0, y});
    case Qt::Key_Down:
        return panBy({0, -y});
    default:
        QWidget::keyPressEvent(event);
    }
}

// Also when the pointer rests and the picture moves or changes under it.
void VeskCanvas::reportPointer()
{
    if (!pointerPosition)
        return;
    const QPointF position = toDocument(*pointerPosition);
    const QPoint pixel(int(std::floor(position.x())), int(std::floor(position.y())));
    const QColor color = colorAt(pixel);
    Q_EMIT pointerMoved(color.isValid() ? pixel : QPoint(-1, -1), color);
}

QColor VeskCanvas::colorAt(const QPoint &documentPixel) const
{
    if (!shownContext || !QRect(QPoint(0, 0), canvasSize()).contains(documentPixel))
        return QColor();
    return composition::pixelColor(composition::visibleLayers(shownContext), documentPixel);
}

QColor VeskCanvas::onScreen(const QColor &color) const
{
    if (!color.isValid() || !pyramid->toScreen())
        return color;
    QImage pixel(1, 1, QImage::Format_ARGB32_Premultiplied);
    pixel.fill(color);
    pyramid->toScreen()(pixel);
    return pixel.pixelColor(0, 0);
}

int VeskCanvas::bitsPerChannel() const
{
    return composition::bitsPerChannel(composition::visibleLayers(shownContext));
}

void VeskCanvas::updateCursor()
{
    const QSize shown = view->documentRect().size();
    const QSize room = view->viewport();
    if (shown.width() <= room.width() && shown.height() <= room.height())
        unsetCursor();
    else
        setCursor(isDragging ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
}

// --- Preview ---

CanvasView VeskCanvas::viewOf(const QSize &document) const
{
    CanvasView future = *view;
    future.setViewport(toDevice(rect()).size());
    if (document != future.document()) {
        future.setDocument(document);
        future.fit();
    }
    return future;
}

VeskCanvas::Sight VeskCanvas::sight(const QSize &document) const
{
    const CanvasView future = viewOf(document);
    const QRect pixels = future.documentPixels(QRect(QPoint(), future.viewport()));
    const QPointF first = future.toViewport(pixels.topLeft());
    const QPointF end = future.toViewport(QPointF(pixels.right() + 1, pixels.bottom() + 1));
    const qreal ratio = devicePixelRatioF();
    if (future.zoom() >= 1)
        return {document, pixels, pixels.size(), QRectF(first / ratio, end / ratio)};
    // As the canvas paints it: nothing is scaled once more.
    const QRect device(first.toPoint(), end.toPoint() - QPoint(1, 1));
    const QSize size = device.size().expandedTo(QSize(1, 1));
    return {document, pixels, size.boundedTo(pixels.size()),
            QRectF(QPointF(device.topLeft()) / ratio, QSizeF(size) / ratio)};
}

void VeskCanvas::showPreview(const Preview &preview)
{
    if (preview.picture.isNull() || preview.sight != sight(preview.sight.document))
        return;
    shownPreview = preview;
    isPreviewEnding = false;
    update();
}

void VeskCanvas::endPreview()
{
    isPreviewEnding = shownPreview.has_value();
    dropReplacedPreview();
}

void VeskCanvas::dropPreview()
{
    shownPreview.reset();
    isPreviewEnding = false;
    update();
}

/// What is painted without reduced copies is there at once.
void VeskCanvas::dropReplacedPreview()
{
    if (!isPreviewEnding || isRenditionAsked)
        return;
    const auto tiles = painting::tilesIn(*view, toDevice(rect()));
    if (std::all_of(tiles.begin(), tiles.end(),
                    [this](const PicturePyramid::TileKey &key) { return pyramid->tile(key); }))
        dropPreview();
}

void VeskCanvas::setRenderer(const Renderer &newRenderer)
{
    renderer = newRenderer;
    scheduleTiles();
}

bool VeskCanvas::isRendered() const
{
    return renderer && shownContext && zoom() < 1;
}

void VeskCanvas::dropRendition()
{
    rendition.reset();
    isRenditionAsked = false;
    ++renditionNumber;
}

/// All reduced copies of what is seen are there.
void VeskCanvas::settle()
{
    if (isRendered() && !rendition && !isRenditionAsked) {
        isRenditionAsked = true;
        renderer(renditionNumber);
    }
    dropReplacedPreview();
}

void VeskCanvas::showRendition(int number, const Preview &answer)
{
    if (number != renditionNumber)
        return;
    isRenditionAsked = false;
    if (!answer.picture.isNull() && answer.sight == sight(canvasSize()))
        rendition = answer;
    dropReplacedPreview();
    update();
}

// --- Painting ---

void VeskCanvas::paintEvent(QPaintEvent *event)
{
    updateViewport();
    QPainter painter(this);
    painter.scale(1 / devicePixelRatioF(), 1 / devicePixelRatioF());
    const std::vector<SourceLayer> layers = composition::visibleLayers(shownContext);
    const std::optional<Preview> &instead = shownPreview ? shownPreview : rendition;
    for (const QRect &part : event->region()) {
        if (instead)
            paintPreview(painter, *instead, toDevice(part));
        else
            paintPart(painter, layers, toDevice(part));
    }
    const bool isOutlineTrue = !shownPreview || shownPreview->sight.document == canvasSize();
    if (isOutlineTrue && !outlineRect().isEmpty())
        painting::paintOutline(painter, outlineRect(), outlinePhase,
                               std::max(1, qRound(devicePixelRatioF())));
}

void VeskCanvas::paintPreview(QPainter &painter, const Preview &preview, const QRect &part) const
{
    painter.fillRect(part, painting::surroundColor(palette()));
    const CanvasView future = viewOf(preview.sight.document);
    const QRect shown = part & future.documentRect();
    if (shown.isEmpty())
        return;
    painter.save();
    painter.setClipRect(shown);
    if (preview.picture.hasAlphaChannel())
        paintCheckerboard(painter, shown, future);
    const QRectF &place = preview.sight.place;
    painting::paintPicture(painter, future, preview.picture,
                           QRectF(toDevice(place.topLeft()), place.size() * devicePixelRatioF()));
    painter.restore();
}

void VeskCanvas::paintCheckerboard(QPainter &painter, const QRect &shown,
                                   const CanvasView &shownView) const
{
    painting::paintCheckerboard(painter, shown, shownView.documentRect().topLeft(),
                                qRound(kCheckerSquare * devicePixelRatioF()),
                                painting::isDark(palette()));
}

void VeskCanvas::paintPart(QPainter &painter, const std::vector<SourceLayer> &layers,
                           const QRect &part)
{
    painter.fillRect(part, painting::surroundColor(palette()));
    const QRect shown = part & view->documentRect();
    if (shown.isEmpty() || !shownContext)
        return;
    painter.save();
    painter.setClipRect(shown);
    if (!composition::isOpaque(layers, canvasSize()))
        paintCheckerboard(painter, shown, *view);
    directPixelsRead += painting::paintLayers(painter, *view, *pyramid, layers, shown);
    painter.restore();
}

qint64 VeskCanvas::paintedPixelsRead() const
{
    return directPixelsRead + pyramid->sourcePixelsRead();
}

void VeskCanvas::scheduleTiles()
{
    const bool hasTiles = PicturePyramid::levelForZoom(zoom()) > 0;
    if (isVisible() && shownContext && (hasTiles || isRendered()))
        tileTimer.start(0, this);
    else
        tileTimer.stop();
}

void VeskCanvas::buildTiles()
{
    QElapsedTimer spent;
    spent.start();
    const std::vector<SourceLayer> layers = composition::visibleLayers(shownContext);
    for (const PicturePyramid::TileKey &key : painting::tilesIn(*view, toDevice(rect()))) {
        if (pyramid->tile(key))
            continue;
        while (!pyramid->buildStep(key, layers)) {
            if (spent.elapsed() >= kTileBudgetMs)
                return;
        }
        update(toWidgetRect(painting::levelTarget(*view, key.level, pyramid->tileRect(key))));
        if (spent.elapsed() >= kTileBudgetMs)
            return;
    }
    tileTimer.stop();
    settle();
}

void VeskCanvas::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == tileTimer.timerId())
        buildTiles();
    else if (event->timerId() == outlineTimer.timerId())
        moveOutline();
    else
        QWidget::timerEvent(event);
}

void VeskCanvas::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    updateViewport();
}

void VeskCanvas::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    updateViewport();
    scheduleTiles();
    updateOutlineTimer();
}

void VeskCanvas::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    scheduleTiles();
    updateOutlineTimer();
}

// --- Outline of the selection ---

void VeskCanvas::setSelection(VeskSelection *selection)
{
    if (shownSelection)
        shownSelection->disconnect(this);
    shownSelection = selection;
    const auto refresh = [this] {
        updateOutlineTimer();
        update();
    };
    if (selection) {
        connect(selection, &VeskSelection::changed, this, refresh);
        connect(selection, &QObject::destroyed, this, refresh);
    }
    refresh();
}

VeskSelection *VeskCanvas::selection() const
{
    return shownSelection;
}

void VeskCanvas::startCanvasTimer(int milliseconds)
{
    isTimerOn = true;
    outlineMs = std::max(milliseconds, kShortestOutlineMs);
    outlineTimer.stop();
    updateOutlineTimer();
}

void VeskCanvas::stopCanvasTimer()
{
    isTimerOn = false;
    updateOutlineTimer();
}

void VeskCanvas::updateOutlineTimer()
{
    const bool isNeeded = isTimerOn && isVisible() && shownSelection && !shownSelection->isEmpty();
    if (!isNeeded)
        outlineTimer.stop();
    else if (!outlineTimer.isActive())
        outlineTimer.start(outlineMs, this);
}

QRect VeskCanvas::outlineRect() const
{
    if (!shownSelection || shownSelection->isEmpty())
        return QRect();
    return painting::levelTarget(*view, 0, shownSelection->getRect());
}

void VeskCanvas::moveOutline()
{
    ++outlinePhase;
    const QRect outer = toWidgetRect(outlineRect()).adjusted(-1, -1, 1, 1);
    update(QRegion(outer) - QRegion(outer.adjusted(3, 3, -3, -3)));
}

// --- Histogram ---

void VeskCanvas::updateHistogram()
{
    const std::vector<SourceLayer> layers = composition::visibleLayers(shownContext);
    levels = histogram::countLevels(layers, canvasSize(), histogram::toCommon(layers));
    Q_EMIT histogramChanged();
}
