#include "FullScreen.h"

#include <DocumentArea.h>
#include <DocumentOpener.h>
#include <DocumentPanes.h>
#include <FilmStrip.h>
#include <VeskCanvas.h>
#include <VeskContext.h>

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QShortcut>
#include <QStatusBar>
#include <QTabBar>
#include <QToolBar>

#include <algorithm>
#include <utility>

FullScreen::FullScreen(QAction *toggle, QMainWindow *mainWindow, DocumentArea *area,
                       DocumentOpener *documentOpener, FilmStrip *strip)
    : QObject(mainWindow)
    , action(toggle)
    , window(mainWindow)
    , documents(area)
    , opener(documentOpener)
    , filmStrip(strip)
{
    const auto add = [this](Qt::Key key, QWidget *where, const auto &work) {
        auto *shortcut = new QShortcut(key, where);
        shortcut->setContext(where == window ? Qt::WindowShortcut : Qt::WidgetWithChildrenShortcut);
        shortcut->setEnabled(false);
        connect(shortcut, &QShortcut::activated, this, work);
        shortcuts.append(shortcut);
    };
    add(Qt::Key_Escape, window, [this] { action->toggle(); });
    add(Qt::Key_Left, documents, [this] { stepInFolder(-1); });
    add(Qt::Key_Right, documents, [this] { stepInFolder(1); });
    connect(action, &QAction::toggled, this, [this](bool isFull) {
        window->setWindowState(window->windowState().setFlag(Qt::WindowFullScreen, isFull));
    });
    connect(documents->panes(), &DocumentPanes::sideBySideChanged, this, [this] {
        if (window->isFullScreen())
            hide(documents->findChildren<QTabBar *>());
    });
    window->installEventFilter(this);
}

/// The desktop has commands for full screen, too.
bool FullScreen::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == window && event->type() == QEvent::WindowStateChange)
        followWindow();
    return QObject::eventFilter(watched, event);
}

void FullScreen::followWindow()
{
    const bool isFull = window->isFullScreen();
    action->setChecked(isFull);
    for (QShortcut *shortcut : qAsConst(shortcuts))
        shortcut->setEnabled(isFull);
    if (!isFull)
        return showAround();
    if (hidden.isEmpty())
        hideAround();
    focusPicture();
}

void FullScreen::focusPicture()
{
    VeskCanvas *canvas = documents->currentCanvas();
    const bool isThere = documents->isAncestorOf(QApplication::focusWidget()); // or in a tool on it
    if (canvas && !isThere)
        canvas->setFocus();
}

void FullScreen::showAround()
{
    for (const QPointer<QWidget> &widget : std::exchange(hidden, {})) {
        if (widget)
            widget->show();
    }
}

void FullScreen::hideAround()
{
    hide(QList<QWidget *>{window->menuBar(), window->statusBar()});
    hide(window->findChildren<QToolBar *>(QString(), Qt::FindDirectChildrenOnly));
    hide(window->findChildren<QDockWidget *>(QString(), Qt::FindDirectChildrenOnly));
    hide(documents->findChildren<QTabBar *>());
}

template <typename Widgets>
void FullScreen::hide(const Widgets &widgets)
{
    for (QWidget *widget : widgets) {
        if (!widget->isVisible())
            continue;
        widget->hide();
        hidden.append(widget);
    }
}

/// To a neighbour of the document in front in its folder. What was opened so, and not changed, goes
/// again.
void FullScreen::stepInFolder(int distance)
{
    const VeskContext *document = documents->currentDocument();
    const QStringList paths = filmStrip->paths();
    const auto at = document ? paths.indexOf(document->getFilePath()) : qsizetype(-1);
    const qsizetype next = std::clamp<qsizetype>(at + distance, 0, paths.size() - 1);
    if (at < 0 || next == at)
        return;
    const bool isOpen = documents->documentOf(paths[next]);
    const QPointer<VeskContext> left = walked;
    auto *once = new QObject(this);
    connect(opener, &DocumentOpener::finished, once, [this, once, left, isOpen] {
        once->deleteLater();
        walked = isOpen ? nullptr : documents->currentDocument();
        if (left && !left->isSaveAble() && left != documents->currentDocument())
            documents->close(left);
        focusPicture();
    });
    opener->open({paths[next]});
}
