#include "DocumentArea.h"
#include "EditorActions.h"
#include "EditorWindow.h"
#include "FilmStrip.h"
#include "MainWindow.h"
#include "MergePreview.h"
#include "MergeWorkspace.h"

#include <VeskContext.h>

#include <QImage>
#include <QPushButton>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

namespace {

constexpr int kPatienceMs = 60000;
constexpr QSize kShotSize(320, 240);

} // namespace

/// From a folder with three brackets to three merged, saved pictures, as people do it.
class TestBracketsToPictures : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { tearDown(); }
    void keyboardAlone_givesThreePictures();
    void mouseAlone_givesThreePictures();

private:
    MergeWorkspace *workspace() const { return window->findChild<MergeWorkspace *>(); }
    bool isPreviewed() const;
    void click(QWidget *widget) { QTest::mouseClick(widget, Qt::LeftButton); }
    void clickTool(QAction *command);
    void clickShot(int row);
    void expectPicture(int number);
    QString result(int number) const;
};

void TestBracketsToPictures::init()
{
    setUp();
    for (const char *prefix : {"a", "b", "c"})
        pictures->addCameraBracket(QLatin1String(prefix), 3, 5 * (*prefix - 'a'), kShotSize);
    window->openPaths({pictures->folder()});
    QTRY_COMPARE_WITH_TIMEOUT(strip->bracketCount(), 3, kPatienceMs);
    for (int number = 1; number <= 3; ++number)
        dialogs->answerNextWith(result(number));
}

bool TestBracketsToPictures::isPreviewed() const
{
    const auto *preview = workspace()->findChild<MergePreview *>();
    return QTest::qWaitFor([preview] { return !preview->shown().isNull(); }, kPatienceMs);
}

QString TestBracketsToPictures::result(int number) const
{
    return pictures->path(QStringLiteral("result%1.png").arg(number));
}

/// The document in front is saved as that picture.
void TestBracketsToPictures::expectPicture(int number)
{
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(result(number)), kPatienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(!current()->isSaveAble(), kPatienceMs);
    QCOMPARE(QImage(result(number)).size(), kShotSize);
}

void TestBracketsToPictures::keyboardAlone_givesThreePictures()
{
    for (int number = 1; number <= 3; ++number) {
        QTest::keyClick(window.get(), Qt::Key_B, Qt::ControlModifier);
        QCOMPARE(strip->selectedPaths().size(), 3);
        QCOMPARE(window->focusWidget(), strip);
        QTest::keyClick(strip, Qt::Key_Return);
        QVERIFY(workspace() && isPreviewed());
        QTest::keyClick(workspace(), Qt::Key_Return);
        QTRY_COMPARE_WITH_TIMEOUT(documents->documents().size(), number, kPatienceMs);
        QTRY_VERIFY(!workspace());
        window->activateWindow(); // as a window manager does
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier);
        expectPicture(number);
    }
}

void TestBracketsToPictures::clickTool(QAction *command)
{
    const auto *bar = window->findChild<QToolBar *>(QStringLiteral("toolBar"));
    click(bar->widgetForAction(command));
}

void TestBracketsToPictures::clickShot(int row)
{
    const QModelIndex shot = strip->model()->index(row, 0);
    strip->scrollTo(shot);
    QTest::mouseClick(strip->viewport(), Qt::LeftButton, {}, strip->visualRect(shot).center());
}

void TestBracketsToPictures::mouseAlone_givesThreePictures()
{
    auto *actions = window->findChild<EditorActions *>();
    for (int number = 1; number <= 3; ++number) {
        clickShot(3 * (number - 1) + 1);
        QCOMPARE(strip->selectedPaths().size(), 3);
        clickTool(actions->mergeExposures);
        QVERIFY(workspace() && isPreviewed());
        click(workspace()->findChild<QPushButton *>(QStringLiteral("mergeButton")));
        QTRY_COMPARE_WITH_TIMEOUT(documents->documents().size(), number, kPatienceMs);
        QTRY_VERIFY(!workspace());
        clickTool(actions->save);
        expectPicture(number);
    }
}

QTEST_MAIN(TestBracketsToPictures)
#include "tst_brackets_to_pictures.moc"
