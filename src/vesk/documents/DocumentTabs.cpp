#include "DocumentTabs.h"
#include "DocumentPage.h"

#include <VeskCanvas.h>
#include <VeskContext.h>

#include <QTabBar>

DocumentTabs::DocumentTabs(QWidget *parent)
    : QTabWidget(parent)
{
    setDocumentMode(true);
    setTabsClosable(true);
    setMovable(true);
    setElideMode(Qt::ElideMiddle);
    connect(this, &QTabWidget::currentChanged, this, [this](int index) {
        if (const DocumentPage *page = pageAt(index))
            Q_EMIT documentChosen(page->context());
    });
    connect(this, &QTabWidget::tabCloseRequested, this, [this](int index) {
        if (const DocumentPage *page = pageAt(index))
            Q_EMIT closeRequested(page->context());
    });
}

void DocumentTabs::add(VeskContext *context)
{
    addTab(new DocumentPage(context), QString());
    updateTab(context);
    const auto update = [this, context] { updateTab(context); };
    connect(context, &VeskContext::fileNameChanged, this, update);
    connect(context, &VeskContext::saveAbleChanged, this, update);
    connect(context, &VeskContext::canvasChanged, this, [this, context] { moveCanvas(context); });
}

void DocumentTabs::remove(VeskContext *context)
{
    const int index = indexOf(context);
    if (index < 0)
        return;
    context->disconnect(this);
    vacatedIndex = index;
    vacatedPage = widget(index);
    removeTab(index);
    vacatedPage->deleteLater();
}

void DocumentTabs::showDocument(VeskContext *context)
{
    const int index = indexOf(context);
    if (index >= 0)
        setCurrentIndex(index);
}

DocumentPage *DocumentTabs::pageAt(int index) const
{
    return static_cast<DocumentPage *>(widget(index));
}

int DocumentTabs::indexOf(const VeskContext *context) const
{
    for (int index = 0; index < count(); ++index) {
        if (pageAt(index)->context() == context)
            return index;
    }
    return -1;
}

void DocumentTabs::moveCanvas(VeskContext *context)
{
    VeskCanvas *canvas = context->getCanvas();
    const int index = indexOf(context);
    if (!canvas || index < 0)
        return;
    if (vacatedPage && canvas->parentWidget() == vacatedPage)
        tabBar()->moveTab(index, vacatedIndex);
    pageAt(indexOf(context))->hold(canvas);
}

void DocumentTabs::updateTab(const VeskContext *context)
{
    const int index = indexOf(context);
    if (index < 0)
        return;
    const QString name = context->getFileName().isEmpty() ? tr("Untitled") : context->getFileName();
    QString label = name;
    label.replace(QLatin1Char('&'), QLatin1String("&&"));
    //: A document with unsaved changes; %1 is its name.
    setTabText(index, context->isSaveAble() ? tr("%1 •").arg(label) : label);
    setTabToolTip(index, context->getFilePath().isEmpty() ? name : context->getFilePath());
}
