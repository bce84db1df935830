#include "CropTool.h"

#include <VeskCanvas.h>

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kReach = 9; // device-independent pixels
constexpr int kHandle = 10;
constexpr double kCovered = -1; // in the list of ratios

using Grip = CropFrame::Grip;

Qt::CursorShape cursorOf(Grip grip)
{
    switch (grip) {
    case Grip::Inside:
        return Qt::SizeAllCursor;
    case Grip::Left:
    case Grip::Right:
        return Qt::SizeHorCursor;
    case Grip::Top:
    case Grip::Bottom:
        return Qt::SizeVerCursor;
    case Grip::TopLeft:
    case Grip::BottomRight:
        return Qt::SizeFDiagCursor;
    case Grip::TopRight:
    case Grip::BottomLeft:
        return Qt::SizeBDiagCursor;
    case Grip::None:
        break;
    }
    return Qt::CrossCursor;
}

} // namespace

CropTool::CropTool(VeskCanvas *canvas, const QRect &start, const QRect &covered)
    : CanvasOverlay(canvas)
    , frame(QSizeF(canvas->canvasSize()))
    , coveredArea(covered)
    , ratios(new QComboBox)
    , bar(makeBar(covered))
{
    setAccessibleName(tr("Crop"));
    if (!start.isEmpty())
        frame.setRect(QRectF(start));
    placeBar();
}

QWidget *CropTool::makeBar(const QRect &covered)
{
    auto *box = new QFrame(this);
    box->setAutoFillBackground(true);
    box->setFrameShape(QFrame::StyledPanel);
    auto *row = new QHBoxLayout(box);
    const QSize size = canvas().canvasSize();
    ratios->setObjectName(QStringLiteral("ratioBox"));
    ratios->setAccessibleName(tr("Ratio"));
    ratios->addItem(tr("Free"), 0.0);
    ratios->addItem(tr("As it is"), double(size.width()) / std::max(1, size.height()));
    for (const QSize ratio :
         {QSize(1, 1), QSize(3, 2), QSize(4, 3), QSize(16, 9), QSize(2, 3), QSize(3, 4)})
        ratios->addItem(QStringLiteral("%1 : %2").arg(ratio.width()).arg(ratio.height()),
                        double(ratio.width()) / ratio.height());
    if (!covered.isEmpty())
        ratios->addItem(tr("What all shots cover"), kCovered);
    auto *crop = new QPushButton(tr("Crop"));
    crop->setObjectName(QStringLiteral("cropButton"));
    auto *cancel = new QPushButton(tr("Cancel"));
    row->addWidget(ratios);
    row->addWidget(crop);
    row->addWidget(cancel);
    box->setCursor(Qt::ArrowCursor);
    connect(ratios, &QComboBox::activated, this, &CropTool::chooseRatio);
    connect(crop, &QPushButton::clicked, this, &CropTool::accept);
    connect(cancel, &QPushButton::clicked, this, &CanvasOverlay::cancelled);
    return box;
}

void CropTool::chooseRatio(int index)
{
    const double ratio = ratios->itemData(index).toDouble();
    frame.setRatio(std::max(0.0, ratio));
    if (ratio == kCovered)
        frame.setRect(QRectF(coveredArea));
    setFocus();
    update();
}

void CropTool::placeBar()
{
    bar->adjustSize();
    bar->move((width() - bar->width()) / 2, height() - bar->height() - kHandle);
}

void CropTool::resizeEvent(QResizeEvent *event)
{
    CanvasOverlay::resizeEvent(event);
    placeBar();
}

QRect CropTool::area() const
{
    const QRectF rect = frame.rect();
    const QPoint corner(int(std::lround(rect.left())), int(std::lround(rect.top())));
    const QSize size(int(std::lround(rect.width())), int(std::lround(rect.height())));
    return QRect(corner, size.expandedTo({1, 1})) & QRect(QPoint(), canvas().canvasSize());
}

void CropTool::accept()
{
    Q_EMIT accepted(area());
}

QRectF CropTool::shownFrame() const
{
    return {canvas().toWidget(frame.rect().topLeft()),
            canvas().toWidget(frame.rect().bottomRight())};
}

Grip CropTool::gripAt(const QPointF &position) const
{
    return frame.gripAt(canvas().toDocument(position),
                        kReach / std::max(1e-9, canvas().zoom() / devicePixelRatioF()));
}

void CropTool::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    takenAt = canvas().toDocument(event->position());
    held = gripAt(event->position());
    takenFrame = frame.rect();
    if (held != Grip::None)
        return;
    const QRectF picture(QPointF(), QSizeF(canvas().canvasSize())); // a new frame from here
    takenAt = {std::clamp(takenAt.x(), 0.0, picture.right() - 1),
               std::clamp(takenAt.y(), 0.0, picture.bottom() - 1)};
    takenFrame = QRectF(takenAt, QSizeF(1, 1));
    held = Grip::BottomRight;
}

void CropTool::mouseMoveEvent(QMouseEvent *event)
{
    if (held == Grip::None) {
        setCursor(cursorOf(gripAt(event->position())));
        return;
    }
    frame.drag(takenFrame, held, canvas().toDocument(event->position()) - takenAt);
    update();
}

void CropTool::mouseReleaseEvent(QMouseEvent *)
{
    held = Grip::None;
}

void CropTool::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (gripAt(event->position()) == Grip::Inside)
        accept();
}

/// The arrow keys move the frame.
void CropTool::keyPressEvent(QKeyEvent *event)
{
    const double step = event->modifiers() & Qt::ShiftModifier ? 10 : 1;
    QPointF way;
    if (event->key() == Qt::Key_Left)
        way = {-step, 0};
    else if (event->key() == Qt::Key_Right)
        way = {step, 0};
    else if (event->key() == Qt::Key_Up)
        way = {0, -step};
    else if (event->key() == Qt::Key_Down)
        way = {0, step};
    else
        return CanvasOverlay::keyPressEvent(event);
    frame.drag(frame.rect(), Grip::Inside, way);
    update();
}

void CropTool::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRectF inside = shownFrame();
    QPainterPath outside;
    outside.addRect(QRectF(rect()));
    outside.addRect(inside);
    painter.fillPath(outside, QColor(0, 0, 0, 150));
    painter.setPen(QColor(255, 255, 255, 90));
    for (int i = 1; i < 3; ++i) {
        const double x = inside.left() + inside.width() * i / 3;
        const double y = inside.top() + inside.height() * i / 3;
        painter.drawLine(QPointF(x, inside.top()), QPointF(x, inside.bottom()));
        painter.drawLine(QPointF(inside.left(), y), QPointF(inside.right(), y));
    }
    painter.setPen(Qt::white);
    painter.drawRect(inside);
    for (const QPointF &corner :
         {inside.topLeft(), inside.topRight(), inside.bottomLeft(), inside.bottomRight()})
        painter.fillRect(QRectF(corner - QPointF(kHandle, kHandle) / 2, QSizeF(kHandle, kHandle)),
                         Qt::white);
}
