#include "DocumentArea.h"
#include "DocumentOpener.h"
#include "EditorActions.h"
#include "EditorWindow.h"
#include "FilmStrip.h"
#include "MainWindow.h"
#include "editor_settings.h"
#include "first_window_size.h"

#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskFilterContainer.h>
#include <VeskGlobalSettings.h>

#include <QApplication>
#include <QDockWidget>
#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

class TestMainWindow : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void start_withoutSettings_showsTheStartPage();
    void open_files_becomeTabsAndAreSelectedInTheStrip();
    void open_someOpenAlready_keepsTheStripsSelection();
    void open_allOpenAlready_selectsThem();
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
    void fullScreen_escapeLeavesIt();
    void firstWindow_fitsALaptopScreen();
    void saveAs_hasKeysOnEveryDesktop();
    void actions_followTheDocument();
    void close_unsavedDocument_cancelKeepsEverything();
    void closeOthers_leavesOneDocument();
    void closeOthers_cancelled_keepsTheRest();
    void close_remembersTheWindow();
    void close_remembersTheDocks();

private:
    /// False when the window does not take them.
    bool drop(const QList<QUrl> &urls);
};

void TestMainWindow::start_withoutSettings_showsTheStartPage()
{
    QVERIFY(!current());
    QCOMPARE(documents->currentIndex(), 0);
    QCOMPARE(window->windowTitle(), QStringLiteral("Vesk"));
    QVERIFY(!panelFrame()->isVisible());
}

void TestMainWindow::open_files_becomeTabsAndAreSelectedInTheStrip()
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

void TestMainWindow::open_someOpenAlready_keepsTheStripsSelection()
{
    const QStringList bracket = pictures->addBracket(4, {30, 20});
    openAndWait({bracket.at(1)});
    QTRY_COMPARE(strip->selectedPaths(), QStringList{bracket.at(1)});
    const QStringList chosen = bracket.mid(0, 3);
    strip->select(chosen);
    window->openPaths(chosen);
    QTRY_COMPARE(documents->documents().size(), 3);
    QTRY_VERIFY(!window->findChild<DocumentOpener *>()->loader().isBusy());
    QCOMPARE(strip->selectedPaths(), chosen);
}

void TestMainWindow::open_allOpenAlready_selectsThem()
{
    const QStringList bracket = pictures->addBracket(3, {30, 20});
    openAndWait(bracket);
    QTRY_COMPARE(strip->selectedPaths(), bracket);
    window->openPaths(bracket.mid(0, 2));
    QCOMPARE(strip->selectedPaths(), bracket.mid(0, 2));
    QCOMPARE(documents->documents().size(), 3);
}

void TestMainWindow::open_sameFileTwice_bringsItsTabToTheFront()
{
    const QStringList bracket = pictures->addBracket(2, {30, 20});
    openAndWait(bracket);
    window->openPaths({bracket.first()});
    QCOMPARE(documents->documents().size(), 2);
    QCOMPARE(current()->getFilePath(), bracket.first());
}

void TestMainWindow::open_failures_areNamedInOneMessageThatBlocksNothing()
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

void TestMainWindow::open_folder_isListedInTheStrip()
{
    pictures->addBracket(4, {30, 20});
    window->openPaths({pictures->folder()});
    QTRY_COMPARE(strip->model()->rowCount(), 4);
    QVERIFY(!current());
}

void TestMainWindow::open_largePicture_keepsTheWindowAlive()
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

void TestMainWindow::open_failed_leavesTheRecentFiles()
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

bool TestMainWindow::drop(const QList<QUrl> &urls)
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

void TestMainWindow::drop_files_areOpened()
{
    const QStringList files{pictures->add(QStringLiteral("a.png")),
                            pictures->add(QStringLiteral("b.png"))};
    QVERIFY(drop({QUrl::fromLocalFile(files.at(0)), QUrl(QStringLiteral("https://example.org/x")),
                  QUrl::fromLocalFile(files.at(1))}));
    QTRY_COMPARE(documents->documents().size(), 2);
    QCOMPARE(current()->getFilePath(), files.at(1));
}

void TestMainWindow::drop_folder_isListedInTheStrip()
{
    pictures->addBracket(3, {30, 20});
    QVERIFY(drop({QUrl::fromLocalFile(pictures->folder())}));
    QTRY_COMPARE(strip->model()->rowCount(), 3);
    QVERIFY(!current());
    QCOMPARE(settings::folder(), pictures->folder());
}

void TestMainWindow::drop_nothingLocal_isNotTaken()
{
    QVERIFY(!drop({QUrl(QStringLiteral("https://example.org/x.png"))}));
}

void TestMainWindow::save_addsToTheRecentFiles()
{
    const QString first = pictures->add(QStringLiteral("first.png"));
    openAndWait({first, pictures->add(QStringLiteral("second.png"))});
    documents->makeCurrent(documents->documents().constFirst());
    current()->setSaveAble(true);
    action(QStringLiteral("Save"))->trigger();
    QCOMPARE(settings::recentFiles().constFirst(), first);
    QVERIFY(window->statusBar()->currentMessage().contains(first));
}

void TestMainWindow::filmStripMenu_opensWhatIsSelected()
{
    const QStringList bracket = pictures->addBracket(3, {30, 20});
    window->openPaths({pictures->folder()});
    QTRY_COMPARE(strip->model()->rowCount(), 3);
    strip->select({bracket.at(0), bracket.at(2)});
    const auto *actions = window->findChild<EditorActions *>();
    for (const QAction *command : {actions->openSelected, actions->mergeExposures, actions->merge})
        QVERIFY(strip->actions().contains(command));
    actions->openSelected->trigger();
    QTRY_COMPARE(documents->documents().size(), 2);
    QCOMPARE(current()->getFilePath(), bracket.at(2));
}

void TestMainWindow::zoomCommands_zoomTheDocumentInFront()
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

void TestMainWindow::nextAndPrevious_goRoundTheDocuments()
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

void TestMainWindow::fullScreen_comesAndGoes()
{
    QAction *fullScreen = window->findChild<EditorActions *>()->fullScreen;
    fullScreen->trigger();
    QVERIFY(window->isFullScreen());
    fullScreen->trigger();
    QVERIFY(!window->isFullScreen());
}

void TestMainWindow::fullScreen_escapeLeavesIt()
{
    QAction *fullScreen = window->findChild<EditorActions *>()->fullScreen;
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    fullScreen->trigger();
    QTest::keyClick(window.get(), Qt::Key_Escape);
    QVERIFY(!window->isFullScreen());
    QVERIFY(!fullScreen->isChecked());
    QTest::keyClick(window.get(), Qt::Key_Escape); // means nothing then
    QVERIFY(!window->isFullScreen());
}

void TestMainWindow::firstWindow_fitsALaptopScreen()
{
    const QSize laptop(1366, 768);
    const QSize size = workspace::firstWindowSize(laptop);
    QVERIFY(size.height() <= laptop.height() - 48); // the desktop's frame and panel
    QVERIFY(size.width() >= 1100);
    const QSize enlarged = workspace::firstWindowSize(laptop / 1.5); // on a screen at 150 %
    QVERIFY(window->minimumSizeHint().height() <= enlarged.height());
    QVERIFY(window->minimumSizeHint().width() <= enlarged.width());
    QVERIFY(window->width() <= window->screen()->availableSize().width());
    QVERIFY(window->height() <= window->screen()->availableSize().height());
}

void TestMainWindow::saveAs_hasKeysOnEveryDesktop()
{
    QVERIFY(!action(QStringLiteral("Save As"))->shortcut().isEmpty());
}

void TestMainWindow::actions_followTheDocument()
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

void TestMainWindow::close_unsavedDocument_cancelKeepsEverything()
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

void TestMainWindow::closeOthers_leavesOneDocument()
{
    openAndWait(pictures->addBracket(4, {30, 20}));
    VeskContext *kept = documents->documents().at(1);
    Q_EMIT documents->closeOthersRequested(kept);
    QCOMPARE(documents->documents(), QList<VeskContext *>{kept});
    QCOMPARE(current(), kept);
}

void TestMainWindow::closeOthers_cancelled_keepsTheRest()
{
    openAndWait(pictures->addBracket(4, {30, 20}));
    const QList<VeskContext *> all = documents->documents();
    all.at(2)->setSaveAble(true);
    boxes->answerNextWith(QMessageBox::Cancel);
    Q_EMIT documents->closeOthersRequested(all.at(1));
    QCOMPARE(documents->documents(), all.mid(1));
    QCOMPARE(current(), all.at(2)); // what was asked about
    all.at(2)->setSaveAble(false);
}

void TestMainWindow::close_remembersTheWindow()
{
    window->resize(900, 640);
    QVERIFY(window->close());
    window.reset(); // there is one window at a time
    window = std::make_unique<MainWindow>();
    window->show();
    QCOMPARE(window->size(), QSize(900, 640));
}

void TestMainWindow::close_remembersTheDocks()
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

QTEST_MAIN(TestMainWindow)
#include "tst_MainWindow.moc"
