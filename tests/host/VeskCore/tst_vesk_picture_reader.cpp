#include <vesk_picture_host.h>
#include <vesk_picture_reader.h>

#include <QImageWriter>
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

private Q_SLOTS:
    void init() { QVERIFY(folder.isValid()); }

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

    void readFileToHost_foreignSuffix_isReadByContent()
    {
        const QString path = folder.filePath(QStringLiteral("really-png.jpg"));
        QVERIFY(markedImage().save(path, "PNG"));
        VeskPictureReader reader;
        const std::unique_ptr<VeskPictureHost> host(reader.ReadFileToHost(path));
        QVERIFY2(host, qPrintable(reader.lastError()));
        QCOMPARE(host->getImage().convertToFormat(QImage::Format_RGB32), markedImage());
        QVERIFY(reader.lastError().isEmpty());
    }

    void readFileToHost_turnedInTheFile_isUpright()
    {
        const QString path = folder.filePath(QStringLiteral("turned.tif"));
        QImageWriter writer(path, "tiff");
        if (!writer.supportsOption(QImageIOHandler::ImageTransformation))
            QSKIP("The toolkit's TIFF plug-in is not installed");
        writer.setTransformation(QImageIOHandler::TransformationRotate90);
        QVERIFY(writer.write(markedImage()));
        VeskPictureReader reader;
        const std::unique_ptr<VeskPictureHost> host(reader.ReadFileToHost(path));
        QVERIFY2(host, qPrintable(reader.lastError()));
        QCOMPARE(host->getWidth(), 2);
        QCOMPARE(host->getHeight(), 3);
        QCOMPARE(host->getImage().pixelColor(1, 0), QColor(Qt::red));
    }

    void readFileToHost_noPicture_isNullWithReason()
    {
        const QString path = folder.filePath(QStringLiteral("text.png"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("not a picture");
        file.close();
        VeskPictureReader reader;
        QCOMPARE(reader.ReadFileToHost(path), nullptr);
        QVERIFY(!reader.lastError().isEmpty());
        QCOMPARE(reader.ReadFileToHost(folder.filePath(QStringLiteral("missing.png"))), nullptr);
        QVERIFY(!reader.lastError().isEmpty());
    }

private:
    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(TestVeskPictureReader)
#include "tst_vesk_picture_reader.moc"
