#include "DocumentPage.h"

#include <VeskCanvas.h>
#include <VeskContext.h>

#include <QEvent>
#include <QVBoxLayout>

DocumentPage::DocumentPage(VeskContext *context)
    : shown(context)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    hold(context->getCanvas());
}

void DocumentPage::hold(VeskCanvas *canvas)
{
    if (!canvas)
        return;
    layout()->addWidget(canvas);
    canvas->installEventFilter(this);
    setFocusProxy(canvas);
    canvas->show();
}

VeskContext *DocumentPage::context() const
{
    return shown;
}

VeskCanvas *DocumentPage::canvas() const
{
    return findChild<VeskCanvas *>(QString(), Qt::FindDirectChildrenOnly);
}

/// A canvas that another page holds now is no longer this one's.
bool DocumentPage::eventFilter(QObject *watched, QEvent *event)
{
    const bool isTouch = event->type() == QEvent::MouseButtonPress ||
                         event->type() == QEvent::TouchBegin || event->type() == QEvent::FocusIn;
    if (isTouch && watched->parent() == this)
        Q_EMIT touched();
    return QWidget::eventFilter(watched, event);
}
