#include "SharpView.h"

#include <DocumentHistory.h>
#include <TestPictures.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>
#include <area_mean.h>
#include <picture_document.h>

#include <QColorSpace>
#include <QtTest>

#include <memory>

class TestSharpView : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        window = std::make_unique<QWidget>();
        picture = TestPictures::texture({1800, 1200}, 1).convertToFormat(QImage::Format_RGB32);
        document.reset(document::create(picture, {}, {}, window.get()));
        canvas = document->getCanvas();
        canvas->resize(640, 480);
        window->resize(640, 480);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }
    void cleanup()
    {
        document.reset();
        window.reset();
    }

    void fittedView_isTheMeanOfAllPixels()
    {
        const QImage soft = seen();
        new SharpView(canvas);
        QTRY_COMPARE(seen(), reduced(picture));
        QVERIFY(soft != seen());
    }

    void detail_isTheMeanOfItsPixels()
    {
        new SharpView(canvas);
        canvas->showPlace(0.7, {900, 600});
        QTRY_COMPARE(seen(), reduced(picture));
        canvas->showPlace(0.45, {300, 600});
        QTRY_COMPARE(seen(), reduced(picture));
    }

    void layersChange_areSeen()
    {
        new SharpView(canvas);
        QTRY_COMPARE(seen(), reduced(picture));
        QImage other = picture;
        other.invertPixels();
        document::setLayerPictures(*document, {other});
        QVERIFY(seen() != reduced(picture));
        QTRY_COMPARE(seen(), reduced(other));
    }

    void severalLayers_areComposed()
    {
        new SharpView(canvas);
        auto *upper = new VeskLayer(QStringLiteral("upper"));
        QImage white(1800, 1200, QImage::Format_RGB32);
        white.fill(Qt::white);
        upper->setVeskPictureHost(new VeskPictureHost(white));
        upper->setAlpha(0.5F);
        document->getLayerManager()->addLayer(upper, true);
        const QColor below = reduced(picture).pixelColor(100, 100);
        QTRY_VERIFY(std::abs(seen().pixelColor(100, 100).red() - (below.red() + 255) / 2) <= 1);
    }

    /// Which would take long, or hold up painting.
    void otherFormats_areLeftToTheReducedCopies()
    {
        document::setLayerPictures(*document, {picture.convertToFormat(QImage::Format_ARGB32)});
        canvas->showPreview({canvas->sight(picture.size()), picture, picture});
        new SharpView(canvas);
        canvas->endPreview();
        QTRY_VERIFY(!canvas->preview()); // there was an answer
        QTest::qWait(100);
        QVERIFY(seen() != reduced(picture));
    }

    void destroyed_leavesTheCanvasAlone()
    {
        new SharpView(canvas);
        canvas->zoomIn();
        document.reset();
        window.reset();
    }

private:
    QImage seen()
    {
        const QRect place = canvas->sight(canvas->canvasSize()).place.toAlignedRect();
        return canvas->grab(place).toImage().convertToFormat(QImage::Format_RGB32);
    }
    QImage reduced(const QImage &whole)
    {
        const VeskCanvas::Sight sight = canvas->sight(canvas->canvasSize());
        QImage mean = picture::areaMean(whole, sight.pixels, sight.size);
        mean.setColorSpace({});
        return mean;
    }

    QImage picture;
    std::unique_ptr<QWidget> window;
    std::unique_ptr<VeskContext> document;
    VeskCanvas *canvas = nullptr;
};

QTEST_MAIN(TestSharpView)
#include "tst_SharpView.moc"
