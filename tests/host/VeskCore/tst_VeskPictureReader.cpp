#include <VeskGlobalSettings.h>
#include <VeskPictureHost.h>
#include <VeskPictureReader.h>

#include <QImageWriter>
#include <QtTest>

#include <memory>

#include <sys/stat.h>

namespace {

/// A GIF file with one white picture of 1 x 1 on a screen of that size; a side of 0 is "as needed".
QByteArray gifOnScreen(int width, int height)
{
    QByteArray bytes("GIF89a");
    for (const int side : {width, height})
        bytes.append(char(side & 255)).append(char(side >> 8));
    bytes += QByteArray::fromHex("800000000000ffffff"     // two colours, black and white
                                 "2c00000000010001000002" // at 0, 0 of size 1 x 1
                                 "024401003b");           // one white pixel
    return bytes;
}

class MegapixelLimit
{
public:
    explicit MegapixelLimit(int megapixels) { set(megapixels); }
    ~MegapixelLimit() { set(QVariant()); }

private:
    static void set(const QVariant &value)
    {
        VeskGlobalSettings::getInstance()->setValue(QStringLiteral("maxMegapixels"), value);
    }
};

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

    void readFileToHost_moreThanTheLimit_isRefusedFromTheHeader_data()
    {
        QTest::addColumn<QByteArray>("format");
        for (const char *format : {"png", "jpeg", "bmp", "ppm"})
            QTest::newRow(format) << QByteArray(format);
    }

    void readFileToHost_moreThanTheLimit_isRefusedFromTheHeader()
    {
        QFETCH(QByteArray, format);
        QImage image(1001, 1000, QImage::Format_RGB32);
        image.fill(Qt::white);
        const QString large = folder.filePath(QStringLiteral("large"));
        QVERIFY(image.save(large, format.constData()));
        QVERIFY(image.copy(0, 0, 1000, 1000).save(path(), format.constData()));
        const MegapixelLimit limit(1);
        VeskPictureReader reader;
        QCOMPARE(reader.ReadFileToHost(large), nullptr);
        QCOMPARE(reader.lastError(),
                 QStringLiteral("the picture is too large (1001 x 1000 pixels)"));
        const std::unique_ptr<VeskPictureHost> host(reader.ReadFileToHost(path()));
        QVERIFY2(host, qPrintable(reader.lastError()));
        QCOMPARE(host->getWidth(), 1000);
    }

    void readFileToHost_gifOnALargerScreen_isLimitedByTheScreen_data()
    {
        QTest::addColumn<QSize>("screen");
        QTest::addColumn<bool>("isRead");
        QTest::newRow("at the limit") << QSize(1000, 1000) << true;
        QTest::newRow("beyond the limit") << QSize(1001, 1000) << false;
        QTest::newRow("as wide and high as needed") << QSize(0, 0) << false;
    }

    void readFileToHost_gifOnALargerScreen_isLimitedByTheScreen()
    {
        QFETCH(QSize, screen);
        QFETCH(bool, isRead);
        write(gifOnScreen(screen.width(), screen.height()));
        const MegapixelLimit limit(1);
        VeskPictureReader reader;
        const std::unique_ptr<VeskPictureHost> host(reader.ReadFileToHost(path()));
        QVERIFY2(bool(host) == isRead, qPrintable(reader.lastError()));
        QCOMPARE(reader.lastError().contains(QLatin1String("too large")), !isRead);
    }

    void readFileToHost_pipe_doesNotBlock()
    {
        const QString pipe = folder.filePath(QStringLiteral("pipe"));
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        VeskPictureReader reader;
        QCOMPARE(reader.ReadFileToHost(pipe), nullptr);
        QVERIFY(!reader.lastError().isEmpty());
    }

private:
    QString path() const { return folder.filePath(QStringLiteral("picture")); }

    void write(const QByteArray &bytes) const
    {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(TestVeskPictureReader)
#include "tst_VeskPictureReader.moc"
