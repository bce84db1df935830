// The workspace opened on what was merged and saved before: by the editor, the command line or a
// batch.

#include "DocumentArea.h"
#include "EditorActions.h"
#include "EditorWindow.h"
#include "FilmStrip.h"
#include "LookSlider.h"
#include "MainWindow.h"
#include "MergePreview.h"
#include "MergeWorkspace.h"
#include "ShotList.h"

#include <VeskContext.h>
#include <layer_composition.h>
#include <set_merge.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QProcess>
#include <QPushButton>
#include <QtTest>

namespace {

constexpr int kPatienceMs = 120000;
constexpr QSize kShotSize(320, 240);

} // namespace

class TestMergeAgain : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { tearDown(); }
    void savedResult_chosenInTheFilmStrip_startsFromItsSettings();
    void resultOfTheCommandLine_startsFromItsOptions();
    void resultInAFolderOfItsOwn_findsTheShotsAbove();
    void resultWhoseShotsAreGone_isAPictureLikeOthers();

private:
    MergeWorkspace *workspace() const { return window->findChild<MergeWorkspace *>(); }
    template <typename Part>
    Part *part(const char *name) const
    {
        return workspace()->findChild<Part *>(QLatin1String(name));
    }
    QStringList shots() const { return part<ShotList>("shotList")->paths(); }
    void openOn(const QStringList &paths);
    void openOnResult(const QString &path);
    void waitForPreview();
    QImage merged();
    void runProgram(const QStringList &words);

    QStringList bracket;
};

void TestMergeAgain::init()
{
    setUp();
    bracket = pictures->addBracket(3, kShotSize);
}

void TestMergeAgain::openOn(const QStringList &paths)
{
    window->openPaths({QFileInfo(paths.first()).path()});
    strip->select(paths);
    QTRY_COMPARE(strip->selectedPaths(), paths);
    window->findChild<EditorActions *>()->mergeExposures->trigger();
    QVERIFY(workspace());
}

void TestMergeAgain::openOnResult(const QString &path)
{
    window->openPaths({QFileInfo(path).path()});
    QTRY_VERIFY_WITH_TIMEOUT(strip->markOf(path), kPatienceMs);
    openOn({path});
}

void TestMergeAgain::waitForPreview()
{
    QTRY_VERIFY_WITH_TIMEOUT(!part<MergePreview>("mergePreview")->shown().isNull(), kPatienceMs);
}

QImage TestMergeAgain::merged()
{
    const auto before = documents->documents().size();
    part<QPushButton>("mergeButton")->click();
    if (!QTest::qWaitFor([&] { return documents->documents().size() == before + 1; }, kPatienceMs))
        return {};
    return composition::composedPicture(current());
}

void TestMergeAgain::runProgram(const QStringList &words)
{
    QProcess program;
    program.start(qEnvironmentVariable("VESK_BIN_DIR") + QStringLiteral("/veskhdr"), words);
    QVERIFY(program.waitForFinished(kPatienceMs));
    QCOMPARE(program.exitCode(), 0);
}

void TestMergeAgain::savedResult_chosenInTheFilmStrip_startsFromItsSettings()
{
    openOn(bracket);
    waitForPreview();
    auto *list = part<ShotList>("shotList");
    list->item(0)->setCheckState(Qt::Unchecked);
    list->setCurrentRow(2);
    part<QPushButton>("referenceButton")->click();
    part<QCheckBox>("cropBox")->setChecked(true);
    part<QComboBox>("ghostsBox")->setCurrentIndex(3);
    part<LookSlider>("shadowsSlider")->setValue(0.35);
    const QImage first = merged();
    QVERIFY(!first.isNull());
    const QString saved = pictures->path("result.png");
    dialogs->answerNextWith(saved);
    window->findChild<EditorActions *>()->saveAs->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(saved) && !current()->isSaveAble(), kPatienceMs);
    action("Close")->trigger();
    QTRY_VERIFY(documents->documents().isEmpty());
    QTRY_VERIFY(!workspace());

    openOnResult(saved);
    QCOMPARE(shots(), bracket.mid(1));
    waitForPreview();
    QCOMPARE(part<ShotList>("shotList")->chosenReference(), 1);
    QVERIFY(part<QCheckBox>("cropBox")->isChecked());
    QCOMPARE(part<QComboBox>("ghostsBox")->currentIndex(), 3);
    QCOMPARE(part<LookSlider>("shadowsSlider")->value(), 0.35);
    QCOMPARE(merged(), first);
}

void TestMergeAgain::resultOfTheCommandLine_startsFromItsOptions()
{
    const QString result = pictures->path("result.tif");
    runProgram(QStringList{"merge", "--align", "none", "--ghosts", "off", "--contrast", "0.2", "-o",
                           result} +
               bracket);
    openOnResult(result);
    QCOMPARE(shots(), bracket);
    waitForPreview();
    QCOMPARE(part<QComboBox>("alignmentBox")->currentData().toInt(),
             int(exposure::Alignment::None));
    QCOMPARE(part<QComboBox>("ghostsBox")->currentIndex(), 1);
    QCOMPARE(part<LookSlider>("contrastSlider")->value(), 0.2);
    const QImage expected = QImage(result).convertToFormat(QImage::Format_RGB32);
    QVERIFY(!expected.isNull());
    QCOMPARE(merged().convertToFormat(QImage::Format_RGB32), expected);
}

/// As a batch leaves them.
void TestMergeAgain::resultInAFolderOfItsOwn_findsTheShotsAbove()
{
    QVERIFY(QDir(pictures->folder()).mkdir("merged"));
    const QString result = pictures->path("merged/s1 merged.png");
    runProgram(QStringList{"merge", "--shadows", "0.1", "-o", result} + bracket);
    openOnResult(result);
    QCOMPARE(shots(), bracket);
    QCOMPARE(part<LookSlider>("shadowsSlider")->value(), 0.1);
}

void TestMergeAgain::resultWhoseShotsAreGone_isAPictureLikeOthers()
{
    const QString result = pictures->path("result.png");
    runProgram(QStringList{"merge", "-o", result} + bracket);
    QVERIFY(QFile::remove(bracket[0]));
    QVERIFY(QFile::remove(bracket[2]));
    openOnResult(result);
    QCOMPARE(shots(), QStringList{result});
}

QTEST_MAIN(TestMergeAgain)
#include "tst_merge_again.moc"
