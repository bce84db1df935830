#include "FilmStrip.h"
#include "FilmStripModel.h"
#include "TestPictures.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <memory>

class TestFilmStrip : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void narrowDock_cutsNoNameOff();
    void selectedPaths_areInTheOrderShown();
    void setPictures_keepsTheSelectionOfFilesThatStay();
    void select_beforeTheListing_isAppliedWithIt();
    void otherFolder_isShownFromItsStart();
    void returnKey_opensAllSelected();
    void doubleClick_opensThatFile();
    void wheel_scrollsAlongTheRow();
    void data_makesThumbnailsWhenAsked();
    void data_changedFile_getsANewThumbnail();
    void data_staleThumbnail_isDropped();

private:
    QList<FolderEntry> list() const { return pictures::inFolder(pictures->folder()); }

    std::unique_ptr<TestPictures> pictures; // a.png, b.png and c.png
};

static QPoint middleOf(const FilmStrip &strip, int row)
{
    return strip.visualRect(strip.model()->index(row, 0)).center();
}

void TestFilmStrip::init()
{
    pictures = std::make_unique<TestPictures>();
    for (const char *name : {"a.png", "b.png", "c.png"})
        pictures->add(QLatin1String(name));
}

/// Also where there are more pictures than fit, and the scroll bar takes its place.
void TestFilmStrip::narrowDock_cutsNoNameOff()
{
    FilmStrip strip;
    strip.setPictures(list());
    strip.resize(200, 20);
    strip.show();
    QVERIFY(strip.horizontalScrollBar()->isVisible());
    const QRect cell = strip.visualRect(strip.model()->index(0, 0));
    QVERIFY(strip.viewport()->rect().top() <= cell.top());
    QVERIFY(strip.viewport()->rect().bottom() >= cell.bottom());
    QVERIFY(cell.height() >= strip.iconSize().height() + strip.fontMetrics().height());
}

void TestFilmStrip::selectedPaths_areInTheOrderShown()
{
    FilmStrip strip;
    strip.resize(800, 150);
    strip.setPictures(list());
    strip.show();
    QSignalSpy changed(&strip, &FilmStrip::selectedPathsChanged);
    QTest::mouseClick(strip.viewport(), Qt::LeftButton, {}, middleOf(strip, 2));
    QTest::mouseClick(strip.viewport(), Qt::LeftButton, Qt::ControlModifier, middleOf(strip, 0));
    QCOMPARE(strip.selectedPaths(), (QStringList{pictures->path(QStringLiteral("a.png")),
                                                 pictures->path(QStringLiteral("c.png"))}));
    QVERIFY(changed.size() >= 2);
}

void TestFilmStrip::setPictures_keepsTheSelectionOfFilesThatStay()
{
    FilmStrip strip;
    strip.setPictures(list());
    const QString b = pictures->path(QStringLiteral("b.png"));
    strip.select({b, pictures->path(QStringLiteral("c.png"))});
    pictures->add(QStringLiteral("aa.png"));
    QVERIFY(QFile::remove(pictures->path(QStringLiteral("c.png"))));
    strip.setPictures(list());
    QCOMPARE(strip.selectedPaths(), QStringList{b});
    QCOMPARE(strip.model()->rowCount(), 3);
    QCOMPARE(strip.model()->index(1, 0).data().toString(), QStringLiteral("aa.png"));
}

void TestFilmStrip::select_beforeTheListing_isAppliedWithIt()
{
    FilmStrip strip;
    const QString b = pictures->path(QStringLiteral("b.png"));
    strip.select({b});
    QVERIFY(strip.selectedPaths().isEmpty());
    strip.setPictures(list());
    QCOMPARE(strip.selectedPaths(), QStringList{b});
}

/// And stays where the user is looking while the folder's files come and go.
void TestFilmStrip::otherFolder_isShownFromItsStart()
{
    const auto entries = [](const QString &folder, int count) {
        QList<FolderEntry> all;
        for (int i = 0; i < count; ++i)
            all.append({folder + QStringLiteral("/%1.png").arg(100 + i), {}});
        return all;
    };
    FilmStrip strip;
    strip.resize(400, 150);
    strip.setPictures(entries(QStringLiteral("/one"), 40));
    strip.show();
    strip.horizontalScrollBar()->setValue(900);
    QCOMPARE(strip.horizontalScrollBar()->value(), 900);
    strip.setPictures(entries(QStringLiteral("/one"), 41));
    QCOMPARE(strip.horizontalScrollBar()->value(), 900);
    strip.setPictures(entries(QStringLiteral("/two"), 40));
    QCOMPARE(strip.horizontalScrollBar()->value(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(strip.horizontalScrollBar()->value(), 0);
}

void TestFilmStrip::returnKey_opensAllSelected()
{
    FilmStrip strip;
    strip.setPictures(list());
    QSignalSpy opened(&strip, &FilmStrip::openRequested);
    QTest::keyClick(&strip, Qt::Key_Return);
    QCOMPARE(opened.size(), 0);
    strip.selectAll();
    QTest::keyClick(&strip, Qt::Key_Return);
    QCOMPARE(opened.size(), 1);
    QCOMPARE(opened.at(0).at(0).toStringList().size(), 3);
}

void TestFilmStrip::doubleClick_opensThatFile()
{
    FilmStrip strip;
    strip.resize(800, 150);
    strip.setPictures(list());
    strip.show();
    QSignalSpy opened(&strip, &FilmStrip::openRequested);
    QTest::mouseClick(strip.viewport(), Qt::LeftButton, {}, middleOf(strip, 1));
    QTest::mouseDClick(strip.viewport(), Qt::LeftButton, {}, middleOf(strip, 1));
    QCOMPARE(opened.size(), 1);
    QCOMPARE(opened.at(0).at(0).toStringList(),
             QStringList{pictures->path(QStringLiteral("b.png"))});
}

void TestFilmStrip::wheel_scrollsAlongTheRow()
{
    FilmStrip strip;
    strip.resize(200, 150);
    strip.setPictures(list());
    strip.show();
    QCOMPARE(strip.horizontalScrollBar()->value(), 0);
    QWheelEvent down({10, 10}, strip.viewport()->mapToGlobal(QPoint(10, 10)), {}, {0, -120},
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(strip.viewport(), &down);
    QVERIFY(strip.horizontalScrollBar()->value() > 0);
}

static QImage thumbnailOf(const FilmStripModel &model, int row)
{
    return model.data(model.index(row), Qt::DecorationRole)
        .value<QIcon>()
        .pixmap(FilmStripModel::kThumbnailSide)
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

void TestFilmStrip::data_makesThumbnailsWhenAsked()
{
    const TestPictures folder;
    folder.add(QStringLiteral("x.png"), {40, 30}, 3);
    FilmStripModel model;
    model.setPictures(pictures::inFolder(folder.folder()));
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QVERIFY(thumbnailOf(model, 0) != TestPictures::texture({40, 30}, 3));
    QTRY_COMPARE(thumbnailOf(model, 0), TestPictures::texture({40, 30}, 3));
    QCOMPARE(changed.size(), 1);
}

void TestFilmStrip::data_changedFile_getsANewThumbnail()
{
    const TestPictures folder;
    const QString path = folder.add(QStringLiteral("x.png"), {40, 30}, 3);
    FilmStripModel model;
    model.setPictures({{path, QDateTime::fromSecsSinceEpoch(1)}});
    QTRY_COMPARE(thumbnailOf(model, 0), TestPictures::texture({40, 30}, 3));
    folder.add(QStringLiteral("x.png"), {40, 30}, 4);
    model.setPictures({{path, QDateTime::fromSecsSinceEpoch(2)}});
    QTRY_COMPARE(thumbnailOf(model, 0), TestPictures::texture({40, 30}, 4));
}

void TestFilmStrip::data_staleThumbnail_isDropped()
{
    const TestPictures folder;
    const QString path = folder.add(QStringLiteral("x.png"), {40, 30}, 3);
    FilmStripModel model;
    model.setPictures({{path, QDateTime::fromSecsSinceEpoch(1)}});
    thumbnailOf(model, 0); // asks for it
    model.setPictures({});
    model.setPictures({{path, QDateTime::fromSecsSinceEpoch(2)}});
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    folder.add(QStringLiteral("x.png"), {40, 30}, 4);
    thumbnailOf(model, 0);
    QTRY_COMPARE(changed.size(), 1); // the first answer is not taken for the second
    QCOMPARE(thumbnailOf(model, 0), TestPictures::texture({40, 30}, 4));
}

QTEST_MAIN(TestFilmStrip)
#include "tst_FilmStrip.moc"
