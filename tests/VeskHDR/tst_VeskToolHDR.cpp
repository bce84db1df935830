#include "VeskToolHDR.h"

#include "MessageBoxAnswerer.h"
#include "RecordingHost.h"
#include "ToolSession.h"
#include "VeskToolHDRWidget.h"
#include "dng_writer.h"
#include "resident_memory.h"

#include <VeskActionManager.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskContextManager.h>
#include <VeskFilterContainer.h>
#include <VeskRaw.h>
#include <VeskTitleWidget.h>

#include <QAction>
#include <QFile>
#include <QListWidget>
#include <QSizeGrip>
#include <QtTest>

namespace {

/// The tool with what its base keeps to itself laid open.
class OpenTool : public VeskToolHDR
{
public:
    using VeskToolHDR::VeskToolHDR;

    using IVeskTool::activeFlag;
    using IVeskTool::context;
};

constexpr QSize kSize(24, 16);
constexpr QSize kOtherSize(24, 17);
constexpr QSize kLargeSize(900, 700);
constexpr qint64 kLargeBytes = 900 * 700 * 4;

QString fileName(const QString &path)
{
    return path.section(QLatin1Char('/'), -1);
}

QStringList fileNames(const QStringList &paths)
{
    QStringList names;
    for (const QString &path : paths)
        names += fileName(path);
    return names;
}

void makeUnsaved(ToolSession &session)
{
    session.document->setSaveAble(true);
}

} // namespace

#define REQUIRE_RECORDING_HOST()                                                                   \
    if (!RecordingHost::isAvailable())                                                             \
    QSKIP("calls into the editor's libraries cannot be recorded on this system")

class TestVeskToolHDR : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    // The tool object
    void metaObject_isAnInsideToolWithoutMembersOfItsOwn();
    void construction_fillsTheIdentity();
    void construction_makesAHiddenFrameAroundThePanel();
    void construction_frameIsAResizableUtilityWindowWithACloseButtonOnly();
    void construction_holdsNothingAndTakesAnySize();
    void event_anyEvent_returnsTrue();
    void getWidget_isNull();
    void isActive_returnsTheFlagOfTheBase();
    void disActiveInitRelease_changeNothing();
    void getDir_returnsTheEditorsDirectoryAndNothingBeforeActivation();

    void active_storesTheContext();
    void active_savedDocument_asksNothingAndTakesOverTheSelectedFiles();
    void active_withSelectedFiles_paintsThePanelBeforeAndBetweenThem();
    void active_withoutContextOrUIManager_showsThePanel();
    void active_discard_tellsTheEditorThenGoesOn();
    void active_cancel_leavesTheFrameHiddenAndTheSetUnchangedAndAsksForNoFiles();
    void active_cancelWithPicturesHeld_keepsThem();
    void active_afterTheFrameIsGone_addsTheFiles();
    void active_save_enablesAndTriggersTheSaveActionOnce_data();
    void active_save_enablesAndTriggersTheSaveActionOnce();
    void active_saveWithoutSuchAnAction_goesOn();
    void active_callsTheEditorInOrder();
    void haveToSave_asksWithThreeButtonsAndReturnsTheAnswer_data();
    void haveToSave_asksWithThreeButtonsAndReturnsTheAnswer();

    // The source picture set
    void addFile_addedLater_standsInPathOrder();
    void addFile_noCurrentDocument_returnsFalseSilently();
    void addFile_takesTheDocumentThatIsCurrentNow();
    void addFile_sixthPicture_showsLimitBoxAndKeepsFive();
    void addFile_emptyPath_returnsTrueAndChangesNothing();
    void addFile_emptyPathWithFivePictures_showsLimitBox();
    void addFile_notAPicture_showsBoxWithThePathAsPassed_data();
    void addFile_notAPicture_showsBoxWithThePathAsPassed();
    void addFile_firstFileInvalid_leavesAnySizeAcceptable();
    void addFile_otherSize_showsSizeBoxAndAfterRemovalIsAccepted_data();
    void addFile_otherSize_showsSizeBoxAndAfterRemovalIsAccepted();
    void addFile_samePathTwice_keepsOneEntryWithTheNewPicture();
    void addFile_withoutSuffix_isRecognisedByContent();
    void addFile_refreshesThePanelOnceAsItsLastAction();
    void addFile_rawFile_isAddedAsTheEditorConvertsIt();
    void addFile_raw_convertsBetweenStoppingAndStartingTheCanvasTimer();
    void addFile_rawCancelled_leavesTheTimerStoppedAndTheSetUnchanged();
    void addFile_rawWithoutCanvas_isAdded();
    void addFile_rawWhoseDocumentClosesMeanwhile_isAdded();
    void addFile_rawOfOtherSize_showsSizeBox();

    void addFiles_fourToThree_addsTwoReturnsFalseAndShowsNoBox();
    void addFiles_toExactlyFive_returnsFalse();
    void addFiles_toFullSet_showsTheLimitBoxOnce();
    void addFiles_oneInvalid_goesOnWithTheNext();

    void removeFile_held_releasesItAndRefreshesThePanel();
    void removeFile_notHeld_onlyRefreshesThePanel();
    void clear_thenNewSize_succeedsAndDoesNotRefreshThePanel();
    void clear_picturesStayValidUntilTheSetIsNextFilled();
    void lists_areCopies();
    void destruction_leavesHeldPicturesAlive();

    void longUse_twoHundredCancelledSets_leaveNothingBehind();
    void memory_fiftyReplacementsUnderOnePath_staysFlat();
};

void TestVeskToolHDR::cleanup()
{
    QCOMPARE(VeskContextManager::getInstance()->count(), 0);
}

void TestVeskToolHDR::metaObject_isAnInsideToolWithoutMembersOfItsOwn()
{
    const QMetaObject &meta = VeskToolHDR::staticMetaObject;
    QCOMPARE(meta.className(), "VeskToolHDR");
    QCOMPARE(meta.superClass(), &IVeskInsideTool::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    const ToolSession session;
    QVERIFY(session.tool->qt_metacast("VeskToolHDR"));
    QVERIFY(session.tool->qt_metacast("IVeskInsideTool"));
}

void TestVeskToolHDR::construction_fillsTheIdentity()
{
    const ToolSession session;
    QCOMPARE(session.tool->name(), QStringLiteral("HDR"));
    QCOMPARE(session.tool->kind(), QStringLiteral("inside"));
    QCOMPARE(session.tool->identifier(), QStringLiteral("773B3550-5841-4150-9986-60CA3C64F22F"));
    QCOMPARE(session.tool->title(), QStringLiteral("HDR"));
    QCOMPARE(session.tool->version(), QStringLiteral("1.0"));
}

void TestVeskToolHDR::construction_makesAHiddenFrameAroundThePanel()
{
    const ToolSession session;
    QVERIFY(!session.frame()->isVisible());
    QVERIFY(session.panel());
    QCOMPARE(session.panel()->parentWidget(), session.frame());
    QVERIFY(!session.frame()->parentWidget());
    QVERIFY(!session.button("okBtn")->isEnabled());
}

void TestVeskToolHDR::construction_frameIsAResizableUtilityWindowWithACloseButtonOnly()
{
    const ToolSession session;
    QCOMPARE(session.frame()->titleBar()->buttons(), VeskTitleWidget::CloseButtonOnly);
    QVERIFY(session.frame()->findChild<QSizeGrip *>());
    QVERIFY(session.frame()->maximumWidth() > session.frame()->minimumWidth());
    QCOMPARE(session.frame()->windowType(), Qt::Tool);
}

void TestVeskToolHDR::construction_holdsNothingAndTakesAnySize()
{
    const ToolSession session;
    QVERIFY(session.tool->fileList().isEmpty());
    QVERIFY(session.tool->imageList().isEmpty());
    QVERIFY(session.tool->addFile(session.writePicture(QStringLiteral("a.bmp"), {1, 7})));
}

void TestVeskToolHDR::event_anyEvent_returnsTrue()
{
    const ToolSession session;
    for (const QEvent::Type type : {QEvent::Timer, QEvent::User, QEvent::LanguageChange}) {
        QEvent event(type);
        QVERIFY(session.tool->event(&event));
    }
}

void TestVeskToolHDR::getWidget_isNull()
{
    const ToolSession session;
    QVERIFY(!session.tool->getWidget());
}

void TestVeskToolHDR::isActive_returnsTheFlagOfTheBase()
{
    const ToolSession session; // takes the frames down
    OpenTool tool(nullptr);
    QVERIFY(!tool.isActive());
    tool.activeFlag = true;
    QVERIFY(tool.isActive());
}

void TestVeskToolHDR::disActiveInitRelease_changeNothing()
{
    ToolSession session;
    session.tool->active(session.document, &session.uiManager);
    QVERIFY(session.tool->addFiles(session.writePictures(2)));
    session.tool->disActive();
    session.tool->init();
    session.tool->release();
    QVERIFY(session.frame()->isVisible());
    QCOMPARE(session.tool->fileList().size(), 2);
    QVERIFY(!session.tool->isActive());
}

void TestVeskToolHDR::getDir_returnsTheEditorsDirectoryAndNothingBeforeActivation()
{
    ToolSession session;
    session.uiManager.directory = QStringLiteral("/pictures/2024");
    QCOMPARE(session.tool->getDir(), QString());
    session.tool->active(session.document, &session.uiManager);
    QCOMPARE(session.tool->getDir(), QStringLiteral("/pictures/2024"));
}

void TestVeskToolHDR::active_storesTheContext()
{
    ToolSession session;
    OpenTool tool(nullptr);
    tool.active(session.document, &session.uiManager);
    QCOMPARE(tool.context.data(), session.document.data());
}

void TestVeskToolHDR::active_savedDocument_asksNothingAndTakesOverTheSelectedFiles()
{
    ToolSession session;
    session.uiManager.selected = session.writePictures(3);
    MessageBoxAnswerer boxes;
    session.tool->active(session.document, &session.uiManager);
    QVERIFY(boxes.shown().isEmpty());
    QVERIFY(session.frame()->isVisible());
    QVERIFY(session.panel()->isVisible());
    QCOMPARE(session.tool->fileList(), session.uiManager.selected);
    QVERIFY(session.button("okBtn")->isEnabled());
}

namespace {

/// Tells how many pictures the tool held whenever a widget was painted.
class PaintCounts : public QObject
{
public:
    PaintCounts(QWidget *painted, const VeskToolHDR &watchedTool)
        : tool(watchedTool)
    {
        painted->installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            counts.append(int(tool.fileList().size()));
        return false;
    }

    QList<int> counts;

private:
    const VeskToolHDR &tool;
};

} // namespace

void TestVeskToolHDR::active_withSelectedFiles_paintsThePanelBeforeAndBetweenThem()
{
    ToolSession session;
    session.uiManager.selected = session.writePictures(3);
    PaintCounts paints(session.panel(), *session.tool);
    session.tool->active(session.document, &session.uiManager);
    for (const int held : {0, 1, 2, 3})
        QVERIFY2(paints.counts.contains(held), qPrintable(QString::number(held)));
}

void TestVeskToolHDR::active_withoutContextOrUIManager_showsThePanel()
{
    ToolSession session;
    session.tool->active(nullptr, nullptr);
    QVERIFY(session.frame()->isVisible());
    QVERIFY(session.tool->fileList().isEmpty());
    QCOMPARE(session.tool->getDir(), QString());
}

void TestVeskToolHDR::active_discard_tellsTheEditorThenGoesOn()
{
    ToolSession session;
    makeUnsaved(session);
    QStringList asked;
    session.uiManager.asked = [&asked](const QString &what) { asked += what; };
    MessageBoxAnswerer boxes;
    boxes.answerNextWith(QMessageBox::Discard);
    session.tool->active(session.document, &session.uiManager);
    QCOMPARE(boxes.shown().size(), 1);
    const QStringList expected = {QStringLiteral("discardChanges"),
                                  QStringLiteral("selectedFiles")};
    QCOMPARE(asked, expected);
    QVERIFY(session.frame()->isVisible());
}

void TestVeskToolHDR::active_cancel_leavesTheFrameHiddenAndTheSetUnchangedAndAsksForNoFiles()
{
    ToolSession session;
    makeUnsaved(session);
    session.uiManager.selected = session.writePictures(2);
    QStringList asked;
    session.uiManager.asked = [&asked](const QString &what) { asked += what; };
    MessageBoxAnswerer boxes;
    boxes.answerNextWith(QMessageBox::Cancel);
    session.tool->active(session.document, &session.uiManager);
    QCOMPARE(boxes.shown().size(), 1);
    QVERIFY(asked.isEmpty());
    QVERIFY(!session.frame()->isVisible());
    QVERIFY(session.tool->fileList().isEmpty());
}

void TestVeskToolHDR::active_cancelWithPicturesHeld_keepsThem()
{
    ToolSession session;
    const QStringList paths = session.writePictures(2);
    session.tool->addFiles(paths);
    makeUnsaved(session);
    MessageBoxAnswerer boxes;
    boxes.answerNextWith(QMessageBox::Cancel);
    session.tool->active(session.document, &session.uiManager);
    QCOMPARE(session.tool->fileList(), paths);
    QVERIFY(!session.tool->addFile(session.writePicture(QStringLiteral("z.bmp"), kOtherSize)));
    QCOMPARE(session.tool->fileList(), paths);
}

/// As when the editor takes down its windows before its tools.
void TestVeskToolHDR::active_afterTheFrameIsGone_addsTheFiles()
{
    ToolSession session;
    session.uiManager.selected = session.writePictures(2);
    delete session.frame();
    session.tool->active(session.document, &session.uiManager);
    QCOMPARE(session.tool->fileList(), session.uiManager.selected);
    session.tool->removeFile(session.uiManager.selected[0]);
    QCOMPARE(session.tool->fileList(), session.uiManager.selected.mid(1));
}

void TestVeskToolHDR::active_save_enablesAndTriggersTheSaveActionOnce_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::newRow("disabled before") << false;
    QTest::newRow("enabled before") << true;
}

void TestVeskToolHDR::active_save_enablesAndTriggersTheSaveActionOnce()
{
    QFETCH(bool, enabled);
    ToolSession session;
    makeUnsaved(session);
    QAction save;
    save.setEnabled(enabled);
    VeskActionManager::getInstance(QString())->registerAction(VeskActionManager::SaveAction,
                                                              QStringLiteral("Save"), &save);
    int triggers = 0;
    bool wasHidden = false;
    connect(&save, &QAction::triggered, this, [&] {
        ++triggers;
        wasHidden = !session.frame()->isVisible();
    });
    MessageBoxAnswerer boxes;
    boxes.answerNextWith(QMessageBox::Save);
    session.tool->active(session.document, &session.uiManager);
    QCOMPARE(triggers, 1);
    QVERIFY(wasHidden);
    QVERIFY(save.isEnabled());
    QVERIFY(session.frame()->isVisible());
}

void TestVeskToolHDR::active_saveWithoutSuchAnAction_goesOn()
{
    ToolSession session;
    makeUnsaved(session);
    MessageBoxAnswerer boxes;
    boxes.answerNextWith(QMessageBox::Save);
    session.tool->active(session.document, &session.uiManager);
    QVERIFY(session.frame()->isVisible());
}

void TestVeskToolHDR::active_callsTheEditorInOrder()
{
    REQUIRE_RECORDING_HOST();
    ToolSession session;
    makeUnsaved(session);
    const QString picture = session.writePicture(QStringLiteral("a.bmp"));
    session.uiManager.selected = {picture};
    QAction save;
    VeskActionManager::getInstance(QString())->registerAction(VeskActionManager::SaveAction,
                                                              QStringLiteral("Save"), &save);
    MessageBoxAnswerer boxes;
    boxes.answerNextWith(QMessageBox::Save);
    RecordingHost host;
    session.uiManager.asked = [&host](const QString &what) { host.note(what); };
    connect(&save, &QAction::triggered, &save, [&host] { host.note(QStringLiteral("saved")); });
    session.tool->active(session.document, &session.uiManager);
    const QStringList expected = {
        QStringLiteral("getActionByName Save"), QStringLiteral("saved"),
        QStringLiteral("show frame true"),      QStringLiteral("selectedFiles"),
        QStringLiteral("isRaw ") + picture,     QStringLiteral("updateState 1"),
        QStringLiteral("updateState 1"),
    };
    QCOMPARE(host.calls(), expected);
}

void TestVeskToolHDR::haveToSave_asksWithThreeButtonsAndReturnsTheAnswer_data()
{
    QTest::addColumn<int>("answer");
    QTest::newRow("Save") << 0x00000800;
    QTest::newRow("Cancel") << 0x00400000;
    QTest::newRow("Discard") << 0x00800000;
}

void TestVeskToolHDR::haveToSave_asksWithThreeButtonsAndReturnsTheAnswer()
{
    QFETCH(int, answer);
    ToolSession session;
    MessageBoxAnswerer boxes;
    boxes.answerNextWith(QMessageBox::StandardButton(answer));
    QCOMPARE(session.tool->haveToSave(nullptr), answer);
    QCOMPARE(boxes.shown().size(), 1);
    const MessageBoxAnswerer::Box &box = boxes.shown().constFirst();
    QCOMPARE(box.title, QStringLiteral("Alert"));
    QCOMPARE(box.text, QStringLiteral("This document has been modified. Save it?"));
    QCOMPARE(int(box.standardButtons), 0x00c00800);
    QCOMPARE(box.defaultButton, QMessageBox::Save);
    const QStringList texts = {QStringLiteral("Save"), QStringLiteral("Cancel"),
                               QStringLiteral("Discard")};
    QCOMPARE(box.buttonTexts, texts);
    QVERIFY(!box.hasParent);
}

void TestVeskToolHDR::addFile_addedLater_standsInPathOrder()
{
    ToolSession session;
    const QString middle = session.writePicture(QStringLiteral("m.bmp"), kSize, 1);
    const QString last = session.writePicture(QStringLiteral("z.bmp"), kSize, 2);
    const QString first = session.writePicture(QStringLiteral("Z.bmp"), kSize, 3);
    for (const QString &path : {middle, last, first})
        QVERIFY(session.tool->addFile(path));
    const QStringList expected = {first, middle, last};
    QCOMPARE(session.tool->fileList(), expected);
    const QList<QImage *> pictures = session.tool->imageList();
    QCOMPARE(pictures.size(), 3);
    for (int i = 0; i < pictures.size(); ++i)
        QCOMPARE(*pictures[i], QImage(expected[i]));
    QCOMPARE(session.tool->sourcePictures().values(), pictures);
}

void TestVeskToolHDR::addFile_noCurrentDocument_returnsFalseSilently()
{
    ToolSession session;
    VeskContextManager::getInstance()->setCurrentContext(-1);
    MessageBoxAnswerer boxes;
    QVERIFY(!session.tool->addFile(session.writePicture(QStringLiteral("a.bmp"))));
    QVERIFY(!session.tool->addFile(QString()));
    QVERIFY(boxes.shown().isEmpty());
    QVERIFY(session.tool->fileList().isEmpty());
}

void TestVeskToolHDR::addFile_takesTheDocumentThatIsCurrentNow()
{
    ToolSession session;
    OpenTool tool(nullptr);
    tool.active(nullptr, nullptr);
    QVERIFY(tool.addFile(QString()));
    QCOMPARE(tool.context.data(), session.document.data());
    VeskContextManager::getInstance()->setCurrentContext(-1);
    QVERIFY(!tool.addFile(QString()));
    QVERIFY(!tool.context);
}

void TestVeskToolHDR::addFile_sixthPicture_showsLimitBoxAndKeepsFive()
{
    ToolSession session;
    const QStringList paths = session.writePictures(6);
    MessageBoxAnswerer boxes;
    for (const QString &path : paths.mid(0, 5))
        QVERIFY(session.tool->addFile(path));
    QVERIFY(boxes.shown().isEmpty());
    QVERIFY(!session.tool->addFile(paths[5]));
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(boxes.shown().constFirst().title, QStringLiteral("Alert"));
    QCOMPARE(boxes.shown().constFirst().text, QStringLiteral("You can only add up to 5 pictures."));
    QVERIFY(!boxes.shown().constFirst().hasParent);
    QCOMPARE(session.tool->fileList(), paths.mid(0, 5));
}

void TestVeskToolHDR::addFile_emptyPath_returnsTrueAndChangesNothing()
{
    ToolSession session;
    MessageBoxAnswerer boxes;
    QVERIFY(session.tool->addFile(QString()));
    QVERIFY(boxes.shown().isEmpty());
    QVERIFY(session.tool->fileList().isEmpty());
}

void TestVeskToolHDR::addFile_emptyPathWithFivePictures_showsLimitBox()
{
    ToolSession session;
    session.tool->addFiles(session.writePictures(5));
    MessageBoxAnswerer boxes;
    QVERIFY(!session.tool->addFile(QString()));
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(boxes.shown().constFirst().text, QStringLiteral("You can only add up to 5 pictures."));
}

void TestVeskToolHDR::addFile_notAPicture_showsBoxWithThePathAsPassed_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << "missing.png";
    QTest::newRow("text") << "text.png";
    QTest::newRow("truncated") << "truncated.bmp";
    QTest::newRow("not normalised") << "./../x/missing %1 %2.png";
}

void TestVeskToolHDR::addFile_notAPicture_showsBoxWithThePathAsPassed()
{
    QFETCH(QString, name);
    ToolSession session;
    QFile text(session.path(QStringLiteral("text.png")));
    QVERIFY(text.open(QIODevice::WriteOnly) && text.write("no picture") > 0);
    text.close();
    QFile truncated(session.writePicture(QStringLiteral("truncated.bmp")));
    QVERIFY(truncated.resize(truncated.size() / 2));

    MessageBoxAnswerer boxes;
    const QString path = session.path(QString()) + name;
    QVERIFY(!session.tool->addFile(path));
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(boxes.shown().constFirst().title, QStringLiteral("Alert"));
    QCOMPARE(boxes.shown().constFirst().text, path + QStringLiteral(" is not a valid image!"));
    QVERIFY(!boxes.shown().constFirst().hasParent);
    QVERIFY(session.tool->fileList().isEmpty());
}

void TestVeskToolHDR::addFile_firstFileInvalid_leavesAnySizeAcceptable()
{
    ToolSession session;
    MessageBoxAnswerer boxes;
    QVERIFY(!session.tool->addFile(session.path(QStringLiteral("missing.png"))));
    QVERIFY(session.tool->addFile(session.writePicture(QStringLiteral("a.bmp"), kOtherSize)));
    QCOMPARE(boxes.shown().size(), 1);
}

void TestVeskToolHDR::addFile_otherSize_showsSizeBoxAndAfterRemovalIsAccepted_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("higher") << kSize + QSize(0, 1);
    QTest::newRow("lower") << kSize - QSize(0, 1);
    QTest::newRow("wider") << kSize + QSize(1, 0);
    QTest::newRow("narrower") << kSize - QSize(1, 0);
    QTest::newRow("turned") << kSize.transposed();
}

void TestVeskToolHDR::addFile_otherSize_showsSizeBoxAndAfterRemovalIsAccepted()
{
    QFETCH(QSize, size);
    ToolSession session;
    const QString first = session.writePicture(QStringLiteral("a.bmp"), kSize);
    const QString other = session.writePicture(QStringLiteral("b.bmp"), size);
    MessageBoxAnswerer boxes;
    QVERIFY(session.tool->addFile(first));
    QVERIFY(!session.tool->addFile(other));
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(boxes.shown().constFirst().title, QStringLiteral("Alert"));
    QCOMPARE(boxes.shown().constFirst().text, QStringLiteral("Pictures shall be in same size."));
    QVERIFY(!boxes.shown().constFirst().hasParent);
    QCOMPARE(session.tool->fileList(), QStringList{first});
    session.tool->removeFile(first);
    QVERIFY(session.tool->addFile(other));
    QCOMPARE(boxes.shown().size(), 1);
}

void TestVeskToolHDR::addFile_samePathTwice_keepsOneEntryWithTheNewPicture()
{
    ToolSession session;
    const QString path = session.writePicture(QStringLiteral("a.bmp"), kSize, 1);
    QVERIFY(session.tool->addFile(path));
    const QImage *const before = session.tool->imageList().constFirst();
    const QImage seen = *before;
    session.writePicture(QStringLiteral("a.bmp"), kSize, 2);
    QVERIFY(session.tool->addFile(path));
    QCOMPARE(session.tool->fileList(), QStringList{path});
    QCOMPARE(*session.tool->imageList().constFirst(), QImage(path));
    QCOMPARE(*before, seen); // valid until the set is next filled
}

void TestVeskToolHDR::addFile_withoutSuffix_isRecognisedByContent()
{
    ToolSession session;
    const QString path = session.writePicture(QStringLiteral("a.png"));
    const QString misnamed = session.path(QStringLiteral("picture.jpg"));
    const QString unnamed = session.path(QStringLiteral("picture"));
    QVERIFY(QFile::copy(path, misnamed) && QFile::copy(path, unnamed));
    QVERIFY(session.tool->addFile(misnamed));
    QVERIFY(session.tool->addFile(unnamed));
    QCOMPARE(*session.tool->imageList().constLast(), QImage(path));
}

void TestVeskToolHDR::addFile_refreshesThePanelOnceAsItsLastAction()
{
    REQUIRE_RECORDING_HOST();
    ToolSession session;
    const QString path = session.writePicture(QStringLiteral("a.bmp"));
    const QString other = session.writePicture(QStringLiteral("b.bmp"), kOtherSize);
    const QString missing = session.path(QStringLiteral("missing.bmp"));
    MessageBoxAnswerer boxes;
    RecordingHost host;
    session.tool->addFiles({path, other, QString(), missing});
    const QStringList expected = {
        QStringLiteral("isRaw ") + path,
        QStringLiteral("updateState 1"),
        QStringLiteral("isRaw ") + other,
        QStringLiteral("about null|Alert|Pictures shall be in same size."),
        QStringLiteral("isRaw ") + missing,
        QStringLiteral("about null|Alert|%1 is not a valid image!").arg(missing),
    };
    QCOMPARE(host.calls(), expected);
}

void TestVeskToolHDR::addFile_rawFile_isAddedAsTheEditorConvertsIt()
{
    ToolSession session;
    DngRecipe recipe;
    recipe.orientation = 6;
    recipe.scene = [](int x, int y, int channel) { return (x + 2 * y + channel) / 256.0; };
    const QString path = session.path(QStringLiteral("a.dng"));
    QVERIFY(writeDng(path, recipe));
    const QImage converted = VeskRaw::convert(path).picture;
    QVERIFY(converted.height() > converted.width());
    MessageBoxAnswerer boxes;
    QVERIFY(session.tool->addFile(path));
    QVERIFY(boxes.shown().isEmpty());
    QCOMPARE(*session.tool->imageList().constFirst(), converted);
    QVERIFY(session.canvas->isCanvasTimerActive());
}

void TestVeskToolHDR::addFile_raw_convertsBetweenStoppingAndStartingTheCanvasTimer()
{
    REQUIRE_RECORDING_HOST();
    ToolSession session;
    MessageBoxAnswerer boxes;
    RecordingHost host;
    host.name(session.panel(), QStringLiteral("panel"));
    host.name(session.canvas.get(), QStringLiteral("canvas"));
    host.rawConversion = [](const QString &) { return new QImage(kSize, QImage::Format_RGB32); };
    QVERIFY(session.tool->addFile(QStringLiteral("/photos/a.nef")));
    const QStringList expected = {
        QStringLiteral("isRaw /photos/a.nef"),
        QStringLiteral("stopCanvasTimer"),
        QStringLiteral("raw activate /photos/a.nef panel false"),
        QStringLiteral("grabConvertedPicture"),
        QStringLiteral("resetCanvas canvas"),
        QStringLiteral("startCanvasTimer 0"),
        QStringLiteral("updateState 1"),
    };
    QCOMPARE(host.calls(), expected);
    QVERIFY(session.canvas->isCanvasTimerActive());
    QVERIFY(boxes.shown().isEmpty());
}

void TestVeskToolHDR::addFile_rawCancelled_leavesTheTimerStoppedAndTheSetUnchanged()
{
    REQUIRE_RECORDING_HOST();
    ToolSession session;
    MessageBoxAnswerer boxes;
    session.canvas->startCanvasTimer(50);
    RecordingHost host;
    host.rawConversion = [](const QString &) { return nullptr; };
    QVERIFY(!session.tool->addFile(QStringLiteral("/photos/a.nef")));
    QCOMPARE(fileNames(session.tool->fileList()), QStringList());
    QVERIFY(!session.canvas->isCanvasTimerActive());
    QVERIFY(boxes.shown().isEmpty());
    QVERIFY(!host.calls().contains(QStringLiteral("resetCanvas ?")));
}

void TestVeskToolHDR::addFile_rawWithoutCanvas_isAdded()
{
    REQUIRE_RECORDING_HOST();
    ToolSession session;
    session.document->setCanvas(nullptr);
    RecordingHost host;
    host.rawConversion = [](const QString &) { return new QImage(kSize, QImage::Format_RGB32); };
    QVERIFY(session.tool->addFile(QStringLiteral("/photos/a.nef")));
    QCOMPARE(session.tool->fileList().size(), 1);
}

void TestVeskToolHDR::addFile_rawWhoseDocumentClosesMeanwhile_isAdded()
{
    REQUIRE_RECORDING_HOST();
    ToolSession session;
    RecordingHost host;
    host.rawConversion = [&session](const QString &) {
        delete session.document;
        session.canvas.reset();
        return new QImage(kSize, QImage::Format_RGB32);
    };
    QVERIFY(session.tool->addFile(QStringLiteral("/photos/a.nef")));
    QCOMPARE(session.tool->fileList().size(), 1);
}

void TestVeskToolHDR::addFile_rawOfOtherSize_showsSizeBox()
{
    REQUIRE_RECORDING_HOST();
    ToolSession session;
    QVERIFY(session.tool->addFile(session.writePicture(QStringLiteral("a.bmp"), kOtherSize)));
    MessageBoxAnswerer boxes;
    RecordingHost host;
    host.rawConversion = [](const QString &) { return new QImage(kSize, QImage::Format_RGB32); };
    QVERIFY(!session.tool->addFile(QStringLiteral("/photos/b.nef")));
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(boxes.shown().constFirst().text, QStringLiteral("Pictures shall be in same size."));
    QCOMPARE(session.tool->fileList().size(), 1);
}

void TestVeskToolHDR::addFiles_fourToThree_addsTwoReturnsFalseAndShowsNoBox()
{
    ToolSession session;
    const QStringList paths = session.writePictures(7);
    MessageBoxAnswerer boxes;
    QVERIFY(session.tool->addFiles(paths.mid(0, 3)));
    QVERIFY(!session.tool->addFiles(paths.mid(3)));
    QCOMPARE(session.tool->fileList(), paths.mid(0, 5));
    QVERIFY(boxes.shown().isEmpty());
}

void TestVeskToolHDR::addFiles_toExactlyFive_returnsFalse()
{
    ToolSession session;
    QVERIFY(!session.tool->addFiles(session.writePictures(5)));
    QCOMPARE(session.tool->fileList().size(), 5);
}

void TestVeskToolHDR::addFiles_toFullSet_showsTheLimitBoxOnce()
{
    ToolSession session;
    const QStringList paths = session.writePictures(7);
    session.tool->addFiles(paths.mid(0, 5));
    MessageBoxAnswerer boxes;
    QVERIFY(!session.tool->addFiles(paths.mid(5)));
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(session.tool->fileList(), paths.mid(0, 5));
}

void TestVeskToolHDR::addFiles_oneInvalid_goesOnWithTheNext()
{
    ToolSession session;
    const QStringList paths = session.writePictures(2);
    MessageBoxAnswerer boxes;
    QVERIFY(session.tool->addFiles({paths[0], session.path(QStringLiteral("missing")), paths[1]}));
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(session.tool->fileList(), paths);
}

void TestVeskToolHDR::removeFile_held_releasesItAndRefreshesThePanel()
{
    ToolSession session;
    const QStringList paths = session.writePictures(2);
    session.tool->addFiles(paths);
    const QImage shared = *session.tool->imageList().constFirst();
    QVERIFY(!shared.isDetached());
    session.tool->removeFile(paths[0]);
    QVERIFY2(shared.isDetached(), "the tool still holds the pixels");
    QCOMPARE(session.tool->fileList(), paths.mid(1));
    QCOMPARE(session.panel()->findChild<QListWidget *>()->count(), 1);
    QVERIFY(!session.button("okBtn")->isEnabled());
}

void TestVeskToolHDR::removeFile_notHeld_onlyRefreshesThePanel()
{
    ToolSession session;
    const QStringList paths = session.writePictures(2);
    session.tool->addFiles(paths);
    session.panel()->findChild<QListWidget *>()->clear();
    session.tool->removeFile(session.path(QStringLiteral("other.bmp")));
    QCOMPARE(session.tool->fileList(), paths);
    QCOMPARE(session.panel()->findChild<QListWidget *>()->count(), 2);
    MessageBoxAnswerer boxes;
    QVERIFY(!session.tool->addFile(session.writePicture(QStringLiteral("z.bmp"), kOtherSize)));
}

void TestVeskToolHDR::clear_thenNewSize_succeedsAndDoesNotRefreshThePanel()
{
    ToolSession session;
    session.tool->addFiles(session.writePictures(2));
    session.tool->clear();
    QVERIFY(session.tool->fileList().isEmpty());
    QCOMPARE(session.panel()->findChild<QListWidget *>()->count(), 2);
    MessageBoxAnswerer boxes;
    QVERIFY(session.tool->addFile(session.writePicture(QStringLiteral("z.bmp"), kOtherSize)));
    QVERIFY(boxes.shown().isEmpty());
}

void TestVeskToolHDR::clear_picturesStayValidUntilTheSetIsNextFilled()
{
    ToolSession session;
    const QStringList paths = session.writePictures(2);
    session.tool->addFiles(paths);
    const QList<QImage *> pictures = session.tool->imageList();
    session.tool->clear();
    MessageBoxAnswerer boxes;
    QVERIFY(!session.tool->addFile(session.path(QStringLiteral("missing"))));
    QCOMPARE(*pictures[0], QImage(paths[0]));
    QCOMPARE(*pictures[1], QImage(paths[1]));
}

void TestVeskToolHDR::lists_areCopies()
{
    ToolSession session;
    session.tool->addFiles(session.writePictures(2));
    QStringList paths = session.tool->fileList();
    QList<QImage *> pictures = session.tool->imageList();
    paths.clear();
    pictures.clear();
    QCOMPARE(session.tool->fileList().size(), 2);
    QCOMPARE(session.tool->imageList().size(), 2);
}

void TestVeskToolHDR::destruction_leavesHeldPicturesAlive()
{
    const ToolSession session;
    OpenTool *tool = new OpenTool(nullptr);
    const QString path = session.writePicture(QStringLiteral("a.bmp"));
    QVERIFY(tool->addFile(path));
    const QScopedPointer<QImage> picture(tool->imageList().constFirst());
    delete tool;
    QCOMPARE(*picture, QImage(path));
}

void TestVeskToolHDR::longUse_twoHundredCancelledSets_leaveNothingBehind()
{
    if (residentBytes() < 0)
        QSKIP("the memory in use is not known here");
    ToolSession session;
    session.tool->active(session.document, &session.uiManager);
    const QStringList paths = session.writePictures(5, kLargeSize);
    const auto addAndCancel = [&](int rounds) {
        for (int i = 0; i < rounds; ++i) {
            session.tool->addFiles(paths);
            QTest::mouseClick(session.button("cancelBtn"), Qt::LeftButton);
        }
    };
    addAndCancel(3);
    const qint64 before = residentBytes();
    const int filesBefore = openFileCount();
    const int threadsBefore = threadCount();
    addAndCancel(200);
    QVERIFY(session.tool->fileList().isEmpty());
    QCOMPARE(openFileCount(), filesBefore);
    // The system lists a thread for a moment after it was joined.
    QTRY_VERIFY2(threadCount() <= threadsBefore, "threads are left behind");
    QVERIFY2(residentBytes() - before < 5 * kLargeBytes, "one set of pictures");
}

void TestVeskToolHDR::memory_fiftyReplacementsUnderOnePath_staysFlat()
{
    if (residentBytes() < 0)
        QSKIP("the memory in use is not known here");
    ToolSession session;
    const QStringList paths = session.writePictures(2, kLargeSize);
    const auto replace = [&](int rounds) {
        for (int i = 0; i < rounds; ++i)
            session.tool->addFiles(paths);
    };
    replace(3);
    const qint64 before = residentBytes();
    replace(25);
    QCOMPARE(session.tool->fileList(), paths);
    QVERIFY2(residentBytes() - before < 2 * kLargeBytes, "one set of pictures");
}

QTEST_MAIN(TestVeskToolHDR)
#include "tst_VeskToolHDR.moc"
