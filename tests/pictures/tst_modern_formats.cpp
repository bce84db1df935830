#include "ExifTags.h"
#include "XmpPacket.h"
#include "colour_profile.h"
#include "exif_metadata.h"
#include "metadata_reader.h"
#include "modern_files.h"
#include "picture_header.h"
#include "picture_makers.h"
#include "picture_reader.h"
#include "test_colours.h"
#include "xmp_namespaces.h"

#include <QColorSpace>
#include <QRandomGenerator>
#include <QRgba64>
#include <QTransform>
#include <QtTest>

#include <algorithm>
#include <cmath>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace makers;
using colour_profile::Space;
using modern_files::Recipe;

namespace {

ReadOptions deep()
{
    ReadOptions options;
    options.depth = ReadOptions::Depth::AsStored;
    options.colours = ReadOptions::Colours::True;
    return options;
}

/// All levels that so many bits have, and more, in another order in each channel.
QImage ramp(int bits, QImage::Format format)
{
    QImage picture(256, 256, QImage::Format_RGBA64);
    const int most = (1 << bits) - 1;
    const auto level = [=](int number) {
        return quint16((quint64(number & most) * 65535 + quint64(most) / 2) / quint64(most));
    };
    for (int y = 0; y < 256; ++y) {
        auto *row = reinterpret_cast<QRgba64 *>(picture.scanLine(y));
        for (int x = 0; x < 256; ++x)
            row[x] = QRgba64::fromRgba64(level(y * 256 + x), level(x * 256 + y), level(x * y),
                                         level(0xFFFF - 3 * y));
    }
    return picture.convertToFormat(format);
}

int worstDifference(const QImage &one, const QImage &other)
{
    const QImage left = one.convertToFormat(QImage::Format_RGBA64);
    const QImage right = other.convertToFormat(QImage::Format_RGBA64);
    int worst = left.size() == right.size() ? 0 : 0x10000;
    for (int y = 0; y < left.height() && worst < 0x10000; ++y) {
        const auto *a = reinterpret_cast<const quint16 *>(left.constScanLine(y));
        const auto *b = reinterpret_cast<const quint16 *>(right.constScanLine(y));
        for (int i = 0; i < 4 * left.width(); ++i)
            worst = std::max(worst, std::abs(int(a[i]) - int(b[i])));
    }
    return worst;
}

#if defined(Q_OS_LINUX) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define VESK_LIMITS_MEMORY
/// So many bytes of address space beyond what the process has.
void leaveMemory(qint64 bytes)
{
    QFile usage(QStringLiteral("/proc/self/statm"));
    usage.open(QIODevice::ReadOnly);
    const qint64 pages = usage.readAll().split(' ').first().toLongLong();
    const auto limit = rlim_t(pages * ::sysconf(_SC_PAGESIZE) + bytes);
    const rlimit bounds = {limit, limit};
    ::setrlimit(RLIMIT_AS, &bounds);
}
#endif

/// White is 203 candelas per square metre: SMPTE ST 2084, equation 4.
double lightOfLevel(double level)
{
    const double power = std::pow(level, 1.0 / 78.84375);
    return 10000.0 / 203.0 *
           std::pow(std::max(power - 0.8359375, 0.0) / (18.8515625 - 18.6875 * power),
                    1.0 / 0.1593017578125);
}

/// Within one step of 10 bits.
void requireLightOf(const QImage &levels, const QImage &light)
{
    constexpr double kStep = 1.0 / 1023;
    QCOMPARE(light.size(), levels.size());
    for (int y = 0; y < light.height(); ++y) {
        const auto *pixel = reinterpret_cast<const float *>(light.constScanLine(y));
        for (int x = 0; x < light.width(); ++x, pixel += 4) {
            const QColor told = levels.pixelColor(x, y);
            const double stored[] = {told.redF(), told.greenF(), told.blueF()};
            for (int c = 0; c < 3; ++c) {
                QVERIFY(double(pixel[c]) >= lightOfLevel(std::max(0.0, stored[c] - kStep)));
                QVERIFY(double(pixel[c]) <= lightOfLevel(std::min(1.0, stored[c] + kStep)) + 1e-6);
            }
        }
    }
}

QByteArray made(const QByteArray &kind, const Recipe &recipe)
{
    return kind == "AVIF" ? modern_files::avif(recipe) : modern_files::jxl(recipe);
}

} // namespace

/// AVIF and JPEG XL files, known by their content.
class TestModernFormats : public QObject
{
    Q_OBJECT

private:
    const Folder folder;

    DecodedPicture readBytes(const QByteArray &bytes, const ReadOptions &options = deep()) const
    {
        return picture::read(folder.save(QStringLiteral("picture.jpg"), bytes), options);
    }

    void eachKind() const
    {
        QTest::addColumn<QByteArray>("kind");
        QTest::newRow("AVIF") << QByteArray("AVIF");
        QTest::newRow("JPEG XL") << QByteArray("JPEG XL");
    }

private slots:
    void initTestCase() { QVERIFY(folder.isValid()); }

    void read_anyDepth_keepsEveryLevel_data()
    {
        QTest::addColumn<QByteArray>("kind");
        QTest::addColumn<int>("bits");
        QTest::addColumn<bool>("hasAlpha");
        for (const int bits : {8, 10, 12, 16}) {
            for (const bool hasAlpha : {false, true}) {
                const char *alpha = hasAlpha ? " with alpha" : "";
                if (bits < 16)
                    QTest::addRow("AVIF, %d bits%s", bits, alpha)
                        << QByteArray("AVIF") << bits << hasAlpha;
                QTest::addRow("JPEG XL, %d bits%s", bits, alpha)
                    << QByteArray("JPEG XL") << bits << hasAlpha;
            }
        }
    }

    void read_anyDepth_keepsEveryLevel()
    {
        QFETCH(QByteArray, kind);
        QFETCH(int, bits);
        QFETCH(bool, hasAlpha);
        Recipe recipe;
        recipe.bits = bits;
        recipe.picture = ramp(bits, hasAlpha ? QImage::Format_RGBA64 : QImage::Format_RGBX64);
        const QByteArray file = made(kind, recipe);
        QVERIFY(!file.isEmpty());
        const DecodedPicture picture = readBytes(file);
        const bool isDeep = bits > 8;
        QCOMPARE(picture.error, DecodeError::None);
        QCOMPARE(picture.image.format(),
                 isDeep ? (hasAlpha ? QImage::Format_RGBA64 : QImage::Format_RGBX64)
                        : (hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32));
        const int worst = worstDifference(picture.image, recipe.picture);
        QVERIFY2(worst <= 1, qPrintable(QString::number(worst)));

        const DecodedPicture flat = readBytes(file, ReadOptions());
        QCOMPARE(flat.image.depth(), 32);
        QVERIFY(worstDifference(flat.image, recipe.picture) <= 257);
    }

    void read_profile_isThatOfTheFile_data() { eachKind(); }

    void read_profile_isThatOfTheFile()
    {
        QFETCH(QByteArray, kind);
        Recipe recipe;
        recipe.picture = test_colours::softScene(40, 30);
        recipe.bits = 12;
        recipe.profile = colour_profile::of(Space::AdobeRgb);
        QCOMPARE(readBytes(made(kind, recipe)).image.colorSpace().iccProfile(), recipe.profile);

        recipe.profile.clear();
        recipe.primaries = 12;
        recipe.picture =
            test_colours::brought(recipe.picture, colour_profile::of(Space::DisplayP3));
        const DecodedPicture byCode = readBytes(made(kind, recipe));
        QVERIFY(byCode.warnings.isEmpty());
        const double difference =
            test_colours::meanDifference(byCode.image, test_colours::softScene(40, 30));
        qInfo("mean CIEDE2000 %.3f", difference);
        QVERIFY(difference < 0.1);
    }

    void read_standardColours_needNoConversion_data() { eachKind(); }

    void read_standardColours_needNoConversion()
    {
        QFETCH(QByteArray, kind);
        Recipe recipe;
        recipe.picture = test_colours::softScene(40, 30);
        const DecodedPicture picture = readBytes(made(kind, recipe));
        QVERIFY(test_colours::meanDifference(picture.image, recipe.picture) < 0.3);
    }

    void read_avifTurned_isUpright_data()
    {
        QTest::addColumn<int>("turns");
        QTest::addColumn<int>("mirror");
        for (const int turns : {0, 1, 2, 3}) {
            for (const int mirror : {-1, 0, 1})
                QTest::addRow("%d, %d", turns, mirror) << turns << mirror;
        }
    }

    void read_avifTurned_isUpright()
    {
        QFETCH(int, turns);
        QFETCH(int, mirror);
        Recipe recipe;
        recipe.picture = scene(37, 23);
        recipe.quarterTurns = turns;
        recipe.mirror = mirror;
        QImage expected = recipe.picture.transformed(QTransform().rotate(-90.0 * turns));
        if (mirror >= 0)
            expected = expected.mirrored(mirror == 1, mirror == 0);
        QCOMPARE(readBytes(modern_files::avif(recipe)).image, expected);
    }

    void read_jxlTurned_isUpright()
    {
        Recipe recipe;
        recipe.picture = scene(37, 23);
        recipe.orientation = 6;
        const DecodedPicture turned = readBytes(modern_files::jxl(recipe));
        QCOMPARE(turned.image.size(), QSize(23, 37));
        QCOMPARE(turned.image.format(), QImage::Format_RGB32);
        QCOMPARE(worstDifference(turned.image, recipe.picture.transformed(QTransform().rotate(90))),
                 0);
    }

    void exif_inFile_isFound_data() { eachKind(); }

    void exif_inFile_isFound()
    {
        QFETCH(QByteArray, kind);
        ExifTags tags;
        tags.setText(ExifTags::Directory::Picture, ExifTags::Model, "Test Camera");
        Recipe recipe;
        recipe.picture = scene(37, 23);
        recipe.exif = tags.block();
        const QString path = folder.save(QStringLiteral("picture"), made(kind, recipe));
        QCOMPARE(exif::read(path).text(ExifTags::Directory::Picture, ExifTags::Model),
                 QStringLiteral("Test Camera"));
    }

    void header_isTold_data() { eachKind(); }

    void header_isTold()
    {
        QFETCH(QByteArray, kind);
        Recipe recipe;
        recipe.picture = scene(37, 23);
        recipe.bits = 10;
        recipe.quarterTurns = 1;
        recipe.orientation = 6;
        QByteArray file = made(kind, recipe);
        QBuffer buffer(&file);
        buffer.open(QIODevice::ReadOnly);
        const std::optional<PictureHeader> header = picture::headerOf(buffer);
        QVERIFY(header);
        QCOMPARE(header->format, QString::fromLatin1(kind));
        QCOMPARE(header->size, QSize(23, 37));
        QVERIFY(header->isUpright);
        QCOMPARE(header->bitsPerSample, 10);
    }

    /// The file's property promises far more than its frame has; the library would make it so.
    void avif_hugePromise_withoutMemory_leavesTheProcessAlive()
    {
#ifndef VESK_LIMITS_MEMORY
        QSKIP("the limit of memory is not for this build");
#else
        Recipe recipe;
        recipe.picture = scene(19, 11);
        QByteArray file = modern_files::avif(recipe);
        const qsizetype size = file.indexOf("ispe") + 8;
        QVERIFY(size > 8);
        file.replace(size, 8, QByteArray("\0\0\x3E\x80\0\0\x3E\x80", 8)); // 16000 x 16000
        const pid_t child = ::fork();
        if (child == 0) {
            leaveMemory(512LL << 20);
            const DecodeError error = readBytes(file).error;
            ::_exit(error == DecodeError::NoMemory ? 0 : 1 + int(error));
        }
        int status = 0;
        QCOMPARE(::waitpid(child, &status, 0), child);
        QVERIFY2(WIFEXITED(status), "it was ended by a signal");
        QCOMPARE(WEXITSTATUS(status), 0);
#endif
    }

    void cancelled_givesNoPicture_data()
    {
        eachKind();
    }

    void cancelled_givesNoPicture()
    {
        QFETCH(QByteArray, kind);
        Recipe recipe;
        recipe.picture = scene(37, 23);
        const std::atomic<bool> cancelled = true;
        ReadOptions options = deep();
        options.cancelled = &cancelled;
        const DecodedPicture ended = readBytes(made(kind, recipe), options);
        QCOMPARE(ended.error, DecodeError::Cancelled);
        QVERIFY(ended.image.isNull());
    }

    void metadata_inFile_areFound_data()
    {
        QTest::addColumn<QByteArray>("kind");
        QTest::addColumn<bool>("isCompressed");
        QTest::newRow("AVIF") << QByteArray("AVIF") << false;
        QTest::newRow("JPEG XL") << QByteArray("JPEG XL") << false;
        QTest::newRow("JPEG XL, compressed") << QByteArray("JPEG XL") << true;
    }

    /// The packet is larger than the first memory that is tried for one.
    void metadata_inFile_areFound()
    {
        QFETCH(QByteArray, kind);
        QFETCH(bool, isCompressed);
        XmpPacket packet;
        packet.setText(xmp::kBasic, "Label", QString(60000, u'a'));
        packet.setText(xmp::kBasic, "Rating", QStringLiteral("4"));
        ExifTags tags;
        tags.setText(ExifTags::Directory::Picture, ExifTags::Model, "Test Camera");
        Recipe recipe;
        recipe.picture = scene(37, 23);
        recipe.exif = tags.block();
        recipe.xmp = packet.serialized();
        recipe.isMetadataCompressed = isCompressed;
        const QByteArray file = made(kind, recipe);
        QVERIFY(!file.isEmpty());
        QCOMPARE(!file.contains("Test Camera"), isCompressed);
        const Metadata found = metadata::read(folder.save(QStringLiteral("picture"), file));
        QCOMPARE(found.exif.text(ExifTags::Directory::Picture, ExifTags::Model),
                 QStringLiteral("Test Camera"));
        QCOMPARE(found.xmp, recipe.xmp);
    }

    void metadata_cutAnywhere_areSafe_data()
    {
        metadata_inFile_areFound_data();
    }

    void metadata_cutAnywhere_areSafe()
    {
        QFETCH(QByteArray, kind);
        QFETCH(bool, isCompressed);
        Recipe recipe;
        recipe.picture = scene(37, 23);
        recipe.exif = QByteArray("II*\0\x08\0\0\0\0\0\0\0\0\0", 14);
        recipe.xmp = "<x:xmpmeta xmlns:x='adobe:ns:meta/'/>";
        recipe.isMetadataCompressed = isCompressed;
        const QByteArray whole = made(kind, recipe);
        QVERIFY(!whole.isEmpty());
        for (qsizetype length = 1; length < whole.size(); length += 7) {
            QByteArray cut = whole.left(length);
            QBuffer buffer(&cut);
            buffer.open(QIODevice::ReadOnly);
            const QByteArray found = metadata::xmpIn(buffer);
            QVERIFY(found.isEmpty() || found == recipe.xmp);
        }
    }

    void read_tooManyPixels_areRefused_data()
    {
        eachKind();
    }

    void read_tooManyPixels_areRefused()
    {
        QFETCH(QByteArray, kind);
        Recipe recipe;
        recipe.picture = scene(37, 23);
        ReadOptions options = deep();
        options.pixelLimit = 37 * 23 - 1;
        const QByteArray file = made(kind, recipe);
        const DecodedPicture refused = readBytes(file, options);
        QCOMPARE(refused.error, DecodeError::TooLarge);
        QVERIFY(refused.reason.contains("37 x 23"));
        options.pixelLimit = 37 * 23;
        QCOMPARE(readBytes(file, options).error, DecodeError::None);
    }

    void read_lightBeyondWhite_isRefused_data()
    {
        eachKind();
    }

    void read_lightBeyondWhite_isRefused()
    {
        QFETCH(QByteArray, kind);
        Recipe recipe;
        recipe.picture = scene(37, 23);
        recipe.bits = 10;
        recipe.transfer = 16;
        const DecodedPicture refused = readBytes(made(kind, recipe));
        QCOMPARE(refused.error, DecodeError::Unsupported);
        QVERIFY(refused.reason.startsWith(QString::fromLatin1(kind) + " (PQ or HLG)"));
    }

    void read_lightBeyondWhite_isLightWhereItIsWanted_data()
    {
        QTest::addColumn<QByteArray>("kind");
        QTest::addColumn<int>("primaries");
        QTest::addColumn<QColorSpace>("space");
        for (const QByteArray kind : {"AVIF", "JPEG XL"}) {
            QTest::addRow("%s, Rec. 709", kind.constData())
                << kind << 1 << QColorSpace(QColorSpace::SRgbLinear);
            QTest::addRow("%s, Display P3", kind.constData())
                << kind << 12
                << QColorSpace(QColorSpace::Primaries::DciP3D65,
                               QColorSpace::TransferFunction::Linear);
        }
    }

    void read_lightBeyondWhite_isLightWhereItIsWanted()
    {
        QFETCH(QByteArray, kind);
        QFETCH(int, primaries);
        QFETCH(QColorSpace, space);
        Recipe recipe;
        recipe.picture = scene(37, 23);
        recipe.bits = 10;
        recipe.transfer = 16;
        recipe.primaries = primaries;
        ReadOptions options;
        options.light = ReadOptions::Light::Floats;
        const DecodedPicture read = readBytes(made(kind, recipe), options);
        QCOMPARE(read.error, DecodeError::None);
        QCOMPARE(read.image.format(), QImage::Format_RGBX32FPx4);
        QCOMPARE(read.whiteLuminance, 203.0);
        requireLightOf(recipe.picture, read.image);
        // A grey of the space is a grey in all; red tells the primaries.
        QImage red(1, 1, QImage::Format_RGBX32FPx4);
        QImage same = red;
        red.setPixelColor(0, 0, QColor::fromRgbF(0.5F, 0, 0));
        same.setPixelColor(0, 0, QColor::fromRgbF(0.5F, 0, 0));
        red.setColorSpace(read.image.colorSpace());
        same.setColorSpace(space);
        red.convertToColorSpace(QColorSpace(QColorSpace::ProPhotoRgb));
        same.convertToColorSpace(QColorSpace(QColorSpace::ProPhotoRgb));
        const auto *one = reinterpret_cast<const float *>(red.constScanLine(0));
        const auto *other = reinterpret_cast<const float *>(same.constScanLine(0));
        for (int c = 0; c < 3; ++c)
            QVERIFY(qAbs(one[c] - other[c]) < 0.01F);
    }

    void read_lightBeyondWhite_isCutOffForScreens_data()
    {
        eachKind();
    }

    void read_lightBeyondWhite_isCutOffForScreens()
    {
        QFETCH(QByteArray, kind);
        Recipe recipe;
        recipe.picture = QImage(2, 1, QImage::Format_RGBX64);
        recipe.picture.setPixelColor(0, 0, QColor(QRgba64::fromRgba64(0xFFFF, 0xC000, 0, 0xFFFF)));
        recipe.picture.setPixelColor(1, 0,
                                     QColor(QRgba64::fromRgba64(33294, 33294, 33294, 0xFFFF)));
        recipe.bits = 10;
        recipe.transfer = 16;
        ReadOptions options;
        options.light = ReadOptions::Light::Shown;
        const QImage shown = readBytes(made(kind, recipe), options).image;
        QCOMPARE(shown.format(), QImage::Format_RGB32);
        QCOMPARE(shown.pixel(0, 0), qRgb(255, 255, 0));
        // 100 of 203 candelas per square metre, by the curve of sRGB.
        QVERIFY(qAbs(qRed(shown.pixel(1, 0)) - 186) <= 1);
    }

    void read_cutAnywhere_isRefused_data()
    {
        eachKind();
    }

    void read_cutAnywhere_isRefused()
    {
        QFETCH(QByteArray, kind);
        Recipe recipe;
        recipe.picture = scene(37, 23);
        recipe.bits = 10;
        const QByteArray file = made(kind, recipe);
        for (qsizetype length = 64; length < file.size() - 1; length += 13) {
            const DecodedPicture refused = readBytes(file.left(length));
            QVERIFY2(refused.image.isNull(), qPrintable(QString::number(length)));
            QCOMPARE(refused.error, DecodeError::Damaged);
        }
    }

    void read_anyByteDamaged_isSafe_data()
    {
        eachKind();
    }

    void read_anyByteDamaged_isSafe()
    {
        QFETCH(QByteArray, kind);
        Recipe recipe;
        recipe.picture = scene(37, 23);
        const QByteArray file = made(kind, recipe);
        ReadOptions options = deep();
        options.pixelLimit = 1000 * 1000;
        QRandomGenerator random(3);
        for (int i = 0; i < 300; ++i) {
            QByteArray changed = file;
            changed[random.bounded(int(file.size()))] = char(random.bounded(256));
            const DecodedPicture picture = readBytes(changed, options);
            QCOMPARE(picture.image.isNull(), picture.error != DecodeError::None);
        }
    }
};

QTEST_GUILESS_MAIN(TestModernFormats)
#include "tst_modern_formats.moc"
