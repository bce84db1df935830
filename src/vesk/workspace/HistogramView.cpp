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

/// From 0 to 1; in both ways small parts stay visible.
double heightOf(quint32 count, quint32 top, bool isLogarithmic)
{
    if (isLogarithmic)
        return std::min(1.0, std::log1p(double(count)) / std::log1p(double(top)));
    return std::sqrt(std::min(1.0, count / double(top)));
}

QPainterPath outline(const Counts &counts, quint32 top, const QRectF &area, bool isLogarithmic)
{
    QPainterPath path(area.bottomLeft());
    const double step = area.width() / kLevels;
    for (int level = 0; level < kLevels; ++level) {
        const double share = heightOf(counts[size_t(level)], top, isLogarithmic);
        const double y = area.bottom() - share * area.height();
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

void HistogramView::setChannel(Channel channel)
{
    chosen = channel;
    update();
}

void HistogramView::setLogarithmic(bool isLog)
{
    isLogarithmic = isLog;
    update();
}

bool HistogramView::shows(Channel channel) const
{
    return chosen == Channel::All || chosen == channel;
}

void HistogramView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(0x20, 0x20, 0x20)); // colours add up as light does
    quint32 top = 0;
    for (const auto &[channel, levels] :
         {std::pair(Channel::Red, &counts.red), std::pair(Channel::Green, &counts.green),
          std::pair(Channel::Blue, &counts.blue),
          std::pair(Channel::Luminosity, &counts.luminosity)})
        top = shows(channel) ? std::max(top, highest(*levels)) : top;
    if (top == 0)
        return;
    const QRectF area = QRectF(rect()).adjusted(4, 6, -4, -4);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Channel channel :
         {Channel::Red, Channel::Green, Channel::Blue, Channel::Luminosity}) {
        if (shows(channel))
            paintChannel(painter, area, top, channel);
    }
}

void HistogramView::paintChannel(QPainter &painter, const QRectF &area, quint32 top,
                                 Channel channel) const
{
    const auto path = [&](const Counts &levels) {
        return outline(levels, top, area, isLogarithmic);
    };
    painter.setCompositionMode(QPainter::CompositionMode_Plus);
    if (channel == Channel::Red)
        return painter.fillPath(path(counts.red), QColor(170, 30, 30));
    if (channel == Channel::Green)
        return painter.fillPath(path(counts.green), QColor(30, 150, 30));
    if (channel == Channel::Blue)
        return painter.fillPath(path(counts.blue), QColor(40, 50, 190));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(QPen(QColor(255, 255, 255, 190), 1));
    painter.drawPath(path(counts.luminosity));
}
