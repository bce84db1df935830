#pragma once

#include "EditorActions.h"

#include <QMainWindow>
#include <QPointer>
#include <QStringList>

#include <memory>

class BatchWindow;
class DocumentArea;
class DocumentOpener;
class DocumentSaver;
class EditMenu;
class EditorStatusBar;
class ExposureMergeCommand;
class FilmStrip;
class FilmStripActions;
class FullScreen;
class HdrCommand;
class HistogramDock;
class LanguageMenu;
class LayerDock;
class LightCommand;
class PhotoDock;
class PictureFolder;
class QMenu;
class RecentFilesMenu;
class SessionKeeper;
class EditorUiManager;
class VeskContext;
class ViewMenu;
struct LoadedPicture;
struct ResultMark;

/// The editor's window: puts its parts together and passes on what one has to tell another.
/// GUI thread.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

    /// Files become documents, a folder goes to the film strip.
    void openPaths(const QStringList &paths);
    /// Asks whether to bring back what a program that did not end properly has left.
    void offerRecovery();
    /// Opens what was open last.
    void restoreSession();

    /// Files go to the workspace that merges them, and the first one's folder to the film strip.
    void mergePaths(const QStringList &paths);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void takeDrops();
    void addDocks();
    void addMenus();
    void keepKeysOf(const QList<QMenu *> &menus);
    void addToolBar();
    void restoreWindow();
    void connectActions();
    void connectDocuments();
    void connectOpening();
    void connectFolder();

    void chooseFiles();
    void chooseFolder();
    void showBatch();
    bool closeDocument(VeskContext *document);
    void closeOthers(VeskContext *kept);
    void showLight(const LoadedPicture &read);
    void showMergedLight(const QImage &picture, const QString &referencePath,
                         const ResultMark &mark);
    void showCurrentDocument(VeskContext *document);
    void showDocumentState();

    EditorActions *actions;
    PictureFolder *folder;
    FilmStrip *filmStrip;
    FilmStripActions *filmStripActions;
    DocumentArea *documents;
    DocumentOpener *opener;
    DocumentSaver *saver;
    EditorStatusBar *status;
    EditMenu *edit;
    ViewMenu *view = nullptr;
    HistogramDock *histogramDock = nullptr;
    LayerDock *layerDock = nullptr;
    PhotoDock *photoDock = nullptr;
    QDockWidget *filmStripDock = nullptr;
    RecentFilesMenu *recentFiles = nullptr;
    QPointer<BatchWindow> batch;
    FullScreen *fullScreen;
    std::unique_ptr<SessionKeeper> session; // ends before the documents do
    std::unique_ptr<EditorUiManager> uiManager;
    std::unique_ptr<HdrCommand> hdr;
    std::unique_ptr<ExposureMergeCommand> exposureMerge;
    std::unique_ptr<LightCommand> light;
};
