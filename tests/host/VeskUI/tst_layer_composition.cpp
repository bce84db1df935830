#include <layer_composition.h>

#include <VeskContext.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>

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

class LayerCompositionTest : public QObject
{
    Q_OBJECT

private slots:
    void visibleLayers_skipsHiddenAndTransparentAndEmptyOnes();
    void visibleLayers_withoutContext_isEmpty();
    void composedRegion_equalsThePictureInsideTheRegion();
    void composedRegion_outsideOfALayer_isTransparent();
    void composedRegion_mixesByOpacity();
    void composedRegion_upperLayerCoversLower();
    void isOpaque_needsOneFullOpaqueLayer();
};

void LayerCompositionTest::visibleLayers_skipsHiddenAndTransparentAndEmptyOnes()
{
    VeskContext context;
    addLayer(context, filled(QSize(4, 4), Qt::red));
    addLayer(context, filled(QSize(4, 4), Qt::green))->setVisible(false);
    addLayer(context, filled(QSize(4, 4), Qt::blue))->setAlpha(0);
    addLayer(context, QImage());
    addLayer(context, filled(QSize(5, 4), Qt::white))->setAlpha(0.5F);
    const std::vector<SourceLayer> layers = visibleLayers(&context);
    QCOMPARE(int(layers.size()), 2);
    QCOMPARE(layers[0].picture.pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(layers[1].opacity, 0.5);
}

void LayerCompositionTest::visibleLayers_withoutContext_isEmpty()
{
    QVERIFY(visibleLayers(nullptr).empty());
}

void LayerCompositionTest::composedRegion_equalsThePictureInsideTheRegion()
{
    QImage picture(QSize(37, 23), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb(x * 5, y * 9, (x * y) % 256));
    const QRect region(5, 3, 20, 17);
    const QImage composed = composedRegion({{picture, 1.0}}, region);
    QCOMPARE(composed.convertToFormat(QImage::Format_RGB32), picture.copy(region));
}

void LayerCompositionTest::composedRegion_outsideOfALayer_isTransparent()
{
    const QImage composed = composedRegion({{filled(QSize(4, 4), Qt::red), 1.0}}, {2, 2, 4, 4});
    QCOMPARE(composed.pixelColor(1, 1), QColor(Qt::red));
    QCOMPARE(composed.pixelColor(2, 2).alpha(), 0);
    QCOMPARE(composed.pixelColor(3, 1).alpha(), 0);
}

void LayerCompositionTest::composedRegion_mixesByOpacity()
{
    const QImage composed = composedRegion(
        {{filled(QSize(1, 1), Qt::black), 1.0}, {filled(QSize(1, 1), Qt::white), 0.5}},
        {0, 0, 1, 1});
    QVERIFY(qAbs(composed.pixelColor(0, 0).red() - 128) <= 1);
}

void LayerCompositionTest::composedRegion_upperLayerCoversLower()
{
    const QImage composed = composedRegion(
        {{filled(QSize(4, 4), Qt::red), 1.0}, {filled(QSize(2, 2), Qt::green), 1.0}}, {0, 0, 4, 4});
    QCOMPARE(composed.pixelColor(1, 1), QColor(Qt::green));
    QCOMPARE(composed.pixelColor(2, 2), QColor(Qt::red));
}

void LayerCompositionTest::isOpaque_needsOneFullOpaqueLayer()
{
    const QSize size(4, 4);
    const QImage opaque = filled(size, Qt::red, QImage::Format_RGB32);
    QVERIFY(isOpaque({{opaque, 1.0}}, size));
    QVERIFY(!isOpaque({{opaque, 0.9}}, size));
    QVERIFY(!isOpaque({{opaque, 1.0}}, QSize(5, 4)));
    QVERIFY(!isOpaque({{filled(size, Qt::red), 1.0}}, size));
    QVERIFY(!isOpaque({}, size));
}

QTEST_GUILESS_MAIN(LayerCompositionTest)
#include "tst_layer_composition.moc"
