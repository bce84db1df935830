#include "CropFrame.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLeast = 1; // pixel

bool holdsLeft(CropFrame::Grip grip)
{
    return grip == CropFrame::Grip::Left || grip == CropFrame::Grip::TopLeft ||
           grip == CropFrame::Grip::BottomLeft;
}

bool holdsRight(CropFrame::Grip grip)
{
    return grip == CropFrame::Grip::Right || grip == CropFrame::Grip::TopRight ||
           grip == CropFrame::Grip::BottomRight;
}

bool holdsTop(CropFrame::Grip grip)
{
    return grip == CropFrame::Grip::Top || grip == CropFrame::Grip::TopLeft ||
           grip == CropFrame::Grip::TopRight;
}

bool holdsBottom(CropFrame::Grip grip)
{
    return grip == CropFrame::Grip::Bottom || grip == CropFrame::Grip::BottomLeft ||
           grip == CropFrame::Grip::BottomRight;
}

} // namespace

CropFrame::CropFrame(QSizeF pictureSize)
    : picture(QPointF(), pictureSize)
    , frame(picture)
{
}

void CropFrame::setRect(const QRectF &rect)
{
    frame = rect.normalized() & picture;
    if (frame.width() < kLeast || frame.height() < kLeast)
        frame = picture;
    setRatio(widthToHeight);
}

void CropFrame::setRatio(double ratio)
{
    widthToHeight = ratio;
    if (ratio <= 0)
        return;
    const QPointF middle = frame.center();
    const double width = std::min(frame.width(), frame.height() * ratio);
    frame.setSize({width, width / ratio});
    frame.moveCenter(middle);
    keepInside();
}

CropFrame::Grip CropFrame::gripAt(QPointF point, double reach) const
{
    if (!frame.adjusted(-reach, -reach, reach, reach).contains(point))
        return Grip::None;
    const bool left = std::abs(point.x() - frame.left()) <= reach;
    const bool right = std::abs(point.x() - frame.right()) <= reach;
    const bool top = std::abs(point.y() - frame.top()) <= reach;
    const bool bottom = std::abs(point.y() - frame.bottom()) <= reach;
    if (top && left)
        return Grip::TopLeft;
    if (top && right)
        return Grip::TopRight;
    if (bottom && left)
        return Grip::BottomLeft;
    if (bottom && right)
        return Grip::BottomRight;
    return left     ? Grip::Left
           : right  ? Grip::Right
           : top    ? Grip::Top
           : bottom ? Grip::Bottom
                    : Grip::Inside;
}

void CropFrame::drag(const QRectF &from, Grip grip, QPointF distance)
{
    frame = from;
    if (grip == Grip::Inside) {
        frame.translate(distance);
        keepInside();
        return;
    }
    if (holdsLeft(grip))
        frame.setLeft(std::clamp(from.left() + distance.x(), 0.0, from.right() - kLeast));
    if (holdsRight(grip))
        frame.setRight(
            std::clamp(from.right() + distance.x(), from.left() + kLeast, picture.right()));
    if (holdsTop(grip))
        frame.setTop(std::clamp(from.top() + distance.y(), 0.0, from.bottom() - kLeast));
    if (holdsBottom(grip))
        frame.setBottom(
            std::clamp(from.bottom() + distance.y(), from.top() + kLeast, picture.bottom()));
    if (widthToHeight <= 0)
        return;
    // The side that was not taken stays where it is.
    const QPointF fixed(holdsLeft(grip) ? from.right() : from.left(),
                        holdsTop(grip) ? from.bottom() : from.top());
    const bool isAcross = grip == Grip::Left || grip == Grip::Right;
    const bool isAlong = grip == Grip::Top || grip == Grip::Bottom;
    double width = isAcross  ? frame.width()
                   : isAlong ? frame.height() * widthToHeight
                             : std::max(frame.width(), frame.height() * widthToHeight);
    const double roomX = holdsLeft(grip) ? fixed.x() : picture.right() - fixed.x();
    const double roomY = holdsTop(grip) ? fixed.y() : picture.bottom() - fixed.y();
    width = std::min({width, roomX, roomY * widthToHeight});
    const QSizeF size(width, width / widthToHeight);
    frame = QRectF(QPointF(holdsLeft(grip) ? fixed.x() - size.width() : fixed.x(),
                           holdsTop(grip) ? fixed.y() - size.height() : fixed.y()),
                   size);
}

void CropFrame::keepInside()
{
    frame.moveLeft(std::clamp(frame.left(), 0.0, std::max(0.0, picture.right() - frame.width())));
    frame.moveTop(std::clamp(frame.top(), 0.0, std::max(0.0, picture.bottom() - frame.height())));
}
