#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>

#include <QtTest>

#include <memory>

namespace {

VeskLayer *newLayer(const QSize &size, const QColor &color,
                    QImage::Format format = QImage::Format_ARGB32)
{
    QImage image(size, format);
    image.fill(color);
    auto *const layer = new VeskLayer(color.name());
    layer->setVeskPictureHost(new VeskPictureHost(image));
    return layer;
}

} // namespace

class TestVeskLayerManager : public QObject
{
    Q_OBJECT

private slots:
    void newManager_hasNoLayerAndNoCurrent()
    {
        const VeskLayerManager layers;
        QCOMPARE(layers.count(), 0);
        QCOMPARE(layers.getCurrentIndex(), -1);
        QCOMPARE(layers.getCurrentLayer(), nullptr);
        QCOMPARE(layers.layerAt(0), nullptr);
        QCOMPARE(layers.size(), QSize(0, 0));
    }

    void addLayer_firstBecomesCurrentLaterOnesOnlyOnRequest()
    {
        VeskLayerManager layers;
        QSignalSpy current(&layers, &VeskLayerManager::currentLayerChanged);
        layers.addLayer(newLayer({2, 2}, Qt::red), false);
        QCOMPARE(layers.getCurrentIndex(), 0);
        layers.addLayer(newLayer({2, 2}, Qt::green), false);
        QCOMPARE(layers.getCurrentIndex(), 0);
        layers.addLayer(newLayer({2, 2}, Qt::blue), true);
        QCOMPARE(layers.getCurrentIndex(), 2);
        QCOMPARE(layers.getCurrentLayer(), layers.layerAt(2));
        QCOMPARE(current.count(), 2);
    }

    void addLayer_nullOrTwice_isIgnored()
    {
        VeskLayerManager layers;
        QSignalSpy changed(&layers, &VeskLayerManager::layersChanged);
        layers.addLayer(nullptr, true);
        QCOMPARE(layers.count(), 0);
        VeskLayer *const layer = newLayer({2, 2}, Qt::red);
        layers.addLayer(layer, true);
        layers.addLayer(layer, true);
        QCOMPARE(layers.count(), 1);
        QCOMPARE(changed.count(), 1);
    }

    void changeOfALayer_isReported()
    {
        VeskLayerManager layers;
        layers.addLayer(newLayer({2, 2}, Qt::red), true);
        QSignalSpy changed(&layers, &VeskLayerManager::layersChanged);
        layers.layerAt(0)->setAlpha(0.5F);
        QCOMPARE(changed.count(), 1);
    }

    void removeLayer_deletesItAndMovesCurrent_data()
    {
        QTest::addColumn<int>("current");
        QTest::addColumn<int>("removed");
        QTest::addColumn<int>("expected");
        QTest::newRow("below the current one") << 2 << 0 << 1;
        QTest::newRow("above the current one") << 0 << 2 << 0;
        QTest::newRow("the current one at the top") << 2 << 2 << 1;
        QTest::newRow("the current one at the bottom") << 0 << 0 << 0;
    }
    void removeLayer_deletesItAndMovesCurrent()
    {
        QFETCH(int, current);
        QFETCH(int, removed);
        QFETCH(int, expected);
        VeskLayerManager layers;
        for (const Qt::GlobalColor color : {Qt::red, Qt::green, Qt::blue})
            layers.addLayer(newLayer({2, 2}, color), false);
        layers.setCurrentIndex(current);
        const QPointer<VeskLayerBase> gone = layers.layerAt(removed);
        layers.removeLayer(removed);
        QVERIFY(gone.isNull());
        QCOMPARE(layers.count(), 2);
        QCOMPARE(layers.getCurrentIndex(), expected);
        QVERIFY(layers.getCurrentLayer());
    }

    void removeLayer_last_leavesNoCurrent()
    {
        VeskLayerManager layers;
        layers.addLayer(newLayer({2, 2}, Qt::red), true);
        QSignalSpy current(&layers, &VeskLayerManager::currentLayerChanged);
        layers.removeLayer(0);
        QCOMPARE(layers.getCurrentIndex(), -1);
        QCOMPARE(current.value(0).value(0).toInt(), -1);
    }

    void indexOutsideOfTheList_isIgnored()
    {
        VeskLayerManager layers;
        layers.addLayer(newLayer({2, 2}, Qt::red), true);
        layers.removeLayer(1);
        layers.removeLayer(-1);
        layers.setCurrentIndex(1);
        layers.setCurrentIndex(-1);
        QCOMPARE(layers.count(), 1);
        QCOMPARE(layers.getCurrentIndex(), 0);
    }

    void layerDeletedElsewhere_leavesTheList()
    {
        VeskLayerManager layers;
        layers.addLayer(newLayer({2, 2}, Qt::red), true);
        layers.addLayer(newLayer({2, 2}, Qt::green), true);
        delete layers.layerAt(1);
        QCOMPARE(layers.count(), 1);
        QCOMPARE(layers.getCurrentIndex(), 0);
    }

    void listenersOfLayersChanged_seeACurrentLayerThatExists()
    {
        VeskLayerManager layers;
        layers.addLayer(newLayer({2, 2}, Qt::red), true);
        layers.addLayer(newLayer({2, 2}, Qt::green), true);
        const VeskLayerBase *seen = nullptr;
        connect(&layers, &VeskLayerManager::layersChanged, this,
                [&] { seen = layers.getCurrentLayer(); });
        layers.removeLayer(1);
        QCOMPARE(seen, layers.layerAt(0));
    }

    void deletingTheManager_deletesItsLayers()
    {
        auto layers = std::make_unique<VeskLayerManager>();
        const QPointer<VeskLayerBase> layer = newLayer({2, 2}, Qt::red);
        layers->addLayer(layer, true);
        layers.reset();
        QVERIFY(layer.isNull());
    }
};

QTEST_GUILESS_MAIN(TestVeskLayerManager)
#include "tst_VeskLayerManager.moc"
