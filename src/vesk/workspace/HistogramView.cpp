#include "HistogramView.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

constexpr QSize kPreferredSize(256, 140);
constexpr int kLevels = 256;

using Counts = std::array<quint32, kLevels>;

/// The ends hold what is over- and underexposed: they may rise above the rest, not flatten it.
quint32 highest(const Counts &counts)
{
    return *std::max_element(counts.begin() + 1, counts.end() - 1);
}

QPainterPath outline(const Counts &counts, quint32 top, const QRectF &area)
{
    QPainterPath path(area.bottomLeft());
    const double step = area.width() / kLevels;
    for (int level = 0; level < kLevels; ++level) {
        const double share = std::min(1.0, counts[size_t(level)] / double(top));
        const double y =
            area.bottom() - std::sqrt(share) * area.height(); // small parts stay visible
        path.lineTo(area.left() + level * step, y);
        path.lineTo(area.left() + (level + 1) * step, y);
    }
    path.lineTo(area.bottomRight());
    path.closeSubpath();
    return path;
}

} // namespace

HistogramView::HistogramView(QWidget *parent)
    : QWidget(parent)
{
    setMinimumSize(kPreferredSize / 2);
}

void HistogramView::setHistogram(const VeskCanvas::Histogram &histogram)
{
    counts = histogram;
    update();
}

void HistogramView::clear()
{
    setHistogram({});
}

QSize HistogramView::sizeHint() const
{
    return kPreferredSize;
}

void HistogramView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(0x20, 0x20, 0x20)); // colours add up as light does
    const quint32 top = std::max({highest(counts.red), highest(counts.green), highest(counts.blue),
                                  highest(counts.luminosity)});
    if (top == 0)
        return;
    const QRectF area = QRectF(rect()).adjusted(4, 6, -4, -4);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_Plus);
    painter.fillPath(outline(counts.red, top, area), QColor(170, 30, 30));
    painter.fillPath(outline(counts.green, top, area), QColor(30, 150, 30));
    painter.fillPath(outline(counts.blue, top, area), QColor(40, 50, 190));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(QPen(QColor(255, 255, 255, 190), 1));
    painter.drawPath(outline(counts.luminosity, top, area));
}
