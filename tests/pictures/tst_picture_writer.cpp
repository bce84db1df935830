#include "picture_writer.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>
#include <QRgba64>
#include <QTemporaryDir>
#include <QtTest>

#include <lcms2.h>
#include <png.h>
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

/// What stands in the file: Qt multiplies with alpha while it reads.
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

constexpr std::pair<const char *, PictureFormat> kFormats[] = {
    {"png", PictureFormat::Png}, {"jpeg", PictureFormat::Jpeg}, {"tiff", PictureFormat::Tiff}};

QRgba64 deepAt(const QImage &picture, int x, int y)
{
    return reinterpret_cast<const QRgba64 *>(picture.constScanLine(y))[x];
}

QByteArray saved(cmsHPROFILE profile)
{
    cmsUInt32Number length = 0;
    cmsSaveProfileToMem(profile, nullptr, &length);
    QByteArray bytes(int(length), '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &length);
    cmsCloseProfile(profile);
    return bytes;
}

QByteArray profileOfPng(const QString &path)
{
    QFile file(path);
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    QByteArray profile;
    if (file.open(QIODevice::ReadOnly)) {
        png_set_read_fn(png, &file, [](png_structp reader, png_bytep bytes, size_t length) {
            static_cast<QFile *>(png_get_io_ptr(reader))
                ->read(reinterpret_cast<char *>(bytes), qint64(length));
        });
        png_read_info(png, info);
        png_charp name = nullptr;
        png_bytep bytes = nullptr;
        png_uint_32 length = 0;
        int compression = 0;
        if (png_get_iCCP(png, info, &name, &compression, &bytes, &length) == PNG_INFO_iCCP)
            profile = QByteArray(reinterpret_cast<const char *>(bytes), int(length));
    }
    png_destroy_read_struct(&png, &info, nullptr);
    return profile;
}

/// Little CMS shows pixels of red, green and blue by it.
bool isUsable(const QByteArray &profile)
{
    const cmsHPROFILE from =
        cmsOpenProfileFromMem(profile.constData(), cmsUInt32Number(profile.size()));
    const cmsHPROFILE to = cmsCreate_sRGBProfile();
    const cmsHTRANSFORM transform =
        from ? cmsCreateTransform(from, TYPE_RGB_8, to, TYPE_RGB_8, INTENT_PERCEPTUAL, 0) : nullptr;
    const bool usable = transform;
    if (transform)
        cmsDeleteTransform(transform);
    if (from)
        cmsCloseProfile(from);
    cmsCloseProfile(to);
    return usable;
}

} // namespace

class TestPictureWriter : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;
    QString target;

    WriteResult writeResult(const QImage &picture, PictureFormat format) const
    {
        WriteOptions options;
        options.quality = 100;
        options.mayReplace = true;
        return picture::write(picture, target, format, options);
    }
    void write(const QImage &picture, PictureFormat format) const
    {
        const WriteResult result = writeResult(picture, format);
        QVERIFY2(result.error == OutputFile::Error::None, qPrintable(result.reason));
    }
    /// As the format's own library finds it; of a JPEG file only whether there is one.
    QByteArray profileInTarget(PictureFormat format) const
    {
        if (format == PictureFormat::Png)
            return profileOfPng(target);
        QFile file(target);
        if (format == PictureFormat::Jpeg)
            return file.open(QIODevice::ReadOnly) && file.readAll().contains("ICC_PROFILE") ? "one"
                                                                                            : "";
        uint32_t length = 0;
        void *bytes = nullptr;
        const Tiff tiff = openTiff();
        return TIFFGetField(tiff.get(), TIFFTAG_ICCPROFILE, &length, &bytes)
                   ? QByteArray(static_cast<const char *>(bytes), int(length))
                   : QByteArray();
    }
    Tiff openTiff() const
    {
        return {TIFFOpen(QFile::encodeName(target).constData(), "r"), &TIFFClose};
    }

    static void addFormatsWithDepth()
    {
        QTest::addColumn<PictureFormat>("format");
        QTest::addColumn<QImage::Format>("pixels");
        QTest::newRow("png") << PictureFormat::Png << QImage::Format_RGBX64;
        QTest::newRow("png, transparent") << PictureFormat::Png << QImage::Format_RGBA64;
        QTest::newRow("tiff") << PictureFormat::Tiff << QImage::Format_RGBX64;
        QTest::newRow("tiff, transparent") << PictureFormat::Tiff << QImage::Format_RGBA64;
        QTest::newRow("tiff, premultiplied")
            << PictureFormat::Tiff << QImage::Format_RGBA64_Premultiplied;
    }

    /// What stands in the file: Qt multiplies with alpha while it reads.
    void compareTiffSamples(const QImage &expected) const
    {
        const Tiff file = openTiff();
        std::vector<QRgba64> row(size_t(expected.width()));
        for (int y = 0; y < expected.height(); ++y) {
            QCOMPARE(TIFFReadScanline(file.get(), row.data(), uint32_t(y), 0), 1);
            for (int x = 0; x < expected.width(); ++x)
                QVERIFY(quint64(row[size_t(x)]) == quint64(deepAt(expected, x, y)));
        }
    }

private slots:
    void init() { target = folder.filePath(QStringLiteral("picture")); }

    void png_transparent_isReadBackToTheBit()
    {
        write(everyAlpha(), PictureFormat::Png);
        QVERIFY(isEqualToTheBit(QImage(target, "PNG"), everyAlpha()));
    }

    void png_codePoints_areThoseOfItsProfile_data()
    {
        QTest::addColumn<QColorSpace>("space");
        QTest::addColumn<QByteArray>("chunk");
        const auto codes = [](const char *bytes) {
            return QByteArray("\0\0\0\4cICP", 8) + QByteArray(bytes, 4);
        };
        using Primaries = QColorSpace::Primaries;
        using Transfer = QColorSpace::TransferFunction;
        QTest::newRow("sRGB") << QColorSpace(QColorSpace::SRgb) << codes("\x01\x0D\0\1");
        QTest::newRow("Display P3") << QColorSpace(QColorSpace::DisplayP3) << codes("\x0C\x0D\0\1");
        QTest::newRow("linear") << QColorSpace(QColorSpace::SRgbLinear) << codes("\x01\x08\0\1");
        QTest::newRow("Adobe RGB") << QColorSpace(QColorSpace::AdobeRgb) << QByteArray();
        QTest::newRow("other curve")
            << QColorSpace(Primaries::SRgb, Transfer::Gamma, 1.8F) << QByteArray();
        QTest::newRow("none") << QColorSpace() << QByteArray();
    }

    void png_codePoints_areThoseOfItsProfile()
    {
        QFETCH(QColorSpace, space);
        QFETCH(QByteArray, chunk);
        QImage picture = everyAlpha();
        picture.setColorSpace(space);
        write(picture, PictureFormat::Png);
        QFile file(target);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        QCOMPARE(bytes.contains("cICP"), !chunk.isEmpty());
        QVERIFY(bytes.contains(chunk));
        QVERIFY(bytes.indexOf("cICP") < bytes.indexOf("IDAT"));
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
        QVERIFY(!picture::hasTransparency(read));
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
        QVERIFY(!picture::hasTransparency(picture));
        picture.setPixel(16, 8, qRgba(255, 0, 0, 254));
        QVERIFY(picture::hasTransparency(picture));
        write(picture, PictureFormat::Png);
        QCOMPARE(QImage(target, "PNG").pixel(16, 8), qRgba(255, 0, 0, 254));
    }

    void profileThatDoesNotFit_isNeverWrittenAndSaidSo_data()
    {
        QTest::addColumn<PictureFormat>("format");
        QTest::addColumn<QByteArray>("profile");
        cmsToneCurve *curve = cmsBuildGamma(nullptr, 2.2);
        const QByteArray grey = saved(cmsCreateGrayProfile(cmsD50_xyY(), curve));
        cmsFreeToneCurve(curve);
        const QByteArray inks = saved(cmsCreateInkLimitingDeviceLink(cmsSigCmykData, 200));
        const QByteArray lab = saved(cmsCreateLab4Profile(nullptr));
        QByteArray damaged = QColorSpace(QColorSpace::SRgb).iccProfile();
        damaged[16] = 'X'; // the colour space's name
        for (const auto &[name, format] : kFormats) {
            QTest::addRow("grey in %s", name) << format << grey;
            QTest::addRow("CMYK in %s", name) << format << inks;
            QTest::addRow("Lab in %s", name) << format << lab;
            QTest::addRow("damaged in %s", name) << format << damaged;
        }
    }

    void profileThatDoesNotFit_isNeverWrittenAndSaidSo()
    {
        QFETCH(PictureFormat, format);
        QFETCH(QByteArray, profile);
        QImage picture(30, 20, QImage::Format_RGB32);
        picture.fill(qRgb(1, 2, 3));
        picture.setColorSpace(QColorSpace::fromIccProfile(profile));
        QCOMPARE(picture.colorSpace().iccProfile(), profile);
        const WriteResult result = writeResult(picture, format);
        QVERIFY2(result.error == OutputFile::Error::None, qPrintable(result.reason));
        QCOMPARE(result.leftOut.size(), 1);
        QVERIFY(result.leftOut.first().contains("colour profile"));
        QCOMPARE(profileInTarget(format), QByteArray());
    }

    void profileWithAnyByteDamaged_isWrittenSoundOrNotAtAll()
    {
        const QByteArray sound = QColorSpace(QColorSpace::SRgb).iccProfile();
        QImage picture(3, 2, QImage::Format_RGB32);
        picture.fill(qRgb(1, 2, 3));
        for (int i = 0; i < sound.size(); i += i < 260 ? 1 : 13) {
            QByteArray profile = sound;
            profile[i] = char(~profile[i]);
            picture.setColorSpace(QColorSpace::fromIccProfile(profile));
            const WriteResult result = writeResult(picture, PictureFormat::Png);
            QVERIFY2(result.error == OutputFile::Error::None, qPrintable(QString::number(i)));
            const QByteArray written = profileInTarget(PictureFormat::Png);
            const bool isLeftOut = result.leftOut.size() == 1;
            QVERIFY2(isLeftOut ? written.isEmpty() : isUsable(written),
                     qPrintable(QString::number(i)));
        }
    }

    void deepPicture_holdsEveryLevel_data() { addFormatsWithDepth(); }
    void deepPicture_holdsEveryLevel()
    {
        QFETCH(PictureFormat, format);
        QFETCH(QImage::Format, pixels);
        QImage ramp(256, 256, pixels);
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x)
                reinterpret_cast<QRgba64 *>(ramp.scanLine(y))[x] = QRgba64::fromRgba64(
                    quint16(256 * y + x), quint16(65535 - 256 * y - x), quint16(257 * x),
                    pixels == QImage::Format_RGBX64 ? 65535 : quint16(257 * y));
        write(ramp, format);
        QImage read = QImageReader(target).read();
        QCOMPARE(read.depth(), 64);
        if (format == PictureFormat::Tiff && pixels == QImage::Format_RGBA64)
            return compareTiffSamples(ramp);
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x)
                QVERIFY(quint64(deepAt(read, x, y)) == quint64(deepAt(ramp, x, y)));
    }

    void deepPicture_writtenWithEightBits_isRounded_data()
    {
        QTest::addColumn<PictureFormat>("format");
        for (const auto &[name, format] : kFormats)
            QTest::newRow(name) << format;
    }

    void deepPicture_writtenWithEightBits_isRounded()
    {
        QFETCH(PictureFormat, format);
        QImage picture(16, 16, QImage::Format_RGBX64);
        picture.fill(QColor::fromRgba64(257 * 100 + 127, 257 * 100 + 130, 257 * 100));
        WriteOptions options;
        options.bitsPerSample = 8;
        options.quality = 100;
        options.mayReplace = true;
        QVERIFY(picture::write(picture, target, format, options).error == OutputFile::Error::None);
        const QImage read = QImageReader(target).read();
        QCOMPARE(read.depth() > 32, false);
        const int tolerance = format == PictureFormat::Jpeg ? 1 : 0;
        QVERIFY(std::abs(qRed(read.pixel(5, 5)) - 100) <= tolerance);
        QVERIFY(std::abs(qGreen(read.pixel(5, 5)) - 101) <= tolerance);
    }

    void eightBits_writtenWithSixteen_areTheSameColours()
    {
        WriteOptions options;
        options.bitsPerSample = 16;
        options.mayReplace = true;
        QImage picture(256, 1, QImage::Format_RGB32);
        for (int x = 0; x < 256; ++x)
            picture.setPixel(x, 0, qRgb(x, 255 - x, 7));
        QVERIFY(picture::write(picture, target, PictureFormat::Png, options).reason.isEmpty());
        const QImage read = QImageReader(target).read();
        QCOMPARE(read.depth(), 64);
        for (int x = 0; x < 256; ++x)
            QCOMPARE(deepAt(read, x, 0).red(), quint16(257 * x));
    }

    void seventyTwoDotsPerInch_areKept_data()
    {
        QTest::addColumn<PictureFormat>("format");
        QTest::addColumn<int>("dotsPerMetre");
        for (const auto &[name, format] : kFormats) {
            QTest::addRow("cut to metres, %s", name) << format << 2834;
            QTest::addRow("rounded to metres, %s", name) << format << 2835;
        }
    }

    void seventyTwoDotsPerInch_areKept()
    {
        QFETCH(PictureFormat, format);
        QFETCH(int, dotsPerMetre);
        QImage picture(3, 2, QImage::Format_RGB32);
        picture.fill(0);
        picture.setDotsPerMeterX(dotsPerMetre);
        picture.setDotsPerMeterY(dotsPerMetre);
        write(picture, format);
        if (format == PictureFormat::Jpeg) {
            QFile jpeg(target);
            QVERIFY(jpeg.open(QIODevice::ReadOnly) && jpeg.seek(13));
            QCOMPARE(jpeg.read(5), QByteArray("\1\0\x48\0\x48", 5)); // per inch, 72, 72
            return;
        }
        QCOMPARE(QImageReader(target).read().dotsPerMeterX(), 2835);
        if (format == PictureFormat::Png)
            return;
        const Tiff file = openTiff();
        float resolution = 0;
        uint16_t unit = 0;
        QVERIFY(TIFFGetField(file.get(), TIFFTAG_XRESOLUTION, &resolution));
        QVERIFY(TIFFGetField(file.get(), TIFFTAG_RESOLUTIONUNIT, &unit));
        QCOMPARE(resolution, 72.0F);
        QCOMPARE(int(unit), RESUNIT_INCH);
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
