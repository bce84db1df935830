#include "VeskToolHDR.h"

#include "MessageBoxAnswerer.h"
#include "RecordingHost.h"
#include "ToolSession.h"
#include "VeskDeviceInfo.h"
#include "VeskToolHDRWidget.h"
#include "exposure_merge.h"
#include "mtb_alignment.h"
#include "resident_memory.h"

#include <VeskActionManager.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskContextManager.h>
#include <VeskFilterContainer.h>
#include <VeskGlobalSettings.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>
#include <VeskSelection.h>
#include <VeskUIController.h>
#include <layer_composition.h>

#include <QAction>
#include <QCheckBox>
#include <QColorSpace>
#include <QListWidget>
#include <QProcess>
#include <QtTest>

#if defined(Q_OS_LINUX)
#include <atomic>
#include <cerrno>
#include <dlfcn.h>
#include <pthread.h>

/// Plays a system that has no thread left to give.
static std::atomic<bool> areThreadsUsedUp{false};

extern "C" Q_DECL_EXPORT int pthread_create(pthread_t *thread, const pthread_attr_t *attributes,
                                            void *(*start)(void *), void *argument) noexcept
{
    using Create = decltype(&pthread_create);
    static const auto create = reinterpret_cast<Create>(dlsym(RTLD_NEXT, "pthread_create"));
    return areThreadsUsedUp ? EAGAIN : create(thread, attributes, start, argument);
}
#endif

namespace {

constexpr QSize kSize(140, 130);
const QString kMergeFailed = QStringLiteral("HDR merge failed! Pictures shall be in same size.");

/// A tool at work on a document, which is told when it has to leave.
class FakeTool : public IVeskTool
{
public:
    explicit FakeTool(std::function<void()> whenLeaving)
        : IVeskTool(nullptr)
        , leave(std::move(whenLeaving))
    {
    }

    void active(VeskContext *) override {}
    void disActive() override { leave(); }
    void init() override {}
    void release() override {}

private:
    std::function<void()> leave;
};

VeskContext *currentDocument()
{
    return VeskContextManager::getInstance()->getCurrentContext();
}

/// What the command should make of these files, by the engine's functions.
QImage mergedByHand(const QStringList &paths, bool align)
{
    QList<QImage *> pictures;
    for (const QString &path : paths)
        pictures += new QImage(path);
    if (align)
        mtb_alignment(false, pictures);
    const std::unique_ptr<QImage> merged(mergeExposures(pictures));
    qDeleteAll(pictures);
    return *merged;
}

VeskContext *documentBeside(const VeskContext *other)
{
    const VeskContextManager *documents = VeskContextManager::getInstance();
    for (int i = 0; i < documents->count(); ++i) {
        if (documents->contextAt(i) != other)
            return documents->contextAt(i);
    }
    return nullptr;
}

QImage mergedPicture()
{
    return composition::composedPicture(currentDocument());
}

/// Activates the tool, adds the files and chooses the processor.
void fill(ToolSession &session, const QStringList &paths, bool align = true)
{
    session.uiManager.selected = paths;
    session.tool->active(session.document, &session.uiManager);
    session.tool->setCuda(false);
    session.tool->setAlignment(align);
}

void clickOk(const ToolSession &session)
{
    QTest::mouseClick(session.button("okBtn"), Qt::LeftButton);
}

/// Makes the pictures of the set unequal behind its back, as no file can.
void spoilSizes(const ToolSession &session)
{
    QImage &last = *session.tool->imageList().constLast();
    last = last.copy(0, 0, last.width() - 1, last.height());
}

bool isTimeBox(const MessageBoxAnswerer::Box &box)
{
    const QRegularExpression time(QStringLiteral("\\Aused: [1-9][0-9]* ms\\z"));
    return box.title == QLatin1String("loaded") && time.match(box.text).hasMatch();
}

} // namespace

class TestMergeCommand : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void apply_success_showsTheTimeThenOpensTheUntitledDocument();
    void apply_success_givesCanvasSelectionAndOneOpaqueLayerToTheNewDocument();
    void apply_success_removesTheOldDocumentAndDeletesItLater();
    void apply_success_mergesWhatTheFlagsSay_data();
    void apply_success_mergesWhatTheFlagsSay();
    void apply_success_keepsProfileAndResolutionOfTheFirstFile_data();
    void apply_success_keepsProfileAndResolutionOfTheFirstFile();
    void apply_freshTool_alignsAndMergesOnTheDevice();
    void apply_success_callsTheEditorInOrder();
    void apply_histogram_isRefreshedOnlyWhenVisible_data();
    void apply_histogram_isRefreshedOnlyWhenVisible();
    void apply_success_enablesTheDocumentActions();

    void apply_failure_showsOneBoxAndLeavesTheDocuments();
    void apply_failure_callsTheEditorInOrder();
    void apply_pictureAddedWhileTheDocumentIsReplaced_isDropped();
    void apply_emptySet_fails();
    void apply_workerThatCannotBeStarted_fails_data();
    void apply_workerThatCannotBeStarted_fails();
    void apply_picturesAddedWhileTheDocumentIsReplaced_areDropped();
    void apply_afterAnyMerge_theSetIsEmptyAndTakesAnySize_data();
    void apply_afterAnyMerge_theSetIsEmptyAndTakesAnySize();
    void apply_panel_isHiddenAndEmptyAfterwards();

    void apply_documentWithoutCanvas_opensTheResultWithoutOne();
    void apply_documentClosedBeforehand_opensTheResultBesideTheOthers();
    void apply_documentClosedDuringTheMerge_opensTheResult();
    void apply_documentClosedDuringTheTimeBox_opensTheResult();
    void apply_editorDeletesTheCanvasOfARemovedDocument_opensTheResult();
    void apply_editorDeletesTheCanvasWhenNotified_opensTheResult();
    void apply_editorDeletesSomethingAtAnyStep_survives_data();
    void apply_editorDeletesSomethingAtAnyStep_survives();
    void apply_closedByOthersDuringTheMerge_waitsForTheWorker_data();
    void apply_closedByOthersDuringTheMerge_waitsForTheWorker();

    void wholeRoad_fivePhotographs_equalTheCommandLine_data();
    void wholeRoad_fivePhotographs_equalTheCommandLine();

    void longUse_twoHundredMerges_leaveNothingBehind_data();
    void longUse_twoHundredMerges_leaveNothingBehind();
};

void TestMergeCommand::cleanup()
{
    QCOMPARE(VeskContextManager::getInstance()->count(), 0);
    VeskGlobalSettings::getInstance()->setHistogramVisible(true);
}

void TestMergeCommand::apply_success_showsTheTimeThenOpensTheUntitledDocument()
{
    ToolSession session;
    fill(session, session.writePictures(3, kSize));
    MessageBoxAnswerer boxes;
    clickOk(session);
    QCOMPARE(boxes.shown().size(), 1);
    QVERIFY2(isTimeBox(boxes.shown().constFirst()), qPrintable(boxes.shown().constFirst().text));
    QVERIFY(!boxes.shown().constFirst().hasParent);
    QVERIFY(currentDocument() && currentDocument() != session.document);
    QCOMPARE(currentDocument()->getFileName(), QStringLiteral("Untitled Document"));
    QCOMPARE(currentDocument()->getFilePath(), QString());
    QVERIFY(currentDocument()->isSaveAble());
    QVERIFY(!currentDocument()->getCurrentTool());
}

void TestMergeCommand::apply_success_givesCanvasSelectionAndOneOpaqueLayerToTheNewDocument()
{
    ToolSession session;
    fill(session, session.writePictures(2, kSize));
    MessageBoxAnswerer boxes;
    clickOk(session);
    const VeskContext *document = currentDocument();
    QCOMPARE(document->getCanvas(), session.canvas.get());
    QCOMPARE(session.canvas->context(), document);
    QCOMPARE(session.canvas->canvasSize(), kSize);
    QVERIFY(session.canvas->isCanvasTimerActive());
    const VeskSelection *selection = document->getSelection();
    QVERIFY(selection);
    QCOMPARE(QSize(selection->getWidth(), selection->getHeight()), kSize);
    QCOMPARE(session.canvas->selection(), selection);
    QCOMPARE(document->getLayerManager()->count(), 1);
    const auto *layer = qobject_cast<VeskLayer *>(document->getLayerManager()->layerAt(0));
    QVERIFY(layer);
    QCOMPARE(layer->getName(), QStringLiteral("layer 0"));
    QCOMPARE(layer->getAlpha(), 1.0F);
    QCOMPARE(layer->getVeskPictureHost()->getImage().format(), QImage::Format_RGB32);
}

void TestMergeCommand::apply_success_removesTheOldDocumentAndDeletesItLater()
{
    ToolSession session;
    fill(session, session.writePictures(2, kSize));
    MessageBoxAnswerer boxes;
    session.tool->apply();
    QCOMPARE(VeskContextManager::getInstance()->count(), 1);
    QVERIFY(session.document);
    QCOMPARE(VeskContextManager::getInstance()->indexOfContext(session.document), -1);
    QCoreApplication::sendPostedEvents(session.document, QEvent::DeferredDelete);
    QVERIFY(!session.document);
    QCOMPARE(currentDocument()->getCanvas(), session.canvas.get());
}

void TestMergeCommand::apply_success_mergesWhatTheFlagsSay_data()
{
    QTest::addColumn<bool>("align");
    QTest::newRow("aligned") << true;
    QTest::newRow("not aligned") << false;
}

void TestMergeCommand::apply_success_mergesWhatTheFlagsSay()
{
    QFETCH(bool, align);
    ToolSession session;
    const QStringList paths = session.writePictures(3, kSize);
    QVERIFY(mergedByHand(paths, true) != mergedByHand(paths, false));
    fill(session, {paths[2], paths[0], paths[1]}, align);
    MessageBoxAnswerer boxes;
    clickOk(session);
    QCOMPARE(mergedPicture(), mergedByHand(paths, align));
}

void TestMergeCommand::apply_success_keepsProfileAndResolutionOfTheFirstFile_data()
{
    QTest::addColumn<bool>("useOpenCL");
    QTest::newRow("processor") << false;
    QTest::newRow("OpenCL") << true;
}

/// What the editor saves is the layer's picture.
void TestMergeCommand::apply_success_keepsProfileAndResolutionOfTheFirstFile()
{
    QFETCH(bool, useOpenCL);
    constexpr int k300Dpi = 11811;
    ToolSession session;
    QStringList paths;
    for (const QString &path : session.writePictures(3, kSize)) {
        QImage picture(path);
        picture.setColorSpace(QColorSpace::DisplayP3);
        picture.setDotsPerMeterX(k300Dpi);
        picture.setDotsPerMeterY(k300Dpi);
        paths += path + QStringLiteral(".png");
        QVERIFY(picture.save(paths.last()));
    }
    fill(session, paths);
    session.tool->setCuda(useOpenCL);
    MessageBoxAnswerer boxes;
    clickOk(session);
    const auto *layer = qobject_cast<VeskLayer *>(currentDocument()->getLayerManager()->layerAt(0));
    QVERIFY(layer);
    const QImage merged = layer->getVeskPictureHost()->getImage();
    QVERIFY(merged.colorSpace().isValid());
    QCOMPARE(merged.colorSpace().primaries(), QColorSpace::Primaries::DciP3D65);
    QCOMPARE(merged.dotsPerMeterX(), k300Dpi);
    QCOMPARE(merged.dotsPerMeterY(), k300Dpi);
}

void TestMergeCommand::apply_freshTool_alignsAndMergesOnTheDevice()
{
    // A device that is not there tells the two ways of merging apart: it leaves black.
    VeskDeviceInfo *devices = VeskDeviceInfo::getInstance();
    const QString device = devices->getCurrentOpenCLDeviceName();
    devices->setCurrentOpenCLDeviceName(QStringLiteral("no such device"));
    ToolSession session;
    const QStringList paths = session.writePictures(3, kSize);
    MessageBoxAnswerer boxes;
    session.tool->addFiles(paths);
    session.tool->apply();
    devices->setCurrentOpenCLDeviceName(device);
    QImage black(kSize, QImage::Format_RGB32);
    black.fill(Qt::black);
    QCOMPARE(mergedPicture(), black);

    session.tool->addFiles(paths);
    session.tool->setCuda(false);
    session.tool->apply();
    QCOMPARE(mergedPicture(), mergedByHand(paths, true));
}

void TestMergeCommand::apply_success_callsTheEditorInOrder()
{
    if (!RecordingHost::isAvailable())
        QSKIP("calls into the editor's libraries cannot be recorded on this system");
    ToolSession session;
    fill(session, session.writePictures(2, {20, 10}), false);
    RecordingHost host;
    FakeTool other([&host] { host.note(QStringLiteral("disActive")); });
    session.document->setCurrentTool(&other);
    host.name(session.document, QStringLiteral("old"));
    host.name(session.canvas.get(), QStringLiteral("canvas"));
    MessageBoxAnswerer boxes;
    host.forget();
    session.tool->apply();
    QStringList calls = host.calls();
    calls.replaceInStrings(QRegularExpression(QStringLiteral("used: [0-9]+ ms")),
                           QStringLiteral("used: N ms"));
    const QStringList expected = {
        QStringLiteral("startAnimation 60 60"),
        QStringLiteral("updateState 0"),
        QStringLiteral("about null|loaded|used: N ms"),
        QStringLiteral("Log HDR \n"),
        QStringLiteral("disActive"),
        QStringLiteral("setCurrentTool old null"),
        QStringLiteral("addContext new"),
        QStringLiteral("setCurrentContext new"),
        QStringLiteral("removeContext old"),
        QStringLiteral("Log removeContext tool \n"),
        QStringLiteral("resetCanvas canvas"),
        QStringLiteral("ReadImageToHost 20 10"),
        QStringLiteral("setVeskPictureHost layer 0|20 10"),
        QStringLiteral("setAlpha 1"),
        QStringLiteral("addLayer layer 0|true"),
        QStringLiteral("reSizeCanvas 20 10 true"),
        QStringLiteral("setCanvas new canvas"),
        QStringLiteral("canvas setSelection canvas"),
        QStringLiteral("context setSelection new"),
        QStringLiteral("notifyUI initHistogramWidget 0"),
        QStringLiteral("moveToCenter true"),
        QStringLiteral("attachContext new"),
        QStringLiteral("startCanvasTimer 50"),
        QStringLiteral("update canvas"),
        QStringLiteral("deleteLater old"),
        QStringLiteral("isHistogramVisible"),
        QStringLiteral("updateHistogram canvas"),
        QStringLiteral("setEnabled 0 true"),
        QStringLiteral("setEnabled 4 true"),
        QStringLiteral("setEnabled 3 true"),
        QStringLiteral("setFileName new Untitled Document"),
        QStringLiteral("setSaveAble new true"),
    };
    QCOMPARE(calls, expected);
}

void TestMergeCommand::apply_histogram_isRefreshedOnlyWhenVisible_data()
{
    QTest::addColumn<bool>("visible");
    QTest::newRow("visible") << true;
    QTest::newRow("hidden") << false;
}

void TestMergeCommand::apply_histogram_isRefreshedOnlyWhenVisible()
{
    QFETCH(bool, visible);
    VeskGlobalSettings::getInstance()->setHistogramVisible(visible);
    ToolSession session;
    fill(session, session.writePictures(2, kSize));
    MessageBoxAnswerer boxes;
    QSignalSpy refreshed(session.canvas.get(), &VeskCanvas::histogramChanged);
    QSignalSpy notified(VeskUIController::getInstance(), &VeskUIController::notified);
    session.tool->apply();
    QCOMPARE(refreshed.count(), visible ? 1 : 0);
    QCOMPARE(notified.count(), 1);
}

void TestMergeCommand::apply_success_enablesTheDocumentActions()
{
    QAction save;
    QAction close;
    QAction saveAs;
    VeskActionManager *actions = VeskActionManager::getInstance(QString());
    actions->registerAction(0, QStringLiteral("Save"), &save);
    actions->registerAction(4, QStringLiteral("Close"), &close);
    actions->registerAction(3, QStringLiteral("Save As"), &saveAs);
    for (QAction *action : {&save, &close, &saveAs})
        action->setEnabled(false);
    ToolSession session;
    fill(session, session.writePictures(2, kSize));
    MessageBoxAnswerer boxes;
    session.tool->apply();
    for (const QAction *action : {&save, &close, &saveAs})
        QVERIFY(action->isEnabled());
}

void TestMergeCommand::apply_failure_showsOneBoxAndLeavesTheDocuments()
{
    ToolSession session;
    fill(session, session.writePictures(3, kSize));
    spoilSizes(session);
    MessageBoxAnswerer boxes;
    clickOk(session);
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(boxes.shown().constFirst().title, QStringLiteral("Alert"));
    QCOMPARE(boxes.shown().constFirst().text, kMergeFailed);
    QVERIFY(!boxes.shown().constFirst().hasParent);
    QCOMPARE(VeskContextManager::getInstance()->count(), 1);
    QCOMPARE(currentDocument(), session.document.data());
    QCOMPARE(session.document->getCanvas(), session.canvas.get());
    QVERIFY(session.tool->fileList().isEmpty());
}

void TestMergeCommand::apply_failure_callsTheEditorInOrder()
{
    if (!RecordingHost::isAvailable())
        QSKIP("calls into the editor's libraries cannot be recorded on this system");
    ToolSession session;
    fill(session, session.writePictures(2, kSize));
    spoilSizes(session);
    MessageBoxAnswerer boxes;
    RecordingHost host;
    session.tool->apply();
    const QStringList expected = {
        QStringLiteral("startAnimation 60 60"),
        QStringLiteral("updateState 0"),
        QStringLiteral("about null|Alert|") + kMergeFailed,
    };
    QCOMPARE(host.calls(), expected);
}

void TestMergeCommand::apply_pictureAddedWhileTheDocumentIsReplaced_isDropped()
{
    ToolSession session;
    fill(session, session.writePictures(2, kSize));
    const QString late = session.writePicture(QStringLiteral("late.bmp"), {5, 4});
    bool wasAdded = false;
    connect(VeskUIController::getInstance(), &VeskUIController::notified, session.canvas.get(),
            [&] { wasAdded = session.tool->addFile(late); });
    MessageBoxAnswerer boxes;
    session.tool->apply();
    QVERIFY(wasAdded);
    QVERIFY(session.tool->fileList().isEmpty());
    QVERIFY(session.tool->addFile(session.writePicture(QStringLiteral("z.bmp"), {6, 7})));
}

void TestMergeCommand::apply_emptySet_fails()
{
    ToolSession session;
    MessageBoxAnswerer boxes;
    session.tool->apply();
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(boxes.shown().constFirst().text, kMergeFailed);
    QCOMPARE(currentDocument(), session.document.data());
}

void TestMergeCommand::apply_workerThatCannotBeStarted_fails_data()
{
    QTest::addColumn<bool>("useOpenCL");
    QTest::newRow("processor") << false;
    QTest::newRow("OpenCL") << true;
}

void TestMergeCommand::apply_workerThatCannotBeStarted_fails()
{
#if !defined(Q_OS_LINUX)
    QSKIP("the test cannot take the threads away on this system");
#else
    QFETCH(bool, useOpenCL);
    ToolSession session;
    const QStringList paths = session.writePictures(2, kSize);
    fill(session, paths);
    session.tool->setCuda(useOpenCL);
    MessageBoxAnswerer boxes;
    areThreadsUsedUp = true;
    clickOk(session);
    areThreadsUsedUp = false;
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(boxes.shown().constFirst().title, QStringLiteral("Alert"));
    QCOMPARE(boxes.shown().constFirst().text, kMergeFailed);
    QCOMPARE(currentDocument(), session.document.data());
    QVERIFY(session.tool->fileList().isEmpty());
    QVERIFY(!QApplication::activeModalWidget());
    // As soon as there are threads again, it works.
    fill(session, paths);
    session.tool->apply();
    QCOMPARE(boxes.shown().size(), 2);
    QCOMPARE(mergedPicture(), mergedByHand(paths, true));
#endif
}

void TestMergeCommand::apply_picturesAddedWhileTheDocumentIsReplaced_areDropped()
{
    ToolSession session;
    fill(session, session.writePictures(2, kSize));
    const QString late = session.writePicture(QStringLiteral("late.bmp"), {5, 4});
    bool isAdded = false;
    const auto connection =
        connect(VeskUIController::getInstance(), &VeskUIController::notified, session.tool.get(),
                [&] { isAdded = session.tool->addFile(late); });
    MessageBoxAnswerer boxes;
    session.tool->apply();
    disconnect(connection);
    QVERIFY(isAdded);
    QVERIFY(session.tool->fileList().isEmpty());
    QVERIFY(session.tool->addFile(session.writePicture(QStringLiteral("z.bmp"), {7, 3})));
    QCOMPARE(boxes.shown().size(), 1);
}

void TestMergeCommand::apply_afterAnyMerge_theSetIsEmptyAndTakesAnySize_data()
{
    QTest::addColumn<bool>("fails");
    QTest::newRow("success") << false;
    QTest::newRow("failure") << true;
}

void TestMergeCommand::apply_afterAnyMerge_theSetIsEmptyAndTakesAnySize()
{
    QFETCH(bool, fails);
    ToolSession session;
    fill(session, session.writePictures(2, kSize));
    if (fails)
        spoilSizes(session);
    MessageBoxAnswerer boxes;
    session.tool->apply();
    QVERIFY(session.tool->fileList().isEmpty());
    QVERIFY(session.tool->imageList().isEmpty());
    QVERIFY(session.tool->addFile(session.writePicture(QStringLiteral("z.bmp"), {5, 4})));
    QCOMPARE(boxes.shown().size(), 1);
}

void TestMergeCommand::apply_panel_isHiddenAndEmptyAfterwards()
{
    ToolSession session;
    fill(session, session.writePictures(2, kSize));
    QVERIFY(session.frame()->isVisible());
    MessageBoxAnswerer boxes;
    clickOk(session);
    QVERIFY(!session.frame()->isVisible());
    QVERIFY(!session.panel()->isVisible());
    QCOMPARE(session.panel()->findChild<QListWidget *>()->count(), 0);
    QVERIFY(!session.button("okBtn")->isEnabled());
}

void TestMergeCommand::apply_documentWithoutCanvas_opensTheResultWithoutOne()
{
    ToolSession session;
    const QStringList paths = session.writePictures(2, kSize);
    fill(session, paths);
    session.document->setCanvas(nullptr);
    MessageBoxAnswerer boxes;
    session.tool->apply();
    QCOMPARE(currentDocument()->getFileName(), QStringLiteral("Untitled Document"));
    QVERIFY(!currentDocument()->getCanvas());
    QCOMPARE(mergedPicture(), mergedByHand(paths, true));
}

void TestMergeCommand::apply_documentClosedBeforehand_opensTheResultBesideTheOthers()
{
    ToolSession session;
    const QStringList paths = session.writePictures(2, kSize);
    fill(session, paths);
    delete session.document;
    auto *other = new VeskContext(nullptr);
    other->setSaveAble(true);
    VeskContextManager::getInstance()->addContext(other);
    VeskContextManager::getInstance()->setCurrentContext(0);
    MessageBoxAnswerer boxes;
    session.tool->apply();
    QCOMPARE(VeskContextManager::getInstance()->count(), 2);
    QCOMPARE(VeskContextManager::getInstance()->contextAt(0), other);
    QVERIFY(other->isSaveAble());
    QCOMPARE(currentDocument(), VeskContextManager::getInstance()->contextAt(1));
    QCOMPARE(mergedPicture(), mergedByHand(paths, true));
}

void TestMergeCommand::apply_documentClosedDuringTheMerge_opensTheResult()
{
    ToolSession session;
    const QStringList paths = session.writePictures(2, kSize);
    fill(session, paths);
    // The first event of the indicator's modal loop.
    QTimer::singleShot(0, session.document, [&session] { delete session.document; });
    MessageBoxAnswerer boxes;
    session.tool->apply();
    QVERIFY(!session.document);
    QCOMPARE(mergedPicture(), mergedByHand(paths, true));
}

void TestMergeCommand::apply_documentClosedDuringTheTimeBox_opensTheResult()
{
    ToolSession session;
    const QStringList paths = session.writePictures(2, kSize);
    fill(session, paths);
    class CloseWithBox : public QObject
    {
    public:
        explicit CloseWithBox(ToolSession &toClose)
            : session(toClose)
        {
            QCoreApplication::instance()->installEventFilter(this);
        }
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() == QEvent::Show && qobject_cast<QMessageBox *>(watched)) {
                session.canvas.reset();
                delete session.document;
            }
            return false;
        }

    private:
        ToolSession &session;
    };
    MessageBoxAnswerer boxes;
    {
        const CloseWithBox closer(session);
        session.tool->apply();
    }
    QVERIFY(!session.document);
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(mergedPicture(), mergedByHand(paths, true));
}

void TestMergeCommand::apply_editorDeletesTheCanvasOfARemovedDocument_opensTheResult()
{
    ToolSession session;
    const QStringList paths = session.writePictures(2, kSize);
    fill(session, paths);
    connect(VeskContextManager::getInstance(), &VeskContextManager::contextRemoved,
            session.canvas.get(), [&session] { session.canvas.reset(); });
    MessageBoxAnswerer boxes;
    session.tool->apply();
    QVERIFY(!session.canvas);
    QVERIFY(!currentDocument()->getCanvas());
    QCOMPARE(mergedPicture(), mergedByHand(paths, true));
}

void TestMergeCommand::apply_editorDeletesTheCanvasWhenNotified_opensTheResult()
{
    ToolSession session;
    const QStringList paths = session.writePictures(2, kSize);
    fill(session, paths);
    connect(VeskUIController::getInstance(), &VeskUIController::notified, session.canvas.get(),
            [&session] { session.canvas.reset(); });
    MessageBoxAnswerer boxes;
    session.tool->apply();
    QVERIFY(!session.canvas);
    QVERIFY(!currentDocument()->getCanvas());
    QCOMPARE(currentDocument()->getFileName(), QStringLiteral("Untitled Document"));
    QCOMPARE(mergedPicture(), mergedByHand(paths, true));
}

void TestMergeCommand::apply_editorDeletesSomethingAtAnyStep_survives_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("victim");
    for (const char *call :
         {"setCurrentTool old", "addContext", "setCurrentContext", "removeContext", "resetCanvas",
          "ReadImageToHost", "reSizeCanvas", "setCanvas new", "canvas setSelection",
          "context setSelection", "notifyUI", "moveToCenter", "attachContext", "startCanvasTimer",
          "update canvas", "deleteLater", "isHistogramVisible", "setEnabled", "setFileName"}) {
        for (const char *victim : {"canvas", "old document", "new document"})
            QTest::addRow("%s, %s", call, victim) << call << victim;
    }
}

/// Right after the call has returned: by then the command must look again.
void TestMergeCommand::apply_editorDeletesSomethingAtAnyStep_survives()
{
    if (!RecordingHost::isAvailable())
        QSKIP("calls into the editor's libraries cannot be recorded on this system");
    QFETCH(QString, call);
    QFETCH(QString, victim);
    ToolSession session;
    fill(session, session.writePictures(2, {20, 10}), false);
    RecordingHost host;
    host.name(session.document, QStringLiteral("old"));
    host.name(session.canvas.get(), QStringLiteral("canvas"));
    bool isReached = false;
    host.afterCall = [&](const QString &made) {
        if (isReached || !made.startsWith(call))
            return;
        isReached = true;
        if (victim == QLatin1String("canvas"))
            session.canvas.reset();
        else if (victim == QLatin1String("old document"))
            delete session.document;
        else
            delete documentBeside(session.document);
    };
    MessageBoxAnswerer boxes;
    session.tool->apply();
    QVERIFY(isReached);
    QVERIFY(session.tool->fileList().isEmpty());
    QCOMPARE(boxes.shown().size(), 1);
}

using CloseAttempt = void (*)(QWidget &);
Q_DECLARE_METATYPE(CloseAttempt)

void TestMergeCommand::apply_closedByOthersDuringTheMerge_waitsForTheWorker_data()
{
    QTest::addColumn<CloseAttempt>("close");
    QTest::newRow("Escape") << CloseAttempt(
        [](QWidget &indicator) { QTest::keyClick(&indicator, Qt::Key_Escape); });
    QTest::newRow("the window manager, as for Alt+F4") << CloseAttempt([](QWidget &indicator) {
        indicator.windowHandle()->close(); // takes the way of the window system
    });
    QTest::newRow("the program") << CloseAttempt([](QWidget &indicator) { indicator.close(); });
    QTest::newRow("the program, all its windows")
        << CloseAttempt([](QWidget &) { QApplication::closeAllWindows(); });
}

/// The worker is held until the indicator has been closed in vain.
void TestMergeCommand::apply_closedByOthersDuringTheMerge_waitsForTheWorker()
{
    QFETCH(CloseAttempt, close);
    if (!VeskDeviceInfo::getInstance()->isOpenCLCapable())
        QSKIP("there is no OpenCL device to hold the worker with");
    ToolSession session;
    const QStringList paths = session.writePictures(3, kSize);
    fill(session, paths);
    session.tool->setCuda(true);
    const QString hold = session.path(QStringLiteral("hold"));
    QVERIFY(QFile(hold).open(QIODevice::WriteOnly));
    qputenv("VESK_LAYER_HOLD", QFile::encodeName(hold));
    bool isOpenAfterwards = false;
    bool isWaitGoingOn = false;
    QTimer::singleShot(0, qApp, [&] {
        const QPointer<QWidget> indicator = QApplication::activeModalWidget();
        QVERIFY(indicator);
        close(*indicator);
        isOpenAfterwards = indicator && indicator->isVisible();
        QTimer::singleShot(0, qApp, [&, indicator] {
            isWaitGoingOn = indicator && QApplication::activeModalWidget() == indicator;
            QFile::remove(hold);
        });
    });
    MessageBoxAnswerer boxes;
    session.tool->apply();
    qunsetenv("VESK_LAYER_HOLD");
    QVERIFY(isOpenAfterwards);
    QVERIFY(isWaitGoingOn);
    QCOMPARE(boxes.shown().size(), 1);
    QVERIFY(isTimeBox(boxes.shown().constFirst()));
    QCOMPARE(mergedPicture(), mergedByHand(paths, true));
}

void TestMergeCommand::wholeRoad_fivePhotographs_equalTheCommandLine_data()
{
    QTest::addColumn<bool>("useOpenCL");
    QTest::newRow("on the processor") << false;
    QTest::newRow("on the OpenCL device") << true;
}

/// Five files in, OK, and the merged document out; the command line merges the same files.
void TestMergeCommand::wholeRoad_fivePhotographs_equalTheCommandLine()
{
    QFETCH(bool, useOpenCL);
    const QString program = qEnvironmentVariable("VESK_BIN_DIR") + QStringLiteral("/veskhdr");
    if (!QFile::exists(program))
        QSKIP("the command-line program is not built");
    ToolSession session;
    const QStringList paths = session.writePictures(5, {333, 222});
    session.uiManager.selected = paths;
    session.tool->active(session.document, &session.uiManager);
    auto *onDevice = session.panel()->findChild<QCheckBox *>(QStringLiteral("cudaCheck"));
    if (useOpenCL && !onDevice->isEnabled())
        QSKIP("there is no OpenCL device");
    if (onDevice->isChecked() != useOpenCL)
        onDevice->click();
    QCOMPARE(onDevice->isChecked(), useOpenCL);

    MessageBoxAnswerer boxes;
    clickOk(session);
    QCOMPARE(boxes.shown().size(), 1);
    QVERIFY(isTimeBox(boxes.shown().constFirst()));
    QCOMPARE(currentDocument()->getFileName(), QStringLiteral("Untitled Document"));

    const QString out = session.path(QStringLiteral("out.png"));
    QProcess commandLine;
    commandLine.start(program, QStringList{QStringLiteral("merge"), QStringLiteral("--method"),
                                           QStringLiteral("mean")} +
                                   paths + QStringList{QStringLiteral("-o"), out});
    QVERIFY(commandLine.waitForFinished());
    QVERIFY2(commandLine.exitCode() == 0, commandLine.readAllStandardError());
    QCOMPARE(mergedPicture(), QImage(out).convertToFormat(QImage::Format_RGB32));
}

void TestMergeCommand::longUse_twoHundredMerges_leaveNothingBehind_data()
{
    QTest::addColumn<bool>("fails");
    QTest::newRow("successful") << false;
    QTest::newRow("failed") << true;
}

void TestMergeCommand::longUse_twoHundredMerges_leaveNothingBehind()
{
    if (residentBytes() < 0)
        QSKIP("the memory in use is not known here");
    QFETCH(bool, fails);
    const QSize size(500, 400);
    const qint64 setBytes = 3 * qint64(size.width()) * size.height() * 4;
    ToolSession session;
    const QStringList paths = session.writePictures(3, size);
    session.tool->setCuda(false);
    session.tool->setAlignment(false);
    MessageBoxAnswerer boxes;
    const auto merge = [&](int rounds) {
        for (int i = 0; i < rounds; ++i) {
            session.tool->addFiles(paths);
            if (fails)
                spoilSizes(session);
            session.tool->apply();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    };
    merge(60); // until the allocator has an arena for each thread there will be
    const qint64 before = residentBytes();
    const int filesBefore = openFileCount();
    const int threadsBefore = threadCount();
    merge(200);
    QCOMPARE(boxes.shown().size(), 260);
    QCOMPARE(openFileCount(), filesBefore);
    // The system lists a thread for a moment after it was joined.
    QTRY_VERIFY2(threadCount() <= threadsBefore, "threads are left behind");
    QVERIFY2(residentBytes() - before < setBytes, "one set of pictures");
}

QTEST_MAIN(TestMergeCommand)
#include "tst_merge_command.moc"
