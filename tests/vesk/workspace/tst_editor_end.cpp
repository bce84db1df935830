#include "DocumentArea.h"
#include "DocumentHistory.h"
#include "EditMenu.h"
#include "EditorWindow.h"
#include "FileSizeLimit.h"
#include "FilmStrip.h"
#include "MainWindow.h"
#include "RecoveryFolder.h"
#include "RecoveryKeeper.h"
#include "editor_settings.h"

#include <VeskContext.h>

#include <QDir>
#include <QLockFile>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTest>

/// How the editor ends, and begins again.
class TestEditorEnd : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init()
    {
        QDir(RecoveryFolder::defaultRoot()).removeRecursively();
        setUp();
    }
    void cleanup() { tearDown(); }
    void quit_severalUnsaved_asksOnceForAll();
    void quit_saveAll_savesAll();
    void quit_cancel_keepsAll();
    void session_isOpenedAgain();
    void session_filesThatHaveGone_areLeftOut();
    void session_ofASecondProgram_leavesTheFirstOnesAlone();
    void fullDisk_statusBarSaysSo();
    void crash_isOfferedBack();
    void crash_later_offersAgain();
    void crash_discarded_isGone();

private:
    void openThree()
    {
        openAndWait({pictures->add(QStringLiteral("a.png")), pictures->add(QStringLiteral("b.png")),
                     pictures->add(QStringLiteral("c.png"))});
        const QList<VeskContext *> all = documents->documents();
        all.at(0)->setSaveAble(true);
        all.at(2)->setSaveAble(true);
    }

    /// Another window, as a program started again has it; without a word from the user before.
    void startAgain()
    {
        window.reset();
        window = std::make_unique<MainWindow>();
        window->show();
        documents = window->findChild<DocumentArea *>();
        strip = window->findChild<FilmStrip *>();
    }

    void crashWithARotatedPicture()
    {
        openAndWait({pictures->add(QStringLiteral("a.png"), {60, 40})});
        auto *keeper = window->findChild<RecoveryKeeper *>();
        keeper->setDelay(10);
        QSignalSpy written(keeper, &RecoveryKeeper::written);
        window->findChild<EditMenu *>()->rotateLeft->trigger();
        QTRY_VERIFY(!written.isEmpty());
        startAgain();
    }
};

void TestEditorEnd::quit_severalUnsaved_asksOnceForAll()
{
    openThree();
    boxes->answerNextWith(QMessageBox::Discard);
    QVERIFY(window->close());
    QCOMPARE(boxes->shown().size(), 1);
    QVERIFY(boxes->shown().constFirst().text.contains(QLatin1Char('2')));
}

void TestEditorEnd::quit_saveAll_savesAll()
{
    openThree();
    boxes->answerNextWith(QMessageBox::SaveAll);
    QVERIFY(window->close());
    const QList<VeskContext *> all = documents->documents();
    for (const VeskContext *document : all)
        QVERIFY(!document->isSaveAble());
}

void TestEditorEnd::quit_cancel_keepsAll()
{
    openThree();
    boxes->answerNextWith(QMessageBox::Cancel);
    QVERIFY(!window->close());
    QCOMPARE(documents->documents().size(), 3);
    QVERIFY(documents->documents().at(0)->isSaveAble());
}

void TestEditorEnd::session_isOpenedAgain()
{
    openAndWait({pictures->add(QStringLiteral("a.png")), pictures->add(QStringLiteral("b.png"))});
    documents->makeCurrent(documents->documents().constFirst());
    window->close();
    startAgain();
    window->restoreSession();
    QTRY_COMPARE(documents->documents().size(), 2);
    QTRY_COMPARE(current()->getFileName(), QStringLiteral("a.png"));
}

void TestEditorEnd::session_filesThatHaveGone_areLeftOut()
{
    const QString a = pictures->add(QStringLiteral("a.png"));
    openAndWait({a, pictures->add(QStringLiteral("b.png"))});
    window->close();
    QFile::remove(a);
    startAgain();
    window->restoreSession();
    QTRY_COMPARE(documents->documents().size(), 1);
    QVERIFY(boxes->shown().isEmpty());
}

void TestEditorEnd::session_ofASecondProgram_leavesTheFirstOnesAlone()
{
    openAndWait({pictures->add(QStringLiteral("a.png"))});
    window->close();
    window.reset();
    const QStringList ofTheFirst = settings::session();
    QCOMPARE(ofTheFirst.size(), 1);
    const QString folder = QFileInfo(RecoveryFolder::defaultRoot()).path();
    QLockFile first(folder + QStringLiteral("/session.lock"));
    QVERIFY(first.tryLock(0));
    startAgain();
    window->restoreSession();
    openAndWait({pictures->add(QStringLiteral("b.png"))});
    QCOMPARE(documents->documents().size(), 1);
    QCOMPARE(settings::session(), ofTheFirst);
}

void TestEditorEnd::fullDisk_statusBarSaysSo()
{
    openAndWait({pictures->add(QStringLiteral("a.png"), {640, 480})});
    auto *keeper = window->findChild<RecoveryKeeper *>();
    keeper->setDelay(10);
    const auto said = [this] { return window->statusBar()->currentMessage(); };
    {
        const FileSizeLimit full(10000);
        window->findChild<EditMenu *>()->rotateLeft->trigger();
        QTRY_VERIFY2(said().contains(QLatin1String("cannot be kept for recovery")),
                     qPrintable(said()));
    }
    QVERIFY(current()->isSaveAble());
    QSignalSpy written(keeper, &RecoveryKeeper::written);
    QTRY_VERIFY(!written.isEmpty()); // tried again
}

void TestEditorEnd::crash_isOfferedBack()
{
    crashWithARotatedPicture();
    window->offerRecovery(); // the default is to recover
    QCOMPARE(boxes->shown().size(), 1);
    QVERIFY(current());
    QCOMPARE(current()->getFileName(), QStringLiteral("a.png"));
    QVERIFY(current()->isSaveAble());
    QCOMPARE(document::layerPictures(*current()).constFirst().size(), QSize(40, 60));
    boxes->answerNextWith(QMessageBox::Discard);
    window->close();
    startAgain();
    boxes->forget();
    window->offerRecovery();
    QVERIFY(boxes->shown().isEmpty());
}

void TestEditorEnd::crash_later_offersAgain()
{
    crashWithARotatedPicture();
    boxes->answerNextWith(QMessageBox::Cancel);
    window->offerRecovery();
    QVERIFY(!current());
    window->close();
    startAgain();
    window->offerRecovery();
    QVERIFY(current());
}

void TestEditorEnd::crash_discarded_isGone()
{
    crashWithARotatedPicture();
    boxes->answerNextWith(QMessageBox::Discard);
    window->offerRecovery();
    QVERIFY(!current());
    startAgain();
    boxes->forget();
    window->offerRecovery();
    QVERIFY(boxes->shown().isEmpty());
}

QTEST_MAIN(TestEditorEnd)
#include "tst_editor_end.moc"
