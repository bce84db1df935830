#include "DocumentPage.h"

#include <VeskCanvas.h>
#include <VeskContext.h>

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
    setFocusProxy(canvas);
    canvas->show();
}

VeskContext *DocumentPage::context() const
{
    return shown;
}
