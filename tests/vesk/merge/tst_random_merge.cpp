// Somebody who tries all controls of the merge window without waiting for any answer, and then
// merges. The result must be what the command line makes of the options that it is marked with.
// VESK_RANDOM_USERS: how many of them, to look for more.

#include "DocumentArea.h"
#include "EditorActions.h"
#include "EditorWindow.h"
#include "FilmStrip.h"
#include "LoadedPicture.h"
#include "LookSlider.h"
#include "MainWindow.h"
#include "MergePreview.h"
#include "MergeWorkspace.h"
#include "ShotList.h"
#include "picture_document.h"

#include <VeskContext.h>
#include <layer_composition.h>

#include <QCheckBox>
#include <QComboBox>
#include <QProcess>
#include <QPushButton>
#include <QtTest>

#include <functional>
#include <random>

namespace {

constexpr int kUsers = 4;
constexpr int kDeeds = 60;
constexpr int kLongestPauseMs = 60;
constexpr int kPatienceMs = 120000;
constexpr QSize kShotSize(240, 160);

} // namespace

class TestRandomMerge : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { tearDown(); }
    void result_isWhatTheCommandLineMakes_data();
    void result_isWhatTheCommandLineMakes();

private:
    MergeWorkspace *workspace() const { return window->findChild<MergeWorkspace *>(); }
    template <typename Part>
    Part *part(const char *name) const
    {
        return workspace()->findChild<Part *>(QLatin1String(name));
    }
    int any(int count) { return int(random() % unsigned(count)); }
    template <typename Widget>
    Widget *anyUsable();
    void doSomething();
    void pressAButton();
    void touchThePreview();
    void changeAShot();
    void mergeAndThinkBetter();
    void settle();
    QImage madeByCommandLine(const ResultMark &mark) const;

    std::mt19937 random;
};

void TestRandomMerge::init()
{
    setUp();
    const QStringList bracket = pictures->addBracket(3, kShotSize);
    window->openPaths({bracket.first()});
    QTRY_COMPARE(documents->documents().size(), 1);
    strip->select(bracket);
    QTRY_COMPARE(strip->selectedPaths().size(), bracket.size());
    window->findChild<EditorActions *>()->mergeExposures->trigger();
    QVERIFY(workspace());
}

template <typename Widget>
Widget *TestRandomMerge::anyUsable()
{
    QList<Widget *> usable;
    const auto all = workspace()->findChildren<Widget *>();
    for (Widget *each : all) {
        if (each->isVisible() && each->isEnabled())
            usable.append(each);
    }
    return usable.isEmpty() ? nullptr : usable[any(int(usable.size()))];
}

/// Not those that end the window, or ask for files.
void TestRandomMerge::pressAButton()
{
    static const QStringList kOthers{"mergeButton", "closeButton", "addButton", "addShotsButton",
                                     "nextBracketButton"};
    auto *button = anyUsable<QPushButton>();
    if (!button || kOthers.contains(button->objectName()))
        return;
    QTest::mousePress(button, Qt::LeftButton);
    QTest::qWait(any(kLongestPauseMs));
    QTest::mouseRelease(button, Qt::LeftButton);
}

void TestRandomMerge::touchThePreview()
{
    auto *preview = part<MergePreview>("mergePreview");
    QWidget *above = preview->childAt(preview->rect().center()); // the brush, when it is on
    QWidget *touched = above ? above : preview;
    const auto somewhere = [&] { return QPoint(any(touched->width()), any(touched->height())); };
    const Qt::KeyboardModifiers keys = any(5) == 0 ? Qt::ShiftModifier : Qt::NoModifier;
    QTest::mousePress(touched, Qt::LeftButton, keys, somewhere());
    for (int i = any(5); i > 0; --i)
        QTest::mouseMove(touched, somewhere());
    QTest::mouseRelease(touched, Qt::LeftButton, keys, somewhere());
    constexpr Qt::Key kKeys[] = {Qt::Key_S,    Qt::Key_K,     Qt::Key_C,   Qt::Key_L,
                                 Qt::Key_B,    Qt::Key_Plus,  Qt::Key_1,   Qt::Key_0,
                                 Qt::Key_Left, Qt::Key_Right, Qt::Key_Tab, Qt::Key_Minus};
    QTest::keyClick(workspace(), kKeys[any(int(std::size(kKeys)))]);
}

/// Two shots stay on.
void TestRandomMerge::changeAShot()
{
    auto *list = part<ShotList>("shotList");
    const int row = any(list->count());
    list->setCurrentRow(row);
    if (any(2) == 0)
        return part<QPushButton>("referenceButton")->click();
    for (int other = 0; other < list->count(); ++other)
        list->item(other)->setCheckState(Qt::Checked);
    if (any(2) == 0)
        list->item(row)->setCheckState(Qt::Unchecked);
}

void TestRandomMerge::mergeAndThinkBetter()
{
    auto *method = part<QComboBox>("methodBox");
    if (method->currentData().toInt() == int(exposure::Method::Radiance))
        return; // its result opens in a window of its own
    part<QPushButton>("mergeButton")->click();
    if (workspace()->isMerging())
        workspace()->reject();
}

void TestRandomMerge::doSomething()
{
    const std::function<void()> deeds[] = {
        [this] {
            if (auto *box = anyUsable<QComboBox>())
                box->setCurrentIndex(any(box->count()));
        },
        [this] {
            if (auto *slider = anyUsable<LookSlider>())
                slider->setValue(any(201) / 100.0 - 1);
        },
        [this] {
            if (auto *box = anyUsable<QCheckBox>())
                box->click();
        },
        [this] { pressAButton(); },
        [this] { pressAButton(); },
        [this] { touchThePreview(); },
        [this] { touchThePreview(); },
        [this] { changeAShot(); },
        [this] { mergeAndThinkBetter(); },
        [this] { QTest::qWait(any(kLongestPauseMs)); },
        [this] { QTest::qWait(10 * any(kLongestPauseMs)); },
    };
    deeds[any(int(std::size(deeds)))]();
}

/// Ready to merge to a document.
void TestRandomMerge::settle()
{
    auto *method = part<QComboBox>("methodBox");
    if (method->currentData().toInt() == int(exposure::Method::Radiance))
        method->setCurrentIndex(0);
    QTRY_VERIFY_WITH_TIMEOUT(!workspace()->isMerging(), kPatienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(part<QPushButton>("mergeButton")->isEnabled(), kPatienceMs);
}

QImage TestRandomMerge::madeByCommandLine(const ResultMark &mark) const
{
    const QString output = pictures->path(QStringLiteral("expected.tif"));
    QProcess program;
    program.setWorkingDirectory(QFileInfo(output).path());
    program.start(qEnvironmentVariable("VESK_BIN_DIR") + QStringLiteral("/veskhdr"),
                  QStringList{"merge", "--force", "--method", mark.method} +
                      QProcess::splitCommand(mark.options) + mark.sources +
                      QStringList{"-o", output});
    program.waitForFinished(kPatienceMs);
    const std::atomic<bool> neverCancelled{false};
    return loadPicture(output, neverCancelled).image;
}

void TestRandomMerge::result_isWhatTheCommandLineMakes_data()
{
    QTest::addColumn<unsigned>("seed");
    const int asked = qEnvironmentVariableIntValue("VESK_RANDOM_USERS");
    for (int user = 1; user <= (asked > 0 ? asked : kUsers); ++user)
        QTest::addRow("user %d", user) << unsigned(user);
}

void TestRandomMerge::result_isWhatTheCommandLineMakes()
{
    QFETCH(const unsigned, seed);
    random.seed(seed);
    for (int deed = 0; deed < kDeeds; ++deed) {
        if (!workspace() || documents->documents().size() > 1)
            break; // a merge was quicker than second thoughts
        doSomething();
    }
    if (documents->documents().size() == 1) {
        settle();
        part<QPushButton>("mergeButton")->click();
        QTRY_COMPARE_WITH_TIMEOUT(documents->documents().size(), 2, kPatienceMs);
    }
    const auto mark = document::resultMark(*current());
    QVERIFY(mark);
    const QImage expected = madeByCommandLine(*mark);
    const QImage picture = composition::composedPicture(current());
    QVERIFY2(picture.size() == expected.size() &&
                 picture.convertToFormat(expected.format()) == expected,
             qPrintable(mark->method + QLatin1Char(' ') + mark->options + QLatin1Char(' ') +
                        mark->sources.join(QLatin1Char(' '))));
}

QTEST_MAIN(TestRandomMerge)
#include "tst_random_merge.moc"
