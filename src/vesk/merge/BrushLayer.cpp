#include "BrushLayer.h"
#include "MergePreview.h"

#include <FlagRuns.h>
#include <stroke_path.h>

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kTint = 0.45;
constexpr double kVeil = 0.25; // over what moved
constexpr int kThingSide = 11; // of the mark on a thing, in the view

/// 1 where something moved.
motion::Plane flagsOf(const QImage &mask)
{
    motion::Plane flags(size_t(mask.width()) * size_t(mask.height()));
    for (int y = 0; y < mask.height(); ++y)
        for (int x = 0; x < mask.width(); ++x)
            flags[size_t(y) * size_t(mask.width()) + size_t(x)] =
                mask.constScanLine(y)[x] > 127 ? 1 : 0;
    return flags;
}

/// The group of touching runs with this place; -1 for none.
int groupAt(const motion::FlagRuns &runs, size_t place)
{
    for (const motion::FlagRuns::Run &run : runs.runs())
        if (run.begin <= place && place < run.end)
            return int(run.group);
    return -1;
}

bool isErasingClick(const QMouseEvent &event)
{
    return event.button() == Qt::RightButton || (event.modifiers() & Qt::AltModifier);
}

} // namespace

BrushLayer::BrushLayer(MergePreview *shownPreview)
    : QWidget(shownPreview)
    , preview(shownPreview)
{
    setObjectName(QStringLiteral("brushLayer"));
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    setGeometry(preview->rect());
    preview->installEventFilter(this);
    connect(preview, &MergePreview::zoomChanged, this, &BrushLayer::forgetDrawn);
    hide();
}

QColor BrushLayer::colourOf(int shot)
{
    constexpr int kFirstHue = 25;
    constexpr int kStep = 137; // far from the neighbours, and no two alike for long
    return QColor::fromHsv((kFirstHue + shot * kStep) % 360, 220, 255);
}

void BrushLayer::setStrokes(const brush::Strokes &painted)
{
    strokes = painted;
    forgetDrawn();
}

void BrushLayer::setBrush(int newShot, int newRadius, bool erases)
{
    shot = newShot;
    radius = newRadius;
    isErasing = erases;
    update();
}

void BrushLayer::setStart(QPoint newStart)
{
    start = newStart;
    forgetDrawn();
}

void BrushLayer::setMoved(const QImage &newMask)
{
    mask = newMask;
    veil = {};
    update();
}

void BrushLayer::forgetDrawn()
{
    drawn = {};
    veil = {};
    update();
}

// --- Where ---

QPoint BrushLayer::toReference(QPointF inView) const
{
    const QPointF place = preview->viewPlace().toPicture(inView);
    return QPoint(int(std::floor(place.x())), int(std::floor(place.y()))) + start;
}

/// From pixels of the reference.
QTransform BrushLayer::toView() const
{
    const ViewPlace &place = preview->viewPlace();
    const double scale = place.target().width() / std::max(1, place.picture().width());
    QTransform transform;
    transform.translate(place.target().x(), place.target().y());
    transform.scale(scale, scale);
    transform.translate(0.5 - start.x(), 0.5 - start.y());
    return transform;
}

// --- Painting ---

/// A light one where something moved; in the colour of its shot where one was chosen for it.
QImage BrushLayer::veilOfThings() const
{
    const motion::FlagRuns runs(flagsOf(mask), size_t(mask.width()));
    std::vector<QColor> colours(runs.groupCount(), QColor(Qt::white));
    for (const brush::Stroke &stroke : strokes) {
        const QSizeF picture = preview->viewPlace().picture();
        const QPointF at = stroke.points.front() - start + QPointF(0.5, 0.5);
        const QPoint place(int(at.x() * mask.width() / picture.width()),
                           int(at.y() * mask.height() / picture.height()));
        if (!stroke.isThing() || !mask.rect().contains(place))
            continue;
        const int group =
            groupAt(runs, size_t(place.y()) * size_t(mask.width()) + size_t(place.x()));
        if (group >= 0)
            colours[size_t(group)] = colourOf(stroke.shot);
    }
    QImage picture(mask.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    for (const motion::FlagRuns::Run &run : runs.runs()) {
        QColor colour = colours[run.group];
        colour.setAlphaF(colour == Qt::white ? kVeil : kTint);
        const size_t width = size_t(mask.width());
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(int(run.begin / width)));
        std::fill(row + run.begin % width, row + run.begin % width + (run.end - run.begin),
                  qPremultiply(colour.rgba()));
    }
    return picture;
}

void BrushLayer::draw(QPainter &painter, const brush::Stroke &stroke) const
{
    const bool erases = stroke.shot == brush::kErase;
    painter.setCompositionMode(erases ? QPainter::CompositionMode_Clear
                                      : QPainter::CompositionMode_Source);
    painter.setPen(QPen(erases ? QColor(Qt::black) : colourOf(stroke.shot), 2.0 * stroke.radius,
                        Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QPolygonF line;
    for (const QPoint &point : stroke.points)
        line << QPointF(point);
    if (stroke.isThing()) {
        const double side = kThingSide / painter.transform().m11();
        painter.setPen(QPen(colourOf(stroke.shot), side));
        painter.drawPoint(line.first());
    } else if (line.size() == 1) {
        painter.drawPoint(line.first());
    } else {
        painter.drawPolyline(line);
    }
}

QImage BrushLayer::drawnStrokes() const
{
    QImage picture(size() * devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(toView());
    for (const brush::Stroke &stroke : strokes)
        draw(painter, stroke);
    return picture;
}

void BrushLayer::paintEvent(QPaintEvent *)
{
    if (preview->shown().isNull())
        return;
    if (drawn.isNull())
        drawn = drawnStrokes();
    QImage all = drawn;
    if (isPainting()) {
        QPainter onAll(&all);
        onAll.setRenderHint(QPainter::Antialiasing);
        onAll.setTransform(toView());
        draw(onAll, current);
    }
    QPainter painter(this);
    if (veil.isNull() && !mask.isNull())
        veil = veilOfThings();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(preview->viewPlace().target(), veil);
    painter.setOpacity(kTint);
    painter.drawImage(0, 0, all);
    painter.setOpacity(1);
    paintBrush(painter);
}

void BrushLayer::paintBrush(QPainter &painter) const
{
    if (!underMouse())
        return;
    const double inView = std::max(1.0, radius * toView().m11());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0, 0, 0, 160), 3));
    painter.drawEllipse(pointer, inView, inView);
    painter.setPen(QPen(isErasing ? QColor(Qt::white) : colourOf(shot), 1.5));
    painter.drawEllipse(pointer, inView, inView);
}

// --- Events ---

bool BrushLayer::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == preview && event->type() == QEvent::Resize)
        setGeometry(preview->rect());
    return QWidget::eventFilter(watched, event);
}

bool BrushLayer::event(QEvent *event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave)
        update();
    return QWidget::event(event);
}

void BrushLayer::addPoint(QPointF inView)
{
    const QPoint point = toReference(inView);
    if (current.points.empty() || current.points.back() != point)
        current.points.push_back(point);
    update();
}

void BrushLayer::mousePressEvent(QMouseEvent *event)
{
    const bool isPaintButton =
        event->button() == Qt::LeftButton || event->button() == Qt::RightButton;
    if (!isPaintButton || event->modifiers() & Qt::ControlModifier) {
        event->ignore(); // the preview pans
        return;
    }
    if (isPainting() || preview->shown().isNull())
        return;
    const bool isThing = event->modifiers() & Qt::ShiftModifier;
    const bool erases = !isThing && (isErasing || isErasingClick(*event));
    current.shot = erases ? brush::kErase : shot;
    current.radius = isThing ? 0 : radius;
    addPoint(event->position());
}

void BrushLayer::mouseMoveEvent(QMouseEvent *event)
{
    pointer = event->position();
    update();
    if (isPainting() && !current.isThing())
        addPoint(pointer);
    if (!isPainting())
        event->ignore();
}

void BrushLayer::mouseReleaseEvent(QMouseEvent *event)
{
    if (!isPainting()) {
        event->ignore();
        return;
    }
    if (event->buttons() != Qt::NoButton)
        return;
    constexpr double kUnseen = 0.03; // of the radius
    brush::Stroke stroke;
    std::swap(stroke, current);
    stroke.points = brush::simplified(stroke.points, std::max(0.5, kUnseen * stroke.radius));
    Q_EMIT painted(stroke);
}

/// The second press of two paints like the first.
void BrushLayer::mouseDoubleClickEvent(QMouseEvent *event)
{
    mousePressEvent(event);
}

void BrushLayer::hideEvent(QHideEvent *event)
{
    current = {};
    QWidget::hideEvent(event);
}
