#include "FilmStrip.h"
#include "FilmStripActions.h"
#include "FilmStripModel.h"
#include "TestPictures.h"

#include <VeskGlobalSettings.h>
#include <metadata_reader.h>
#include <picture_rating.h>

#include <QFile>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

#include <memory>

/// The strip with two brackets and a single picture among them: a1-a3, b, c1-c3; and its commands.
class TestFilmStripActions : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void click_onABracket_selectsItAndThenTheShot();
    void click_onASinglePicture_selectsThat();
    void returnKey_onABracket_asksForTheMerge();
    void nextBracket_goesFromBracketToBracket();
    void exposure_standsUnderTheThumbnailAndInTheTip();
    void digitKey_ratesWhatIsSelected();
    void rating_thatCannotBeSaved_isSaid();
    void sortBy_ordersAndIsRemembered_data();
    void sortBy_ordersAndIsRemembered();
    void hideResults_leavesThemOutAndIsRemembered();

private:
    void click(int row, Qt::KeyboardModifiers keys = {});
    QStringList shownNames() const;
    QAction *actionNamed(const QString &text) const;
    QStringList names(const QStringList &paths) const;

    std::unique_ptr<TestPictures> pictures;
    std::unique_ptr<FilmStrip> strip;
    std::unique_ptr<FilmStripActions> actions;
};

void TestFilmStripActions::init()
{
    QFile::remove(VeskGlobalSettings::configFilePath());
    pictures = std::make_unique<TestPictures>();
    pictures->addCameraBracket(QStringLiteral("a"), 3, 30);
    pictures->add(QStringLiteral("b.png"));
    pictures->addCameraBracket(QStringLiteral("c"), 3, 0);
    strip = std::make_unique<FilmStrip>();
    actions = std::make_unique<FilmStripActions>(strip.get());
    strip->resize(1400, 200);
    strip->show();
    QSignalSpy known(strip.get(), &FilmStrip::bracketsChanged);
    strip->setPictures(pictures::inFolder(pictures->folder()));
    QTRY_COMPARE(known.size(), 1);
    QCOMPARE(strip->bracketCount(), 2);
}

void TestFilmStripActions::cleanup()
{
    actions.reset();
    strip.reset();
}

void TestFilmStripActions::click(int row, Qt::KeyboardModifiers keys)
{
    QTest::mouseClick(strip->viewport(), Qt::LeftButton, keys,
                      strip->visualRect(strip->model()->index(row, 0)).center());
}

QStringList TestFilmStripActions::names(const QStringList &paths) const
{
    QStringList all;
    for (const QString &path : paths)
        all += QFileInfo(path).completeBaseName();
    return all;
}

QStringList TestFilmStripActions::shownNames() const
{
    QStringList paths;
    for (int row = 0; row < strip->model()->rowCount(); ++row)
        paths += strip->model()->index(row, 0).data(FilmStripModel::kPathRole).toString();
    return names(paths);
}

/// Of one of the menus in the menu.
QAction *TestFilmStripActions::actionNamed(const QString &text) const
{
    QMenu menu;
    actions->addTo(menu);
    const QList<QAction *> entries = menu.actions();
    for (const QAction *entry : entries) {
        const QList<QAction *> below =
            entry->menu() ? entry->menu()->actions() : QList<QAction *>();
        for (QAction *action : below)
            if (action->text() == text)
                return action;
    }
    return nullptr;
}

void TestFilmStripActions::click_onABracket_selectsItAndThenTheShot()
{
    click(1);
    QCOMPARE(names(strip->selectedPaths()), (QStringList{"a1", "a2", "a3"}));
    click(2);
    QCOMPARE(names(strip->selectedPaths()), QStringList{"a3"});
    click(2);
    QCOMPARE(names(strip->selectedPaths()), (QStringList{"a1", "a2", "a3"}));
    click(3, Qt::ControlModifier);
    QCOMPARE(names(strip->selectedPaths()), (QStringList{"a1", "a2", "a3", "b"}));
}

void TestFilmStripActions::click_onASinglePicture_selectsThat()
{
    click(1);
    click(3);
    QCOMPARE(names(strip->selectedPaths()), QStringList{"b"});
}

void TestFilmStripActions::returnKey_onABracket_asksForTheMerge()
{
    QSignalSpy merge(strip.get(), &FilmStrip::mergeRequested);
    QSignalSpy open(strip.get(), &FilmStrip::openRequested);
    click(0);
    QTest::keyClick(strip.get(), Qt::Key_Return);
    QCOMPARE(merge.size(), 1);
    QCOMPARE(open.size(), 0);
    click(0); // the shot alone
    QTest::keyClick(strip.get(), Qt::Key_Return);
    click(0);
    click(3, Qt::ControlModifier); // another picture among them
    QTest::keyClick(strip.get(), Qt::Key_Return);
    QCOMPARE(merge.size(), 1);
    QCOMPARE(open.size(), 2);
}

void TestFilmStripActions::nextBracket_goesFromBracketToBracket()
{
    QSignalSpy said(actions.get(), &FilmStripActions::said);
    actions->nextBracket->trigger();
    QCOMPARE(names(strip->selectedPaths()), (QStringList{"a1", "a2", "a3"}));
    QCOMPARE(strip->selectedBracket(), 1);
    actions->nextBracket->trigger();
    QCOMPARE(names(strip->selectedPaths()), (QStringList{"c1", "c2", "c3"}));
    QCOMPARE(said.last().first().toString(), QStringLiteral("Bracket 2 of 2"));
    actions->nextBracket->trigger();
    QCOMPARE(names(strip->selectedPaths()), (QStringList{"c1", "c2", "c3"}));
    QVERIFY(said.last().first().toString().contains(QStringLiteral("no further")));
    actions->previousBracket->trigger();
    QCOMPARE(names(strip->selectedPaths()), (QStringList{"a1", "a2", "a3"}));
}

void TestFilmStripActions::exposure_standsUnderTheThumbnailAndInTheTip()
{
    const QModelIndex dark = strip->model()->index(0, 0);
    QCOMPARE(dark.data(FilmStripModel::kExposureRole).toString(),
             QStringLiteral("−1.0 EV  1/200 s"));
    const QString tip = dark.data(Qt::ToolTipRole).toString();
    QVERIFY(tip.contains(QStringLiteral("1/200 s  f/8  ISO 100")));
    QVERIFY(tip.contains(QStringLiteral("Bracket of 3")));
    QVERIFY(tip.contains(QStringLiteral("10:30")));
    QVERIFY(
        dark.data(Qt::AccessibleTextRole).toString().contains(QStringLiteral("bracket 2 of 2")));
    QCOMPARE(strip->model()->index(3, 0).data(FilmStripModel::kExposureRole).toString(), QString());
}

void TestFilmStripActions::digitKey_ratesWhatIsSelected()
{
    click(0);
    QTest::keyClick(strip.get(), Qt::Key_4);
    for (int row = 0; row < 3; ++row)
        QCOMPARE(strip->model()->index(row, 0).data(FilmStripModel::kStarsRole).toInt(), 4);
    QCOMPARE(strip->model()->index(3, 0).data(FilmStripModel::kStarsRole).toInt(), 0);
    const QString path = pictures->path(QStringLiteral("a3.jpg"));
    QTRY_COMPARE(rating::in(metadata::read(path).xmp), 4);
    QVERIFY(pictures->names().contains(QStringLiteral("a1.jpg.xmp")));
}

void TestFilmStripActions::rating_thatCannotBeSaved_isSaid()
{
    QSignalSpy said(actions.get(), &FilmStripActions::said);
    QFile damaged(pictures->path(QStringLiteral("b.png.xmp")));
    QVERIFY(damaged.open(QIODevice::WriteOnly));
    damaged.write("no XMP");
    damaged.close();
    click(3);
    QTest::keyClick(strip.get(), Qt::Key_1);
    QTRY_COMPARE(said.size(), 1);
    QVERIFY(said.first().first().toString().contains(QStringLiteral("“b.png”")));
}

void TestFilmStripActions::sortBy_ordersAndIsRemembered_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QStringList>("order");
    QTest::newRow("name") << "&Name" << QStringList{"a1", "a2", "a3", "b", "c1", "c2", "c3"};
    QTest::newRow("time") << "&Time Taken" << QStringList{"c1", "c2", "c3", "a1", "a2", "a3", "b"};
    QTest::newRow("rating") << "&Rating" << QStringList{"b", "c1", "c2", "c3", "a1", "a2", "a3"};
}

void TestFilmStripActions::sortBy_ordersAndIsRemembered()
{
    QFETCH(QString, command);
    QFETCH(QStringList, order);
    QVERIFY(actionNamed(command));
    click(3);
    QTest::keyClick(strip.get(), Qt::Key_5);
    click(5);
    click(5);
    QTest::keyClick(strip.get(), Qt::Key_2); // the second shot of a bracket alone
    actionNamed(command)->trigger();
    QCOMPARE(shownNames(), order);
    QCOMPARE(names(strip->selectedPaths()), QStringList{"c2"});
    FilmStrip another;
    const FilmStripActions anotherActions(&another);
    QCOMPARE(another.order()->key(), strip->order()->key());
}

void TestFilmStripActions::hideResults_leavesThemOutAndIsRemembered()
{
    pictures->addResult(QStringLiteral("d.jpg"), {pictures->path(QStringLiteral("a1.jpg"))});
    QSignalSpy known(strip.get(), &FilmStrip::bracketsChanged);
    strip->setPictures(pictures::inFolder(pictures->folder()));
    QTRY_COMPARE(known.size(), 1);
    QCOMPARE(shownNames().size(), 8);
    QCOMPARE(strip->model()->index(7, 0).data(FilmStripModel::kExposureRole).toString(),
             QStringLiteral("merged"));
    actions->hideResults->trigger();
    QCOMPARE(shownNames().size(), 7);
    QVERIFY(!shownNames().contains(QStringLiteral("d")));
    FilmStrip another;
    const FilmStripActions anotherActions(&another);
    QVERIFY(another.order()->areResultsHidden());
    actions->hideResults->trigger();
    QCOMPARE(shownNames().size(), 8);
}

QTEST_MAIN(TestFilmStripActions)
#include "tst_FilmStripActions.moc"
