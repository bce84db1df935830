#include "MergePreview.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr QSize kPreferredSize(640, 480);
constexpr int kMargin = 8;
constexpr int kGround = 0x26; // neutral, as around documents
constexpr int kInk = 0xd0;
constexpr double kZoomStep = 1.25;
constexpr int kLoupeSide = 260;
constexpr int kGrip = 6; // beside the split line
constexpr double kPanStep = 60;

} // namespace

MergePreview::MergePreview(QWidget *parent)
    : QWidget(parent)
{
    setMinimumSize(kPreferredSize / 4);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(tr("Preview"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    connect(&renderer, &RegionRenderer::ready, this, [this](const RegionPicture &picture) {
        region = picture;
        update();
    });
    connect(&loupeRenderer, &RegionRenderer::ready, this, [this](const RegionPicture &picture) {
        magnified = picture;
        update();
    });
}

// --- What is shown ---

void MergePreview::setAfter(const QImage &picture, QSize fullSize, const QImage &clipping)
{
    after = picture;
    marks = clipping;
    place.setPicture(fullSize.isEmpty() ? picture.size() : fullSize);
    onPlaceChanged();
}

void MergePreview::setBefore(const QImage &picture)
{
    before = picture;
    update();
}

void MergePreview::setSharp(const SharpPicture &picture)
{
    sharp = picture;
    region = {};
    magnified = {};
    renderer.cancel();
    loupeRenderer.cancel();
    if (isSharp())
        place.setPicture(sharp.merged.size());
    onPlaceChanged();
}

void MergePreview::setLook(const exposure::Look &newLook)
{
    look = newLook;
    refreshSharp();
    refreshLoupe();
}

void MergePreview::showBefore(bool isBefore)
{
    isBeforeShown = isBefore;
    update();
}

void MergePreview::setSplit(bool isOn)
{
    isSplit = isOn;
    update();
}

void MergePreview::setSplitPlace(double share)
{
    split = std::clamp(share, 0.0, 1.0);
    update();
}

void MergePreview::setClippingShown(bool isOn)
{
    isClippingShown = isOn;
    update();
}

void MergePreview::setLoupe(bool isOn)
{
    isLoupe = isOn;
    magnified = {};
    pointer = underMouse() ? mapFromGlobal(QCursor::pos()) : rect().center();
    onPlaceChanged();
}

void MergePreview::showShot(const QImage &picture, const QString &name)
{
    shot = picture;
    shotName = name;
    update();
}

void MergePreview::setText(const QString &text)
{
    said = text;
    update();
}

const QImage &MergePreview::shown() const
{
    return !shot.isNull() ? shot : isBeforeShown ? before : after;
}

QSize MergePreview::sizeHint() const
{
    return kPreferredSize;
}

// --- Where ---

void MergePreview::zoomToFit()
{
    place.fit();
    onPlaceChanged();
}

void MergePreview::zoomTo(double zoom)
{
    place.zoomTo(zoom,
                 underMouse() ? QPointF(mapFromGlobal(QCursor::pos())) : QRectF(rect()).center());
    onPlaceChanged();
}

bool MergePreview::isSharpWanted() const
{
    constexpr double kNoticed = 1.02;
    const bool isClose =
        double(after.width()) * kNoticed < place.zoom() * place.picture().width() &&
        after.width() < place.picture().width();
    return !after.isNull() && (isClose || isLoupe);
}

void MergePreview::onPlaceChanged()
{
    place.setView(QSizeF(size()), devicePixelRatioF());
    if (wasSharpWanted != isSharpWanted()) {
        wasSharpWanted = !wasSharpWanted;
        Q_EMIT sharpWantedChanged();
    }
    refreshSharp();
    refreshLoupe();
    update();
    Q_EMIT zoomChanged();
}

void MergePreview::refreshSharp()
{
    const QRect area = place.visible();
    if (!isSharp() || !isSharpWanted() || area.isEmpty()) {
        region = {};
        renderer.cancel();
        return;
    }
    const QSizeF onScreen = QSizeF(area.size()) * place.zoom();
    renderer.request({sharp.merged, sharp.before, look, area, onScreen.toSize()});
}

void MergePreview::refreshLoupe()
{
    if (!isSharp() || !isLoupe)
        return;
    const double side = kLoupeSide * devicePixelRatioF();
    QRect area(0, 0, int(side), int(side));
    area.moveCenter(place.toPicture(pointer).toPoint());
    area &= QRect(QPoint(), place.picture());
    if (!area.isEmpty())
        loupeRenderer.request({sharp.merged, {}, look, area, {}});
}

// --- Painting ---

void MergePreview::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(kGround, kGround, kGround));
    painter.setPen(QColor(kInk, kInk, kInk));
    if (after.isNull())
        painter.drawText(rect().adjusted(kMargin, kMargin, -kMargin, -kMargin),
                         Qt::AlignCenter | Qt::TextWordWrap, said);
    else
        paintPicture(painter);
}

void MergePreview::paintPicture(QPainter &painter)
{
    // Pixels that are larger than those of the screen are to be seen as such.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, place.zoom() < 2);
    if (!shot.isNull()) {
        paintLayer(painter, shot, {});
        return paintLabel(painter, shotName);
    }
    if (isBeforeShown) {
        paintLayer(painter, before, region.before);
        return paintLabel(painter, tr("Before"));
    }
    paintLayer(painter, after, region.after);
    if (isClippingShown)
        paintLayer(painter, marks, region.clipping);
    if (isSplit) {
        painter.setClipRect(QRectF(0, 0, split * width(), height()));
        painter.fillRect(place.target(), QColor(kGround, kGround, kGround));
        paintLayer(painter, before, region.before);
        paintLabel(painter, tr("Before"));
        painter.setClipping(false);
        paintSplitLine(painter);
    }
    if (isLoupe)
        paintLoupe(painter);
}

/// What is sharp covers what is not.
void MergePreview::paintLayer(QPainter &painter, const QImage &small, const QImage &sharpPart) const
{
    if (!sharpPart.isNull() && region.area.contains(place.visible())) {
        painter.drawImage(place.targetOf(region.area), sharpPart);
        return;
    }
    if (!small.isNull())
        painter.drawImage(place.target(), small);
    if (!sharpPart.isNull())
        painter.drawImage(place.targetOf(region.area), sharpPart);
}

void MergePreview::paintSplitLine(QPainter &painter) const
{
    const double x = split * width();
    painter.setPen(QPen(QColor(0, 0, 0, 160), 3));
    painter.drawLine(QPointF(x, 0), QPointF(x, height()));
    painter.setPen(QPen(Qt::white, 1));
    painter.drawLine(QPointF(x, 0), QPointF(x, height()));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(x, height() / 2.0), kGrip, kGrip);
}

void MergePreview::paintLoupe(QPainter &painter) const
{
    QRectF frame(0, 0, kLoupeSide, kLoupeSide);
    frame.moveCenter(pointer);
    painter.fillRect(frame, QColor(kGround, kGround, kGround));
    if (magnified.after.isNull()) {
        painter.setPen(QColor(kInk, kInk, kInk));
        painter.drawText(frame, Qt::AlignCenter | Qt::TextWordWrap, tr("One moment…"));
    } else {
        const double density = devicePixelRatioF();
        QRectF target(QPointF(), QSizeF(magnified.area.size()) / density);
        target.moveCenter(pointer);
        painter.drawImage(target & frame, magnified.after);
    }
    painter.setPen(QPen(Qt::white, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame);
}

void MergePreview::paintLabel(QPainter &painter, const QString &text) const
{
    const QRectF target = place.target() & QRectF(rect());
    QRectF label = painter.boundingRect(target, Qt::AlignTop | Qt::AlignLeft, text);
    label.adjust(0, 0, 2 * kMargin, 4);
    painter.fillRect(label, QColor(0, 0, 0, 160));
    painter.setPen(QColor(kInk, kInk, kInk));
    painter.drawText(label, Qt::AlignCenter, text);
}

// --- Events ---

void MergePreview::resizeEvent(QResizeEvent *)
{
    onPlaceChanged();
}

void MergePreview::wheelEvent(QWheelEvent *event)
{
    const double steps = event->angleDelta().y() / 120.0;
    place.zoomTo(place.zoom() * std::pow(kZoomStep, steps), event->position());
    onPlaceChanged();
    event->accept();
}

bool MergePreview::isOnSplitLine(QPointF position) const
{
    return isSplit && std::abs(position.x() - split * width()) <= kGrip;
}

void MergePreview::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    drag = isOnSplitLine(event->position()) ? Drag::Split : Drag::Pan;
    lastDrag = event->position();
}

void MergePreview::mouseMoveEvent(QMouseEvent *event)
{
    pointer = event->position();
    if (drag == Drag::Split)
        setSplitPlace(pointer.x() / width());
    if (drag == Drag::Pan && !place.isFit()) {
        place.pan(pointer - lastDrag);
        onPlaceChanged();
    }
    lastDrag = pointer;
    setCursor(isOnSplitLine(pointer) ? Qt::SplitHCursor
              : place.isFit()        ? Qt::ArrowCursor
              : drag == Drag::Pan    ? Qt::ClosedHandCursor
                                     : Qt::OpenHandCursor);
    if (isLoupe) {
        refreshLoupe();
        update();
    }
}

void MergePreview::mouseReleaseEvent(QMouseEvent *)
{
    drag = Drag::None;
}

void MergePreview::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (place.isFit())
        place.zoomTo(1, event->position());
    else
        place.fit();
    onPlaceChanged();
}

/// The arrows pan; with Shift they move the split line.
void MergePreview::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    const QPointF by(key == Qt::Key_Left    ? 1
                     : key == Qt::Key_Right ? -1
                                            : 0,
                     key == Qt::Key_Up     ? 1
                     : key == Qt::Key_Down ? -1
                                           : 0);
    if (by.isNull())
        return QWidget::keyPressEvent(event);
    if (event->modifiers() & Qt::ShiftModifier)
        return setSplitPlace(split - by.x() * 0.02);
    place.pan(by * kPanStep);
    onPlaceChanged();
}
