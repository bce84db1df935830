#include <VeskPictureHost.h>

#include <QtTest>

class TestVeskPictureHost : public QObject
{
    Q_OBJECT

private slots:
    void emptyHost_hasNoPictureAndSizeZero()
    {
        const VeskPictureHost host;
        QVERIFY(host.getImage().isNull());
        QCOMPARE(host.getWidth(), 0);
        QCOMPARE(host.getHeight(), 0);
    }

    void host_keepsSizeFormatAndPixels()
    {
        QImage image(3, 2, QImage::Format_RGB32);
        image.fill(qRgb(10, 20, 30));
        const VeskPictureHost host(image);
        QCOMPARE(host.getWidth(), 3);
        QCOMPARE(host.getHeight(), 2);
        QCOMPARE(host.getImage(), image);
        QCOMPARE(host.getImage().format(), QImage::Format_RGB32);
    }

    void host_sharesPixelsUntilTheCallerChangesThem()
    {
        QImage image(2, 2, QImage::Format_RGB32);
        image.fill(Qt::red);
        const VeskPictureHost host(image);
        QCOMPARE(host.getImage().constBits(), image.constBits());
        image.fill(Qt::blue);
        QCOMPARE(host.getImage().pixelColor(0, 0), QColor(Qt::red));
    }
};

QTEST_GUILESS_MAIN(TestVeskPictureHost)
#include "tst_VeskPictureHost.moc"
