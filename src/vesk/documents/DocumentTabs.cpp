#include "DocumentTabs.h"
#include "DocumentPage.h"
#include "DocumentTabBar.h"
#include "tab_labels.h"

#include <VeskCanvas.h>
#include <VeskContext.h>

#include <QMenu>
#include <QToolButton>

namespace {

/// As menus and tabs show it: no letter of a name opens anything.
QString plain(QString name)
{
    return name.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

DocumentTabs::DocumentTabs(QWidget *parent)
    : QTabWidget(parent)
    , bar(new DocumentTabBar)
    , listButton(new QToolButton)
    , list(new QMenu(this))
{
    setTabBar(bar);
    setDocumentMode(true);
    setTabsClosable(true);
    setMovable(true);
    setElideMode(Qt::ElideMiddle);
    listButton->setArrowType(Qt::DownArrow);
    listButton->setAutoRaise(true);
    listButton->setToolTip(tr("All open documents"));
    list->setToolTipsVisible(true);
    listButton->hide();
    setCornerWidget(listButton);
    connect(listButton, &QToolButton::clicked, this, &DocumentTabs::showList);
    const auto forward = [this](void (DocumentTabs::*tell)(VeskContext *)) {
        return [this, tell](int index) {
            if (const DocumentPage *page = pageAt(index))
                Q_EMIT(this->*tell)(page->context());
        };
    };
    connect(this, &QTabWidget::currentChanged, this, forward(&DocumentTabs::documentChosen));
    connect(this, &QTabWidget::tabCloseRequested, this, forward(&DocumentTabs::closeRequested));
    connect(bar, &DocumentTabBar::closeOthersRequested, this,
            forward(&DocumentTabs::closeOthersRequested));
}

void DocumentTabs::add(VeskContext *context)
{
    addTab(new DocumentPage(context), QString());
    labelTabs();
    connect(context, &VeskContext::fileNameChanged, this, &DocumentTabs::labelTabs);
    connect(context, &VeskContext::saveAbleChanged, this, &DocumentTabs::labelTabs);
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
    labelTabs();
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

QString DocumentTabs::nameAt(int index) const
{
    const VeskContext *context = pageAt(index)->context();
    return !context || context->getFileName().isEmpty() ? tr("Untitled") : context->getFileName();
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

void DocumentTabs::resizeEvent(QResizeEvent *event)
{
    QTabWidget::resizeEvent(event);
    labelTabs();
}

void DocumentTabs::labelTabs()
{
    QStringList labels;
    for (int index = 0; index < count(); ++index)
        labels.append(nameAt(index));
    if (bar->widthFor(labels) > width() - listButton->sizeHint().width())
        labels = tab_labels::shortened(labels);
    for (int index = 0; index < count(); ++index) {
        const VeskContext *context = pageAt(index)->context();
        const bool isModified = context && context->isSaveAble();
        //: A document with unsaved changes; %1 is its name.
        const QString label =
            isModified ? tr("%1 •").arg(plain(labels.at(index))) : plain(labels.at(index));
        if (tabText(index) != label)
            setTabText(index, label);
        const QString path = context ? context->getFilePath() : QString();
        setTabToolTip(index, path.isEmpty() ? nameAt(index) : path);
    }
    listButton->setVisible(count() > 1);
}

void DocumentTabs::showList()
{
    list->clear();
    for (int index = 0; index < count(); ++index) {
        QAction *action =
            list->addAction(plain(nameAt(index)), this, [this, index] { setCurrentIndex(index); });
        action->setCheckable(true);
        action->setChecked(index == currentIndex());
        action->setToolTip(tabToolTip(index));
    }
    list->popup(listButton->mapToGlobal(listButton->rect().bottomLeft()));
}
