#include "DocumentArea.h"
#include "EditorUiManager.h"
#include "EditorWindow.h"
#include "FilmStrip.h"
#include "MainWindow.h"
#include "PictureFolder.h"

#include <LoadedPicture.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskFilterContainer.h>

#include <QAction>
#include <QColorSpace>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

/// Merging from the editor's window, through the real tool.
class TestHdrCommand : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void tools_areToldFolderAndSelection();
    void merge_withoutDocument_worksFromTheFilmStrip();
    void merge_result_keepsItsSourcesNameAndIsUnsaved();
    void merge_profileAndResolution_arriveInTheSavedFile_data();
    void merge_profileAndResolution_arriveInTheSavedFile();
    void merge_unsavedDocument_saveAnswerRunsTheSaveAction();
    void merge_unsavedDocument_discardedAndCancelled_staysModified();
    void merge_unsavedDocument_discarded_isReplacedForGood();
    void merge_moreThanFiveSelected_isSaidBeforeTheyAreHandedOver();
    void merge_fiveSelected_saysNothing();
};

void TestHdrCommand::tools_areToldFolderAndSelection()
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

void TestHdrCommand::merge_withoutDocument_worksFromTheFilmStrip()
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

void TestHdrCommand::merge_result_keepsItsSourcesNameAndIsUnsaved()
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

void TestHdrCommand::merge_profileAndResolution_arriveInTheSavedFile_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"merged.png", "merged.jpg", "merged.tif"})
        QTest::addRow("%s", name) << QString::fromLatin1(name);
}

void TestHdrCommand::merge_profileAndResolution_arriveInTheSavedFile()
{
    QFETCH(QString, name);
    const QStringList bracket = pictures->addBracket(3, {90, 70});
    for (const QString &path : bracket) {
        QImage shot(path);
        shot.setColorSpace(QColorSpace::DisplayP3);
        shot.setDotsPerMeterX(11811); // 300 dpi
        shot.setDotsPerMeterY(11811);
        QVERIFY(shot.save(path));
    }
    window->openPaths({pictures->folder()});
    QTRY_COMPARE(strip->model()->rowCount(), 3);
    strip->selectAll();
    mergeSelected();
    dialogs->answerNextWith(pictures->path(name));
    action(QStringLiteral("Save"))->trigger();
    const std::atomic<bool> neverCancelled{false};
    const QImage saved = loadPicture(pictures->path(name), neverCancelled).image;
    QCOMPARE(saved.size(), QSize(90, 70));
    QCOMPARE(saved.colorSpace(), QColorSpace(QColorSpace::DisplayP3));
    QCOMPARE(saved.dotsPerMeterX(), 11811);
    QCOMPARE(saved.dotsPerMeterY(), 11811);
}

void TestHdrCommand::merge_unsavedDocument_saveAnswerRunsTheSaveAction()
{
    openAndWait({pictures->add(QStringLiteral("work.png"))});
    current()->setSaveAble(true);
    boxes->answerNextWith(QMessageBox::Save);
    mergeAction()->trigger();
    QCOMPARE(boxes->shown().first().title, QStringLiteral("Alert"));
    QVERIFY(!current()->isSaveAble());
    QVERIFY(panelFrame()->isVisible());
}

void TestHdrCommand::merge_unsavedDocument_discardedAndCancelled_staysModified()
{
    openAndWait({pictures->add(QStringLiteral("work.png"))});
    current()->setSaveAble(true);
    boxes->answerNextWith(QMessageBox::Discard);
    mergeAction()->trigger();
    QTest::mouseClick(panelButton("cancelBtn"), Qt::LeftButton);
    QVERIFY(current()->isSaveAble());
    boxes->forget();
    boxes->answerNextWith(QMessageBox::Cancel);
    QVERIFY(!window->close());
    QCOMPARE(boxes->shown().size(), 1);
}

void TestHdrCommand::merge_unsavedDocument_discarded_isReplacedForGood()
{
    openAndWait(pictures->addBracket(2, {90, 70}));
    QTRY_COMPARE(strip->selectedPaths().size(), 2);
    current()->setSaveAble(true);
    boxes->answerNextWith(QMessageBox::Discard);
    mergeSelected();
    QCoreApplication::processEvents();
    QCOMPARE(documents->documents().size(), 2);
    QVERIFY(!documents->documentOf(pictures->path(QStringLiteral("s2.png"))));
}

void TestHdrCommand::merge_moreThanFiveSelected_isSaidBeforeTheyAreHandedOver()
{
    const QStringList bracket = pictures->addBracket(7, {30, 20});
    window->openPaths({pictures->folder()});
    QTRY_COMPARE(strip->model()->rowCount(), 7);
    strip->selectAll();
    boxes->answerNextWith(QMessageBox::Cancel);
    mergeAction()->trigger();
    QCOMPARE(boxes->shown().size(), 1);
    QVERIFY(boxes->shown().first().text.contains(QLatin1Char('7')));
    QVERIFY(!panelFrame()->isVisible());
    boxes->answerNextWith(QMessageBox::Ok);
    mergeAction()->trigger();
    QVERIFY(panelFrame()->isVisible());
    QCOMPARE(panelFrame()->findChild<QListWidget *>()->count(), 5);
}

void TestHdrCommand::merge_fiveSelected_saysNothing()
{
    pictures->addBracket(5, {30, 20});
    window->openPaths({pictures->folder()});
    QTRY_COMPARE(strip->model()->rowCount(), 5);
    strip->selectAll();
    mergeAction()->trigger();
    QVERIFY(boxes->shown().isEmpty());
    QCOMPARE(panelFrame()->findChild<QListWidget *>()->count(), 5);
}

QTEST_MAIN(TestHdrCommand)
#include "tst_HdrCommand.moc"
