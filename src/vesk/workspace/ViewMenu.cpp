#include "ViewMenu.h"
#include "ClippingOverlay.h"
#include "EditorActions.h"

#include <DocumentArea.h>
#include <DocumentPanes.h>
#include <VeskCanvas.h>
#include <VeskContext.h>

#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>

ViewMenu::ViewMenu(EditorActions *editorActions, DocumentArea *area,
                   const QList<QDockWidget *> &docks, QMainWindow *window)
    : QObject(window)
    , actions(editorActions)
    , documents(area)
    , viewMenu(new QMenu(tr("&View"), window))
    , clipping(new QAction(tr("&Clipping Warning"), this))
{
    clipping->setObjectName(QStringLiteral("clippingAction"));
    clipping->setCheckable(true);
    clipping->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_J);
    viewMenu->addActions(
        {actions->zoomIn, actions->zoomOut, actions->zoomToFit, actions->zoomToActualSize});
    viewMenu->addSeparator();
    viewMenu->addAction(clipping);
    viewMenu->addSeparator();
    addPaneActions();
    viewMenu->addSeparator();
    for (const QDockWidget *dock : docks)
        viewMenu->addAction(dock->toggleViewAction());
    viewMenu->addSeparator();
    viewMenu->addActions({actions->nextTab, actions->previousTab, actions->fullScreen});
    connectActions();
}

void ViewMenu::addPaneActions()
{
    sideBySide = viewMenu->addAction(tr("Side by &Side"));
    sideBySide->setObjectName(QStringLiteral("sideBySideAction"));
    sideBySide->setCheckable(true);
    sideBySide->setShortcut(Qt::CTRL | Qt::Key_D);
    sideBySide->setToolTip(tr("Show another document beside this one"));
    lockViews = viewMenu->addAction(tr("&Lock Views"));
    lockViews->setObjectName(QStringLiteral("lockViewsAction"));
    lockViews->setCheckable(true);
    lockViews->setChecked(documents->panes()->areViewsLocked());
    lockViews->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_D);
    lockViews->setToolTip(tr("Zoom and place of both documents move together"));
    viewMenu->setToolTipsVisible(true);
    connect(sideBySide, &QAction::triggered, this, [this](bool isWanted) {
        documents->panes()->setSideBySide(isWanted);
        showPanes();
    });
    connect(lockViews, &QAction::triggered, documents->panes(), &DocumentPanes::setViewsLocked);
    connect(documents->panes(), &DocumentPanes::sideBySideChanged, this, &ViewMenu::showPanes);
}

void ViewMenu::showPanes()
{
    const bool isSideBySide = documents->panes()->isSideBySide();
    sideBySide->setChecked(isSideBySide);
    sideBySide->setEnabled(isSideBySide || documents->documents().size() > 1);
    lockViews->setEnabled(isSideBySide);
}

void ViewMenu::connectActions()
{
    onCanvas(actions->zoomIn, &VeskCanvas::zoomIn);
    onCanvas(actions->zoomOut, &VeskCanvas::zoomOut);
    onCanvas(actions->zoomToFit, &VeskCanvas::zoomToFit);
    onCanvas(actions->zoomToActualSize, &VeskCanvas::zoomToActualSize);
    connect(actions->nextTab, &QAction::triggered, this, [this] { stepDocument(1); });
    connect(actions->previousTab, &QAction::triggered, this, [this] { stepDocument(-1); });
    connect(clipping, &QAction::toggled, this, &ViewMenu::showClipping);
}

void ViewMenu::onCanvas(QAction *action, void (VeskCanvas::*operation)())
{
    connect(action, &QAction::triggered, this, [this, operation] {
        if (VeskCanvas *canvas = documents->currentCanvas())
            (canvas->*operation)();
    });
}

void ViewMenu::showCurrentDocument()
{
    showClipping();
    showPanes();
}

void ViewMenu::showClipping()
{
    delete clippingOverlay;
    if (clipping->isChecked() && documents->currentCanvas())
        clippingOverlay = new ClippingOverlay(documents->currentCanvas());
}

void ViewMenu::stepDocument(int distance)
{
    const QList<VeskContext *> all = documents->documents();
    const int current = all.indexOf(documents->currentDocument());
    if (current >= 0)
        documents->makeCurrent(all.at((current + distance + all.size()) % all.size()));
}
