#pragma once

#include <VeskCanvas.h>

#include <QWidget>

/// Draws the distribution of the levels: red, green and blue over each other, luminosity as a line.
/// The height of a level is its share of the most frequent one. GUI thread.
class HistogramView : public QWidget
{
    Q_OBJECT

public:
    explicit HistogramView(QWidget *parent = nullptr);

    const VeskCanvas::Histogram &histogram() const { return counts; }
    void setHistogram(const VeskCanvas::Histogram &histogram);
    /// Shows no distribution.
    void clear();

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    VeskCanvas::Histogram counts;
};
