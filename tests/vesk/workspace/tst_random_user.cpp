// Somebody who does one thing after the other without waiting for any of them. What comes out is
// not looked at on the way; all of it must be undone in the end. VESK_RANDOM_USERS: how many of
// them, to look for more.

#include "AdjustDock.h"
#include "DocumentArea.h"
#include "DocumentHistory.h"
#include "DocumentOpener.h"
#include "EditMenu.h"
#include "EditorActions.h"
#include "EditorWindow.h"
#include "FilmStrip.h"
#include "LayerDock.h"
#include "MainWindow.h"

#include <CropTool.h>
#include <LookSlider.h>
#include <StraightenTool.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <picture_document.h>

#include <QAction>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <map>
#include <random>

namespace {

constexpr int kUsers = 6;
constexpr int kDeeds = 150;
constexpr int kMostDocuments = 4;
constexpr int kLongestPauseMs = 40;
constexpr int kPatienceMs = 60000;

} // namespace

class TestRandomUser : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init()
    {
        setUp();
        edit = window->findChild<EditMenu *>();
        files = {pictures->add(QStringLiteral("a.png"), {600, 400}, 3),
                 pictures->add(QStringLiteral("b.png"), {333, 517}, 4),
                 pictures->add(QStringLiteral("c.png"), {333, 517}, 5)};
        openAndWait(files.mid(0, 2));
        edit->adjust->trigger();
    }
    void cleanup()
    {
        firsts.clear();
        tearDown();
    }
    void allIsUndoneInTheEnd_data();
    void allIsUndoneInTheEnd();

private:
    int any(int count) { return int(random() % unsigned(count)); }
    void noteDocuments();
    void doSomething();
    void undoAll(VeskContext *document);
    void dragOver(QWidget *tool);
    void cropOrNot();
    void straightenOrNot();
    void moveASlider();
    void compare();
    void saveOrClose();
    void open();
    void useTheTool();
    void hideOrShowTheLayer();
    void look();
    void press(const char *button);
    void toggle(const char *action);
    QImage picture() const { return document::layerPictures(*current()).constFirst(); }

    EditMenu *edit = nullptr;
    QStringList files;
    std::mt19937 random;
    std::map<VeskContext *, QImage> firsts;
};

void TestRandomUser::noteDocuments()
{
    const auto open = documents->documents();
    for (auto each = firsts.begin(); each != firsts.end();)
        each = open.contains(each->first) ? std::next(each) : firsts.erase(each);
    for (VeskContext *document : open) {
        const QList<QImage> layers = document::layerPictures(*document);
        QVERIFY(!layers.isEmpty());
        firsts.try_emplace(document, layers.constFirst().copy());
    }
}

void TestRandomUser::dragOver(QWidget *tool)
{
    const auto somewhere = [&] { return QPoint(any(tool->width()), any(tool->height())); };
    QTest::mousePress(tool, Qt::LeftButton, {}, somewhere());
    for (int i = any(4); i > 0; --i)
        QTest::mouseMove(tool, somewhere());
    QTest::mouseRelease(tool, Qt::LeftButton, {}, somewhere());
}

void TestRandomUser::cropOrNot()
{
    edit->crop->trigger();
    auto *tool = documents->currentCanvas()->findChild<CropTool *>();
    QVERIFY(tool);
    dragOver(tool);
    if (any(3) > 0) // or something else is done meanwhile
        QTest::keyClick(tool, any(3) > 0 ? Qt::Key_Return : Qt::Key_Escape);
}

void TestRandomUser::straightenOrNot()
{
    edit->straighten->trigger();
    auto *tool = documents->currentCanvas()->findChild<StraightenTool *>();
    QVERIFY(tool);
    if (any(4) > 0)
        dragOver(tool);
    else
        QTest::keyClick(tool, Qt::Key_Escape);
}

void TestRandomUser::moveASlider()
{
    const auto sliders = edit->adjustDock()->findChildren<LookSlider *>();
    LookSlider *slider = sliders[any(int(sliders.size()))];
    for (int i = any(3); i >= 0; --i)
        slider->setValue(any(201) / 100.0 - 1);
}

void TestRandomUser::press(const char *button)
{
    QTest::mouseClick(window->findChild<QPushButton *>(QLatin1String(button)), Qt::LeftButton);
}

void TestRandomUser::toggle(const char *action)
{
    window->findChild<QAction *>(QLatin1String(action))->trigger();
}

void TestRandomUser::compare()
{
    auto *button = window->findChild<QPushButton *>(QStringLiteral("compareLookButton"));
    QTest::mousePress(button, Qt::LeftButton);
    QTest::qWait(any(kLongestPauseMs));
    if (any(2) > 0)
        edit->undo->trigger();
    QTest::mouseRelease(button, Qt::LeftButton);
}

void TestRandomUser::look()
{
    auto *actions = window->findChild<EditorActions *>();
    const std::function<void()> ways[] = {
        [=] { actions->zoomIn->trigger(); },
        [=] { actions->zoomOut->trigger(); },
        [=] { actions->zoomToFit->trigger(); },
        [=] { actions->zoomToActualSize->trigger(); },
        [=] { actions->fullScreen->trigger(); },
        [this] { toggle("sideBySideAction"); },
        [this] { toggle("lockViewsAction"); },
        [this] { toggle("clippingAction"); },
        [this] { dragOver(documents->currentCanvas()); },
        [this] { edit->adjust->trigger(); },
    };
    ways[any(int(std::size(ways)))]();
}

void TestRandomUser::saveOrClose()
{
    if (!current()->getFilePath().isEmpty() && any(2) > 0) {
        action(QStringLiteral("Save"))->trigger();
        return;
    }
    boxes->answerNextWith(any(3) > 0 ? QMessageBox::Discard : QMessageBox::Cancel);
    window->findChild<EditorActions *>()->close->trigger();
}

/// Also files that are open already.
void TestRandomUser::open()
{
    window->openPaths({files[any(int(files.size()))]});
}

void TestRandomUser::useTheTool()
{
    strip->select(files.mid(any(2), 2));
    mergeAction()->trigger();
    QTest::qWait(any(kLongestPauseMs));
    if (!panelFrame())
        return;
    if (QPushButton *button = panelButton(any(2) > 0 ? "okBtn" : "cancelBtn"))
        QTest::mouseClick(button, Qt::LeftButton);
}

void TestRandomUser::hideOrShowTheLayer()
{
    auto *list = window->findChild<LayerDock *>()->findChild<QListWidget *>();
    QListWidgetItem *item = list->item(0);
    item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

void TestRandomUser::doSomething()
{
    if (!current())
        return open();
    const bool hasRoom = documents->documents().size() < kMostDocuments;
    const std::function<void()> deeds[] = {
        [this] { edit->undo->trigger(); },
        [this] { edit->undo->trigger(); },
        [this] { edit->redo->trigger(); },
        [this] { edit->rotateLeft->trigger(); },
        [this] { edit->rotateRight->trigger(); },
        [this] { cropOrNot(); },
        [this] { straightenOrNot(); },
        [this] { moveASlider(); },
        [this] { moveASlider(); },
        [this] { press("autoLookButton"); },
        [this] { press("resetLookButton"); },
        [this] { compare(); },
        [this] { look(); },
        [this] { look(); },
        [this] { hideOrShowTheLayer(); },
        [this] { saveOrClose(); },
        [this] { open(); },
        [this] { useTheTool(); },
        [this] { edit->copy->trigger(); },
        [=] { hasRoom ? edit->paste->trigger() : edit->undo->trigger(); },
        [this] { window->findChild<EditorActions *>()->nextTab->trigger(); },
        [this] { QTest::qWait(any(kLongestPauseMs)); },
        [this] { QTest::qWait(10 * any(kLongestPauseMs)); },
    };
    deeds[any(int(std::size(deeds)))]();
}

void TestRandomUser::undoAll(VeskContext *document)
{
    documents->makeCurrent(document);
    edit->settle();
    const QImage last = picture().copy();
    const int steps = DocumentHistory::of(*document).stack().index();
    for (int i = 0; i < steps; ++i)
        edit->undo->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(!edit->undo->isEnabled(), kPatienceMs);
    QCOMPARE(picture(), firsts[document]);
    for (int i = 0; i < steps; ++i)
        edit->redo->trigger();
    QTRY_COMPARE_WITH_TIMEOUT(DocumentHistory::of(*document).stack().index(), steps, kPatienceMs);
    QCOMPARE(picture(), last);
}

void TestRandomUser::allIsUndoneInTheEnd_data()
{
    QTest::addColumn<unsigned>("seed");
    const int asked = qEnvironmentVariableIntValue("VESK_RANDOM_USERS");
    for (int user = 1; user <= (asked > 0 ? asked : kUsers); ++user)
        QTest::addRow("user %d", user) << unsigned(user);
}

void TestRandomUser::allIsUndoneInTheEnd()
{
    QFETCH(const unsigned, seed);
    random.seed(seed);
    for (int deed = 0; deed < kDeeds; ++deed) {
        noteDocuments();
        doSomething();
        if (QTest::currentTestFailed())
            return;
    }
    const auto &loader = window->findChild<DocumentOpener *>()->loader();
    QTRY_VERIFY_WITH_TIMEOUT(!loader.isBusy(), kPatienceMs); // what opens comes to the front
    noteDocuments();
    const auto all = documents->documents();
    for (VeskContext *document : all) {
        undoAll(document);
        if (QTest::currentTestFailed())
            return;
    }
}

QTEST_MAIN(TestRandomUser)
#include "tst_random_user.moc"
