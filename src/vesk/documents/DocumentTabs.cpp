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
    connect(this, &QTabWidget::tabBarClicked, this, forward(&DocumentTabs::documentChosen));
    connect(bar, &DocumentTabBar::closeOthersRequested, this,
            forward(&DocumentTabs::closeOthersRequested));
}

void DocumentTabs::add(VeskContext *context)
{
    auto *page = new DocumentPage(context);
    addTab(page, QString());
    labelTabs();
    connect(page, &DocumentPage::touched, this, [this, page] {
        if (indexOf(page->context()) >= 0)
            Q_EMIT documentChosen(page->context());
    });
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

QList<VeskContext *> DocumentTabs::documents() const
{
    QList<VeskContext *> all;
    for (int index = 0; index < count(); ++index)
        all.append(pageAt(index)->context());
    return all;
}

VeskContext *DocumentTabs::frontDocument() const
{
    return count() > 0 ? pageAt(currentIndex())->context() : nullptr;
}

VeskCanvas *DocumentTabs::frontCanvas() const
{
    return count() > 0 ? pageAt(currentIndex())->canvas() : nullptr;
}

void DocumentTabs::setNeighbour(DocumentTabs *tabs)
{
    neighbour = tabs;
    showListButton();
}

void DocumentTabs::setMarked(bool isMarked)
{
    bar->setMarked(isMarked);
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
    Q_EMIT canvasHeld();
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
    showListButton();
}

void DocumentTabs::showListButton()
{
    listButton->setVisible(count() > 1 || neighbour);
}

void DocumentTabs::addToList(const DocumentTabs *tabs, int index)
{
    QAction *action = list->addAction(plain(tabs->nameAt(index)));
    action->setToolTip(tabs->tabToolTip(index));
    action->setCheckable(true);
    action->setChecked(tabs == this && index == currentIndex());
    const QPointer<VeskContext> context = tabs->pageAt(index)->context();
    connect(action, &QAction::triggered, this, [this, context] {
        if (context && indexOf(context) >= 0)
            showDocument(context);
        else if (context)
            Q_EMIT fetchRequested(context);
    });
}

void DocumentTabs::showList()
{
    list->clear();
    for (int index = 0; index < count(); ++index)
        addToList(this, index);
    if (neighbour) {
        //: Above the documents of the other pane; choosing one brings it here.
        list->addSection(tr("From the Other Side"));
        for (int index = 0; index < neighbour->count(); ++index)
            addToList(neighbour, index);
    }
    list->popup(listButton->mapToGlobal(listButton->rect().bottomLeft()));
}
