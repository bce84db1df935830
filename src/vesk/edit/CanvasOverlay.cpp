#include "CanvasOverlay.h"

#include <VeskCanvas.h>

#include <QEvent>
#include <QKeyEvent>

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

void CanvasOverlay::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT cancelled();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        accept();
    else
        QWidget::keyPressEvent(event);
}
