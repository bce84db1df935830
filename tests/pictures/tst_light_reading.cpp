// Files that hold light, as they are read: written by this library, by the formats' own libraries,
// or byte by byte.

#include "light_pictures.h"
#include "picture_makers.h"
#include "picture_reader.h"
#include "picture_writer.h"

#include <QColorSpace>
#include <QRgba64>
#include <QtTest>
#include <qfloat16.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include <tiffio.h>

using namespace makers;
using namespace light;

namespace {

/// Of four bytes a pixel.
QByteArray hdrFile(const QByteArray &order, const QByteArray &pixels, const QByteArray &lines = {})
{
    return "#?RADIANCE\n# a comment\nFORMAT=32-bit_rle_rgbe\n" + lines + "\n" + order + "\n" +
           pixels;
}

struct TiffRecipe
{
    int bits = 32;
    int channels = 3;
    bool isApart = false;
    bool isTiled = false;
    int compression = COMPRESSION_NONE;
    int predictor = 1;
    int orientation = ORIENTATION_TOPLEFT;
    bool isBigEndian = false;
};

constexpr int kSide = 16; // tiles need it

/// Numbers of one channel, or of all where channel is -1.
QByteArray tiffNumbers(const TiffRecipe &recipe, int channel)
{
    QByteArray bytes;
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            for (int c = 0; c < recipe.channels; ++c) {
                if (channel >= 0 && c != channel)
                    continue;
                const float number = c == 3 ? 0.5F : numberAt(x, y, c);
                const qfloat16 half(number);
                bytes += recipe.bits == 16 ? QByteArray(reinterpret_cast<const char *>(&half), 2)
                                           : QByteArray(reinterpret_cast<const char *>(&number), 4);
            }
        }
    }
    return bytes;
}

void writePieces(TIFF *tiff, const TiffRecipe &recipe)
{
    for (int plane = 0; plane < (recipe.isApart ? recipe.channels : 1); ++plane) {
        QByteArray bytes = tiffNumbers(recipe, recipe.isApart ? plane : -1);
        if (recipe.isTiled)
            TIFFWriteEncodedTile(tiff, uint32_t(plane), bytes.data(), bytes.size());
        else
            TIFFWriteEncodedStrip(tiff, uint32_t(plane), bytes.data(), bytes.size());
    }
}

bool writeTiff(const QString &path, const TiffRecipe &recipe)
{
    TIFF *tiff = TIFFOpen(path.toLocal8Bit().constData(), recipe.isBigEndian ? "wb" : "wl");
    if (!tiff)
        return false;
    const uint16_t alpha = EXTRASAMPLE_UNASSALPHA;
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, kSide);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, kSide);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, recipe.bits);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, recipe.channels);
    TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_IEEEFP);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC,
                 recipe.channels == 1 ? PHOTOMETRIC_MINISBLACK : PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, recipe.compression);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, recipe.orientation);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG,
                 recipe.isApart ? PLANARCONFIG_SEPARATE : PLANARCONFIG_CONTIG);
    if (recipe.channels == 4)
        TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &alpha);
    if (recipe.predictor != 1)
        TIFFSetField(tiff, TIFFTAG_PREDICTOR, recipe.predictor);
    if (recipe.isTiled) {
        TIFFSetField(tiff, TIFFTAG_TILEWIDTH, kSide);
        TIFFSetField(tiff, TIFFTAG_TILELENGTH, kSide);
    } else {
        TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, kSide);
    }
    writePieces(tiff, recipe);
    TIFFClose(tiff);
    return true;
}

} // namespace

class TestLightReading : public QObject
{
    Q_OBJECT

private:
    const Folder folder;

    QString path(const char *name) const { return folder.path(QLatin1String(name)); }

    DecodedPicture readBytes(const QByteArray &bytes, const ReadOptions &options) const
    {
        return picture::read(folder.save(QStringLiteral("light"), bytes), options);
    }

    /// One file of each kind.
    void eachKind() const
    {
        QTest::addColumn<QByteArray>("file");
        const QImage picture = lightPicture({37, 29});
        QTest::newRow("Radiance") << written(picture, PictureFormat::RadianceHdr);
        QTest::newRow("TIFF") << written(picture, PictureFormat::Tiff);
#ifdef VESK_WITH_OPENEXR
        QTest::newRow("OpenEXR") << written(picture, PictureFormat::OpenExr);
#endif
    }

private slots:
    void initTestCase()
    {
        QVERIFY(folder.isValid());
    }

    void written_isReadToTheBit_data()
    {
        QTest::addColumn<PictureFormat>("format");
        QTest::addColumn<int>("bits");
        QTest::addColumn<QSize>("size");
        for (const QSize size : {QSize(1, 1), QSize(1, 33), QSize(67, 31), QSize(300, 65)}) {
            const QByteArray text =
                QByteArray::number(size.width()) + " x " + QByteArray::number(size.height());
            QTest::newRow("TIFF, floats, " + text) << PictureFormat::Tiff << 32 << size;
#ifdef VESK_WITH_OPENEXR
            QTest::newRow("OpenEXR, floats, " + text) << PictureFormat::OpenExr << 32 << size;
            QTest::newRow("OpenEXR, halves, " + text) << PictureFormat::OpenExr << 16 << size;
#endif
        }
    }

    void written_isReadToTheBit()
    {
        QFETCH(PictureFormat, format);
        QFETCH(int, bits);
        QFETCH(QSize, size);
        QImage picture = lightPicture(size);
        picture.setColorSpace(
            QColorSpace(QColorSpace::Primaries::DciP3D65, QColorSpace::TransferFunction::Linear));
        WriteOptions how;
        how.bitsPerSample = bits;
        how.whiteLuminance = 4000.0;
        const DecodedPicture read =
            readBytes(written(picture, format, how), asking(ReadOptions::Light::Floats));
        QCOMPARE(read.reason, QString());
        QCOMPARE(read.image.format(), QImage::Format_RGBX32FPx4);
        QCOMPARE(read.image.size(), size);
        QCOMPARE(read.image.colorSpace().primaries(), QColorSpace::Primaries::DciP3D65);
        QCOMPARE(read.image.colorSpace().transferFunction(), QColorSpace::TransferFunction::Linear);
        if (format == PictureFormat::OpenExr)
            QCOMPARE(read.whiteLuminance, 4000.0);
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x)
                for (int c = 0; c < 3; ++c)
                    QVERIFY(pixel(read.image, x, y)[c] ==
                            (bits == 16 ? asHalf(numberAt(x, y, c)) : numberAt(x, y, c)));
    }

    void radiance_written_isReadWithinItsStep_data()
    {
        QTest::addColumn<QSize>("size");
        for (const QSize size : {QSize(1, 1), QSize(7, 5), QSize(8, 5), QSize(131, 4)})
            QTest::addRow("%d x %d", size.width(), size.height()) << size;
    }

    /// A step is a 256th to a 128th of the brightest channel; the middle of it is read.
    void radiance_written_isReadWithinItsStep()
    {
        QFETCH(QSize, size);
        WriteOptions how;
        how.whiteLuminance = 358.0;
        const DecodedPicture read =
            readBytes(written(lightPicture(size), PictureFormat::RadianceHdr, how),
                      asking(ReadOptions::Light::Floats));
        QCOMPARE(read.reason, QString());
        QCOMPARE(read.image.format(), QImage::Format_RGBX32FPx4);
        QCOMPARE(read.whiteLuminance, 358.0);
        QCOMPARE(read.image.colorSpace(), QColorSpace(QColorSpace::SRgbLinear));
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                float most = 0;
                for (int c = 0; c < 3; ++c)
                    most = std::max(most, numberAt(x, y, c));
                for (int c = 0; c < 3; ++c) {
                    const float expected = std::max(0.0F, numberAt(x, y, c));
                    QVERIFY(std::abs(pixel(read.image, x, y)[c] - expected) <= most / 255);
                }
            }
        }
    }

    void radiance_oldCoding_isRead()
    {
        // A pixel, the same twice more, another, and that 258 times more.
        const QByteArray coded = QByteArray("\x80\x40\x20\x81\1\1\1\2", 8) +
                                 QByteArray("\x10\x20\x30\x80\1\1\1\2\1\1\1\1", 12);
        const DecodedPicture read =
            readBytes(hdrFile("-Y 1 +X 262", coded), asking(ReadOptions::Light::Floats));
        QCOMPARE(read.reason, QString());
        for (int x = 0; x < 3; ++x)
            QCOMPARE(pixel(read.image, x, 0)[0], 128.5F / 128);
        for (int x = 3; x < 262; ++x)
            QCOMPARE(pixel(read.image, x, 0)[2], 48.5F / 256);
    }

    void radiance_anyOrder_isUpright_data()
    {
        QTest::addColumn<QByteArray>("order");
        QTest::addColumn<QPoint>("first");  ///< where the first pixel belongs
        QTest::addColumn<QPoint>("second"); ///< the one behind it
        QTest::newRow("rows") << QByteArray("-Y 2 +X 3") << QPoint(0, 0) << QPoint(1, 0);
        QTest::newRow("mirrored") << QByteArray("-Y 2 -X 3") << QPoint(2, 0) << QPoint(1, 0);
        QTest::newRow("upside down") << QByteArray("+Y 2 +X 3") << QPoint(0, 1) << QPoint(1, 1);
        QTest::newRow("turned") << QByteArray("+Y 2 -X 3") << QPoint(2, 1) << QPoint(1, 1);
        QTest::newRow("columns down") << QByteArray("+X 3 -Y 2") << QPoint(0, 0) << QPoint(0, 1);
        QTest::newRow("columns up") << QByteArray("+X 3 +Y 2") << QPoint(0, 1) << QPoint(0, 0);
        QTest::newRow("columns from the right, down")
            << QByteArray("-X 3 -Y 2") << QPoint(2, 0) << QPoint(2, 1);
        QTest::newRow("columns from the right, up")
            << QByteArray("-X 3 +Y 2") << QPoint(2, 1) << QPoint(2, 0);
    }

    void radiance_anyOrder_isUpright()
    {
        QFETCH(QByteArray, order);
        QFETCH(QPoint, first);
        QFETCH(QPoint, second);
        QByteArray pixels;
        for (char i = 1; i <= 6; ++i)
            pixels += QByteArray(3, char(20 * i)) + char(136);
        const QImage read =
            readBytes(hdrFile(order, pixels), asking(ReadOptions::Light::Floats)).image;
        QCOMPARE(read.size(), QSize(3, 2));
        QCOMPARE(pixel(read, first.x(), first.y())[0], 20.5F);
        QCOMPARE(pixel(read, second.x(), second.y())[0], 40.5F);
    }

    void radiance_header_tellsColoursAndExposure()
    {
        const QByteArray lines =
            "EXPOSURE=2\nEXPOSURE= 0.5\nPRIMARIES= .708 .292 .17 .797 .131 .046 .3127 .329\n";
        const DecodedPicture read =
            readBytes(hdrFile("-Y 1 +X 1", QByteArray("\x80\x80\x80\x81", 4), lines),
                      asking(ReadOptions::Light::Floats));
        QCOMPARE(read.whiteLuminance, 179.0);
        QCOMPARE(pixel(read.image, 0, 0)[0], 128.5F / 128);
        const QColorSpace rec2020({0.3127, 0.3290}, {0.708, 0.292}, {0.170, 0.797}, {0.131, 0.046},
                                  QColorSpace::TransferFunction::Linear);
        QCOMPARE(read.image.colorSpace().iccProfile(), rec2020.iccProfile());
    }

    void radiance_damaged_isRefused_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<DecodeError>("error");
        const QByteArray four("\x80\x80\x80\x80", 4);
        QTest::newRow("no order") << QByteArray("#?RADIANCE\n\n") << DecodeError::Damaged;
        QTest::newRow("no empty line")
            << QByteArray("#?RADIANCE\nFORMAT=x\n") << DecodeError::Damaged;
        QTest::newRow("no size") << hdrFile("-Y 0 +X 3", four) << DecodeError::Damaged;
        QTest::newRow("negative size") << hdrFile("-Y -1 +X 3", four) << DecodeError::Damaged;
        QTest::newRow("rows twice") << hdrFile("-Y 1 +Y 1", four) << DecodeError::Damaged;
        QTest::newRow("too few pixels") << hdrFile("-Y 1 +X 2", four) << DecodeError::Damaged;
        QTest::newRow("run before the first pixel")
            << hdrFile("-Y 1 +X 2", QByteArray("\1\1\1\2", 4)) << DecodeError::Damaged;
        QTest::newRow("run beyond the row")
            << hdrFile("-Y 1 +X 2", four + QByteArray("\1\1\1\2", 4)) << DecodeError::Damaged;
        QTest::newRow("row of another length")
            << hdrFile("-Y 1 +X 9", QByteArray("\2\2\0\x08", 4) + four + four)
            << DecodeError::Damaged;
        QTest::newRow("coded run beyond the row")
            << hdrFile("-Y 1 +X 8", QByteArray("\2\2\0\x08\x89\1\x88\1\x88\1\x88\1", 12))
            << DecodeError::Damaged;
        QTest::newRow("piece without numbers")
            << hdrFile("-Y 1 +X 8", QByteArray("\2\2\0\x08\0\0\0\0\0\0\0\0", 12))
            << DecodeError::Damaged;
        QTest::newRow("CIE XYZ") << "#?RADIANCE\nFORMAT=32-bit_rle_xyze\n\n-Y 1 +X 1\n" + four
                                 << DecodeError::Unsupported;
    }

    void radiance_damaged_isRefused()
    {
        QFETCH(QByteArray, file);
        QFETCH(DecodeError, error);
        const DecodedPicture refused = readBytes(file, asking(ReadOptions::Light::Floats));
        QCOMPARE(refused.error, error);
        QVERIFY(refused.image.isNull());
    }

    void tiff_anyStorage_isReadToTheBit_data()
    {
        QTest::addColumn<TiffRecipe>("recipe");
        for (const int bits : {16, 32}) {
            for (const int channels : {1, 3, 4}) {
                for (const bool isApart : {false, true}) {
                    TiffRecipe recipe;
                    recipe.bits = bits;
                    recipe.channels = channels;
                    recipe.isApart = isApart;
                    recipe.isTiled = isApart;
                    QTest::addRow("%d bits, %d channels, %s", bits, channels,
                                  isApart ? "apart, tiled" : "together")
                        << recipe;
                }
            }
            TiffRecipe recipe;
            recipe.bits = bits;
            recipe.isBigEndian = true;
            QTest::addRow("%d bits, big-endian", bits) << recipe;
            recipe.isBigEndian = false;
            recipe.compression = COMPRESSION_ADOBE_DEFLATE;
            recipe.predictor = PREDICTOR_FLOATINGPOINT;
            QTest::addRow("%d bits, predicted", bits) << recipe;
        }
    }

    void tiff_anyStorage_isReadToTheBit()
    {
        QFETCH(TiffRecipe, recipe);
        QVERIFY(writeTiff(path("p.tif"), recipe));
        const DecodedPicture read =
            picture::read(path("p.tif"), asking(ReadOptions::Light::Floats));
        QCOMPARE(read.reason, QString());
        QCOMPARE(read.image.format(),
                 recipe.channels == 4 ? QImage::Format_RGBA32FPx4 : QImage::Format_RGBX32FPx4);
        for (int y = 0; y < kSide; ++y) {
            for (int x = 0; x < kSide; ++x) {
                for (int c = 0; c < 3; ++c) {
                    const float number = numberAt(x, y, recipe.channels == 1 ? 0 : c);
                    QVERIFY(pixel(read.image, x, y)[c] ==
                            (recipe.bits == 16 ? asHalf(number) : number));
                }
                QCOMPARE(pixel(read.image, x, y)[3], recipe.channels == 4 ? 0.5F : 1.0F);
            }
        }
    }

    void tiff_turned_isUpright()
    {
        TiffRecipe recipe;
        recipe.orientation = ORIENTATION_RIGHTTOP;
        QVERIFY(writeTiff(path("turned.tif"), recipe));
        const QImage read =
            picture::read(path("turned.tif"), asking(ReadOptions::Light::Floats)).image;
        for (int y = 0; y < kSide; ++y)
            for (int x = 0; x < kSide; ++x)
                QVERIFY(pixel(read, kSide - 1 - y, x)[1] == numberAt(x, y, 1));
    }

    void tiff_levelsInFloats_becomeLight()
    {
        QImage picture = lightPicture({9, 5});
        picture.setColorSpace(QColorSpace(QColorSpace::SRgb));
        const QByteArray file = written(picture, PictureFormat::Tiff);
        const QImage shown = readBytes(file, asking(ReadOptions::Light::Shown)).image;
        const QImage light = readBytes(file, asking(ReadOptions::Light::Floats)).image;
        QCOMPARE(light.colorSpace().transferFunction(), QColorSpace::TransferFunction::Linear);
        const float level = std::clamp(numberAt(3, 2, 1), 0.0F, 1.0F);
        QVERIFY(level > 0.01F && level < 1.0F);
        const auto *word = reinterpret_cast<const QRgba64 *>(shown.constScanLine(2)) + 3;
        QVERIFY(std::abs(double(word->green()) - 65535.0 * double(level)) <= 0.51);
        QVERIFY(std::abs(levelOf(double(pixel(light, 3, 2)[1])) - double(level)) < 1e-3);
    }

    void shown_isTheScreensCurve_data()
    {
        eachKind();
    }

    void shown_isTheScreensCurve()
    {
        QFETCH(QByteArray, file);
        const QImage light = readBytes(file, asking(ReadOptions::Light::Floats)).image;
        const DecodedPicture deep = readBytes(file, asking(ReadOptions::Light::Shown));
        const DecodedPicture narrow =
            readBytes(file, asking(ReadOptions::Light::Shown, ReadOptions::Depth::Eight));
        QCOMPARE(deep.image.format(), QImage::Format_RGBX64);
        QCOMPARE(narrow.image.format(), QImage::Format_RGB32);
        QCOMPARE(deep.image.colorSpace(), QColorSpace(QColorSpace::SRgb));
        QVERIFY(deep.warnings.isEmpty());
        for (int y = 0; y < light.height(); ++y) {
            for (int x = 0; x < light.width(); ++x) {
                const double expected = levelOf(double(pixel(light, x, y)[1]));
                const auto *word = reinterpret_cast<const QRgba64 *>(deep.image.constScanLine(y));
                QVERIFY(std::abs(double(word[x].green()) - 65535 * expected) <= 0.52);
                const int level = qGreen(narrow.image.pixel(x, y));
                QVERIFY(std::abs(level - 255 * expected) <= 0.51);
            }
        }
    }

    void notAskedFor_isRefused_data()
    {
        eachKind();
    }

    void notAskedFor_isRefused()
    {
        QFETCH(QByteArray, file);
        QCOMPARE(readBytes(file, {}).error, DecodeError::Unsupported);
    }

    void tooManyPixels_areRefused_data()
    {
        eachKind();
    }

    void tooManyPixels_areRefused()
    {
        QFETCH(QByteArray, file);
        ReadOptions options = asking(ReadOptions::Light::Floats);
        options.pixelLimit = 37 * 29 - 1;
        const DecodedPicture refused = readBytes(file, options);
        QCOMPARE(refused.error, DecodeError::TooLarge);
        QVERIFY(refused.reason.contains("37 x 29"));
        options.pixelLimit = 37 * 29;
        QCOMPARE(readBytes(file, options).error, DecodeError::None);
    }

    void cutAnywhere_isRefused_data()
    {
        eachKind();
    }

    /// What stands behind the pixels may be missing.
    void cutAnywhere_isRefused()
    {
        QFETCH(QByteArray, file);
        const ReadOptions how = asking(ReadOptions::Light::Floats);
        const QImage whole = readBytes(file, how).image;
        for (qsizetype length = 16; length < file.size(); length += 1 + length / 40) {
            const DecodedPicture cut = readBytes(file.left(length), how);
            const bool isRefused = cut.image.isNull() && (cut.error == DecodeError::Damaged ||
                                                          cut.error == DecodeError::NotAPicture);
            const bool isWhole = length > file.size() * 9 / 10 && !cut.image.isNull() &&
                                 std::memcmp(cut.image.constBits(), whole.constBits(),
                                             size_t(whole.sizeInBytes())) == 0;
            QVERIFY2(isRefused || isWhole, qPrintable(QString::number(length)));
        }
    }
};

QTEST_GUILESS_MAIN(TestLightReading)
#include "tst_light_reading.moc"
