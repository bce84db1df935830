#pragma once

#include <IVeskUIManager.h>

class DocumentArea;
class FilmStrip;
class PictureFolder;
class QMainWindow;

/// What the editor's window offers to tools. Everything is borrowed and must outlive it.
class EditorUiManager : public IVeskUIManager
{
public:
    EditorUiManager(QMainWindow *window, DocumentArea *documents, FilmStrip *filmStrip,
                    PictureFolder *folder);

    /// What is selected in the film strip.
    QList<QString> selectedFiles() const override;
    QWidget *mainWindow() const override;
    QString currentDir() const override;
    void showStatusMessage(const QString &text, int milliseconds) override;
    /// A tool may replace the current document, changes and all. Until one does, it stays modified.
    void discardChanges() override;
    /// Takes that back: the next tool asks anew.
    void forgetDiscards();

private:
    QMainWindow *window;
    DocumentArea *documents;
    FilmStrip *filmStrip;
    PictureFolder *folder;
};
