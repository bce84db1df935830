#include "picture_writer.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>
#include <QTemporaryDir>
#include <QtTest>

#include <tiffio.h>

#include <cstdlib>
#include <memory>

Q_DECLARE_METATYPE(PictureFormat)

namespace {

constexpr int kSide = 256;

/// Every alpha with every level: alpha rises from row to row, the levels from column to column.
QImage everyAlpha()
{
    QImage picture(kSide, kSide, QImage::Format_ARGB32);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            reinterpret_cast<QRgb *>(picture.scanLine(y))[x] = qRgba(x, 255 - x, x / 2, y);
    return picture;
}

bool isEqualToTheBit(const QImage &a, const QImage &b)
{
    if (a.size() != b.size() || a.format() != b.format())
        return false;
    for (int y = 0; y < a.height(); ++y) {
        const auto *left = reinterpret_cast<const QRgb *>(a.constScanLine(y));
        const auto *right = reinterpret_cast<const QRgb *>(b.constScanLine(y));
        if (!std::equal(left, left + a.width(), right))
            return false;
    }
    return true;
}

QRgb wordAt(const QImage &picture, int x, int y)
{
    return reinterpret_cast<const QRgb *>(picture.constScanLine(y))[x];
}

bool isWithinOneLevel(QRgb a, QRgb b)
{
    return qAlpha(a) == qAlpha(b) && std::abs(qRed(a) - qRed(b)) <= 1 &&
           std::abs(qGreen(a) - qGreen(b)) <= 1 && std::abs(qBlue(a) - qBlue(b)) <= 1;
}

using Tiff = std::unique_ptr<TIFF, decltype(&TIFFClose)>;

/// What stands in the file: the toolkit multiplies with alpha while it reads.
QImage wordsOfTiff(TIFF *file)
{
    QImage words(kSide, kSide, QImage::Format_ARGB32);
    std::vector<uchar> row(size_t(kSide) * 4);
    if (TIFFScanlineSize(file) != tmsize_t(row.size()))
        return {};
    for (int y = 0; y < kSide; ++y) {
        if (TIFFReadScanline(file, row.data(), uint32_t(y), 0) != 1)
            return {};
        for (int x = 0; x < kSide; ++x) {
            const uchar *pixel = row.data() + 4 * x;
            reinterpret_cast<QRgb *>(words.scanLine(y))[x] =
                qRgba(pixel[0], pixel[1], pixel[2], pixel[3]);
        }
    }
    return words;
}

int kindOfAlpha(TIFF *file)
{
    uint16_t count = 0;
    const uint16_t *kinds = nullptr;
    return TIFFGetField(file, TIFFTAG_EXTRASAMPLES, &count, &kinds) == 1 && count == 1 ? kinds[0]
                                                                                       : -1;
}

} // namespace

/// Files that hold transparency. Opaque ones are tested through the programs that write them.
class TestPictureWriter : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;
    QString target;

    void write(const QImage &picture, PictureFormat format, int quality = 100)
    {
        WriteOptions options;
        options.quality = quality;
        options.mayReplace = true;
        const WriteResult result = writePicture(picture, target, format, options);
        QVERIFY2(result.error == OutputFile::Error::None, qPrintable(result.reason));
    }
    Tiff openTiff() const
    {
        return {TIFFOpen(QFile::encodeName(target).constData(), "r"), &TIFFClose};
    }

private slots:
    void init() { target = folder.filePath(QStringLiteral("picture")); }

    void png_transparent_isReadBackToTheBit()
    {
        write(everyAlpha(), PictureFormat::Png);
        QVERIFY(isEqualToTheBit(QImage(target, "PNG"), everyAlpha()));
    }

    void png_premultiplied_showsTheSame()
    {
        const QImage picture = everyAlpha().convertToFormat(QImage::Format_ARGB32_Premultiplied);
        write(picture, PictureFormat::Png);
        QVERIFY(isEqualToTheBit(
            QImage(target, "PNG").convertToFormat(QImage::Format_ARGB32_Premultiplied), picture));
    }

    void tiff_transparent_holdsEveryBit()
    {
        write(everyAlpha(), PictureFormat::Tiff);
        const Tiff file = openTiff();
        QVERIFY(file);
        QCOMPARE(kindOfAlpha(file.get()), int(EXTRASAMPLE_UNASSALPHA));
        QVERIFY(isEqualToTheBit(wordsOfTiff(file.get()), everyAlpha()));
    }

    /// The two libraries round the product of level and alpha in their own ways.
    void tiff_transparent_isReadBackMultipliedWithAlpha()
    {
        write(everyAlpha(), PictureFormat::Tiff);
        const QImage read(target, "TIFF");
        const QImage expected = everyAlpha().convertToFormat(QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(read.format(), expected.format());
        for (int y = 0; y < kSide; ++y)
            for (int x = 0; x < kSide; ++x)
                QVERIFY(isWithinOneLevel(wordAt(read, x, y), wordAt(expected, x, y)));
    }

    void tiff_premultiplied_isReadBackToTheBit()
    {
        const QImage picture = everyAlpha().convertToFormat(QImage::Format_ARGB32_Premultiplied);
        write(picture, PictureFormat::Tiff);
        QVERIFY(isEqualToTheBit(QImage(target, "TIFF"), picture));
        QCOMPARE(kindOfAlpha(openTiff().get()), int(EXTRASAMPLE_ASSOCALPHA));
    }

    void jpeg_transparent_isLaidOnWhite()
    {
        QImage picture(kSide, kSide, QImage::Format_ARGB32);
        for (int y = 0; y < kSide; ++y)
            for (int x = 0; x < kSide; ++x)
                picture.setPixel(x, y, qRgba(0, 0, 0, x)); // black, ever less transparent
        write(picture, PictureFormat::Jpeg);
        const QImage read(target, "JPEG");
        QCOMPARE(read.size(), picture.size());
        for (int x = 0; x < kSide; ++x)
            QVERIFY2(std::abs(qGreen(read.pixel(x, kSide / 2)) - (255 - x)) <= 1,
                     qPrintable(QString::number(x)));
    }

    void opaquePictureWithAlphaChannel_isWrittenWithoutOne_data()
    {
        QTest::addColumn<PictureFormat>("format");
        QTest::newRow("png") << PictureFormat::Png;
        QTest::newRow("tiff") << PictureFormat::Tiff;
    }

    void opaquePictureWithAlphaChannel_isWrittenWithoutOne()
    {
        QFETCH(PictureFormat, format);
        QImage picture(30, 20, QImage::Format_ARGB32);
        picture.fill(qRgba(1, 2, 3, 255));
        write(picture, format);
        const QImage read = QImageReader(target).read();
        QCOMPARE(read.pixel(29, 19), qRgb(1, 2, 3));
        QVERIFY(!hasTransparency(read));
        const QByteArray written = QImageReader(target).format();
        if (written == "png")
            QVERIFY(!read.hasAlphaChannel());
        else
            QCOMPARE(kindOfAlpha(openTiff().get()), -1);
    }

    void lastPixelAlone_countsAsTransparency()
    {
        QImage picture(17, 9, QImage::Format_ARGB32);
        picture.fill(Qt::red);
        QVERIFY(!hasTransparency(picture));
        picture.setPixel(16, 8, qRgba(255, 0, 0, 254));
        QVERIFY(hasTransparency(picture));
        write(picture, PictureFormat::Png);
        QCOMPARE(QImage(target, "PNG").pixel(16, 8), qRgba(255, 0, 0, 254));
    }

    void transparent_keepsResolutionAndColourProfile_data()
    {
        QTest::addColumn<PictureFormat>("format");
        QTest::newRow("png") << PictureFormat::Png;
        QTest::newRow("tiff") << PictureFormat::Tiff;
        QTest::newRow("jpeg") << PictureFormat::Jpeg;
    }

    void transparent_keepsResolutionAndColourProfile()
    {
        QFETCH(PictureFormat, format);
        QImage picture = everyAlpha();
        picture.setDotsPerMeterX(11811);
        picture.setDotsPerMeterY(11811);
        picture.setColorSpace(QColorSpace::AdobeRgb);
        write(picture, format);
        const QImage read = QImageReader(target).read();
        QCOMPARE(read.dotsPerMeterX(), 11811);
        QCOMPARE(read.colorSpace(), QColorSpace(QColorSpace::AdobeRgb));
    }
};

QTEST_MAIN(TestPictureWriter)
#include "tst_picture_writer.moc"
