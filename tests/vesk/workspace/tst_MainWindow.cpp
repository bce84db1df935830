#include "DocumentArea.h"
#include "editor_settings.h"
#include "EditorUiManager.h"
#include "FileDialogAnswerer.h"
#include "FilmStrip.h"
#include "MainWindow.h"
#include "MessageBoxAnswerer.h"
#include "PictureFolder.h"
#include "TestPictures.h"

#include <exif_metadata.h>
#include <VeskActionManager.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskContextManager.h>
#include <VeskFilterContainer.h>
#include <VeskGlobalSettings.h>

#include <QApplication>
#include <QDockWidget>
#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

class MainWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void start_withoutSettings_showsTheStartPage();
    void open_files_becomeTabsAndAreSelectedInTheStrip();
    void open_sameFileTwice_bringsItsTabToTheFront();
    void open_failures_areNamedInOneMessageThatBlocksNothing();
    void open_folder_isListedInTheStrip();
    void open_largePicture_keepsTheWindowAlive();
    void open_failed_leavesTheRecentFiles();
    void drop_files_areOpened();
    void drop_folder_isListedInTheStrip();
    void drop_nothingLocal_isNotTaken();
    void save_addsToTheRecentFiles();
    void filmStripMenu_opensWhatIsSelected();
    void zoomCommands_zoomTheDocumentInFront();
    void nextAndPrevious_goRoundTheDocuments();
    void fullScreen_comesAndGoes();
    void saveAs_hasKeysOnEveryDesktop();
    void tools_areToldFolderAndSelection();
    void actions_followTheDocument();
    void merge_withoutDocument_worksFromTheFilmStrip();
    void merge_result_keepsItsSourcesNameAndIsUnsaved();
    void merge_unsavedDocument_saveAnswerRunsTheSaveAction();
    void merge_unsavedDocument_discardAnswerDropsTheMark();
    void close_unsavedDocument_cancelKeepsEverything();
    void close_remembersTheWindow();
    void close_remembersTheDocks();

private:
    VeskFilterContainer *panelFrame() const;
    QPushButton *panelButton(const char *name) const;
    void openAndWait(const QStringList &paths);
    /// False when the window does not take them.
    bool drop(const QList<QUrl> &urls);
    void mergeSelected();
    VeskContext *current() const { return documents->currentDocument(); }
    QAction *action(const QString &name) const
    {
        return VeskActionManager::getInstance({})->getActionByName(name);
    }
    QAction *mergeAction() const;

    std::unique_ptr<TestPictures> pictures;
    std::unique_ptr<MessageBoxAnswerer> boxes;
    std::unique_ptr<FileDialogAnswerer> dialogs;
    std::unique_ptr<MainWindow> window;
    DocumentArea *documents = nullptr;
    FilmStrip *strip = nullptr;
};

void MainWindowTest::init()
{
    QFile::remove(VeskGlobalSettings::configFilePath());
    pictures = std::make_unique<TestPictures>();
    boxes = std::make_unique<MessageBoxAnswerer>();
    dialogs = std::make_unique<FileDialogAnswerer>();
    window = std::make_unique<MainWindow>();
    window->show();
    documents = window->findChild<DocumentArea *>();
    strip = window->findChild<FilmStrip *>();
}

void MainWindowTest::cleanup()
{
    window.reset();
    dialogs.reset();
    boxes.reset();
    pictures.reset();
}

VeskFilterContainer *MainWindowTest::panelFrame() const
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *candidate : windows) {
        if (auto *frame = qobject_cast<VeskFilterContainer *>(candidate))
            return frame;
    }
    return nullptr;
}

QPushButton *MainWindowTest::panelButton(const char *name) const
{
    return panelFrame()->findChild<QPushButton *>(QLatin1String(name));
}

QAction *MainWindowTest::mergeAction() const
{
    return window->findChild<EditorActions *>()->merge;
}

void MainWindowTest::openAndWait(const QStringList &paths)
{
    const int before = documents->documents().size();
    window->openPaths(paths);
    QTRY_COMPARE(documents->documents().size(), before + paths.size());
}

/// What is selected in the film strip, through the tool's panel.
void MainWindowTest::mergeSelected()
{
    mergeAction()->trigger();
    QTRY_VERIFY(panelButton("okBtn")->isEnabled());
    QTest::mouseClick(panelButton("okBtn"), Qt::LeftButton);
}

void MainWindowTest::start_withoutSettings_showsTheStartPage()
{
    QVERIFY(!current());
    QCOMPARE(documents->currentIndex(), 0);
    QCOMPARE(window->windowTitle(), QStringLiteral("Vesk"));
    QVERIFY(!panelFrame()->isVisible());
}

void MainWindowTest::open_files_becomeTabsAndAreSelectedInTheStrip()
{
    const QStringList bracket = pictures->addBracket(3, {30, 20});
    openAndWait(bracket);
    QCOMPARE(current()->getFilePath(), bracket.constLast());
    QCOMPARE(window->windowTitle(), QStringLiteral("s3.png[*] — Vesk"));
    QVERIFY(!current()->isSaveAble());
    QTRY_COMPARE(strip->selectedPaths(), bracket);
    QCOMPARE(settings::recentFiles().size(), 3);
    QCOMPARE(settings::folder(), pictures->folder());
}

void MainWindowTest::open_sameFileTwice_bringsItsTabToTheFront()
{
    const QStringList bracket = pictures->addBracket(2, {30, 20});
    openAndWait(bracket);
    window->openPaths({bracket.first()});
    QCOMPARE(documents->documents().size(), 2);
    QCOMPARE(current()->getFilePath(), bracket.first());
}

void MainWindowTest::open_failures_areNamedInOneMessageThatBlocksNothing()
{
    const QString damaged = pictures->addDamaged(QStringLiteral("half.png"));
    const QString good = pictures->add(QStringLiteral("good.png"));
    boxes.reset(); // this box is closed by hand
    window->openPaths({damaged, pictures->path(QStringLiteral("missing.png")), good});
    QTRY_VERIFY(window->findChild<QMessageBox *>());
    QCOMPARE(current()->getFilePath(), good);
    QCOMPARE(window->findChildren<QMessageBox *>().size(), 1);
    auto *box = window->findChild<QMessageBox *>();
    QVERIFY(!box->isModal());
    QVERIFY(box->informativeText().contains(QStringLiteral("half.png")));
    QVERIFY(box->informativeText().contains(QStringLiteral("missing.png")));
    box->close();
}

void MainWindowTest::open_folder_isListedInTheStrip()
{
    pictures->addBracket(4, {30, 20});
    window->openPaths({pictures->folder()});
    QTRY_COMPARE(strip->model()->rowCount(), 4);
    QVERIFY(!current());
}

void MainWindowTest::open_largePicture_keepsTheWindowAlive()
{
    QImage large(11000, 9200, QImage::Format_Grayscale8); // a hundred megapixels
    large.fill(90);
    const QString path = pictures->path(QStringLiteral("large.png"));
    QVERIFY(large.save(path, "PNG", 100));
    large = {};
    int turns = 0; // of the event loop while the file is read
    QTimer pulse;
    connect(&pulse, &QTimer::timeout, this, [&turns] { ++turns; });
    pulse.start(5);
    window->openPaths({path});
    QTRY_VERIFY_WITH_TIMEOUT(current(), 60000);
    QVERIFY(turns >= 5);
    QCOMPARE(documents->currentCanvas()->canvasSize(), QSize(11000, 9200));
}

void MainWindowTest::open_failed_leavesTheRecentFiles()
{
    const QString good = pictures->add(QStringLiteral("good.png"));
    const QString gone = pictures->add(QStringLiteral("gone.png"));
    openAndWait({good, gone});
    QCOMPARE(settings::recentFiles(), (QStringList{gone, good}));
    action(QStringLiteral("Close"))->trigger();
    QVERIFY(QFile::remove(gone));
    window->openPaths({gone});
    QTRY_COMPARE(settings::recentFiles(), QStringList{good});
    QTRY_COMPARE(boxes->shown().size(), 1);
}

bool MainWindowTest::drop(const QList<QUrl> &urls)
{
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.get(), &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.get(), &drop);
    return true;
}

void MainWindowTest::drop_files_areOpened()
{
    const QStringList files{pictures->add(QStringLiteral("a.png")),
                            pictures->add(QStringLiteral("b.png"))};
    QVERIFY(drop({QUrl::fromLocalFile(files.at(0)), QUrl(QStringLiteral("https://example.org/x")),
                  QUrl::fromLocalFile(files.at(1))}));
    QTRY_COMPARE(documents->documents().size(), 2);
    QCOMPARE(current()->getFilePath(), files.at(1));
}

void MainWindowTest::drop_folder_isListedInTheStrip()
{
    pictures->addBracket(3, {30, 20});
    QVERIFY(drop({QUrl::fromLocalFile(pictures->folder())}));
    QTRY_COMPARE(strip->model()->rowCount(), 3);
    QVERIFY(!current());
    QCOMPARE(settings::folder(), pictures->folder());
}

void MainWindowTest::drop_nothingLocal_isNotTaken()
{
    QVERIFY(!drop({QUrl(QStringLiteral("https://example.org/x.png"))}));
}

void MainWindowTest::save_addsToTheRecentFiles()
{
    const QString first = pictures->add(QStringLiteral("first.png"));
    openAndWait({first, pictures->add(QStringLiteral("second.png"))});
    documents->makeCurrent(documents->documents().constFirst());
    current()->setSaveAble(true);
    action(QStringLiteral("Save"))->trigger();
    QCOMPARE(settings::recentFiles().constFirst(), first);
    QVERIFY(window->statusBar()->currentMessage().contains(first));
}

void MainWindowTest::filmStripMenu_opensWhatIsSelected()
{
    const QStringList bracket = pictures->addBracket(3, {30, 20});
    window->openPaths({pictures->folder()});
    QTRY_COMPARE(strip->model()->rowCount(), 3);
    strip->select({bracket.at(0), bracket.at(2)});
    QCOMPARE(strip->actions().size(), 2);
    strip->actions().constFirst()->trigger();
    QTRY_COMPARE(documents->documents().size(), 2);
    QCOMPARE(current()->getFilePath(), bracket.at(2));
}

void MainWindowTest::zoomCommands_zoomTheDocumentInFront()
{
    openAndWait({pictures->add(QStringLiteral("back.png"), {900, 700})});
    const VeskCanvas *behind = documents->currentCanvas();
    openAndWait({pictures->add(QStringLiteral("front.png"), {900, 700})});
    const VeskCanvas *canvas = documents->currentCanvas();
    const auto *actions = window->findChild<EditorActions *>();
    actions->zoomToActualSize->trigger();
    QCOMPARE(canvas->zoom(), 1.0);
    actions->zoomIn->trigger();
    QVERIFY(canvas->zoom() > 1.0);
    actions->zoomToActualSize->trigger();
    actions->zoomOut->trigger();
    QVERIFY(canvas->zoom() < 1.0);
    const qreal untouched = behind->zoom();
    actions->zoomToFit->trigger();
    QVERIFY(canvas->zoom() * 700 <= canvas->height());
    QVERIFY(canvas->zoom() * 700 > canvas->height() * 0.9 ||
            canvas->zoom() * 900 > canvas->width() * 0.9);
    QCOMPARE(behind->zoom(), untouched);
}

void MainWindowTest::nextAndPrevious_goRoundTheDocuments()
{
    const QStringList bracket = pictures->addBracket(3, {30, 20});
    openAndWait(bracket);
    const auto *actions = window->findChild<EditorActions *>();
    const auto nameInFront = [this] { return current()->getFileName(); };
    QCOMPARE(nameInFront(), QStringLiteral("s3.png"));
    actions->nextTab->trigger();
    QCOMPARE(nameInFront(), QStringLiteral("s1.png"));
    actions->nextTab->trigger();
    QCOMPARE(nameInFront(), QStringLiteral("s2.png"));
    actions->previousTab->trigger();
    actions->previousTab->trigger();
    QCOMPARE(nameInFront(), QStringLiteral("s3.png"));
}

void MainWindowTest::fullScreen_comesAndGoes()
{
    QAction *fullScreen = window->findChild<EditorActions *>()->fullScreen;
    fullScreen->trigger();
    QVERIFY(window->isFullScreen());
    fullScreen->trigger();
    QVERIFY(!window->isFullScreen());
}

void MainWindowTest::saveAs_hasKeysOnEveryDesktop()
{
    QVERIFY(!action(QStringLiteral("Save As"))->shortcut().isEmpty());
}

void MainWindowTest::tools_areToldFolderAndSelection()
{
    const QStringList bracket = pictures->addBracket(3, {30, 20});
    window->openPaths({pictures->folder()});
    QTRY_COMPARE(strip->model()->rowCount(), 3);
    strip->select({bracket.at(2), bracket.at(1)});
    const EditorUiManager manager(window.get(), documents, strip,
                                  window->findChild<PictureFolder *>());
    QCOMPARE(manager.selectedFiles(), bracket.mid(1)); // in the order shown
    QCOMPARE(manager.currentDir(), pictures->folder());
    QCOMPARE(manager.mainWindow(), window.get());
}

void MainWindowTest::actions_followTheDocument()
{
    QVERIFY(!action(QStringLiteral("Save As"))->isEnabled());
    openAndWait({pictures->add(QStringLiteral("a.png"))});
    QVERIFY(action(QStringLiteral("Save As"))->isEnabled());
    QVERIFY(action(QStringLiteral("Close"))->isEnabled());
    QVERIFY(!action(QStringLiteral("Save"))->isEnabled());
    current()->setSaveAble(true);
    QVERIFY(action(QStringLiteral("Save"))->isEnabled());
    QVERIFY(window->isWindowModified());
    action(QStringLiteral("Save"))->trigger();
    QVERIFY(!current()->isSaveAble());
    QVERIFY(!action(QStringLiteral("Save"))->isEnabled());
    action(QStringLiteral("Close"))->trigger();
    QVERIFY(!current());
    QVERIFY(!action(QStringLiteral("Close"))->isEnabled());
}

void MainWindowTest::merge_withoutDocument_worksFromTheFilmStrip()
{
    const QStringList bracket = pictures->addBracket(3, {90, 70});
    window->openPaths({pictures->folder()});
    QTRY_COMPARE(strip->model()->rowCount(), 3);
    strip->selectAll();
    mergeSelected();
    QCOMPARE(boxes->shown().size(), 1);
    QCOMPARE(boxes->shown().first().title, QStringLiteral("loaded"));
    QVERIFY(current());
    QCOMPARE(documents->documents().size(), 1);
    QCOMPARE(current()->getFileName(), QStringLiteral("Untitled Document"));
    QCOMPARE(documents->currentCanvas()->canvasSize(), QSize(90, 70));
}

void MainWindowTest::merge_result_keepsItsSourcesNameAndIsUnsaved()
{
    const QStringList bracket = pictures->addBracket(2, {90, 70});
    openAndWait(bracket);
    QTRY_COMPARE(strip->selectedPaths(), bracket);
    mergeSelected();
    QCOMPARE(documents->documents().size(), 2); // took the place of the second
    QVERIFY(action(QStringLiteral("Save"))->isEnabled());
    QVERIFY(window->isWindowModified());
    dialogs->answerNextWith(pictures->path(QStringLiteral("merged.png")));
    action(QStringLiteral("Save"))->trigger();
    QCOMPARE(dialogs->offered, QStringList{pictures->path(QStringLiteral("s1-HDR.jpg"))});
    QVERIFY(QFile::exists(pictures->path(QStringLiteral("merged.png"))));
}

void MainWindowTest::merge_unsavedDocument_saveAnswerRunsTheSaveAction()
{
    openAndWait({pictures->add(QStringLiteral("work.png"))});
    current()->setSaveAble(true);
    boxes->answerNextWith(QMessageBox::Save);
    mergeAction()->trigger();
    QCOMPARE(boxes->shown().first().title, QStringLiteral("Alert"));
    QVERIFY(!current()->isSaveAble());
    QVERIFY(panelFrame()->isVisible());
}

void MainWindowTest::merge_unsavedDocument_discardAnswerDropsTheMark()
{
    openAndWait({pictures->add(QStringLiteral("work.png"))});
    current()->setSaveAble(true);
    boxes->answerNextWith(QMessageBox::Discard);
    mergeAction()->trigger();
    QVERIFY(!current()->isSaveAble());
}

void MainWindowTest::close_unsavedDocument_cancelKeepsEverything()
{
    openAndWait({pictures->add(QStringLiteral("work.png"))});
    current()->setSaveAble(true);
    boxes->answerNextWith(QMessageBox::Cancel);
    QVERIFY(!window->close());
    QVERIFY(window->isVisible());
    boxes->answerNextWith(QMessageBox::Cancel);
    action(QStringLiteral("Close"))->trigger();
    QVERIFY(current());
    boxes->answerNextWith(QMessageBox::Discard);
    QVERIFY(window->close());
}

void MainWindowTest::close_remembersTheWindow()
{
    window->resize(900, 640);
    QVERIFY(window->close());
    window.reset(); // there is one window at a time
    window = std::make_unique<MainWindow>();
    window->show();
    QCOMPARE(window->size(), QSize(900, 640));
}

void MainWindowTest::close_remembersTheDocks()
{
    const auto dock = [this](const char *name) {
        return window->findChild<QDockWidget *>(QLatin1String(name));
    };
    QVERIFY(dock("layerDock")->isVisible());
    dock("layerDock")->hide();
    window->addDockWidget(Qt::TopDockWidgetArea, dock("filmStripDock"));
    QVERIFY(window->close());
    window.reset(); // there is one window at a time
    window = std::make_unique<MainWindow>();
    window->show();
    QVERIFY(!dock("layerDock")->isVisible());
    QVERIFY(dock("filmStripDock")->isVisible());
    QCOMPARE(window->dockWidgetArea(dock("filmStripDock")), Qt::TopDockWidgetArea);
}

QTEST_MAIN(MainWindowTest)
#include "tst_MainWindow.moc"
