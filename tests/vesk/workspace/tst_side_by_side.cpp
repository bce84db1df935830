#include "DocumentArea.h"
#include "DocumentHistory.h"
#include "DocumentPanes.h"
#include "DocumentTabs.h"
#include "EditMenu.h"
#include "EditorActions.h"
#include "EditorWindow.h"
#include "FilmStrip.h"
#include "MainWindow.h"

#include <VeskCanvas.h>
#include <VeskContext.h>

#include <QLabel>
#include <QMenu>
#include <QTest>
#include <QToolButton>

/// Two documents beside each other.
class TestSideBySide : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void oneDocument_nothingToCompareWith();
    void on_showsTheNextDocumentBeside();
    void locked_zoomAndPlaceMoveTogether();
    void locked_otherSize_showsTheSamePart();
    void locked_fitted_staysFitted();
    void unlocked_viewsMoveAlone_lockedAgainTheyMeet();
    void click_inTheOtherPane_makesItTheActiveOne();
    void list_fetchesADocumentOfTheOtherPane();
    void list_fetchingTheOnlyOne_changesPlaces();
    void fetched_showsThePlaceThatIsCompared();
    void opened_comesIntoTheActivePane();
    void merged_replacesTheActiveDocumentInItsPlace();
    void close_ofTheOnlyDocumentOfAPane_endsIt_data();
    void close_ofTheOnlyDocumentOfAPane_endsIt();
    void off_putsAllIntoOnePane();
    void closeOthers_leavesOnePane();

private:
    DocumentPanes *panes() const { return documents->panes(); }
    DocumentTabs *pane(int index) const
    {
        return static_cast<DocumentTabs *>(panes()->widget(index));
    }
    QAction *named(const char *name) const
    {
        return window->findChild<QAction *>(QLatin1String(name));
    }
    void openAll(const QList<QSize> &sizes)
    {
        window->resize(1200, 800);
        QStringList paths;
        for (const QSize &size : sizes)
            paths.append(pictures->add(QStringLiteral("%1.png").arg(paths.size()), size));
        openAndWait(paths);
        QTRY_COMPARE(current()->getFilePath(), paths.constLast());
        documents->makeCurrent(documents->documents().constFirst());
    }
    void compare(const QList<QSize> &sizes)
    {
        openAll(sizes);
        named("sideBySideAction")->trigger();
        QCOMPARE(panes()->count(), 2);
        QTRY_VERIFY(canvas(1)->isVisible() && canvas(1)->width() > 300);
    }
    VeskCanvas *canvas(int index) const { return pane(index)->frontCanvas(); }
    static QPointF middle(const VeskCanvas &canvas)
    {
        return canvas.toDocument(QRectF(canvas.rect()).center());
    }
    void clickCanvas(int index)
    {
        QTest::mouseClick(canvas(index), Qt::LeftButton, {}, canvas(index)->rect().center());
    }
    QList<QAction *> listed(int index) const
    {
        qobject_cast<QToolButton *>(pane(index)->cornerWidget())->click();
        auto *list = pane(index)->findChild<QMenu *>(QString(), Qt::FindDirectChildrenOnly);
        list->hide();
        return list->actions();
    }
    static void choose(const QList<QAction *> &actions, const QString &name)
    {
        for (QAction *action : actions) {
            if (action->text() == name)
                return action->trigger();
        }
        QFAIL("not in the list");
    }
};

void TestSideBySide::oneDocument_nothingToCompareWith()
{
    QVERIFY(!named("sideBySideAction")->isEnabled());
    openAll({{300, 200}});
    QVERIFY(!named("sideBySideAction")->isEnabled());
    panes()->setSideBySide(true);
    QCOMPARE(panes()->count(), 1);
}

void TestSideBySide::on_showsTheNextDocumentBeside()
{
    compare({{300, 200}, {310, 200}, {320, 200}});
    const QList<VeskContext *> all = documents->documents();
    QCOMPARE(current(), all.at(0));
    QCOMPARE(pane(1)->documents(), QList<VeskContext *>{all.at(1)});
    QVERIFY(canvas(0)->isVisible());
    QCOMPARE(canvas(1)->context(), all.at(1));
    QVERIFY(qAbs(pane(0)->width() - pane(1)->width()) < 20);
    QVERIFY(named("lockViewsAction")->isEnabled());
    QVERIFY(named("lockViewsAction")->isChecked());
}

void TestSideBySide::locked_zoomAndPlaceMoveTogether()
{
    compare({{3000, 2000}, {3000, 2000}});
    window->findChild<EditorActions *>()->zoomToActualSize->trigger();
    QCOMPARE(canvas(1)->zoom(), 1.0);
    QTest::keyClick(canvas(0), Qt::Key_Right);
    QVERIFY((middle(*canvas(0)) - middle(*canvas(1))).manhattanLength() < 2);
    QTest::keyClick(canvas(1), Qt::Key_Down); // also from the other side
    QTest::keyClick(canvas(1), Qt::Key_Down);
    canvas(1)->setZoom(2);
    QCOMPARE(canvas(0)->zoom(), 2.0);
    QVERIFY(middle(*canvas(0)).y() > 1050);
    QVERIFY((middle(*canvas(0)) - middle(*canvas(1))).manhattanLength() < 2);
}

void TestSideBySide::locked_otherSize_showsTheSamePart()
{
    compare({{3000, 2000}, {1500, 1000}});
    canvas(0)->showPlace(0.5, {900, 1200});
    QCOMPARE(canvas(1)->zoom(), 1.0);
    QVERIFY((middle(*canvas(0)) - 2 * middle(*canvas(1))).manhattanLength() < 6);
}

void TestSideBySide::locked_fitted_staysFitted()
{
    compare({{3000, 2000}, {3000, 2000}});
    canvas(0)->setZoom(1);
    QVERIFY(!canvas(1)->isFitted());
    canvas(0)->zoomToFit();
    QVERIFY(canvas(1)->isFitted());
    window->resize(900, 700);
    QVERIFY(canvas(0)->isFitted() && canvas(1)->isFitted());
}

void TestSideBySide::unlocked_viewsMoveAlone_lockedAgainTheyMeet()
{
    compare({{3000, 2000}, {3000, 2000}});
    named("lockViewsAction")->trigger();
    const double before = canvas(1)->zoom();
    canvas(0)->showPlace(1, {700, 800});
    QCOMPARE(canvas(1)->zoom(), before);
    canvas(1)->showPlace(2, {2000, 1500});
    clickCanvas(0);
    named("lockViewsAction")->trigger();
    QCOMPARE(canvas(1)->zoom(), 1.0);
    QVERIFY((middle(*canvas(1)) - QPointF(700, 800)).manhattanLength() < 3);
}

void TestSideBySide::click_inTheOtherPane_makesItTheActiveOne()
{
    compare({{300, 200}, {310, 210}});
    clickCanvas(1);
    QCOMPARE(current(), documents->documents().at(1));
    QCOMPARE(documents->currentCanvas(), canvas(1));
    QVERIFY(window->windowTitle().startsWith(QLatin1String("1.png")));
    QVERIFY(window->findChild<QLabel *>(QStringLiteral("sizeLabel"))->text().contains("310"));
    QVERIFY(canvas(0)->isVisible());
    window->findChild<EditMenu *>()->rotateLeft->trigger();
    QTRY_COMPARE(canvas(1)->canvasSize(), QSize(210, 310));
    QCOMPARE(canvas(0)->canvasSize(), QSize(300, 200));
    QTest::mouseClick(pane(0)->tabBar(), Qt::LeftButton, {},
                      pane(0)->tabBar()->tabRect(0).center());
    QCOMPARE(current(), documents->documents().at(0));
}

void TestSideBySide::list_fetchesADocumentOfTheOtherPane()
{
    compare({{300, 200}, {310, 200}, {320, 200}});
    choose(listed(1), QStringLiteral("2.png"));
    const QList<VeskContext *> all = documents->documents();
    QCOMPARE(pane(1)->documents(), (QList<VeskContext *>{all.at(1), all.at(2)}));
    QCOMPARE(pane(1)->frontDocument(), all.at(2));
    QCOMPARE(current(), all.at(2));
    QCOMPARE(pane(0)->documents(), QList<VeskContext *>{all.at(0)});
    QTRY_VERIFY(canvas(1)->isVisible() && canvas(0)->isVisible());
}

void TestSideBySide::list_fetchingTheOnlyOne_changesPlaces()
{
    compare({{300, 200}, {310, 200}});
    choose(listed(0), QStringLiteral("1.png"));
    const QList<VeskContext *> all = documents->documents();
    QCOMPARE(pane(0)->documents(), QList<VeskContext *>{all.at(1)});
    QCOMPARE(pane(1)->documents(), QList<VeskContext *>{all.at(0)});
    QTRY_VERIFY(canvas(1)->isVisible() && canvas(0)->isVisible());
}

void TestSideBySide::fetched_showsThePlaceThatIsCompared()
{
    compare({{3000, 2000}, {3000, 2000}, {3000, 2000}});
    canvas(0)->showPlace(1, {700, 800});
    choose(listed(1), QStringLiteral("2.png"));
    QCOMPARE(canvas(0)->zoom(), 1.0);
    QCOMPARE(canvas(1)->zoom(), 1.0);
    QTRY_VERIFY((middle(*canvas(1)) - QPointF(700, 800)).manhattanLength() < 3);
}

void TestSideBySide::opened_comesIntoTheActivePane()
{
    compare({{300, 200}, {310, 200}});
    clickCanvas(1);
    openAndWait({pictures->add(QStringLiteral("new.png"))});
    QCOMPARE(pane(1)->frontDocument(), current());
    QCOMPARE(pane(0)->count(), 1);
}

void TestSideBySide::merged_replacesTheActiveDocumentInItsPlace()
{
    compare({{300, 200}, {300, 200}});
    clickCanvas(1);
    VeskCanvas *right = canvas(1);
    strip->select({documents->documents().at(0)->getFilePath(), current()->getFilePath()});
    mergeSelected();
    QTRY_COMPARE(current()->getFileName(), QStringLiteral("Untitled Document"));
    QCOMPARE(panes()->count(), 2);
    QCOMPARE(pane(1)->documents(), QList<VeskContext *>{current()});
    QCOMPARE(canvas(1), right);
    QVERIFY(right->isVisible());
}

void TestSideBySide::close_ofTheOnlyDocumentOfAPane_endsIt_data()
{
    QTest::addColumn<int>("closed");
    QTest::newRow("left") << 0;
    QTest::newRow("right") << 1;
}

void TestSideBySide::close_ofTheOnlyDocumentOfAPane_endsIt()
{
    QFETCH(const int, closed);
    compare({{300, 200}, {310, 200}});
    VeskContext *kept = documents->documents().at(1 - closed);
    clickCanvas(closed);
    window->findChild<EditorActions *>()->close->trigger();
    QCOMPARE(panes()->count(), 1);
    QCOMPARE(current(), kept);
    QTRY_VERIFY(canvas(0)->isVisible());
    QCOMPARE(canvas(0)->context(), kept);
    QVERIFY(!named("sideBySideAction")->isChecked());
    QVERIFY(!named("lockViewsAction")->isEnabled());
}

void TestSideBySide::off_putsAllIntoOnePane()
{
    compare({{300, 200}, {310, 200}, {320, 200}});
    clickCanvas(1);
    VeskContext *active = current();
    named("sideBySideAction")->trigger();
    QCOMPARE(panes()->count(), 1);
    QCOMPARE(pane(0)->count(), 3);
    QCOMPARE(current(), active);
    QCOMPARE(pane(0)->frontDocument(), active);
    QTRY_VERIFY(canvas(0)->isVisible());
}

void TestSideBySide::closeOthers_leavesOnePane()
{
    compare({{300, 200}, {310, 200}, {320, 200}});
    VeskContext *kept = documents->documents().at(1);
    Q_EMIT documents->closeOthersRequested(kept);
    QCOMPARE(documents->documents(), QList<VeskContext *>{kept});
    QCOMPARE(panes()->count(), 1);
    QTRY_VERIFY(canvas(0)->isVisible());
}

QTEST_MAIN(TestSideBySide)
#include "tst_side_by_side.moc"
