#include <VeskPictureHost.h>
#include <VeskPictureReader.h>

#include <QtTest>

#include <memory>

namespace {

/// Three pixels wide and two high, red at the left end of the first row.
QImage markedImage()
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setPixelColor(0, 0, Qt::red);
    return image;
}

} // namespace

class TestVeskPictureReader : public QObject
{
    Q_OBJECT

private slots:
    void readImageToHost_outlivesTheImage()
    {
        auto image = std::make_unique<QImage>(markedImage());
        VeskPictureReader reader(nullptr);
        const std::unique_ptr<VeskPictureHost> host(reader.ReadImageToHost(*image));
        image.reset();
        QCOMPARE(host->getImage(), markedImage());
    }

    void readImageToHost_nullImage_givesHostOfSizeZero()
    {
        QImage image;
        VeskPictureReader reader;
        const std::unique_ptr<VeskPictureHost> host(reader.ReadImageToHost(image));
        QVERIFY(host);
        QCOMPARE(host->getWidth(), 0);
    }
};

QTEST_GUILESS_MAIN(TestVeskPictureReader)
#include "tst_VeskPictureReader.moc"
