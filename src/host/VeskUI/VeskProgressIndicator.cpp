#include "VeskProgressIndicator.h"
#include "window_placement.h"

#include <QCloseEvent>
#include <QConicalGradient>
#include <QEventLoop>
#include <QHideEvent>
#include <QPainter>
#include <QShowEvent>
#include <QTimerEvent>
#include <QWindow>

#include <algorithm>

namespace {

constexpr int kFrameMs = 16;
constexpr int kTurnMs = 1100;
constexpr double kDiscOpacity = 0.72;
constexpr double kFullTurn = 360.0;
constexpr double kTailDegrees = 300.0;

} // namespace

VeskProgressIndicator::VeskProgressIndicator(const QSize &size, QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false); // it comes and goes without ending the program
    setWindowModality(Qt::ApplicationModal);
    setCursor(Qt::BusyCursor);
    setWindowTitle(tr("Please wait"));
    setFixedSize(size);
    clock.start();
}

VeskProgressIndicator::~VeskProgressIndicator() = default;

void VeskProgressIndicator::startAnimation()
{
    isAnimationOn = true;
    updateFrameTimer();
}

void VeskProgressIndicator::stopAnimation()
{
    isAnimationOn = false;
    updateFrameTimer();
}

void VeskProgressIndicator::updateFrameTimer()
{
    if (!isAnimationOn || !isVisible())
        frameTimer.stop();
    else if (!frameTimer.isActive())
        frameTimer.start(kFrameMs, Qt::PreciseTimer, this);
}

// A loop of its own instead of QDialog's: the close event may arrive before the loop exists, and
// hiding the dialog must not end the wait.
int VeskProgressIndicator::exec()
{
    Q_ASSERT(!waitLoop);
    if (!isCloseReceived)
        show();
    if (!isCloseReceived) {
        QEventLoop loop;
        waitLoop = &loop;
        loop.exec(QEventLoop::DialogExec);
        waitLoop = nullptr;
    }
    isCloseReceived = false;
    hide();
    setResult(Accepted);
    return Accepted;
}

void VeskProgressIndicator::reject()
{
}

// The worker posts its event to the indicator itself. All others close the window below it, which
// would pass the event on, and not tell whether the window system or the program has asked.
bool VeskProgressIndicator::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != windowHandle() || event->type() != QEvent::Close)
        return QDialog::eventFilter(watched, event);
    event->ignore();
    return true;
}

void VeskProgressIndicator::closeEvent(QCloseEvent *event)
{
    isCloseReceived = true;
    event->accept();
    hide();
    if (waitLoop)
        waitLoop->quit();
}

void VeskProgressIndicator::showEvent(QShowEvent *event)
{
    if (!event->spontaneous() && !parentWidget())
        adjustPosition(window_placement::stayAboveActive(*this));
    windowHandle()->installEventFilter(this); // a second time on the same window changes nothing
    QDialog::showEvent(event);
    updateFrameTimer();
}

void VeskProgressIndicator::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    updateFrameTimer();
}

void VeskProgressIndicator::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == frameTimer.timerId())
        update();
    else
        QDialog::timerEvent(event);
}

void VeskProgressIndicator::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double side = std::min(width(), height());
    painter.translate(width() / 2.0, height() / 2.0);

    // The dark disc keeps the ring visible on any picture.
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgbF(0.12, 0.12, 0.13, kDiscOpacity));
    painter.drawEllipse(QPointF(), side / 2, side / 2);

    const double turn = double(clock.elapsed() % kTurnMs) / kTurnMs;
    painter.rotate(turn * kFullTurn);
    QConicalGradient tail(QPointF(), 0); // angles run against the clock from the ring's head
    tail.setColorAt(0, Qt::white);
    tail.setColorAt(kTailDegrees / kFullTurn, QColor(255, 255, 255, 0));
    tail.setColorAt(1, QColor(255, 255, 255, 0));
    const double thickness = side * 0.09;
    const double radius = side * 0.3;
    painter.setPen(QPen(QBrush(tail), thickness, Qt::SolidLine, Qt::FlatCap));
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(QRectF(-radius, -radius, 2 * radius, 2 * radius), 0, int(kTailDegrees * 16));
    // A round end for the head alone: a round cap would also show at the transparent tail's start.
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(radius, 0), thickness / 2, thickness / 2);
}
