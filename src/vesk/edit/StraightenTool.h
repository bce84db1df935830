#pragma once

#include "CanvasOverlay.h"

#include <optional>

/// A line to be drawn along the horizon, or along what is to be upright: the picture is turned so
/// that it is. GUI thread.
class StraightenTool : public CanvasOverlay
{
    Q_OBJECT

public:
    explicit StraightenTool(VeskCanvas *canvas);

    /// The turn, clockwise, that makes a line level, or upright when that is nearer: -45 to 45
    /// degrees.
    static double degreesFor(const QPointF &from, const QPointF &to);

Q_SIGNALS:
    void accepted(double degrees);

protected:
    void accept() override {}
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    struct Line
    {
        QPointF from;
        QPointF to;
    };

    std::optional<Line> line; // widget coordinates
};
