#include "AdjustDock.h"
#include "ClippingOverlay.h"
#include "DocumentArea.h"
#include "DocumentHistory.h"
#include "DocumentPanes.h"
#include "EditMenu.h"
#include "EditorActions.h"
#include "EditorWindow.h"
#include "FilmStrip.h"
#include "HistogramView.h"
#include "MainWindow.h"
#include "PhotoDock.h"
#include "ThemeMenu.h"
#include "editor_settings.h"

#include <CropTool.h>
#include <LookPreview.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <metadata_reader.h>

#include <QApplication>
#include <QDockWidget>
#include <QMenuBar>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTabBar>
#include <QTest>
#include <QToolBar>

/// What is seen of pictures, and how.
class TestSeeing : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void fullScreen_hidesAllButThePicture();
    void fullScreen_f11_goesThereAndBack();
    void fullScreen_keysOfTheHiddenMenus_work();
    void fullScreen_keysOfATool_stayWithIt();
    void fullScreen_panesComeAndGo_nothingIsLeftHidden();
    void fullScreen_arrowKeys_walkTheFolder();
    void fullScreen_walking_keepsWhatWasChanged();
    void clipping_marksBothEnds();
    void clipping_isShownOverTheCanvas();
    void clipping_followsTheLookThatIsTried();
    void photograph_saysWhatTheCameraNoted();
    void theme_dark_isNeutralAndRemembered();
    void histogram_channelAndLogarithm_changeTheDrawing();

private:
    QAction *fullScreen() const { return window->findChild<EditorActions *>()->fullScreen; }
    void goFullScreen()
    {
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        fullScreen()->trigger();
        QVERIFY(window->isFullScreen());
    }
};

void TestSeeing::fullScreen_hidesAllButThePicture()
{
    openAndWait({pictures->add(QStringLiteral("a.png"))});
    const QList<QDockWidget *> docks = window->findChildren<QDockWidget *>();
    QList<QDockWidget *> shown;
    for (QDockWidget *dock : docks) {
        if (dock->isVisible())
            shown.append(dock);
    }
    goFullScreen();
    for (const QDockWidget *dock : docks)
        QVERIFY(!dock->isVisible());
    QVERIFY(!window->menuBar()->isVisible());
    QVERIFY(!window->statusBar()->isVisible());
    QVERIFY(!window->findChild<QToolBar *>()->isVisible());
    QVERIFY(documents->currentCanvas()->isVisible());
    fullScreen()->trigger();
    for (const QDockWidget *dock : qAsConst(shown))
        QVERIFY(dock->isVisible());
    QVERIFY(window->menuBar()->isVisible());
    QVERIFY(window->statusBar()->isVisible());
}

void TestSeeing::fullScreen_f11_goesThereAndBack()
{
    openAndWait({pictures->add(QStringLiteral("a.png"))});
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QTest::keyClick(window.get(), Qt::Key_F11);
    QVERIFY(window->isFullScreen());
    QTest::keyClick(window.get(), Qt::Key_F11);
    QVERIFY(!window->isFullScreen());
}

void TestSeeing::fullScreen_keysOfTheHiddenMenus_work()
{
    openAndWait({pictures->add(QStringLiteral("a.png"))});
    const QImage first = document::layerPictures(*current()).constFirst();
    goFullScreen();
    documents->currentCanvas()->setZoom(0.5);
    QTest::keyClick(window.get(), Qt::Key_1, Qt::ControlModifier);
    QCOMPARE(documents->currentCanvas()->zoom(), 1.0);
    QTest::keyClick(window.get(), Qt::Key_R, Qt::ControlModifier);
    QTRY_VERIFY(document::layerPictures(*current()).constFirst() != first);
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(document::layerPictures(*current()).constFirst(), first);
    QTest::keyClick(window.get(), Qt::Key_W, Qt::ControlModifier);
    QTRY_VERIFY(!current());
}

/// A tool on the picture has its keys, also those that mean something else on the full screen.
void TestSeeing::fullScreen_keysOfATool_stayWithIt()
{
    const QStringList files = pictures->addBracket(3, {300, 200});
    openAndWait({files.at(1)});
    goFullScreen();
    window->findChild<EditMenu *>()->crop->trigger();
    auto *tool = documents->currentCanvas()->findChild<CropTool *>();
    QTest::keyClick(tool, Qt::Key_Right);
    QTest::qWait(20);
    QCOMPARE(current()->getFilePath(), files.at(1));
    QTest::keyClick(tool, Qt::Key_Escape);
    QTRY_VERIFY(!documents->currentCanvas()->findChild<CropTool *>());
    QVERIFY(window->isFullScreen());
    QTest::keyClick(documents->currentCanvas(), Qt::Key_Escape);
    QVERIFY(!window->isFullScreen());
}

void TestSeeing::fullScreen_panesComeAndGo_nothingIsLeftHidden()
{
    openAndWait({pictures->add(QStringLiteral("a.png")), pictures->add(QStringLiteral("b.png"))});
    auto *panes = window->findChild<DocumentPanes *>();
    panes->setSideBySide(true);
    goFullScreen();
    panes->setSideBySide(false); // a hidden row of tabs goes
    panes->setSideBySide(true);
    const auto tabs = panes->findChildren<QTabBar *>();
    for (const QTabBar *each : tabs)
        QVERIFY(!each->isVisible());
    fullScreen()->trigger();
    const auto shown = panes->findChildren<QTabBar *>();
    QCOMPARE(shown.size(), 2);
    for (const QTabBar *each : shown)
        QVERIFY(each->isVisible());
}

void TestSeeing::fullScreen_arrowKeys_walkTheFolder()
{
    const QStringList files = pictures->addBracket(4, {30, 20});
    openAndWait({files.at(1)});
    QTRY_COMPARE(strip->paths(), files);
    goFullScreen();
    QTest::keyClick(window.get(), Qt::Key_Right);
    QTRY_COMPARE(current()->getFilePath(), files.at(2));
    QTest::keyClick(window.get(), Qt::Key_Right);
    QTRY_COMPARE(current()->getFilePath(), files.at(3));
    QTRY_COMPARE(documents->documents().size(), 2); // the first one, and where we are
    QTest::keyClick(window.get(), Qt::Key_Right);   // the end
    QTest::keyClick(window.get(), Qt::Key_Left);
    QTRY_COMPARE(current()->getFilePath(), files.at(2));
    fullScreen()->trigger();
    QTest::keyClick(window.get(), Qt::Key_Left); // pans, or nothing
    QCOMPARE(current()->getFilePath(), files.at(2));
}

void TestSeeing::fullScreen_walking_keepsWhatWasChanged()
{
    const QStringList files = pictures->addBracket(4, {30, 20});
    openAndWait({files.at(0)});
    QTRY_COMPARE(strip->paths(), files);
    goFullScreen();
    QTest::keyClick(window.get(), Qt::Key_Right);
    QTRY_COMPARE(current()->getFilePath(), files.at(1));
    current()->setSaveAble(true);
    QTest::keyClick(window.get(), Qt::Key_Right);
    QTRY_COMPARE(current()->getFilePath(), files.at(2));
    QCOMPARE(documents->documents().size(), 3);
}

void TestSeeing::clipping_marksBothEnds()
{
    QImage picture(4, 1, QImage::Format_RGB32);
    picture.setPixel(0, 0, qRgb(255, 10, 10));
    picture.setPixel(1, 0, qRgb(0, 0, 0));
    picture.setPixel(2, 0, qRgb(254, 254, 254));
    picture.setPixel(3, 0, qRgb(0, 0, 1));
    for (const QImage &each : {picture, picture.convertToFormat(QImage::Format_RGBX64)}) {
        const QImage mask = ClippingOverlay::mask(each, {0, 1, 2, 3}, {0});
        QCOMPARE(qAlpha(mask.pixel(0, 0)), 255);
        QVERIFY(qRed(mask.pixel(0, 0)) > qBlue(mask.pixel(0, 0)));
        QVERIFY(qBlue(mask.pixel(1, 0)) > qRed(mask.pixel(1, 0)));
        QCOMPARE(mask.pixel(2, 0), 0U);
        QCOMPARE(mask.pixel(3, 0), 0U);
    }
}

void TestSeeing::clipping_isShownOverTheCanvas()
{
    QImage white(80, 60, QImage::Format_RGB32);
    white.fill(Qt::white);
    const QString path = pictures->path(QStringLiteral("white.png"));
    white.save(path);
    openAndWait({path});
    VeskCanvas *canvas = documents->currentCanvas();
    const QPoint middle = canvas->toWidget({40, 30}).toPoint();
    QCOMPARE(canvas->grab().toImage().pixelColor(middle), QColor(Qt::white));
    const QList<QAction *> all = window->findChildren<QAction *>();
    for (QAction *action : all) {
        if (action->text().contains(QLatin1String("Clipping")))
            action->trigger();
    }
    QVERIFY(canvas->findChild<ClippingOverlay *>());
    QCOMPARE(canvas->grab().toImage().pixelColor(middle).green(), 0);
}

void TestSeeing::clipping_followsTheLookThatIsTried()
{
    QImage grey(80, 60, QImage::Format_RGB32);
    grey.fill(qRgb(200, 200, 200));
    const QString path = pictures->path(QStringLiteral("grey.png"));
    grey.save(path);
    openAndWait({path});
    auto *dock = window->findChild<AdjustDock *>();
    dock->show();
    window->findChild<QAction *>(QStringLiteral("clippingAction"))->trigger();
    VeskCanvas *canvas = documents->currentCanvas();
    const QPoint middle = canvas->toWidget({40, 30}).toPoint();
    QVERIFY(canvas->grab().toImage().pixelColor(middle).green() > 150);
    QSignalSpy ready(dock->preview(), &LookPreview::ready);
    exposure::Look brighter;
    brighter.exposure = 2;
    dock->setLook(brighter);
    QTRY_VERIFY(!ready.isEmpty());
    QVERIFY(!current()->isSaveAble()); // only tried
    QCOMPARE(canvas->grab().toImage().pixelColor(middle).green(), 0);
    dock->setLook({});
    QTRY_VERIFY(canvas->grab().toImage().pixelColor(middle).green() > 150);
}

void TestSeeing::photograph_saysWhatTheCameraNoted()
{
    Metadata metadata;
    using Directory = ExifTags::Directory;
    metadata.exif.setText(Directory::Picture, ExifTags::Make, "Maker");
    metadata.exif.setText(Directory::Picture, ExifTags::Model, "Maker X1");
    metadata.exif.setFraction(Directory::Exposure, ExifTags::ExposureTime, 1, 250);
    metadata.exif.setFraction(Directory::Exposure, ExifTags::FNumber, 28, 10);
    metadata.exif.setSignedFraction(Directory::Exposure, ExifTags::ExposureBias, -2, 1);
    const PhotoDock::Rows expected{{QStringLiteral("Camera"), QStringLiteral("Maker X1")},
                                   {QStringLiteral("Exposure time"), QStringLiteral("1/250 s")},
                                   {QStringLiteral("Aperture"), QStringLiteral("f/2.8")},
                                   {QStringLiteral("Correction"), QStringLiteral("-2 EV")}};
    QCOMPARE(PhotoDock::rowsOf(metadata), expected);
    QVERIFY(PhotoDock::rowsOf({}).isEmpty());
}

void TestSeeing::theme_dark_isNeutralAndRemembered()
{
    const QColor before = window->palette().color(QPalette::Window);
    settings::setTheme(QStringLiteral("dark"));
    ThemeMenu::applySettings();
    QTRY_VERIFY(window->palette().color(QPalette::Window) != before);
    const QColor ground = window->palette().color(QPalette::Window);
    QVERIFY(ground.lightness() < 80);
    QVERIFY(ground.red() == ground.green() && ground.green() == ground.blue());
    QCOMPARE(settings::theme(), QStringLiteral("dark"));
    settings::setTheme({});
    ThemeMenu::applySettings();
    QTRY_COMPARE(window->palette().color(QPalette::Window), before);
}

void TestSeeing::histogram_channelAndLogarithm_changeTheDrawing()
{
    HistogramView view;
    view.resize(256, 140);
    VeskCanvas::Histogram counts;
    for (size_t i = 0; i < 256; ++i) {
        counts.red[i] = 1000;
        counts.green[i] = quint32(i);
        counts.luminosity[i] = 3;
    }
    view.setHistogram(counts);
    const QImage all = view.grab().toImage();
    view.setChannel(HistogramView::Channel::Red);
    const QImage red = view.grab().toImage();
    QVERIFY(red != all);
    const QColor inside = red.pixelColor(128, 100);
    QVERIFY(inside.red() > 150 && inside.green() < 80);
    view.setChannel(HistogramView::Channel::Green);
    const QImage straight = view.grab().toImage();
    view.setLogarithmic(true);
    const QImage logarithmic = view.grab().toImage();
    const auto height = [](const QImage &image) {
        int rows = 0;
        for (int y = 0; y < image.height(); ++y)
            rows += image.pixelColor(30, y).green() > 100;
        return rows;
    };
    QVERIFY(height(logarithmic) > height(straight));
}

QTEST_MAIN(TestSeeing)
#include "tst_seeing.moc"
