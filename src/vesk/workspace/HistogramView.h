#pragma once

#include <VeskCanvas.h>

#include <QWidget>

/// Draws the distribution of the levels: red, green and blue over each other, luminosity as a line;
/// or one of them alone. The height of a level is its share of the most frequent one, or the
/// logarithm of that. GUI thread.
class HistogramView : public QWidget
{
    Q_OBJECT

public:
    explicit HistogramView(QWidget *parent = nullptr);

    const VeskCanvas::Histogram &histogram() const { return counts; }
    void setHistogram(const VeskCanvas::Histogram &histogram);
    /// Shows no distribution.
    void clear();

    enum class Channel { All, Luminosity, Red, Green, Blue };
    void setChannel(Channel channel);
    void setLogarithmic(bool isLog);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void paintChannel(QPainter &painter, const QRectF &area, quint32 top, Channel channel) const;
    bool shows(Channel channel) const;

    VeskCanvas::Histogram counts;
    Channel chosen = Channel::All;
    bool isLogarithmic = false;
};
