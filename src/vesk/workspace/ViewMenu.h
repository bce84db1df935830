#pragma once

#include <QObject>
#include <QPointer>

class ClippingOverlay;
class DocumentArea;
class EditorActions;
class QAction;
class QDockWidget;
class QMainWindow;
class QMenu;
class VeskCanvas;

/// The View menu: zoom, what is laid over the picture, what stands around it, and which document is
/// in front. GUI thread.
class ViewMenu : public QObject
{
    Q_OBJECT

public:
    /// All borrowed; the menu becomes the window's. docks: those that it shows and hides.
    ViewMenu(EditorActions *actions, DocumentArea *documents, const QList<QDockWidget *> &docks,
             QMainWindow *window);

    QMenu *menu() const { return viewMenu; }
    /// Another document is in front, or the one in front has another canvas.
    void showCurrentDocument();

private:
    void connectActions();
    void onCanvas(QAction *action, void (VeskCanvas::*operation)());
    void showClipping();
    void stepDocument(int distance);
    void addPaneActions();
    void showPanes();

    EditorActions *actions;
    DocumentArea *documents;
    QMenu *viewMenu;
    QAction *clipping;
    QAction *sideBySide;
    QAction *lockViews;
    QPointer<ClippingOverlay> clippingOverlay;
};
