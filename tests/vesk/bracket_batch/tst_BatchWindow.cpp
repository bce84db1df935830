#include "BatchWindow.h"
#include "BracketStateDelegate.h"
#include "BracketTable.h"
#include "EditorActions.h"
#include "EditorWindow.h"
#include "FilmStrip.h"
#include "LookSlider.h"
#include "MainWindow.h"

#include <metadata_reader.h>

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QtTest>

#include <algorithm>

namespace {

constexpr int kPatienceMs = 120000;
constexpr QSize kShotSize(320, 240);

using State = BracketBatch::State;

} // namespace

class TestBatchWindow : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { tearDown(); }
    void folder_isSearchedAndShownAsATable();
    void start_mergesEachBracketAsTheCommandLineDoes();
    void uncheckedShotAndBracket_areLeftOut();
    void joinedBrackets_areMergedAsOne();
    void joinedLooseShots_areABracket();
    void splitBracket_leavesTheRestAlone();
    void edits_keepWhatWasTakenOut();
    void findAgain_undoesTheEdits();
    void edits_ofAStartedBatch_areThereAgain();
    void edits_areInTheContextMenuAndOnKeys();
    void tab_goesThroughTheControlsAsTheyStand();
    void running_allowsNoEdits();
    void underWay_itsProgressIsShown();
    void damagedShot_failsAloneAndSaysWhy();
    void fiftyBrackets_stoppedAndStartedAgain_goOnWhereTheyWere();
    void pause_waitsBehindTheOneUnderWay();
    void escape_whileRunning_stopsButStaysOpen();
    void otherFolder_isDroppedOrTyped();

private:
    BatchWindow *batch() const { return window->findChild<BatchWindow *>(); }
    template <typename Part>
    Part *part(const char *name) const
    {
        return batch()->findChild<Part *>(QLatin1String(name));
    }
    BracketTable *table() const { return batch()->findChild<BracketTable *>(); }
    void open(int brackets, int lines = 0);
    void runToTheEnd();
    QStringList results() const;
    QTreeWidgetItem *line(int bracket) const { return table()->topLevelItem(bracket); }
    void select(const QList<QTreeWidgetItem *> &lines);
    QAction *edit(const char *name) const { return part<QAction>(name); }
    QStringList sourcesOf(const QString &result) const;
    QStringList lines() const;
    QString said() const { return part<QLabel>("batchState")->text(); }
};

/// Where the editor finds the command line's program when it is not installed beside it.
void TestBatchWindow::initTestCase()
{
    qputenv("PATH", qgetenv("VESK_BIN_DIR") + ':' + qgetenv("PATH"));
}

void TestBatchWindow::init()
{
    setUp();
    for (const char *prefix : {"a", "b", "c"})
        pictures->addCameraBracket(QLatin1String(prefix), 3, 5 * (*prefix - 'a'), kShotSize);
}

/// lines: with the shots that are in none.
void TestBatchWindow::open(int brackets, int lines)
{
    window->openPaths({pictures->folder()});
    QTRY_COMPARE_WITH_TIMEOUT(strip->bracketCount(), brackets, kPatienceMs);
    window->findChild<EditorActions *>()->mergeBrackets->trigger();
    QVERIFY(batch());
    QTRY_COMPARE_WITH_TIMEOUT(table()->topLevelItemCount(), lines ? lines : brackets, kPatienceMs);
}

void TestBatchWindow::select(const QList<QTreeWidgetItem *> &lines)
{
    table()->setCurrentItem(lines.first());
    table()->clearSelection();
    for (QTreeWidgetItem *each : lines)
        each->setSelected(true);
}

QStringList TestBatchWindow::sourcesOf(const QString &result) const
{
    const auto mark =
        result_mark::in(metadata::read(pictures->path(QStringLiteral("merged/") + result)).xmp);
    return mark ? mark->sources : QStringList();
}

QStringList TestBatchWindow::lines() const
{
    QStringList texts;
    for (int i = 0; i < table()->topLevelItemCount(); ++i)
        texts += line(i)->text(0) + QLatin1Char(' ') + line(i)->text(1);
    return texts;
}

void TestBatchWindow::runToTheEnd()
{
    part<QPushButton>("startButton")->click();
    QTRY_VERIFY_WITH_TIMEOUT(!part<QPushButton>("stopButton")->isEnabled(), kPatienceMs);
}

QStringList TestBatchWindow::results() const
{
    return QDir(pictures->path(QStringLiteral("merged"))).entryList({"*.jpg"}, QDir::Files);
}

void TestBatchWindow::folder_isSearchedAndShownAsATable()
{
    open(3);
    QCOMPARE(table()->topLevelItem(0)->text(0), QStringLiteral("a1.jpg to a3.jpg"));
    QCOMPARE(table()->topLevelItem(1)->childCount(), 3);
    QCOMPARE(table()->topLevelItem(1)->child(2)->text(1), QStringLiteral("+1.0 EV"));
    QCOMPARE(said(), QStringLiteral("3 brackets to merge"));
}

void TestBatchWindow::start_mergesEachBracketAsTheCommandLineDoes()
{
    open(3);
    part<LookSlider>("shadowsSlider")->setValue(0.3);
    runToTheEnd();
    QCOMPARE(said(), QStringLiteral("3 merged, 0 done already, 0 failed, 0 stopped"));
    QCOMPARE(results(), (QStringList{"a1 merged.jpg", "b1 merged.jpg", "c1 merged.jpg"}));
    const QString expected = pictures->path(QStringLiteral("expected.jpg"));
    QStringList words{"merge", "--shadows", "0.3", "--quality", "95", "-o", expected};
    for (const char *shot : {"a1.jpg", "a2.jpg", "a3.jpg"})
        words += pictures->path(QLatin1String(shot));
    QProcess program;
    program.start(QStringLiteral("veskhdr"), words);
    QVERIFY(program.waitForFinished(kPatienceMs));
    const QString merged = pictures->path(QStringLiteral("merged/a1 merged.jpg"));
    QVERIFY(!QImage(expected).isNull());
    QCOMPARE(QImage(merged), QImage(expected));
    // Once more: nothing is left to do.
    runToTheEnd();
    QCOMPARE(said(), QStringLiteral("0 merged, 3 done already, 0 failed, 0 stopped"));
}

void TestBatchWindow::uncheckedShotAndBracket_areLeftOut()
{
    open(3);
    table()->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
    table()->topLevelItem(1)->child(0)->setCheckState(0, Qt::Unchecked);
    QCOMPARE(said(), QStringLiteral("2 brackets to merge"));
    runToTheEnd();
    QCOMPARE(results(), (QStringList{"b2 merged.jpg", "c1 merged.jpg"}));
    QCOMPARE(sourcesOf("b2 merged.jpg"), (QStringList{"b2.jpg", "b3.jpg"}));
}

void TestBatchWindow::joinedBrackets_areMergedAsOne()
{
    open(3);
    select({line(0), line(1)});
    edit("joinAction")->trigger();
    QCOMPARE(lines(), (QStringList{"a1.jpg to b3.jpg 6", "c1.jpg to c3.jpg 3"}));
    QCOMPARE(table()->currentItem(), line(0));
    QVERIFY(line(0)->isExpanded());
    QCOMPARE(said(), QStringLiteral("2 brackets to merge"));
    runToTheEnd();
    QCOMPARE(said(), QStringLiteral("2 merged, 0 done already, 0 failed, 0 stopped"));
    QCOMPARE(results(), (QStringList{"a1 merged.jpg", "c1 merged.jpg"}));
    QCOMPARE(sourcesOf("a1 merged.jpg"),
             (QStringList{"a1.jpg", "a2.jpg", "a3.jpg", "b1.jpg", "b2.jpg", "b3.jpg"}));
}

/// Also such that tell nothing of themselves.
void TestBatchWindow::joinedLooseShots_areABracket()
{
    for (const char *name : {"y.jpg", "x.jpg", "z.jpg"})
        pictures->add(QLatin1String(name), kShotSize, 7);
    pictures->addResult("made.jpg", {pictures->path("a1.jpg")});
    open(3, 4);
    QCOMPARE(lines().last(), QStringLiteral("In no bracket 3"));
    QCOMPARE(said(), QStringLiteral("3 brackets to merge"));
    select({line(3)->child(0), line(3)->child(1)});
    edit("joinAction")->trigger();
    QCOMPARE(lines().mid(2),
             (QStringList{"c1.jpg to c3.jpg 3", "x.jpg to y.jpg 2", "In no bracket 1"}));
    QCOMPARE(said(), QStringLiteral("4 brackets to merge"));
    for (int i = 0; i < 3; ++i)
        line(i)->setCheckState(0, Qt::Unchecked);
    runToTheEnd();
    QCOMPARE(results(), (QStringList{"x merged.jpg"}));
    QCOMPARE(sourcesOf("x merged.jpg"), (QStringList{"x.jpg", "y.jpg"}));
}

void TestBatchWindow::splitBracket_leavesTheRestAlone()
{
    open(3);
    select({line(0), line(1)});
    edit("joinAction")->trigger();
    select({line(0)->child(2)});
    edit("splitAction")->trigger();
    QCOMPARE(lines(),
             (QStringList{"a1.jpg to a2.jpg 2", "a3.jpg to b3.jpg 4", "c1.jpg to c3.jpg 3"}));
    select({line(2)->child(2)});
    edit("splitAction")->trigger();
    QCOMPARE(lines().mid(2), (QStringList{"c1.jpg to c2.jpg 2", "In no bracket 1"}));
    runToTheEnd();
    QCOMPARE(results(), (QStringList{"a1 merged.jpg", "a3 merged.jpg", "c1 merged.jpg"}));
    QCOMPARE(sourcesOf("a3 merged.jpg"), (QStringList{"a3.jpg", "b1.jpg", "b2.jpg", "b3.jpg"}));
    QCOMPARE(sourcesOf("c1 merged.jpg"), (QStringList{"c1.jpg", "c2.jpg"}));
}

void TestBatchWindow::edits_keepWhatWasTakenOut()
{
    open(3);
    line(2)->setCheckState(0, Qt::Unchecked);
    line(2)->child(1)->setCheckState(0, Qt::Unchecked);
    line(0)->child(1)->setCheckState(0, Qt::Unchecked);
    select({line(0), line(1)});
    edit("joinAction")->trigger();
    QCOMPARE(line(0)->child(1)->checkState(0), Qt::Checked); // it was asked for
    QCOMPARE(line(1)->checkState(0), Qt::Unchecked);
    QCOMPARE(line(1)->child(1)->checkState(0), Qt::Unchecked);
    select({line(1)->child(2)});
    edit("splitAction")->trigger();
    QCOMPARE(line(1)->checkState(0), Qt::Unchecked);
    QCOMPARE(said(), QStringLiteral("1 brackets to merge"));
}

void TestBatchWindow::findAgain_undoesTheEdits()
{
    open(3);
    const QStringList found = lines();
    table()->selectAll();
    edit("joinAction")->trigger();
    QCOMPARE(table()->topLevelItemCount(), 1);
    edit("searchAction")->trigger();
    QTRY_COMPARE_WITH_TIMEOUT(lines(), found, kPatienceMs);
}

/// Else a batch that goes on would replace what was merged of them.
void TestBatchWindow::edits_ofAStartedBatch_areThereAgain()
{
    open(3);
    const QStringList found = lines();
    select({line(0), line(1)});
    edit("joinAction")->trigger();
    line(0)->child(4)->setCheckState(0, Qt::Unchecked);
    line(1)->setCheckState(0, Qt::Unchecked);
    runToTheEnd();
    QCOMPARE(table()->count(State::Merged), 1);
    delete batch();
    window->findChild<EditorActions *>()->mergeBrackets->trigger();
    QTRY_COMPARE_WITH_TIMEOUT(lines(), (QStringList{"a1.jpg to b3.jpg 6", "c1.jpg to c3.jpg 3"}),
                              kPatienceMs);
    QCOMPARE(line(0)->child(4)->checkState(0), Qt::Unchecked);
    QCOMPARE(line(1)->checkState(0), Qt::Unchecked);
    runToTheEnd();
    QCOMPARE(said(), QStringLiteral("0 merged, 1 done already, 0 failed, 0 stopped"));
    edit("searchAction")->trigger();
    QTRY_COMPARE_WITH_TIMEOUT(lines(), found, kPatienceMs);
    delete batch();
    window->findChild<EditorActions *>()->mergeBrackets->trigger();
    QTRY_COMPARE_WITH_TIMEOUT(lines(), found, kPatienceMs);
}

void TestBatchWindow::edits_areInTheContextMenuAndOnKeys()
{
    open(3);
    QCOMPARE(table()->contextMenuPolicy(), Qt::ActionsContextMenu);
    QCOMPARE(table()->actions(), table()->edits());
    batch()->activateWindow();
    table()->setFocus();
    select({line(1)});
    QVERIFY(!edit("joinAction")->isEnabled());
    QVERIFY(!edit("splitAction")->isEnabled());
    QTest::keyClick(table(), Qt::Key_Delete);
    QCOMPARE(line(1)->checkState(0), Qt::Unchecked);
    QTest::keyClick(table(), Qt::Key_Delete);
    QCOMPARE(line(1)->checkState(0), Qt::Checked);
    QTest::keyClick(table(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(table(), Qt::Key_J, Qt::ControlModifier);
    QCOMPARE(lines(), (QStringList{"a1.jpg to a3.jpg 3", "b1.jpg to c3.jpg 6"}));
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(table(), Qt::Key_Down);
    QTest::keyClick(table(), Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(lines().mid(1), (QStringList{"b1.jpg to b3.jpg 3", "c1.jpg to c3.jpg 3"}));
}

void TestBatchWindow::tab_goesThroughTheControlsAsTheyStand()
{
    open(3);
    batch()->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), batch());
    QWidget *first = part<QLineEdit>("inputLine");
    first->setFocus();
    QStringList names;
    do {
        const QString name = QApplication::focusWidget()->objectName();
        names += QApplication::focusWidget() == table() ? QStringLiteral("table") : name;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (QApplication::focusWidget() != first && names.size() < 99);
    const QStringList inOrder{"inputLine", "inputButton", "outputLine", "outputButton",
                              "table",     "methodBox",   "cropBox",    "resetButton",
                              "formatBox", "startButton", "closeButton"};
    QStringList found = names;
    found.removeIf([&](const QString &name) { return !inOrder.contains(name); });
    QVERIFY2(found == inOrder, qPrintable(names.join(' ')));
}

void TestBatchWindow::running_allowsNoEdits()
{
    open(3);
    table()->selectAll();
    part<QPushButton>("startButton")->click();
    for (const char *name : {"joinAction", "splitAction", "switchAction", "searchAction"})
        QVERIFY2(!edit(name)->isEnabled(), name);
    for (const char *name : {"inputLine", "inputButton", "outputLine", "outputButton"})
        QVERIFY2(!part<QWidget>(name)->isEnabled(), name);
    part<QPushButton>("stopButton")->click();
    QTRY_VERIFY_WITH_TIMEOUT(edit("joinAction")->isEnabled(), kPatienceMs);
    QVERIFY(edit("searchAction")->isEnabled());
}

void TestBatchWindow::underWay_itsProgressIsShown()
{
    open(3);
    auto *running = batch()->findChild<BracketBatch *>();
    QList<double> fractions;
    QStringList texts;
    connect(running, &BracketBatch::progressed, this, [&](int bracket, double fraction) {
        fractions += bracket + fraction;
        texts += said();
        QCOMPARE(line(bracket)->data(2, BracketStateDelegate::kProgressRole).toDouble(), fraction);
        QVERIFY(!table()->grab().isNull());
    });
    runToTheEnd();
    QVERIFY(fractions.size() > 9);
    QVERIFY(std::is_sorted(fractions.cbegin(), fractions.cend()));
    QVERIFY(fractions.first() < 0.5 && fractions.last() > 2.9);
    QVERIFY2(QRegularExpression("^2 of 3, about \\d+ s left$").match(texts.last()).hasMatch(),
             qPrintable(texts.last()));
    QVERIFY(!line(2)->data(2, BracketStateDelegate::kProgressRole).isValid());
}

void TestBatchWindow::damagedShot_failsAloneAndSaysWhy()
{
    open(3);
    QFile damaged(pictures->path(QStringLiteral("b2.jpg")));
    QVERIFY(damaged.open(QIODevice::ReadWrite));
    QVERIFY(damaged.resize(damaged.size() / 2));
    damaged.close();
    runToTheEnd();
    QCOMPARE(said(), QStringLiteral("2 merged, 0 done already, 1 failed, 0 stopped"));
    const QTreeWidgetItem *line = table()->topLevelItem(1);
    QVERIFY(line->text(2).startsWith(QStringLiteral("failed")));
    QVERIFY2(line->toolTip(2).contains(QStringLiteral("b2.jpg")), qPrintable(line->toolTip(2)));
    QCOMPARE(results(), (QStringList{"a1 merged.jpg", "c1 merged.jpg"}));
}

/// The window is closed in between, as after a crash.
void TestBatchWindow::fiftyBrackets_stoppedAndStartedAgain_goOnWhereTheyWere()
{
    for (int i = 3; i < 50; ++i)
        pictures->addCameraBracket(QStringLiteral("d%1_").arg(i), 3, i, {96, 72});
    QFile damaged(pictures->path(QStringLiteral("d7_2.jpg")));
    QVERIFY(damaged.open(QIODevice::ReadWrite));
    QVERIFY(damaged.resize(damaged.size() * 2 / 3));
    damaged.close();
    open(50);
    part<QPushButton>("startButton")->click();
    QTRY_VERIFY_WITH_TIMEOUT(table()->count(State::Merged) >= 4, kPatienceMs);
    delete batch();
    const auto made = results().size();
    QVERIFY(made >= 4 && made < 49);
    const QStringList rest = QDir(pictures->path(QStringLiteral("merged")))
                                 .entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString &name : rest) // nothing half-written
        QVERIFY2(name.endsWith(QStringLiteral(" merged.jpg")) ||
                     name == QStringLiteral("veskhdr-batch.jsonl"),
                 qPrintable(name));
    window->findChild<EditorActions *>()->mergeBrackets->trigger();
    QTRY_COMPARE_WITH_TIMEOUT(table()->topLevelItemCount(), 50, kPatienceMs);
    runToTheEnd();
    QCOMPARE(table()->count(State::DoneAlready), made);
    QCOMPARE(table()->count(State::Merged), 49 - made);
    QCOMPARE(table()->count(State::Failed), 1);
    QCOMPARE(results().size(), 49);
}

void TestBatchWindow::pause_waitsBehindTheOneUnderWay()
{
    open(3);
    auto *start = part<QPushButton>("startButton");
    start->click();
    start->click();
    QCOMPARE(start->text(), QStringLiteral("Go O&n"));
    QTRY_VERIFY_WITH_TIMEOUT(table()->count(State::Merging) == 0, kPatienceMs);
    QVERIFY(table()->count(State::Merged) < 3);
    QVERIFY(part<QPushButton>("stopButton")->isEnabled());
    start->click();
    QTRY_COMPARE_WITH_TIMEOUT(table()->count(State::Merged), 3, kPatienceMs);
}

void TestBatchWindow::escape_whileRunning_stopsButStaysOpen()
{
    open(3);
    part<QPushButton>("startButton")->click();
    QTRY_VERIFY_WITH_TIMEOUT(table()->count(State::Merging) == 1, kPatienceMs);
    QTest::keyClick(batch(), Qt::Key_Escape);
    QTRY_VERIFY_WITH_TIMEOUT(!part<QPushButton>("stopButton")->isEnabled(), kPatienceMs);
    QVERIFY(batch()->isVisible());
    QVERIFY(table()->count(State::Stopped) >= 2);
    QTest::keyClick(batch(), Qt::Key_Escape);
    QTRY_VERIFY(!batch());
}

void TestBatchWindow::otherFolder_isDroppedOrTyped()
{
    open(3);
    const TestPictures other;
    other.addCameraBracket(QStringLiteral("x"), 4);
    part<QLineEdit>("inputLine")->setText(other.folder());
    QCOMPARE(table()->topLevelItemCount(), 0);
    QVERIFY(!part<QPushButton>("startButton")->isEnabled());
    QTRY_COMPARE_WITH_TIMEOUT(table()->topLevelItemCount(), 1, kPatienceMs);
    QVERIFY(part<QPushButton>("startButton")->isEnabled());
    part<QLineEdit>("inputLine")->setText(QStringLiteral("/no/such/folder"));
    QCOMPARE(table()->topLevelItemCount(), 0);
    QCOMPARE(said(), QStringLiteral("0 brackets to merge"));
}

QTEST_MAIN(TestBatchWindow)
#include "tst_BatchWindow.moc"
