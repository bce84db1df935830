#include <VeskCanvas.h>

#include <VeskContext.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>

#include <QtTest>

// Runs on a screen of two device pixels per unit, which the platform takes from the environment.
class TestCanvasHighDpi : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void actualSize_showsOneDocumentPixelPerDevicePixel();
    void fit_countsDevicePixels();
    void pointer_mapsToTheDocument();

private:
    VeskContext context;
    VeskCanvas canvas;
    QImage picture;
};

void TestCanvasHighDpi::initTestCase()
{
    picture = QImage(QSize(1600, 1200), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb(x % 256, y % 256, ((x + y) % 2) * 255));
    auto *layer = new VeskLayer(QStringLiteral("layer"));
    layer->setVeskPictureHost(new VeskPictureHost(picture));
    context.getLayerManager()->addLayer(layer, true);
    canvas.resize(400, 300);
    canvas.reSizeCanvas(picture.width(), picture.height(), true);
    canvas.attachContext(&context);
    QCOMPARE(canvas.devicePixelRatioF(), 2.0);
}

void TestCanvasHighDpi::actualSize_showsOneDocumentPixelPerDevicePixel()
{
    canvas.zoomToActualSize();
    canvas.moveToCenter(false);
    const QImage shown = canvas.grab().toImage().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(shown.size(), QSize(800, 600));
    QImage expected = picture.copy(400, 300, 800, 600);
    expected.setDevicePixelRatio(shown.devicePixelRatio());
    QCOMPARE(shown, expected);
}

void TestCanvasHighDpi::fit_countsDevicePixels()
{
    canvas.zoomToFit();
    QCOMPARE(canvas.zoom(), 0.5);
    QCOMPARE(canvas.toWidget(QPointF(1600, 1200)), QPointF(400, 300));
}

void TestCanvasHighDpi::pointer_mapsToTheDocument()
{
    canvas.zoomToFit();
    QCOMPARE(canvas.toDocument(QPointF(100, 30)), QPointF(400, 120));
}

QTEST_MAIN(TestCanvasHighDpi)
#include "tst_VeskCanvas_high_dpi.moc"
