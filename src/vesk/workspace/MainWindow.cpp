#include "MainWindow.h"
#include "AdjustDock.h"
#include "BatchWindow.h"
#include "DocumentArea.h"
#include "DocumentOpener.h"
#include "DocumentSaver.h"
#include "DropTarget.h"
#include "EditMenu.h"
#include "EditorStatusBar.h"
#include "EditorUiManager.h"
#include "ExposureMergeCommand.h"
#include "FilmStrip.h"
#include "FilmStripActions.h"
#include "FullScreen.h"
#include "HdrCommand.h"
#include "HistogramDock.h"
#include "LanguageMenu.h"
#include "LayerDock.h"
#include "LightCommand.h"
#include "PhotoDock.h"
#include "PictureFolder.h"
#include "RecentFilesMenu.h"
#include "ScreenColoursMenu.h"
#include "SessionKeeper.h"
#include "SharpView.h"
#include "StartPage.h"
#include "ThemeMenu.h"
#include "ViewMenu.h"
#include "about_box.h"
#include "editor_settings.h"
#include "first_window_size.h"
#include "picture_kinds.h"
#include "screen_colours.h"

#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskGlobalSettings.h>

#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QToolBar>
#include <QToolButton>

namespace {

constexpr int kSideWidth = 280; // of the panels at the side, until somebody changes it

} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , actions(new EditorActions(this))
    , folder(new PictureFolder(this))
    , filmStrip(new FilmStrip)
    , filmStripActions(new FilmStripActions(filmStrip, this))
    , documents(new DocumentArea(new StartPage({actions->open, actions->openFolder,
                                                actions->mergeExposures, actions->merge}),
                                 this))
    , opener(new DocumentOpener(documents, this))
    , saver(new DocumentSaver(this))
    , status(new EditorStatusBar)
    , edit(new EditMenu(documents, this))
    , fullScreen(new FullScreen(actions->fullScreen, this, documents, opener, filmStrip))
    , session(std::make_unique<SessionKeeper>(documents, this))
    , uiManager(std::make_unique<EditorUiManager>(this, documents, filmStrip, folder))
    , hdr(std::make_unique<HdrCommand>(uiManager.get()))
    , exposureMerge(std::make_unique<ExposureMergeCommand>(uiManager.get(), documents, filmStrip))
    , light(std::make_unique<LightCommand>(documents, this))
{
    screen_colours::applySettings();
    setCentralWidget(documents);
    takeDrops();
    setStatusBar(status);
    addDocks();
    addMenus();
    addToolBar();
    connectActions();
    connectDocuments();
    connectOpening();
    connectFolder();
    restoreWindow();
    showCurrentDocument(nullptr);
    folder->setPath(settings::folder());
}

MainWindow::~MainWindow() = default;

/// A folder goes to the film strip, pictures become documents.
void MainWindow::takeDrops()
{
    const auto *drops = new DropTarget(this, [this](const QStringList &paths) -> QWidget * {
        const bool isFolder = paths.size() == 1 && QFileInfo(paths.first()).isDir();
        return isFolder && filmStrip->isVisible() ? static_cast<QWidget *>(filmStrip) : documents;
    });
    connect(drops, &DropTarget::dropped, this, &MainWindow::openPaths);
}

void MainWindow::openPaths(const QStringList &paths)
{
    opener->open(paths);
}

void MainWindow::mergePaths(const QStringList &paths)
{
    if (!paths.isEmpty())
        openPaths({QFileInfo(paths.first()).absolutePath()});
    exposureMerge->activateWith(paths);
}

void MainWindow::offerRecovery()
{
    session->offerRecovery();
}

void MainWindow::restoreSession()
{
    const QStringList paths = session->lastFiles();
    if (!paths.isEmpty())
        openPaths(paths);
}

// --- Building ---

void MainWindow::addDocks()
{
    filmStripDock = new QDockWidget(tr("Film Strip"), this);
    filmStripDock->setObjectName(QStringLiteral("filmStripDock"));
    filmStripDock->setWidget(filmStrip);
    addDockWidget(Qt::BottomDockWidgetArea, filmStripDock);
    histogramDock = new HistogramDock(this);
    addDockWidget(Qt::RightDockWidgetArea, histogramDock);
    layerDock = new LayerDock(this);
    addDockWidget(Qt::RightDockWidgetArea, layerDock);
    addDockWidget(Qt::RightDockWidgetArea, edit->adjustDock());
    tabifyDockWidget(layerDock, edit->adjustDock());
    photoDock = new PhotoDock(this);
    addDockWidget(Qt::RightDockWidgetArea, photoDock);
    tabifyDockWidget(layerDock, photoDock);
    layerDock->raise();
    photoDock->hide();
    edit->adjustDock()->hide();
    resizeDocks({filmStripDock}, {filmStrip->sizeHint().height()}, Qt::Vertical);
    resizeDocks({histogramDock, layerDock}, {1, 2}, Qt::Vertical); // sliders need more room
    resizeDocks({histogramDock}, {kSideWidth}, Qt::Horizontal);
}

void MainWindow::addMenus()
{
    recentFiles = new RecentFilesMenu(this);
    auto *languages = new LanguageMenu(this);

    QMenu *file = menuBar()->addMenu(tr("&File"));
    file->addActions({actions->open, actions->openFolder});
    file->addMenu(recentFiles);
    file->addSeparator();
    file->addActions({actions->save, actions->saveAs});
    file->addSeparator();
    file->addAction(actions->mergeBrackets);
    file->addSeparator();
    file->addActions({actions->close, actions->quit});

    menuBar()->addMenu(edit->menu());

    view = new ViewMenu(actions, documents, {filmStripDock, histogramDock, layerDock, photoDock},
                        this);
    menuBar()->addMenu(view->menu());

    filmStripActions->addTo(*menuBar()->addMenu(tr("&Pictures")));

    QMenu *tools = menuBar()->addMenu(tr("&Tools"));
    tools->setToolTipsVisible(true);
    tools->addSection(tr("Fusion with preview"));
    tools->addAction(actions->mergeExposures);
    tools->addSection(tr("Weighted mean of up to five"));
    tools->addAction(actions->merge);
    QMenu *settingsMenu = menuBar()->addMenu(tr("&Settings"));
    settingsMenu->addMenu(languages);
    settingsMenu->addMenu(new ScreenColoursMenu(this));
    settingsMenu->addMenu(new ThemeMenu(this));
    menuBar()->addMenu(tr("&Help"))->addAction(actions->about);

    filmStrip->addActions({actions->openSelected, actions->mergeExposures, actions->merge,
                           filmStripActions->starsMenu()->menuAction()});
    keepKeysOf({file, edit->menu(), view->menu(), tools});
    connect(recentFiles, &RecentFilesMenu::fileChosen, this,
            [this](const QString &path) { openPaths({path}); });
    connect(languages, &LanguageMenu::languageChanged, this, [this](const QString &name) {
        QMessageBox::information(
            this, tr("Language"),
            tr("Vesk will speak this language when it is started again: %1").arg(name));
    });
}

/// Qt forgets the keys of a menu bar that is hidden, as on the full screen.
void MainWindow::keepKeysOf(const QList<QMenu *> &menus)
{
    for (const QMenu *menu : menus) {
        const QList<QAction *> all = menu->actions();
        for (QAction *action : all) {
            if (!action->shortcut().isEmpty() && action->shortcutContext() == Qt::WindowShortcut)
                addAction(action);
        }
    }
}

void MainWindow::addToolBar()
{
    auto *bar = new QToolBar(tr("Tool Bar"), this);
    bar->setObjectName(QStringLiteral("toolBar"));
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->addActions({actions->open, actions->save});
    bar->addSeparator();
    bar->addActions(
        {actions->zoomOut, actions->zoomIn, actions->zoomToFit, actions->zoomToActualSize});
    bar->addSeparator();
    bar->addActions({actions->mergeExposures, actions->merge});
    for (QAction *action : {actions->zoomOut, actions->zoomIn}) // their icons say it all
        qobject_cast<QToolButton *>(bar->widgetForAction(action))
            ->setToolButtonStyle(Qt::ToolButtonIconOnly);
    QMainWindow::addToolBar(bar);
}

void MainWindow::restoreWindow()
{
    resize(workspace::firstWindowSize(screen()->availableSize()));
    restoreGeometry(settings::windowGeometry());
    restoreState(settings::windowLayout());
    histogramDock->setVisible(VeskGlobalSettings::getInstance()->isHistogramVisible());
}

// --- Connecting ---

void MainWindow::connectActions()
{
    connect(actions->open, &QAction::triggered, this, &MainWindow::chooseFiles);
    connect(actions->openFolder, &QAction::triggered, this, &MainWindow::chooseFolder);
    connect(actions->save, &QAction::triggered, this, [this] {
        edit->settle();
        if (VeskContext *document = documents->currentDocument())
            saver->save(document);
    });
    connect(actions->saveAs, &QAction::triggered, this, [this] {
        edit->settle();
        if (VeskContext *document = documents->currentDocument())
            saver->saveAs(document);
    });
    connect(actions->close, &QAction::triggered, this,
            [this] { closeDocument(documents->currentDocument()); });
    connect(actions->quit, &QAction::triggered, this, &QWidget::close);
    connect(actions->merge, &QAction::triggered, this, [this] { hdr->activate(); });
    connect(actions->mergeExposures, &QAction::triggered, this,
            [this] { exposureMerge->activate(); });
    connect(actions->mergeBrackets, &QAction::triggered, this, &MainWindow::showBatch);
    connect(edit, &EditMenu::pathsPasted, this, &MainWindow::openPaths);
    connect(actions->about, &QAction::triggered, this, [this] { workspace::showAboutBox(this); });
    connect(actions->openSelected, &QAction::triggered, this,
            [this] { openPaths(filmStrip->selectedPaths()); });
}

void MainWindow::connectDocuments()
{
    connect(documents, &DocumentArea::currentDocumentChanged, this,
            &MainWindow::showCurrentDocument);
    connect(documents, &DocumentArea::documentStateChanged, this, &MainWindow::showDocumentState);
    connect(documents, &DocumentArea::closeRequested, this, &MainWindow::closeDocument);
    connect(documents, &DocumentArea::closeOthersRequested, this, &MainWindow::closeOthers);
    connect(session.get(), &SessionKeeper::said, status,
            [this](const QString &text) { status->showMessage(text); });
    connect(saver, &DocumentSaver::saved, this, [this](const QString &path) {
        recentFiles->add(path);
        status->showMessage(tr("Saved %1").arg(QDir::toNativeSeparators(path)), 5000);
    });
}

void MainWindow::connectOpening()
{
    connect(&opener->loader(), &DocumentLoader::started, status,
            [this](const QString &path, int position, int total) {
                status->showLoading(QFileInfo(path).fileName(), position, total);
            });
    connect(opener, &DocumentOpener::folderRequested, folder, &PictureFolder::setPath);
    connect(opener, &DocumentOpener::opened, this,
            [this](const QString &path) { recentFiles->add(path); });
    connect(opener, &DocumentOpener::lightOpened, this, &MainWindow::showLight);
    connect(exposureMerge.get(), &ExposureMergeCommand::lightMerged, this,
            &MainWindow::showMergedLight);
    connect(light.get(), &LightCommand::saved, recentFiles, &RecentFilesMenu::add);
    connect(opener, &DocumentOpener::failed, this,
            [this](const QString &path) { recentFiles->remove(path); });
    connect(opener, &DocumentOpener::finished, this, [this](const QStringList &paths) {
        status->hideLoading();
        filmStrip->select(paths);
    });
}

void MainWindow::connectFolder()
{
    connect(folder, &PictureFolder::listed, filmStrip, &FilmStrip::setPictures);
    connect(folder, &PictureFolder::pathChanged, this, [this](const QString &path) {
        settings::setFolder(path);
        saver->setFolder(path);
        light->setFolder(path);
        filmStripDock->setWindowTitle(tr("Film Strip — %1").arg(QDir(path).dirName()));
        filmStripDock->setToolTip(QDir::toNativeSeparators(path));
    });
    connect(filmStrip, &FilmStrip::openRequested, this, &MainWindow::openPaths);
    connect(filmStrip, &FilmStrip::mergeRequested, this, [this] { exposureMerge->activateAnew(); });
    connect(filmStripActions, &FilmStripActions::said, status,
            [this](const QString &text) { status->showMessage(text, 5000); });
}

// --- Commands ---

void MainWindow::chooseFiles()
{
    const QString filter = tr("Pictures") +
                           QStringLiteral(" (%1);;").arg(pictures::dialogPatterns()) +
                           tr("All files") + QStringLiteral(" (*)");
    openPaths(QFileDialog::getOpenFileNames(this, tr("Open Pictures"), folder->path(), filter));
}

void MainWindow::chooseFolder()
{
    const QString path = QFileDialog::getExistingDirectory(this, tr("Open Folder"), folder->path());
    if (!path.isEmpty())
        openPaths({path});
}

void MainWindow::showBatch()
{
    if (!batch) {
        batch = new BatchWindow(folder->path(), this);
        batch->setAttribute(Qt::WA_DeleteOnClose);
    }
    batch->show();
    batch->raise();
    batch->activateWindow();
}

/// False when the user wants to keep it open.
bool MainWindow::closeDocument(VeskContext *document)
{
    edit->settle();
    const QPointer<VeskContext> guard = document;
    if (!document || !saver->settleUnsavedChanges(document))
        return false;
    if (guard)
        documents->close(document);
    return true;
}

void MainWindow::closeOthers(VeskContext *kept)
{
    const QList<VeskContext *> all = documents->documents();
    for (VeskContext *document : all) {
        if (document == kept)
            continue;
        if (document->isSaveAble()) // to be seen while it is asked about
            documents->makeCurrent(document);
        if (!closeDocument(document))
            return;
    }
    documents->makeCurrent(kept);
}

void MainWindow::showLight(const LoadedPicture &read)
{
    const QImage picture = read.image.convertToFormat(QImage::Format_RGBX32FPx4);
    light->show({picture, QFileInfo(read.path).completeBaseName(), read.path, read.path, {}});
}

void MainWindow::showMergedLight(const QImage &picture, const QString &referencePath,
                                 const ResultMark &mark)
{
    light->show({picture, QFileInfo(referencePath).completeBaseName(), {}, referencePath, mark});
}

void MainWindow::showCurrentDocument(VeskContext *document)
{
    VeskCanvas *canvas = documents->currentCanvas();
    if (canvas && !canvas->findChild<SharpView *>())
        new SharpView(canvas);
    status->showCanvas(canvas);
    histogramDock->showDocument(document);
    layerDock->showDocument(document);
    photoDock->showDocument(document);
    edit->showDocument(document);
    view->showCurrentDocument();
    if (document && !document->getFilePath().isEmpty() && filmStrip->selectedPaths().size() <= 1)
        filmStrip->select({document->getFilePath()});
    showDocumentState();
    session->remember();
}

void MainWindow::showDocumentState()
{
    const VeskContext *document = documents->currentDocument();
    const bool isModified = document && document->isSaveAble();
    actions->setDocumentState(document, isModified);
    setWindowTitle(document ? tr("%1[*] — Vesk").arg(document->getFileName())
                            : QStringLiteral("Vesk"));
    setWindowModified(isModified);
    setWindowFilePath(document ? document->getFilePath() : QString());
}

// --- Events ---

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (!light->closeAll()) {
        event->ignore();
        return;
    }
    edit->settle();
    if (!saver->settleUnsavedChanges(documents->documents())) {
        event->ignore();
        return;
    }
    session->end();
    fullScreen->showAround();
    settings::setWindow(saveGeometry(), saveState());
    event->accept();
}
