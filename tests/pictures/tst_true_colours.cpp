#include "ExifTags.h"
#include "cicp_profile.h"
#include "colour_profile.h"
#include "coloured_files.h"
#include "picture_makers.h"
#include "picture_reader.h"
#include "test_colours.h"

#include <QColorSpace>
#include <QRgba64>
#include <QtEndian>
#include <QtTest>

#include <tiffio.h>

using namespace makers;
using namespace test_colours;
using colour_profile::Space;

namespace {

const QSize kSize(67, 43);

ReadOptions asTheyAre()
{
    ReadOptions options;
    options.depth = ReadOptions::Depth::AsStored;
    options.colours = ReadOptions::Colours::True;
    return options;
}

/// All levels of 16 bits.
QImage ramp(QImage::Format format)
{
    QImage picture(256, 256, format);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            const auto level = quint16(y * 256 + x);
            if (format == QImage::Format_Grayscale16)
                reinterpret_cast<quint16 *>(picture.scanLine(y))[x] = level;
            else
                reinterpret_cast<QRgba64 *>(picture.scanLine(y))[x] =
                    QRgba64::fromRgba64(level, quint16(level * 7), quint16(0xFFFF - level), 0xFFFF);
        }
    }
    return picture;
}

QByteArray fourBytes(double value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(quint32(qRound(value * 100000)), bytes.data());
    return bytes;
}

QByteArray gammaChunk(double gamma)
{
    return coloured_files::chunk("gAMA", fourBytes(gamma));
}

/// Of Adobe RGB.
QByteArray primariesChunk()
{
    QByteArray bytes;
    for (const double number : {0.3127, 0.3290, 0.64, 0.33, 0.21, 0.71, 0.15, 0.06})
        bytes += fourBytes(number);
    return coloured_files::chunk("cHRM", bytes);
}

QByteArray standardChunk()
{
    return coloured_files::chunk("sRGB", QByteArray(1, '\0'));
}

QByteArray colourBlock(int space, const QByteArray &index)
{
    ExifTags tags;
    if (space > 0)
        tags.setShort(ExifTags::Directory::Exposure, ExifTags::ColourSpace, quint16(space));
    if (!index.isEmpty())
        tags.setText(ExifTags::Directory::Interoperability, ExifTags::InteroperabilityIndex, index);
    return tags.block();
}

QByteArray damaged(QByteArray profile)
{
    return profile.left(profile.size() / 2);
}

coloured_files::Jpeg jpegOf(const QImage &picture, const QByteArray &profile)
{
    return {picture.size(), 3, numbersIn(picture, profile, TYPE_RGB_8), profile, {}, false};
}

/// Without a profile, its red, green and blue as they stand.
coloured_files::Tiff tiffOf(const QImage &picture)
{
    return {picture.size(), PHOTOMETRIC_RGB, 8, 3, numbersIn(picture, {}, TYPE_RGB_8), {}};
}

QByteArray inverted(QByteArray numbers)
{
    for (char &number : numbers)
        number = char(~number);
    return numbers;
}

} // namespace

/// Reading with true colours, as the command line and the editor's own merge do.
class TestTrueColours : public QObject
{
    Q_OBJECT

private:
    const Folder folder;

    DecodedPicture readBytes(const QByteArray &bytes,
                             const ReadOptions &options = asTheyAre()) const
    {
        return picture::read(folder.save(QStringLiteral("picture"), bytes), options);
    }

private slots:
    void codePoints_haveNames()
    {
        QCOMPARE(cicp_profile::nameOf(1, 13), QStringLiteral("sRGB"));
        QCOMPARE(cicp_profile::nameOf(12, 13), QStringLiteral("Display P3"));
        QCOMPARE(cicp_profile::nameOf(9, 16), QStringLiteral("Rec. 2020 PQ"));
        QCOMPARE(cicp_profile::nameOf(4, 5), QStringLiteral("code points 4, 5"));
        QVERIFY(cicp_profile::nameOf(2, 2).isEmpty());
    }
    void initTestCase() { QVERIFY(folder.isValid()); }

    void read_deepRamp_keepsEveryLevel_data()
    {
        QTest::addColumn<QByteArray>("kind");
        QTest::addColumn<bool>("isGrey");
        for (const char *kind : {"png", "tiff"}) {
            QTest::addRow("%s, grey", kind) << QByteArray(kind) << true;
            QTest::addRow("%s, colour", kind) << QByteArray(kind) << false;
        }
    }

    void read_deepRamp_keepsEveryLevel()
    {
        QFETCH(QByteArray, kind);
        QFETCH(bool, isGrey);
        const QImage source = ramp(isGrey ? QImage::Format_Grayscale16 : QImage::Format_RGBX64);
        const DecodedPicture picture = readBytes(encoded(source, kind.constData()));
        QCOMPARE(picture.image.format(), QImage::Format_RGBX64);
        QCOMPARE(picture.image, source.convertToFormat(QImage::Format_RGBX64));
    }

    void read_grey_isWhatItsProfileSays_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<bool>("isKnown");
        const QByteArray profile = greyProfile(1.8);
        const QByteArray bytes = numbersIn(softScene(67, 43), profile, TYPE_GRAY_8);
        const QByteArray words = numbersIn(softScene(67, 43), profile, TYPE_GRAY_16);
        const auto jpeg = [&](const QByteArray &of) {
            return coloured_files::made(coloured_files::Jpeg{kSize, 1, bytes, of, {}, false});
        };
        const auto tiff = [&](int bits, const QByteArray &of) {
            return coloured_files::made(coloured_files::Tiff{kSize, PHOTOMETRIC_MINISBLACK, bits, 1,
                                                             bits == 8 ? bytes : words, of});
        };
        const QImage grey8 = QImage(reinterpret_cast<const uchar *>(bytes.constData()), 67, 43, 67,
                                    QImage::Format_Grayscale8)
                                 .copy();
        const QByteArray png = encoded(grey8, "png");
        QTest::newRow("JPEG") << jpeg(profile) << QImage::Format_RGB32 << true;
        QTest::newRow("JPEG without profile") << jpeg({}) << QImage::Format_RGB32 << false;
        QTest::newRow("TIFF, 8 bits") << tiff(8, profile) << QImage::Format_RGB32 << true;
        QTest::newRow("TIFF, 16 bits") << tiff(16, profile) << QImage::Format_RGBX64 << true;
        QTest::newRow("TIFF, 16 bits, without profile")
            << tiff(16, {}) << QImage::Format_RGBX64 << false;
        QTest::newRow("PNG") << coloured_files::withChunks(png,
                                                           {coloured_files::profileChunk(profile)})
                             << QImage::Format_RGB32 << true;
        QTest::newRow("PNG with gamma alone")
            << coloured_files::withChunks(png, {gammaChunk(1 / 1.8)}) << QImage::Format_RGB32
            << true;
        QTest::newRow("PNG, sRGB")
            << coloured_files::withChunks(png, {standardChunk()}) << QImage::Format_RGB32 << false;
    }

    void read_grey_isWhatItsProfileSays()
    {
        QFETCH(QByteArray, file);
        QFETCH(QImage::Format, format);
        QFETCH(bool, isKnown);
        const DecodedPicture picture = readBytes(file);
        QCOMPARE(picture.image.format(), format);
        QVERIFY(picture.warnings.isEmpty());
        const QByteArray levels = numbersIn(softScene(67, 43), greyProfile(1.8), TYPE_GRAY_8);
        QImage expected(67, 43, QImage::Format_RGBX64);
        const cmsHPROFILE from =
            cmsOpenProfileFromMem(greyProfile(1.8).constData(), quint32(greyProfile(1.8).size()));
        const cmsHPROFILE to = cmsCreate_sRGBProfile();
        const cmsHTRANSFORM way =
            cmsCreateTransform(from, TYPE_GRAY_8, to, TYPE_RGBA_16, INTENT_RELATIVE_COLORIMETRIC,
                               cmsFLAGS_BLACKPOINTCOMPENSATION);
        cmsCloseProfile(from);
        cmsCloseProfile(to);
        expected.fill(Qt::black);
        for (int y = 0; y < 43; ++y) {
            if (isKnown)
                cmsDoTransform(way, levels.constData() + 67 * y, expected.scanLine(y), 67);
            for (int x = 0; x < 67 && !isKnown; ++x)
                expected.setPixelColor(x, y,
                                       QColor::fromRgb(uchar(levels[67 * y + x]),
                                                       uchar(levels[67 * y + x]),
                                                       uchar(levels[67 * y + x])));
        }
        cmsDeleteTransform(way);
        const double difference = meanDifference(picture.image, expected);
        qInfo("mean CIEDE2000 %.3f", difference);
        QVERIFY(difference < 0.3);
    }

    void read_inks_haveTheColoursOfTheirProfile_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QImage::Format>("format");
        const QByteArray profile = inkProfile();
        const QByteArray bytes = numbersIn(softScene(67, 43), profile, TYPE_CMYK_8);
        const QByteArray words = numbersIn(softScene(67, 43), profile, TYPE_CMYK_16);
        QTest::newRow("JPEG as Adobe writes it")
            << coloured_files::made(
                   coloured_files::Jpeg{kSize, 4, inverted(bytes), profile, {}, true})
            << QImage::Format_RGB32;
        QTest::newRow("JPEG without Adobe's mark")
            << coloured_files::made(coloured_files::Jpeg{kSize, 4, bytes, profile, {}, false})
            << QImage::Format_RGB32;
        QTest::newRow("TIFF, 8 bits") << coloured_files::made(coloured_files::Tiff{
                                             kSize, PHOTOMETRIC_SEPARATED, 8, 4, bytes, profile})
                                      << QImage::Format_RGB32;
        QTest::newRow("TIFF, 16 bits") << coloured_files::made(coloured_files::Tiff{
                                              kSize, PHOTOMETRIC_SEPARATED, 16, 4, words, profile})
                                       << QImage::Format_RGBX64;
    }

    void read_inks_haveTheColoursOfTheirProfile()
    {
        QFETCH(QByteArray, file);
        QFETCH(QImage::Format, format);
        const DecodedPicture picture = readBytes(file);
        QCOMPARE(picture.image.format(), format);
        QVERIFY(picture.warnings.isEmpty());
        QCOMPARE(picture.image.colorSpace(), QColorSpace(QColorSpace::SRgb));
        const double difference = meanDifference(picture.image, softScene(67, 43));
        qInfo("mean CIEDE2000 %.3f", difference);
        QVERIFY(difference < 1);
    }

    void read_inksWithoutProfile_areMultiplied_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<bool>("isDamaged");
        const QByteArray inks = QByteArray::fromHex("00408040");
        const QByteArray deep = QByteArray::fromHex("0000404080804040");
        const auto tiff = [](int bits, const QByteArray &numbers, const QByteArray &profile) {
            return coloured_files::made(
                coloured_files::Tiff{{1, 1}, PHOTOMETRIC_SEPARATED, bits, 4, numbers, profile});
        };
        QTest::newRow("JPEG as Adobe writes it")
            << coloured_files::made(coloured_files::Jpeg{{1, 1}, 4, inverted(inks), {}, {}, true})
            << false;
        QTest::newRow("JPEG without Adobe's mark")
            << coloured_files::made(coloured_files::Jpeg{{1, 1}, 4, inks, {}, {}, false}) << false;
        QTest::newRow("TIFF, 8 bits") << tiff(8, inks, {}) << false;
        QTest::newRow("TIFF, 16 bits") << tiff(16, deep, {}) << false;
        QTest::newRow("TIFF, damaged profile") << tiff(8, inks, damaged(inkProfile())) << true;
        QTest::newRow("JPEG, damaged profile")
            << coloured_files::made(
                   coloured_files::Jpeg{{1, 1}, 4, inverted(inks), damaged(inkProfile()), {}, true})
            << true;
    }

    void read_inksWithoutProfile_areMultiplied()
    {
        QFETCH(QByteArray, file);
        QFETCH(bool, isDamaged);
        const DecodedPicture picture = readBytes(file);
        const QColor colour = picture.image.pixelColor(0, 0);
        QVERIFY(std::abs(colour.red() - 191) <= 1); // 255 * (1 - 0) * (1 - 64 / 255)
        QVERIFY(std::abs(colour.green() - 143) <= 1);
        QVERIFY(std::abs(colour.blue() - 95) <= 1);
        QCOMPARE(picture.warnings.size(), isDamaged ? 1 : 0);
    }

    void read_lab_hasItsColours_data()
    {
        QTest::addColumn<int>("photometric");
        QTest::addColumn<int>("bits");
        QTest::newRow("CIE, 8 bits") << PHOTOMETRIC_CIELAB << 8;
        QTest::newRow("CIE, 16 bits") << PHOTOMETRIC_CIELAB << 16;
        QTest::newRow("ICC, 8 bits") << PHOTOMETRIC_ICCLAB << 8;
        QTest::newRow("ICC, 16 bits") << PHOTOMETRIC_ICCLAB << 16;
    }

    void read_lab_hasItsColours()
    {
        QFETCH(int, photometric);
        QFETCH(int, bits);
        const QByteArray lab =
            numbersIn(softScene(67, 43), saved(cmsCreateLab4Profile(nullptr)), TYPE_Lab_DBL);
        const auto *numbers = reinterpret_cast<const double *>(lab.constData());
        const bool isCie = photometric == PHOTOMETRIC_CIELAB;
        QByteArray stored;
        for (qsizetype i = 0; i < lab.size() / 8; ++i) {
            const double shift = isCie ? 0 : 128;
            const double most = bits == 8 ? 255 : isCie ? 65535 : 65280;
            const int number = i % 3 == 0 ? qRound(numbers[i] / 100 * most)
                                          : qRound((numbers[i] + shift) * (bits == 8 ? 1 : 256));
            const auto word = quint16(number);
            stored.append(reinterpret_cast<const char *>(&word), bits / 8);
        }
        const DecodedPicture picture = readBytes(
            coloured_files::made(coloured_files::Tiff{kSize, photometric, bits, 3, stored, {}}));
        QCOMPARE(picture.image.format(), bits == 8 ? QImage::Format_RGB32 : QImage::Format_RGBX64);
        const double difference = meanDifference(picture.image, softScene(67, 43));
        qInfo("mean CIEDE2000 %.3f", difference);
        QVERIFY(difference < (bits == 8 ? 1 : 0.05));
    }

    void read_png_takesTheChunkThatCounts_data()
    {
        QTest::addColumn<QList<QByteArray>>("chunks");
        QTest::addColumn<QByteArray>("expected"); ///< profile that the pixels are of
        QTest::addColumn<int>("warnings");
        const QByteArray p3 = colour_profile::of(Space::DisplayP3);
        const QByteArray adobe = colour_profile::of(Space::AdobeRgb);
        const QByteArray icc = coloured_files::profileChunk(p3);
        const QByteArray gamma = gammaChunk(256 / 563.0);
        const QByteArray broken = coloured_files::profileChunk(damaged(p3));
        const QByteArray rubbish = coloured_files::chunk("iCCP", "name");
        using Chunks = QList<QByteArray>;
        QTest::newRow("none") << Chunks{} << QByteArray() << 0;
        QTest::newRow("sRGB") << Chunks{standardChunk()} << QByteArray() << 0;
        QTest::newRow("profile") << Chunks{icc} << p3 << 0;
        QTest::newRow("primaries and gamma") << Chunks{gamma, primariesChunk()} << adobe << 0;
        QTest::newRow("sRGB before primaries")
            << Chunks{gamma, primariesChunk(), standardChunk()} << QByteArray() << 0;
        QTest::newRow("profile before primaries")
            << Chunks{gamma, primariesChunk(), icc} << p3 << 0;
        QTest::newRow("damaged profile") << Chunks{broken} << QByteArray() << 1;
        QTest::newRow("damaged chunk") << Chunks{rubbish} << QByteArray() << 1;
        QTest::newRow("damaged profile, primaries")
            << Chunks{broken, gamma, primariesChunk()} << adobe << 1;
        const auto codes = [](const char *bytes, int count = 4) {
            return coloured_files::chunk("cICP", QByteArray(bytes, count));
        };
        QTest::newRow("code points") << Chunks{codes("\x0C\x0D\0\1")} << p3 << 0;
        QTest::newRow("code points before profile")
            << Chunks{codes("\x0C\x0D\0\1"), coloured_files::profileChunk(adobe)} << p3 << 0;
        QTest::newRow("sRGB's code points before profile")
            << Chunks{codes("\x01\x0D\0\1"), icc} << QByteArray() << 0;
        QTest::newRow("unknown code points") << Chunks{codes("\x02\x02\0\1"), icc} << p3 << 0;
        QTest::newRow("code points with a matrix") << Chunks{codes("\x01\x0D\1\1"), icc} << p3 << 0;
        QTest::newRow("code points of PQ") << Chunks{codes("\x09\x10\0\1"), icc} << p3 << 1;
        QTest::newRow("half of the code points") << Chunks{codes("\x01\x0D", 2), icc} << p3 << 0;
        QTest::newRow("profile for grey")
            << Chunks{coloured_files::profileChunk(greyProfile(2.2))} << QByteArray() << 1;
    }

    void read_png_takesTheChunkThatCounts()
    {
        QFETCH(QList<QByteArray>, chunks);
        QFETCH(QByteArray, expected);
        QFETCH(int, warnings);
        const QImage source = softScene(67, 43).convertToFormat(QImage::Format_RGB32);
        const DecodedPicture picture =
            readBytes(coloured_files::withChunks(encoded(source, "png"), chunks));
        QCOMPARE(picture.warnings.size(), warnings);
        QImage same = source;
        same.setColorSpace(QColorSpace::fromIccProfile(expected));
        QVERIFY(meanDifference(picture.image, same) < 0.05);
    }

    void read_exifColourSpace_countsWithoutProfile_data()
    {
        QTest::addColumn<int>("space");
        QTest::addColumn<QByteArray>("index");
        QTest::addColumn<bool>("hasProfile");
        QTest::addColumn<bool>("isAdobe");
        QTest::newRow("nothing") << 0 << QByteArray() << false << false;
        QTest::newRow("sRGB") << 1 << QByteArray("R98") << false << false;
        QTest::newRow("Adobe RGB by number") << 2 << QByteArray() << false << true;
        QTest::newRow("Adobe RGB by index") << 0xFFFF << QByteArray("R03") << false << true;
        QTest::newRow("uncalibrated") << 0xFFFF << QByteArray("R98") << false << false;
        QTest::newRow("sRGB against index") << 1 << QByteArray("R03") << false << false;
        QTest::newRow("profile first") << 2 << QByteArray() << true << false;
    }

    void read_exifColourSpace_countsWithoutProfile()
    {
        QFETCH(int, space);
        QFETCH(QByteArray, index);
        QFETCH(bool, hasProfile);
        QFETCH(bool, isAdobe);
        const QByteArray p3 = colour_profile::of(Space::DisplayP3);
        coloured_files::Jpeg jpeg = jpegOf(softScene(67, 43), {});
        jpeg.profile = hasProfile ? p3 : QByteArray();
        jpeg.exif = colourBlock(space, index);
        const QByteArray block = colourBlock(space, index);
        const QByteArray png = coloured_files::withChunks(
            encoded(softScene(67, 43).convertToFormat(QImage::Format_RGB32), "png"),
            hasProfile ? QList<QByteArray>{coloured_files::profileChunk(p3)}
                       : QList<QByteArray>{coloured_files::chunk("eXIf", block)});
        const QByteArray expected = isAdobe      ? colour_profile::of(Space::AdobeRgb)
                                    : hasProfile ? p3
                                                 : QByteArray();
        for (const QByteArray &file : {coloured_files::made(jpeg), png}) {
            const DecodedPicture picture = readBytes(file);
            QVERIFY(!picture.image.isNull());
            QCOMPARE(picture.image.colorSpace().iccProfile(), expected);
        }
    }

    void read_damagedProfile_countsAsNoneAndSaysSo_data()
    {
        QTest::addColumn<QByteArray>("file");
        const QByteArray broken = damaged(colour_profile::of(Space::AdobeRgb));
        coloured_files::Jpeg jpeg = jpegOf(softScene(67, 43), {});
        coloured_files::Tiff tiff = tiffOf(softScene(67, 43));
        jpeg.profile = tiff.profile = broken;
        QTest::newRow("JPEG") << coloured_files::made(jpeg);
        QTest::newRow("TIFF") << coloured_files::made(tiff);
        jpeg.profile = tiff.profile = inkProfile();
        QTest::newRow("JPEG with one for inks") << coloured_files::made(jpeg);
        QTest::newRow("TIFF with one for inks") << coloured_files::made(tiff);
        jpeg.profile = greyProfile(2.2);
        QTest::newRow("JPEG with one for grey") << coloured_files::made(jpeg);
    }

    void read_damagedProfile_countsAsNoneAndSaysSo()
    {
        QFETCH(QByteArray, file);
        const DecodedPicture picture = readBytes(file);
        QVERIFY(!picture.image.isNull());
        QCOMPARE(picture.warnings.size(), 1);
        QVERIFY(picture.image.colorSpace().iccProfile().isEmpty());
        QVERIFY(meanDifference(picture.image, softScene(67, 43)) < 1);
    }

    void read_palette_becomesWords()
    {
        const QImage source = softScene(67, 43).convertToFormat(QImage::Format_Indexed8);
        const DecodedPicture picture = readBytes(encoded(source, "png"));
        QCOMPARE(picture.image.format(), QImage::Format_RGB32);
        QCOMPARE(picture.image, source.convertToFormat(QImage::Format_RGB32));
    }

    void read_numbersAsStored_changeNothing()
    {
        ReadOptions options;
        const QByteArray grey = numbersIn(softScene(67, 43), greyProfile(1.8), TYPE_GRAY_8);
        DecodedPicture picture = readBytes(
            coloured_files::made(coloured_files::Jpeg{kSize, 1, grey, greyProfile(1.8), {}, false}),
            options);
        QCOMPARE(picture.image.format(), QImage::Format_Grayscale8);
        QVERIFY(std::abs(picture.image.constScanLine(5)[5] - uchar(grey[67 * 5 + 5])) <= 1);

        const QByteArray inks = inverted(QByteArray::fromHex("00408040"));
        picture = readBytes(
            coloured_files::made(coloured_files::Jpeg{{1, 1}, 4, inks, inkProfile(), {}, true}),
            options);
        QCOMPARE(picture.image.pixel(0, 0), qRgb(191, 143, 95));

        coloured_files::Jpeg jpeg = jpegOf(softScene(67, 43), {});
        jpeg.exif = colourBlock(2, {});
        QVERIFY(!readBytes(coloured_files::made(jpeg), options).image.colorSpace().isValid());
    }
};

QTEST_GUILESS_MAIN(TestTrueColours)
#include "tst_true_colours.moc"
