#include "DocumentPanes.h"
#include "DocumentTabs.h"
#include "ViewLock.h"

#include <VeskContext.h>

#include <QSignalBlocker>

#include <algorithm>

DocumentPanes::DocumentPanes(QWidget *parent)
    : QSplitter(parent)
    , active(addPane())
    , lock(new ViewLock(this))
{
    setChildrenCollapsible(false);
}

DocumentTabs *DocumentPanes::addPane()
{
    auto *tabs = new DocumentTabs;
    addWidget(tabs);
    connect(tabs, &DocumentTabs::documentChosen, this, &DocumentPanes::documentChosen);
    connect(tabs, &DocumentTabs::closeRequested, this, &DocumentPanes::closeRequested);
    connect(tabs, &DocumentTabs::closeOthersRequested, this, &DocumentPanes::closeOthersRequested);
    connect(tabs, &DocumentTabs::canvasHeld, this, &DocumentPanes::showState);
    connect(tabs, &DocumentTabs::fetchRequested, this,
            [this, tabs](VeskContext *context) { fetch(tabs, context); });
    return tabs;
}

DocumentTabs *DocumentPanes::pane(int index) const
{
    return static_cast<DocumentTabs *>(widget(index));
}

DocumentTabs *DocumentPanes::paneOf(const VeskContext *context) const
{
    for (int index = 0; index < count(); ++index) {
        if (pane(index)->documents().contains(context))
            return pane(index);
    }
    return nullptr;
}

DocumentTabs *DocumentPanes::otherThan(const DocumentTabs *tabs) const
{
    return isSideBySide() ? pane(tabs == pane(0) ? 1 : 0) : nullptr;
}

void DocumentPanes::add(VeskContext *context)
{
    active->add(context);
}

void DocumentPanes::remove(VeskContext *context)
{
    if (DocumentTabs *tabs = paneOf(context))
        tabs->remove(context);
    endIfOneIsEmpty();
}

void DocumentPanes::showDocument(VeskContext *context)
{
    if (DocumentTabs *tabs = paneOf(context)) {
        active = tabs;
        tabs->showDocument(context);
    }
    showState();
}

void DocumentPanes::setSideBySide(bool isWanted)
{
    if (isWanted == isSideBySide())
        return;
    const QList<VeskContext *> first = pane(0)->documents();
    if (isWanted && first.size() > 1) {
        const auto front = first.indexOf(pane(0)->frontDocument());
        VeskContext *beside = first.at(front + 1 < first.size() ? front + 1 : front - 1);
        move(beside, addPane());
        setSizes({width() / 2, width() / 2});
    } else if (!isWanted) {
        VeskContext *front = active->frontDocument();
        const QList<VeskContext *> second = pane(1)->documents();
        for (VeskContext *context : second)
            move(context, pane(0));
        endIfOneIsEmpty();
        showDocument(front);
        return;
    }
    showState();
    Q_EMIT sideBySideChanged(isSideBySide());
}

bool DocumentPanes::areViewsLocked() const
{
    return lock->isLocked();
}

void DocumentPanes::setViewsLocked(bool areLocked)
{
    showState(); // the active pane is the one that is followed
    lock->setLocked(areLocked);
}

/// Where the other pane has no other document, the two change places.
void DocumentPanes::fetch(DocumentTabs *into, VeskContext *context)
{
    DocumentTabs *from = paneOf(context);
    if (!from || from == into)
        return;
    VeskContext *back = from->documents().size() == 1 ? into->frontDocument() : nullptr;
    move(context, into);
    if (back)
        move(back, from);
    into->showDocument(context);
    Q_EMIT documentChosen(context);
    showState();
}

/// Tells nobody that other documents come to the front meanwhile.
void DocumentPanes::move(VeskContext *context, DocumentTabs *into)
{
    DocumentTabs *from = paneOf(context);
    const QSignalBlocker quietFrom(from);
    const QSignalBlocker quietInto(into);
    from->remove(context);
    into->add(context);
    into->showDocument(context);
}

void DocumentPanes::endIfOneIsEmpty()
{
    if (!isSideBySide() || (pane(0)->count() > 0 && pane(1)->count() > 0))
        return;
    DocumentTabs *second = pane(1);
    VeskContext *front = second->frontDocument();
    const QList<VeskContext *> left = second->documents();
    for (VeskContext *context : left)
        move(context, pane(0));
    if (front)
        pane(0)->showDocument(front);
    active = pane(0);
    second->hide();
    second->setParent(parentWidget());
    second->deleteLater(); // a canvas of it may still be taken over
    showState();
    Q_EMIT sideBySideChanged(false);
}

void DocumentPanes::showState()
{
    for (int index = 0; index < count(); ++index) {
        pane(index)->setNeighbour(otherThan(pane(index)));
        pane(index)->setMarked(isSideBySide() && pane(index) == active);
    }
    const DocumentTabs *other = otherThan(active);
    lock->link(active->frontCanvas(), other ? other->frontCanvas() : nullptr);
}
