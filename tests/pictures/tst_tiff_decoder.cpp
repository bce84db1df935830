#include "tiff_decoder.h"

#include "TiffRows.h"
#include "picture_decoder.h"
#include "picture_makers.h"
#include "tiff_file.h"

#include <QColorSpace>
#include <QRgba64>
#include <QtTest>

#include <random>
#include <vector>

using namespace makers;

namespace {

/// A TIFF file to be made, and the numbers in it.
struct Recipe
{
    int width = 61;
    int height = 37;
    int bits = 8;
    int channels = 4;
    int photometric = PHOTOMETRIC_RGB;
    int alpha = EXTRASAMPLE_UNASSALPHA; ///< of the channel behind the colours; -1: not told
    int planes = PLANARCONFIG_CONTIG;
    int tileSide = 0; ///< 0: strips
    int rowsPerStrip = 5;
    int compression = COMPRESSION_NONE;
    int orientation = ORIENTATION_TOPLEFT;
    bool isBigEndian = false;
    bool isBig = false; ///< numbers of 64 bits in the directory
    int sampleFormat = SAMPLEFORMAT_UINT;

    int colours() const { return photometric == PHOTOMETRIC_RGB ? 3 : 1; }
    int numberBytes() const { return bits / 8; }
};

/// Fixed for each place: a number of that many bits, where the colours of multiplied pictures are
/// not above alpha.
int numberAt(const Recipe &recipe, int x, int y, int channel)
{
    const int most = (1 << recipe.bits) - 1;
    const auto hash = [&](int of) {
        return int((quint32(x) * 2654435761U + quint32(y) * 40503U + quint32(of) * 97U) >> 5) &
               most;
    };
    const int alpha = hash(recipe.colours());
    if (channel == recipe.colours())
        return alpha;
    return recipe.alpha == EXTRASAMPLE_ASSOCALPHA ? int(qint64(hash(channel)) * alpha / most)
                                                  : hash(channel);
}

void putNumber(const Recipe &recipe, std::vector<uchar> &row, size_t at, int number)
{
    if (recipe.bits == 8)
        row[at] = uchar(number);
    else
        reinterpret_cast<quint16 *>(row.data())[at] = quint16(number);
}

/// The numbers of a strip's or tile's rectangle, of one channel or (-1) all.
std::vector<uchar> piece(const Recipe &recipe, QRect part, int channel)
{
    const int channels = channel < 0 ? recipe.channels : 1;
    std::vector<uchar> numbers(size_t(part.width() * part.height() * channels) *
                               size_t(recipe.numberBytes()));
    size_t at = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            for (int c = 0; c < channels; ++c)
                putNumber(recipe, numbers, at++, numberAt(recipe, x, y, channel < 0 ? c : channel));
        }
    }
    return numbers;
}

void setTags(TIFF *tiff, const Recipe &recipe)
{
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, recipe.width);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, recipe.height);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, recipe.bits);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, recipe.channels);
    TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT, recipe.sampleFormat);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, recipe.photometric);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, recipe.planes);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, recipe.compression);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, recipe.orientation);
    TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    TIFFSetField(tiff, TIFFTAG_XRESOLUTION, 300.0);
    TIFFSetField(tiff, TIFFTAG_YRESOLUTION, 150.0);
    const std::vector<uint16_t> extra(size_t(qMax(0, recipe.channels - recipe.colours())),
                                      uint16_t(qMax(0, recipe.alpha)));
    if (recipe.alpha >= 0 && !extra.empty())
        TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, int(extra.size()), extra.data());
    if (recipe.tileSide > 0) {
        TIFFSetField(tiff, TIFFTAG_TILEWIDTH, recipe.tileSide);
        TIFFSetField(tiff, TIFFTAG_TILELENGTH, recipe.tileSide);
    } else {
        TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, recipe.rowsPerStrip);
    }
}

void writePieces(TIFF *tiff, const Recipe &recipe)
{
    const bool isApart = recipe.planes == PLANARCONFIG_SEPARATE;
    const int stepX = recipe.tileSide > 0 ? recipe.tileSide : recipe.width;
    const int stepY = recipe.tileSide > 0 ? recipe.tileSide : recipe.rowsPerStrip;
    uint32_t number = 0;
    for (int plane = 0; plane < (isApart ? recipe.channels : 1); ++plane) {
        for (int y = 0; y < recipe.height; y += stepY) {
            for (int x = 0; x < recipe.width; x += stepX) {
                const int rows = recipe.tileSide > 0 ? stepY : qMin(stepY, recipe.height - y);
                auto bytes = piece(recipe, {x, y, stepX, rows}, isApart ? plane : -1);
                const auto length = tmsize_t(bytes.size());
                if (recipe.tileSide > 0)
                    TIFFWriteEncodedTile(tiff, number++, bytes.data(), length);
                else
                    TIFFWriteEncodedStrip(tiff, number++, bytes.data(), length);
            }
        }
    }
}

QByteArray tiffFile(const Recipe &recipe)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadWrite);
    {
        const tiff_file::File file = tiff_file::open(buffer, recipe.isBig         ? "w8"
                                                             : recipe.isBigEndian ? "wb"
                                                                                  : "wl");
        setTags(file.get(), recipe);
        writePieces(file.get(), recipe);
    }
    buffer.close();
    return bytes;
}

/// The definition: the pixel that the picture must have, before it is turned.
QRgba64 pixelOf(const Recipe &recipe, int x, int y)
{
    const int most = (1 << recipe.bits) - 1;
    const bool hasAlpha = recipe.channels > recipe.colours();
    const auto wide = [&](int channel) {
        return quint16(qint64(numberAt(recipe, x, y, channel)) * 0xFFFF / most);
    };
    const int last = recipe.colours() - 1;
    const quint16 mask = recipe.photometric == PHOTOMETRIC_MINISWHITE ? 0xFFFF : 0;
    const QRgba64 pixel =
        QRgba64::fromRgba64(wide(0) ^ mask, wide(last / 2) ^ mask, wide(last) ^ mask,
                            hasAlpha ? wide(recipe.colours()) : quint16(0xFFFF));
    return recipe.alpha == EXTRASAMPLE_ASSOCALPHA ? pixel.unpremultiplied() : pixel;
}

QImage greyOf(const QImage &picture, QImage::Format format)
{
    QImage grey(picture.size(), format);
    for (int y = 0; y < picture.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgba64 *>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            if (format == QImage::Format_Grayscale8)
                grey.scanLine(y)[x] = row[x].red8();
            else
                reinterpret_cast<quint16 *>(grey.scanLine(y))[x] = row[x].red();
        }
    }
    return grey;
}

QImage expectedPicture(const Recipe &recipe, QImage::Format format)
{
    QImage picture(recipe.width, recipe.height, QImage::Format_RGBA64);
    for (int y = 0; y < recipe.height; ++y) {
        auto *row = reinterpret_cast<QRgba64 *>(picture.scanLine(y));
        for (int x = 0; x < recipe.width; ++x)
            row[x] = pixelOf(recipe, x, y);
    }
    // Straight from the numbers: Qt's conversion to grey weighs the channels.
    if (format == QImage::Format_Grayscale16 || format == QImage::Format_Grayscale8)
        return greyOf(picture, format);
    return picture.convertToFormat(format);
}

ReadOptions deep()
{
    ReadOptions options;
    options.depth = ReadOptions::Depth::AsStored;
    return options;
}

} // namespace

Q_DECLARE_METATYPE(Recipe)

class TestTiffDecoder : public QObject
{
    Q_OBJECT

private:
    const Folder folder;

    DecodedPicture decoded(const Recipe &recipe, const ReadOptions &options = {}) const
    {
        return picture::decode(folder.save(QStringLiteral("p.tif"), tiffFile(recipe)), options);
    }

private slots:
    void initTestCase() { QVERIFY(folder.isValid()); }

    void decode_anyStorage_givesTheNumbersOfTheFile_data()
    {
        QTest::addColumn<Recipe>("recipe");
        for (const int bits : {8, 16}) {
            for (const int planes : {PLANARCONFIG_CONTIG, PLANARCONFIG_SEPARATE}) {
                for (const int tile : {0, 16, 64}) {
                    Recipe recipe;
                    recipe.bits = bits;
                    recipe.planes = planes;
                    recipe.tileSide = tile;
                    QTest::addRow("%d bits, planes %d, tiles of %d", bits, planes, tile) << recipe;
                    recipe.channels = 2;
                    recipe.photometric = PHOTOMETRIC_MINISBLACK;
                    QTest::addRow("grey, %d bits, planes %d, tiles of %d", bits, planes, tile)
                        << recipe;
                }
            }
        }
        const auto row = [](const char *name, void (*change)(Recipe &)) {
            Recipe recipe;
            recipe.bits = 16;
            change(recipe);
            QTest::newRow(name) << recipe;
        };
        row("without alpha", [](Recipe &recipe) { recipe.channels = 3; });
        row("grey without alpha", [](Recipe &recipe) {
            recipe.channels = 1;
            recipe.photometric = PHOTOMETRIC_MINISBLACK;
        });
        row("grey whose least is white", [](Recipe &recipe) {
            recipe.channels = 1;
            recipe.photometric = PHOTOMETRIC_MINISWHITE;
        });
        row("grey whose least is white, 8 bits, with alpha", [](Recipe &recipe) {
            recipe.bits = 8;
            recipe.channels = 2;
            recipe.photometric = PHOTOMETRIC_MINISWHITE;
        });
        row("alpha not told", [](Recipe &recipe) { recipe.alpha = -1; });
        row("multiplied", [](Recipe &recipe) { recipe.alpha = EXTRASAMPLE_ASSOCALPHA; });
        row("multiplied, 8 bits", [](Recipe &recipe) {
            recipe.alpha = EXTRASAMPLE_ASSOCALPHA;
            recipe.bits = 8;
        });
        row("a channel more than alpha", [](Recipe &recipe) { recipe.channels = 5; });
        row("big-endian", [](Recipe &recipe) { recipe.isBigEndian = true; });
        row("LZW", [](Recipe &recipe) { recipe.compression = COMPRESSION_LZW; });
        row("deflate", [](Recipe &recipe) { recipe.compression = COMPRESSION_ADOBE_DEFLATE; });
        row("one strip", [](Recipe &recipe) { recipe.rowsPerStrip = recipe.height; });
        row("one pixel", [](Recipe &recipe) { recipe.width = recipe.height = 1; });
        row("one column", [](Recipe &recipe) { recipe.width = 1; });
    }

    void decode_anyStorage_givesTheNumbersOfTheFile()
    {
        QFETCH(Recipe, recipe);
        const bool hasAlpha = recipe.channels > recipe.colours();
        const bool isGrey = recipe.colours() == 1 && !hasAlpha;
        const QImage::Format narrow = isGrey     ? QImage::Format_Grayscale8
                                      : hasAlpha ? QImage::Format_ARGB32
                                                 : QImage::Format_RGB32;
        const QImage::Format wide = isGrey     ? QImage::Format_Grayscale16
                                    : hasAlpha ? QImage::Format_RGBA64
                                               : QImage::Format_RGBX64;
        const DecodedPicture eight = decoded(recipe);
        QCOMPARE(eight.reason, QString());
        QCOMPARE(eight.image.format(), narrow);
        QCOMPARE(eight.image, expectedPicture(recipe, narrow));
        const QImage whole = decoded(recipe, deep()).image;
        const QImage::Format stored = recipe.bits == 8 ? narrow : wide;
        QCOMPARE(whole.format(), stored);
        QCOMPARE(whole, expectedPicture(recipe, stored));
    }

    void decode_orientation_isUpright_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<QPoint>("first");
        QTest::newRow("mirrored") << 2 << QPoint(60, 0);
        QTest::newRow("upside down") << 3 << QPoint(60, 36);
        QTest::newRow("clockwise") << 6 << QPoint(36, 0);
        QTest::newRow("counter-clockwise") << 8 << QPoint(0, 60);
    }

    void decode_orientation_isUpright()
    {
        QFETCH(int, orientation);
        QFETCH(QPoint, first);
        for (const int bits : {8, 16}) {
            for (const int channels : {3, 4}) {
                Recipe recipe;
                recipe.bits = bits;
                recipe.channels = channels;
                recipe.orientation = orientation;
                for (const ReadOptions &options : {ReadOptions(), deep()}) {
                    const QImage picture = decoded(recipe, options).image;
                    QCOMPARE(picture.pixel(first), pixelOf(recipe, 0, 0).toArgb32());
                }
            }
        }
    }

    /// 65536 levels, each as Qt rounds it.
    void decode_everyLevelOf16Bits_isKeptOrRoundedAsQtDoes()
    {
        QImage ramp(256, 256, QImage::Format_RGBX64);
        for (int i = 0; i < 65536; ++i)
            reinterpret_cast<QRgba64 *>(ramp.scanLine(i / 256))[i % 256] =
                QRgba64::fromRgba64(quint16(i), quint16(65535 - i), quint16(i ^ 0x5555), 0xFFFF);
        const QString path = folder.save(QStringLiteral("ramp.tif"), encoded(ramp, "tiff"));
        QCOMPARE(picture::decode(path, deep()).image, ramp);
        QCOMPARE(picture::decode(path).image, ramp.convertToFormat(QImage::Format_RGB32));
        const QString png = folder.save(QStringLiteral("ramp.png"), encoded(ramp, "png"));
        QCOMPARE(picture::decode(png, deep()).image.convertToFormat(QImage::Format_RGBX64), ramp);
        QCOMPARE(picture::decode(png).image.convertToFormat(QImage::Format_RGB32),
                 ramp.convertToFormat(QImage::Format_RGB32));
    }

    void decode_transparentTiffAndPng_areAlike()
    {
        QImage picture = scene(61, 37, QImage::Format_ARGB32);
        for (int y = 0; y < picture.height(); ++y) {
            auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
            for (int x = 0; x < picture.width(); ++x)
                row[x] = (row[x] & 0xFFFFFF) | QRgb(x * 4) << 24;
        }
        const QString png = folder.save(QStringLiteral("a.png"), encoded(picture, "png"));
        const QString tiff = folder.save(QStringLiteral("a.tif"), encoded(picture, "tiff"));
        QCOMPARE(picture::decode(png).image, picture);
        QCOMPARE(picture::decode(tiff).image, picture);
    }

    void decode_greyWithAChannelOfUnknownUse_isOpaque()
    {
        Recipe recipe;
        recipe.photometric = PHOTOMETRIC_MINISBLACK;
        recipe.channels = 2;
        recipe.alpha = EXTRASAMPLE_UNSPECIFIED;
        for (const int bits : {8, 16}) {
            recipe.bits = bits;
            const DecodedPicture picture = decoded(recipe);
            QCOMPARE(picture.reason, QString());
            QVERIFY(!picture.image.hasAlphaChannel());
            QCOMPARE(qRed(picture.image.pixel(7, 5)), int(pixelOf(recipe, 7, 5).red8()));
        }
    }

    void decode_bigTiff_isRead()
    {
        Recipe recipe;
        recipe.bits = 16;
        recipe.isBig = true;
        QCOMPARE(decoded(recipe, deep()).image, expectedPicture(recipe, QImage::Format_RGBA64));
    }

    void decode_profileAndResolution_areKept()
    {
        QImage picture = scene(9, 7, QImage::Format_RGBA64);
        const DecodedPicture plain = decoded({});
        QCOMPARE(plain.image.dotsPerMeterX(), 11811);
        QCOMPARE(plain.image.dotsPerMeterY(), 5906);
        picture.setColorSpace(QColorSpace::DisplayP3);
        const QString path = folder.save(QStringLiteral("p3.tif"), encoded(picture, "tiff"));
        const QImage byQtItself = byQt(path);
        QVERIFY(byQtItself.colorSpace().isValid());
        QCOMPARE(picture::decode(path).image.colorSpace(), byQtItself.colorSpace());
    }

    void decode_floatingPoint_saysThatItIsNotRead()
    {
        Recipe recipe;
        recipe.bits = 16;
        recipe.channels = 3;
        recipe.sampleFormat = SAMPLEFORMAT_IEEEFP;
        const DecodedPicture refused = decoded(recipe);
        QCOMPARE(refused.error, DecodeError::Unsupported);
        QVERIFY(refused.reason.contains(QStringLiteral("floating-point")));
        QVERIFY(refused.image.isNull());
    }

    void decode_pixelLimit_isCheckedFromTheHeader()
    {
        ReadOptions options;
        options.pixelLimit = 61 * 37 - 1;
        const DecodedPicture refused = decoded({}, options);
        QCOMPARE(refused.error, DecodeError::TooLarge);
        QVERIFY(refused.reason.contains(QStringLiteral("61 x 37")));
        options.pixelLimit = 61 * 37;
        QCOMPARE(decoded({}, options).error, DecodeError::None);
    }

    void decode_cutAnywhere_isRefused_data()
    {
        QTest::addColumn<Recipe>("recipe");
        Recipe recipe;
        QTest::newRow("strips") << recipe;
        recipe.planes = PLANARCONFIG_SEPARATE;
        QTest::newRow("channels apart") << recipe;
        recipe.tileSide = 16;
        recipe.compression = COMPRESSION_LZW;
        QTest::newRow("tiles") << recipe;
    }

    void decode_cutAnywhere_isRefused()
    {
        QFETCH(Recipe, recipe);
        const QByteArray whole = tiffFile(recipe);
        for (int length = 1; length < whole.size(); length += 1 + length / 60) {
            const DecodedPicture cut =
                picture::decode(folder.save(QStringLiteral("cut"), whole.left(length)));
            QVERIFY2(cut.error == DecodeError::Damaged || cut.error == DecodeError::NotAPicture,
                     qPrintable(QString::number(length)));
        }
    }

    void decode_anyByteDamaged_isSafe()
    {
        std::mt19937 random(7);
        Recipe recipe;
        recipe.width = 20;
        recipe.height = 11;
        for (const int tile : {0, 16}) {
            recipe.tileSide = tile;
            const QByteArray whole = tiffFile(recipe);
            for (int i = 0; i < 2000; ++i) {
                QByteArray damaged = whole;
                for (int n = 0; n < 3; ++n)
                    damaged[int(random() % unsigned(whole.size()))] = char(random());
                ReadOptions options;
                options.pixelLimit = 1000 * 1000;
                const DecodedPicture result =
                    picture::decode(folder.save(QStringLiteral("d"), damaged), options);
                QCOMPARE(result.image.isNull(), result.error != DecodeError::None);
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestTiffDecoder)
#include "tst_tiff_decoder.moc"
