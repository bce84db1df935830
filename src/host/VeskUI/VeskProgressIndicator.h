#pragma once

#include "veskui_export.h"

#include <QBasicTimer>
#include <QDialog>
#include <QElapsedTimer>

class QEventLoop;

/// Modal busy indicator: a turning ring that keeps the user waiting while another thread works.
///
/// The worker ends the wait by posting a QCloseEvent to the indicator
/// (QCoreApplication::postEvent, from any thread, at any time after construction). A close event
/// that arrives before exec() is not lost: exec() then returns at once. Nobody else ends the wait:
/// Escape does nothing, nor does a close that goes by way of the window, be it the window system
/// that asks (Alt+F4), the program that closes all its windows, or QWidget::close(). Everything
/// else is for the GUI thread only.
///
/// A tool calls the constructor, startAnimation, exec and the destructor.
class VESKUI_EXPORT VeskProgressIndicator : public QDialog
{
    Q_OBJECT

public:
    /// size: in device-independent pixels. parent, if any, owns the indicator; without one it is
    /// centred on the active window.
    explicit VeskProgressIndicator(const QSize &size, QWidget *parent = nullptr);
    ~VeskProgressIndicator() override;

    /// Turns the ring whenever the indicator is visible, at about 60 pictures per second.
    void startAnimation();
    void stopAnimation();
    /// Whether the ring turns right now: never while the indicator is hidden.
    bool isAnimating() const { return frameTimer.isActive(); }

    /// Shows the indicator and runs an event loop until one close event has arrived, counted from
    /// construction or from the end of the last exec(). Also returns at QCoreApplication::exit();
    /// a quit() meanwhile is refused, as by any window that does not close.
    /// Returns QDialog::Accepted.
    int exec() override;

    /// Does nothing: the wait cannot be cancelled.
    void reject() override;

    /// Keeps closes from the indicator's own window.
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void updateFrameTimer();

    QBasicTimer frameTimer;
    QElapsedTimer clock; // the angle follows time, not ticks: a late tick does not stutter
    QEventLoop *waitLoop = nullptr;
    bool isAnimationOn = false;
    bool isCloseReceived = false;
};
