#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class DocumentArea;
class DocumentOpener;
class FilmStrip;
class QAction;
class QMainWindow;
class QShortcut;
class VeskContext;

/// The window with nothing but the picture, on the whole screen. The left and right arrow keys walk
/// through the folder there while the picture has the focus, Escape goes back. GUI thread.
class FullScreen : public QObject
{
    Q_OBJECT

public:
    /// All borrowed. toggle: the command, which follows the window.
    FullScreen(QAction *toggle, QMainWindow *window, DocumentArea *documents,
               DocumentOpener *opener, FilmStrip *filmStrip);

    /// Shows again what is hidden around the picture, so that it is remembered with the window.
    void showAround();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void followWindow();
    void focusPicture();
    void hideAround();
    template <typename Widgets>
    void hide(const Widgets &widgets);
    void stepInFolder(int distance);

    QAction *action;
    QMainWindow *window;
    DocumentArea *documents;
    DocumentOpener *opener;
    FilmStrip *filmStrip;
    QList<QShortcut *> shortcuts;    // the keys are for others elsewhere
    QList<QPointer<QWidget>> hidden; // a pane may go meanwhile
    QPointer<VeskContext> walked;    // opened by walking through the folder
};
