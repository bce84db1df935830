#include <layer_composition.h>

#include <VeskContext.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>

#include <QColorSpace>
#include <QtTest>

namespace {

QImage filled(const QSize &size, const QColor &color,
              QImage::Format format = QImage::Format_ARGB32_Premultiplied)
{
    QImage image(size, format);
    image.fill(color);
    return image;
}

VeskLayer *addLayer(VeskContext &context, const QImage &picture)
{
    auto *layer = new VeskLayer("layer");
    layer->setVeskPictureHost(new VeskPictureHost(picture));
    context.getLayerManager()->addLayer(layer, true);
    return layer;
}

} // namespace

class TestLayerComposition : public QObject
{
    Q_OBJECT

private slots:
    void visibleLayers_skipsHiddenAndTransparentAndEmptyOnes();
    void visibleLayers_withoutContext_isEmpty();
    void composedRegion_equalsThePictureInsideTheRegion();
    void composedRegion_outsideOfALayer_isTransparent();
    void composedRegion_mixesByOpacity();
    void composedRegion_upperLayerCoversLower();
    void composedRegion_deepLayer_isRoundedTo8BitsOrKept();
    void composedPicture_deepLayers_keep16Bits();
    void composedPicture_oneOpaqueLayer_sharesItsPixels();
    void composedPicture_stacksVisibleLayersByOpacity();
    void composedPicture_severalLayers_keepsProfileAndResolutionOfTheLowest();
    void composedPicture_layerWithPixelRatio_fillsItsPixels();
    void composedPicture_allHidden_isNull();
    void composedPicture_equalsWhatIsShownRegionByRegion();
    void isOpaque_needsOneFullOpaqueLayer();
};

void TestLayerComposition::visibleLayers_skipsHiddenAndTransparentAndEmptyOnes()
{
    VeskContext context;
    addLayer(context, filled(QSize(4, 4), Qt::red));
    addLayer(context, filled(QSize(4, 4), Qt::green))->setVisible(false);
    addLayer(context, filled(QSize(4, 4), Qt::blue))->setAlpha(0);
    addLayer(context, QImage());
    addLayer(context, filled(QSize(5, 4), Qt::white))->setAlpha(0.5F);
    const std::vector<SourceLayer> layers = composition::visibleLayers(&context);
    QCOMPARE(int(layers.size()), 2);
    QCOMPARE(layers[0].picture.pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(layers[1].opacity, 0.5);
}

void TestLayerComposition::visibleLayers_withoutContext_isEmpty()
{
    QVERIFY(composition::visibleLayers(nullptr).empty());
}

void TestLayerComposition::composedRegion_equalsThePictureInsideTheRegion()
{
    QImage picture(QSize(37, 23), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb(x * 5, y * 9, (x * y) % 256));
    const QRect region(5, 3, 20, 17);
    const QImage composed = composition::composedRegion({{picture, 1.0}}, region);
    QCOMPARE(composed.convertToFormat(QImage::Format_RGB32), picture.copy(region));
}

void TestLayerComposition::composedRegion_outsideOfALayer_isTransparent()
{
    const QImage composed =
        composition::composedRegion({{filled(QSize(4, 4), Qt::red), 1.0}}, {2, 2, 4, 4});
    QCOMPARE(composed.pixelColor(1, 1), QColor(Qt::red));
    QCOMPARE(composed.pixelColor(2, 2).alpha(), 0);
    QCOMPARE(composed.pixelColor(3, 1).alpha(), 0);
}

void TestLayerComposition::composedRegion_mixesByOpacity()
{
    const QImage composed = composition::composedRegion(
        {{filled(QSize(1, 1), Qt::black), 1.0}, {filled(QSize(1, 1), Qt::white), 0.5}},
        {0, 0, 1, 1});
    QVERIFY(qAbs(composed.pixelColor(0, 0).red() - 128) <= 1);
}

void TestLayerComposition::composedRegion_upperLayerCoversLower()
{
    const QImage composed = composition::composedRegion(
        {{filled(QSize(4, 4), Qt::red), 1.0}, {filled(QSize(2, 2), Qt::green), 1.0}}, {0, 0, 4, 4});
    QCOMPARE(composed.pixelColor(1, 1), QColor(Qt::green));
    QCOMPARE(composed.pixelColor(2, 2), QColor(Qt::red));
}

void TestLayerComposition::composedRegion_deepLayer_isRoundedTo8BitsOrKept()
{
    QImage picture(257, 257, QImage::Format_RGBX64);
    for (int y = 0; y < picture.height(); ++y) {
        auto *row = reinterpret_cast<QRgba64 *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const int level = std::min(257 * y + x, 65535);
            row[x] = QRgba64::fromRgba64(quint16(level), quint16(65535 - level), 0, 0xFFFF);
        }
    }
    const std::vector<SourceLayer> layers{{picture, 1.0}};
    QCOMPARE(composition::bitsPerChannel(layers), 16);
    const QImage shown = composition::composedRegion(layers, picture.rect());
    const QImage kept = composition::composedRegion(layers, picture.rect(), 16);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgba64 pixel = picture.pixelColor(x, y).rgba64();
            QCOMPARE(qRed(shown.pixel(x, y)), qRound(pixel.red() / 257.0));
            QCOMPARE(kept.pixelColor(x, y).rgba64(), pixel);
        }
    }
}

void TestLayerComposition::composedPicture_deepLayers_keep16Bits()
{
    VeskContext context;
    addLayer(context,
             filled(QSize(4, 4), QColor::fromRgba64(1000, 2000, 3000), QImage::Format_RGBX64));
    addLayer(context, filled(QSize(2, 4), Qt::white))->setAlpha(0.5F);
    const QImage composed = composition::composedPicture(&context);
    QCOMPARE(composed.pixelColor(3, 3), QColor::fromRgba64(1000, 2000, 3000));
    constexpr int kOpacityStep = 65535 / 255; // the painter knows 256 opacities
    QVERIFY(qAbs(composed.pixelColor(0, 0).rgba64().red() - (1000 + 65535) / 2) <= kOpacityStep);
    QCOMPARE(composition::pixelColor(composition::visibleLayers(&context), {3, 3}),
             QColor::fromRgba64(1000, 2000, 3000));
}

void TestLayerComposition::composedPicture_oneOpaqueLayer_sharesItsPixels()
{
    VeskContext context;
    const VeskLayer *layer = addLayer(context, filled({2, 2}, Qt::red, QImage::Format_RGB32));
    QCOMPARE(composition::composedPicture(&context).constBits(), layer->picture().constBits());
}

void TestLayerComposition::composedPicture_stacksVisibleLayersByOpacity()
{
    VeskContext context;
    addLayer(context, filled({4, 2}, Qt::black));
    addLayer(context, filled({2, 3}, Qt::white))->setAlpha(0.5F);
    addLayer(context, filled({4, 3}, Qt::red))->setVisible(false);
    const QImage composed = composition::composedPicture(&context);
    QCOMPARE(composed.size(), QSize(4, 3));
    QVERIFY(qAbs(qRed(composed.pixel(0, 0)) - 128) <= 1);
    QCOMPARE(qAlpha(composed.pixel(0, 0)), 255);
    QCOMPARE(composed.pixelColor(3, 0), QColor(Qt::black));
    QVERIFY(qAbs(qAlpha(composed.pixel(0, 2)) - 128) <= 1);
    QCOMPARE(qAlpha(composed.pixel(3, 2)), 0);
}

void TestLayerComposition::composedPicture_severalLayers_keepsProfileAndResolutionOfTheLowest()
{
    QImage lowest = filled({4, 4}, Qt::red, QImage::Format_RGB32);
    lowest.setColorSpace(QColorSpace::DisplayP3);
    lowest.setDotsPerMeterX(11811);
    lowest.setDotsPerMeterY(5906);
    VeskContext context;
    addLayer(context, lowest);
    addLayer(context, filled({4, 4}, Qt::blue))->setAlpha(0.5F);
    const QImage composed = composition::composedPicture(&context);
    QCOMPARE(composed.colorSpace(), QColorSpace(QColorSpace::DisplayP3));
    QCOMPARE(composed.dotsPerMeterX(), 11811);
    QCOMPARE(composed.dotsPerMeterY(), 5906);
}

void TestLayerComposition::composedPicture_layerWithPixelRatio_fillsItsPixels()
{
    QImage dense = filled({4, 4}, Qt::red, QImage::Format_RGB32);
    dense.setDevicePixelRatio(2.0);
    VeskContext context;
    addLayer(context, filled({4, 4}, Qt::blue));
    addLayer(context, dense);
    QCOMPARE(composition::composedPicture(&context).pixelColor(3, 3), QColor(Qt::red));
}

void TestLayerComposition::composedPicture_allHidden_isNull()
{
    VeskContext context;
    QVERIFY(composition::composedPicture(&context).isNull());
    addLayer(context, filled({2, 2}, Qt::red))->setVisible(false);
    QVERIFY(composition::composedPicture(&context).isNull());
    QVERIFY(composition::composedPicture(nullptr).isNull());
}

void TestLayerComposition::composedPicture_equalsWhatIsShownRegionByRegion()
{
    VeskContext context;
    addLayer(context, filled({7, 5}, QColor(10, 200, 30)));
    addLayer(context, filled({3, 11}, QColor(250, 20, 130, 90)))->setAlpha(0.3F);
    const QImage whole = composition::composedPicture(&context);
    const QRect region(2, 1, 3, 7);
    QCOMPARE(composition::composedRegion(composition::visibleLayers(&context), region),
             whole.copy(region));
}

void TestLayerComposition::isOpaque_needsOneFullOpaqueLayer()
{
    const QSize size(4, 4);
    const QImage opaque = filled(size, Qt::red, QImage::Format_RGB32);
    QVERIFY(composition::isOpaque({{opaque, 1.0}}, size));
    QVERIFY(!composition::isOpaque({{opaque, 0.9}}, size));
    QVERIFY(!composition::isOpaque({{opaque, 1.0}}, QSize(5, 4)));
    QVERIFY(!composition::isOpaque({{filled(size, Qt::red), 1.0}}, size));
    QVERIFY(!composition::isOpaque({}, size));
}

QTEST_GUILESS_MAIN(TestLayerComposition)
#include "tst_layer_composition.moc"
