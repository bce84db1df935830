#include "BrushLayer.h"
#include "MergePreview.h"

#include <FlagRuns.h>
#include <stroke_parts.h>
#include <stroke_path.h>

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kTint = 0.45;
constexpr double kVeil = 0.25; // over what moved

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

QColor tintColour(int shot)
{
    QColor colour = BrushLayer::colourOf(shot);
    colour.setAlphaF(kTint);
    return colour;
}

QColor veilColour()
{
    return QColor(255, 255, 255, int(255 * kVeil));
}

/// Lighter where something moved; in the colour of its shot where one was chosen for it.
void fillThings(QImage &picture, const QImage &mask, const std::vector<motion::ThingTake> &things)
{
    const auto width = size_t(mask.width());
    const motion::FlagRuns runs(flagsOf(mask), width);
    std::vector<QRgb> colours(runs.groupCount(), qPremultiply(veilColour().rgba()));
    for (const motion::ThingTake &thing : things) {
        const QPoint place = thing.place;
        const int group = mask.rect().contains(place)
                              ? groupAt(runs, size_t(place.y()) * width + size_t(place.x()))
                              : -1;
        if (group >= 0)
            colours[size_t(group)] = qPremultiply(tintColour(thing.shot).rgba());
    }
    for (const motion::FlagRuns::Run &run : runs.runs()) {
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(int(run.begin / width)));
        std::fill_n(row + run.begin % width, run.end - run.begin, colours[run.group]);
    }
}

void fillPart(QImage &picture, const motion::Take &take)
{
    const QRgb colour = qPremultiply(tintColour(take.shot).rgba());
    const int width = picture.width();
    for (int y = 0; y < picture.height(); ++y) {
        const uchar *taken = take.mask.constScanLine(y);
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < width; ++x)
            row[x] = taken[x] != 0 ? colour : row[x];
    }
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
    connect(preview, &MergePreview::zoomChanged, this, qOverload<>(&QWidget::update));
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
    forgetTint();
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
    forgetTint();
}

void BrushLayer::setMoved(const QImage &newMask)
{
    mask = newMask;
    forgetTint();
}

void BrushLayer::forgetTint()
{
    tint = {};
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

/// What is painted, and lighter what moved; as large as the small copy is.
QImage BrushLayer::tinted() const
{
    constexpr QSize kMost(1280, 1280);
    const QSize whole = preview->viewPlace().picture();
    const QSize bounded =
        whole.boundedTo(whole.scaled(kMost, Qt::KeepAspectRatio)).expandedTo({1, 1});
    const QSize size = mask.isNull() ? bounded : mask.size();
    brush::Strokes shifted = strokes;
    for (brush::Stroke &stroke : shifted)
        for (QPoint &point : stroke.points)
            point -= start;
    const brush::Parts parts =
        brush::parts(shifted, size, double(size.width()) / std::max(1, whole.width()));
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    if (!mask.isNull())
        fillThings(picture, mask, parts.things);
    for (const motion::Take &take : parts.takes)
        fillPart(picture, take);
    return picture;
}

void BrushLayer::paintCurrent(QPainter &painter) const
{
    const QColor colour = current.shot == brush::kErase ? veilColour() : tintColour(current.shot);
    painter.setPen(QPen(colour, 2.0 * current.radius, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setTransform(toView());
    QPolygonF line;
    for (const QPoint &point : current.points)
        line << QPointF(point);
    if (line.size() == 1)
        painter.drawPoint(line.first());
    else
        painter.drawPolyline(line);
    painter.resetTransform();
}

void BrushLayer::paintEvent(QPaintEvent *)
{
    if (preview->shown().isNull())
        return;
    if (tint.isNull() || tintedPicture != preview->viewPlace().picture()) {
        tint = tinted();
        tintedPicture = preview->viewPlace().picture();
    }
    QPainter painter(this);
    painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::Antialiasing);
    painter.drawImage(preview->viewPlace().target(), tint);
    if (isPainting() && !current.isThing())
        paintCurrent(painter);
    paintBrush(painter);
}

void BrushLayer::paintBrush(QPainter &painter) const
{
    if (!underMouse())
        return;
    const double inView = std::max(1.0, radius * toView().m11());
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
