#include <VeskLayer.h>
#include <VeskPictureHost.h>

#include <QtTest>

namespace {

QImage filled(Qt::GlobalColor color)
{
    QImage image(4, 3, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

} // namespace

class TestVeskLayer : public QObject
{
    Q_OBJECT

private slots:
    void newLayer_hasNoPicture()
    {
        const VeskLayer layer(QStringLiteral("layer 0"));
        QCOMPARE(layer.getVeskPictureHost(), nullptr);
        QVERIFY(layer.picture().isNull());
    }

    void setVeskPictureHost_showsItsPictureWithoutCopy()
    {
        VeskLayer layer(QStringLiteral("layer 0"));
        auto *const host = new VeskPictureHost(filled(Qt::red));
        layer.setVeskPictureHost(host);
        QCOMPARE(layer.getVeskPictureHost(), host);
        QCOMPARE(layer.picture().constBits(), host->getImage().constBits());
    }

    void setVeskPictureHost_replacesAndDropsTheOld()
    {
        VeskLayer layer(QStringLiteral("layer 0"));
        QSignalSpy changed(&layer, &VeskLayerBase::changed);
        layer.setVeskPictureHost(new VeskPictureHost(filled(Qt::red)));
        layer.setVeskPictureHost(new VeskPictureHost(filled(Qt::blue)));
        QCOMPARE(layer.picture(), filled(Qt::blue));
        layer.setVeskPictureHost(layer.getVeskPictureHost());
        QCOMPARE(layer.picture(), filled(Qt::blue));
        QCOMPARE(changed.count(), 2);
        layer.setVeskPictureHost(nullptr);
        QVERIFY(layer.picture().isNull());
        QCOMPARE(changed.count(), 3);
    }
};

QTEST_GUILESS_MAIN(TestVeskLayer)
#include "tst_VeskLayer.moc"
