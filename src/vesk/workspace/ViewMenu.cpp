#include "ViewMenu.h"
#include "ClippingOverlay.h"
#include "EditorActions.h"

#include <DocumentArea.h>
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
    clipping->setCheckable(true);
    clipping->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_J);
    viewMenu->addActions(
        {actions->zoomIn, actions->zoomOut, actions->zoomToFit, actions->zoomToActualSize});
    viewMenu->addSeparator();
    viewMenu->addAction(clipping);
    viewMenu->addSeparator();
    for (const QDockWidget *dock : docks)
        viewMenu->addAction(dock->toggleViewAction());
    viewMenu->addSeparator();
    viewMenu->addActions({actions->nextTab, actions->previousTab, actions->fullScreen});
    connectActions();
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
