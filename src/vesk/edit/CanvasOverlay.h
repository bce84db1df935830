#pragma once

#include <QWidget>

class VeskCanvas;

/// Lies over a canvas, as large as it, and sees its mouse and its keys; the wheel goes on zooming.
/// The canvas owns it. GUI thread.
class CanvasOverlay : public QWidget
{
    Q_OBJECT

public:
    explicit CanvasOverlay(VeskCanvas *canvas);

Q_SIGNALS:
    /// Escape, or whatever else ends it without a result.
    void cancelled();

protected:
    VeskCanvas &canvas() const { return *below; }
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

    /// Enter.
    virtual void accept() = 0;

private:
    VeskCanvas *below;
};
