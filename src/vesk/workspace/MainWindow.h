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
class ClippingOverlay;
class EditMenu;
class EditorStatusBar;
class ExposureMergeCommand;
class FilmStrip;
class FilmStripActions;
class HdrCommand;
class HistogramDock;
class LanguageMenu;
class LayerDock;
class LightCommand;
class PhotoDock;
class PictureFolder;
class QShortcut;
class RecentFilesMenu;
class RecoveryKeeper;
class EditorUiManager;
class VeskCanvas;
class VeskContext;
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
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void addDocks();
    void addMenus();
    void addToolBar();
    void restoreWindow();
    void connectActions();
    void connectDocuments();
    void connectOpening();
    void connectFolder();
    void onCanvas(QAction *action, void (VeskCanvas::*operation)());

    void chooseFiles();
    void chooseFolder();
    void showBatch();
    bool closeDocument(VeskContext *document);
    void closeOthers(VeskContext *kept);
    void showLight(const LoadedPicture &read);
    void showMergedLight(const QImage &picture, const QString &referencePath,
                         const ResultMark &mark);
    void stepDocument(int distance);
    void showFullScreenOrNot(bool isFull);
    void hideForFullScreen(bool isFull);
    void showCurrentDocument(VeskContext *document);
    void showDocumentState();
    void keepSession();
    void showClipping();
    void stepInFolder(int distance);

    EditorActions *actions;
    PictureFolder *folder;
    FilmStrip *filmStrip;
    FilmStripActions *filmStripActions;
    DocumentArea *documents;
    DocumentOpener *opener;
    DocumentSaver *saver;
    EditorStatusBar *status;
    EditMenu *edit;
    HistogramDock *histogramDock = nullptr;
    LayerDock *layerDock = nullptr;
    PhotoDock *photoDock = nullptr;
    QDockWidget *filmStripDock = nullptr;
    RecentFilesMenu *recentFiles = nullptr;
    const QStringList lastSession; // of the program before
    bool isClosing = false;
    QAction *clipping = nullptr;
    QPointer<ClippingOverlay> clippingOverlay;
    QList<QWidget *> hiddenForFullScreen;
    QPointer<VeskContext> walked; // opened by walking through the folder
    QShortcut *leaveFullScreen;
    QPointer<BatchWindow> batch;
    QShortcut *walkBack; // through the folder, in full screen
    QShortcut *walkOn;
    std::unique_ptr<RecoveryKeeper> recovery; // ends before the documents do
    std::unique_ptr<EditorUiManager> uiManager;
    std::unique_ptr<HdrCommand> hdr;
    std::unique_ptr<ExposureMergeCommand> exposureMerge;
    std::unique_ptr<LightCommand> light;
};
