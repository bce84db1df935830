#pragma once

#include <QAction>
#include <QObject>

class QMenuBar;
class QToolBar;

/// The editor's commands. Save, Save As and Close are those of the action registry, where tools
/// find them. GUI thread.
class EditorActions : public QObject
{
    Q_OBJECT

public:
    explicit EditorActions(QObject *parent = nullptr);

    /// Enables what needs a document in front, and Save if it has unsaved changes.
    void setDocumentState(bool isOpen, bool isModified);

    QAction *open;
    QAction *openFolder;
    QAction *save;
    QAction *saveAs;
    QAction *close;
    QAction *quit;
    QAction *zoomIn;
    QAction *zoomOut;
    QAction *zoomToFit;
    QAction *zoomToActualSize;
    QAction *fullScreen;
    QAction *nextTab;
    QAction *previousTab;
    QAction *mergeExposures;
    QAction *mergeBrackets;
    QAction *merge;
    QAction *about;
    QAction *openSelected; // in the film strip
};
