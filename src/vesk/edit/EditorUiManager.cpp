#include "EditorUiManager.h"
#include "DocumentArea.h"
#include "FilmStrip.h"
#include "PictureFolder.h"

#include <QMainWindow>
#include <QStatusBar>

EditorUiManager::EditorUiManager(QMainWindow *mainWindow, DocumentArea *documentArea,
                                 FilmStrip *strip, PictureFolder *pictureFolder)
    : window(mainWindow)
    , documents(documentArea)
    , filmStrip(strip)
    , folder(pictureFolder)
{
}

QList<QString> EditorUiManager::selectedFiles() const
{
    return filmStrip->selectedPaths();
}

QWidget *EditorUiManager::mainWindow() const
{
    return window;
}

QString EditorUiManager::currentDir() const
{
    return folder->path();
}

void EditorUiManager::showStatusMessage(const QString &text, int milliseconds)
{
    window->statusBar()->showMessage(text, milliseconds);
}

void EditorUiManager::discardChanges()
{
    documents->allowReplacing(documents->currentDocument());
}

void EditorUiManager::forgetDiscards()
{
    documents->allowReplacing(nullptr);
}
