#include "DropFrame.h"

#include <QPainter>

namespace {

constexpr int kWidth = 3;
constexpr int kInsideAlpha = 40;

} // namespace

DropFrame::DropFrame(QWidget *window)
    : QWidget(window)
{
    setObjectName(QStringLiteral("dropFrame"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void DropFrame::showAround(const QWidget *place)
{
    const bool isInside = place && place->window() == window();
    setVisible(isInside);
    if (!isInside)
        return;
    setGeometry(QRect(place->mapTo(parentWidget(), QPoint()), place->size()));
    raise();
}

void DropFrame::paintEvent(QPaintEvent *)
{
    constexpr qreal kHalf = kWidth / 2.0;
    QPainter painter(this);
    QColor colour = palette().color(QPalette::Active, QPalette::Highlight);
    painter.setPen(QPen(colour, kWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    colour.setAlpha(kInsideAlpha);
    painter.setBrush(colour);
    painter.drawRect(QRectF(rect()).adjusted(kHalf, kHalf, -kHalf, -kHalf));
}
