#pragma once

#include "FileDialogAnswerer.h"
#include "MessageBoxAnswerer.h"
#include "TestPictures.h"

#include <memory>

class DocumentArea;
class FilmStrip;
class MainWindow;
class QAction;
class QPushButton;
class VeskContext;
class VeskFilterContainer;

/// The editor's window without settings, with a folder for pictures, and what tests do with it.
class EditorWindow
{
public:
    EditorWindow();
    ~EditorWindow();

protected:
    void setUp();
    void tearDown();

    VeskContext *current() const;
    QAction *action(const QString &name) const;
    QAction *mergeAction() const;
    VeskFilterContainer *panelFrame() const;
    QPushButton *panelButton(const char *name) const;
    void openAndWait(const QStringList &paths);
    /// What is selected in the film strip, through the tool's panel.
    void mergeSelected();

    std::unique_ptr<TestPictures> pictures;
    std::unique_ptr<MessageBoxAnswerer> boxes;
    std::unique_ptr<FileDialogAnswerer> dialogs;
    std::unique_ptr<MainWindow> window;
    DocumentArea *documents = nullptr;
    FilmStrip *strip = nullptr;
};
