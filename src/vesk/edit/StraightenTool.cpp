#include "StraightenTool.h"

#include <QMouseEvent>
#include <QPainter>
#include <QtMath>

#include <cmath>

namespace {

constexpr double kShortest = 20; // device-independent pixels: less is a click

} // namespace

StraightenTool::StraightenTool(VeskCanvas *canvas)
    : CanvasOverlay(canvas)
{
    setAccessibleName(tr("Straighten"));
    setCursor(Qt::CrossCursor);
}

double StraightenTool::degreesFor(const QPointF &from, const QPointF &to)
{
    const QPointF way = to - from;
    const double slope = qRadiansToDegrees(std::atan2(way.y(), way.x()));
    return -(slope - 90 * std::round(slope / 90));
}

void StraightenTool::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        line = Line{event->position(), event->position()};
}

void StraightenTool::mouseMoveEvent(QMouseEvent *event)
{
    if (!line)
        return;
    line->to = event->position();
    update();
}

void StraightenTool::mouseReleaseEvent(QMouseEvent *event)
{
    if (!line || event->button() != Qt::LeftButton)
        return;
    const Line drawn = *line;
    line.reset();
    update();
    if (QLineF(drawn.from, drawn.to).length() >= kShortest)
        Q_EMIT accepted(degreesFor(drawn.from, drawn.to));
}

void StraightenTool::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QString hint = tr("Draw a line along the horizon, or along something upright");
    QRect label = painter.boundingRect(rect(), Qt::AlignHCenter | Qt::AlignTop, hint);
    label.adjust(-8, 8, 8, 16);
    painter.fillRect(label, QColor(0, 0, 0, 170));
    painter.setPen(Qt::white);
    painter.drawText(label, Qt::AlignCenter, hint);
    if (!line)
        return;
    painter.setPen(QPen(QColor(0, 0, 0, 160), 4));
    painter.drawLine(line->from, line->to);
    painter.setPen(QPen(Qt::white, 2));
    painter.drawLine(line->from, line->to);
}
