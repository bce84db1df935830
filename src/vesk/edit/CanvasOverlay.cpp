#include "CanvasOverlay.h"

#include <VeskCanvas.h>

#include <QEvent>
#include <QKeyEvent>
#include <QSet>

CanvasOverlay::CanvasOverlay(VeskCanvas *canvas)
    : QWidget(canvas)
    , below(canvas)
{
    setGeometry(canvas->rect());
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    canvas->installEventFilter(this);
    connect(canvas, &VeskCanvas::zoomChanged, this, QOverload<>::of(&QWidget::update));
}

bool CanvasOverlay::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == below && event->type() == QEvent::Resize)
        setGeometry(below->rect());
    return QWidget::eventFilter(watched, event);
}

/// Its keys are no commands of the window meanwhile.
bool CanvasOverlay::event(QEvent *event)
{
    static const QSet<int> kKeys{Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Left,
                                 Qt::Key_Right,  Qt::Key_Up,     Qt::Key_Down};
    if (event->type() == QEvent::ShortcutOverride &&
        kKeys.contains(static_cast<QKeyEvent *>(event)->key())) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void CanvasOverlay::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT cancelled();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        accept();
    else
        QWidget::keyPressEvent(event);
}
