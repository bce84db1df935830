#include "mtb_shifts.h"
#include "parallel_rows.h"
#include "sample_bracket.h"
#include "sample_camera.h"

#include <QtEndian>
#include <QtTest>

#include <libexif/exif-data.h>
#include <zlib.h>

#include <memory>

using namespace sample;

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kIsSanitized = true;
#else
constexpr bool kIsSanitized = false;
#endif

BracketSettings smallSettings()
{
    BracketSettings settings;
    settings.size = {150, 100};
    settings.stops = {-2.0, 0.0, 2.0};
    return settings;
}

Shot smallShot()
{
    BracketSettings settings = smallSettings();
    settings.stops = {-3.0};
    return photographBracket(settings).constFirst();
}

double meanLevel(const QImage &picture)
{
    qint64 sum = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            sum += qGray(picture.pixel(x, y));
    }
    return static_cast<double>(sum) / (picture.width() * picture.height());
}

bool havePictures(const QVector<Shot> &shots, const QVector<Shot> &others)
{
    const auto isSame = [](const Shot &a, const Shot &b) { return a.picture == b.picture; };
    return std::equal(shots.begin(), shots.end(), others.begin(), others.end(), isSame);
}

RadianceImage evenRadiance(int width, int height, float radiance)
{
    return {
        width, height,
        std::vector<Vector3>(static_cast<size_t>(width * height), {radiance, radiance, radiance})};
}

using ExifPointer = std::unique_ptr<ExifData, decltype(&exif_data_unref)>;

ExifPointer parsedExif(const QByteArray &bytes)
{
    return {exif_data_new_from_data(reinterpret_cast<const uchar *>(bytes.constData()),
                                    static_cast<unsigned>(bytes.size())),
            &exif_data_unref};
}

QString exifText(const ExifPointer &exif, ExifTag tag)
{
    ExifEntry *entry = exif_data_get_entry(exif.get(), tag);
    char text[64] = "";
    return entry ? QString::fromLatin1(exif_entry_get_value(entry, text, sizeof text)) : QString();
}

} // namespace

class TestSampleBracket : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { parallel::setThreadLimit(0); }

    void photographBracket_sameSettings_givesTheSamePixels();
    void photographBracket_otherNumberOfThreads_givesTheSamePixels();
    void photographBracket_otherSeed_givesOtherPixels();
    void photographBracket_moreExposure_isBrighter();
    void photographBracket_darkestShot_clipsNothing();
    void photographBracket_offsetsGiven_areThoseOfTheShots();
    void photographBracket_burst_neverOverlaps();
    void photographBracket_scene_exceedsWhatOneShotHolds();
    void pairShifts_bracket_areThoseOfTheHand_data();
    void pairShifts_bracket_areThoseOfTheHand();
    void photograph_evenLight_scattersAsMuchAsPhotonsDo();
    void photograph_fullSensor_isWhite();
    void encoded_jpeg_carriesTheExposure();
    void encoded_png_carriesTheExposure();
    void encoded_png_keepsEveryPixel();
    void encoded_unknownFormat_isEmpty();
};

void TestSampleBracket::photographBracket_sameSettings_givesTheSamePixels()
{
    const QVector<Shot> shots = photographBracket(smallSettings());
    QCOMPARE(shots.size(), 3);
    QVERIFY(havePictures(shots, photographBracket(smallSettings())));
}

void TestSampleBracket::photographBracket_otherNumberOfThreads_givesTheSamePixels()
{
    const BracketSettings settings = smallSettings();
    parallel::setThreadLimit(1);
    const QVector<Shot> shots = photographBracket(settings);
    for (const int threads : {2, 7}) {
        parallel::setThreadLimit(threads);
        QVERIFY(havePictures(shots, photographBracket(settings)));
    }
}

void TestSampleBracket::photographBracket_otherSeed_givesOtherPixels()
{
    BracketSettings settings = smallSettings();
    settings.offsets = {{0, 0}, {0, 0}, {0, 0}};
    const QVector<Shot> shots = photographBracket(settings);
    settings.seed = 2;
    QVERIFY(!havePictures(shots, photographBracket(settings)));
}

void TestSampleBracket::photographBracket_moreExposure_isBrighter()
{
    const QVector<Shot> shots = photographBracket(smallSettings());
    QVERIFY(meanLevel(shots[0].picture) + 10.0 < meanLevel(shots[1].picture));
    QVERIFY(meanLevel(shots[1].picture) + 10.0 < meanLevel(shots[2].picture));
}

void TestSampleBracket::photographBracket_darkestShot_clipsNothing()
{
    BracketSettings settings = smallSettings();
    settings.stops = {BracketSettings().stops.constFirst()};
    const QImage picture = photographBracket(settings).constFirst().picture;
    int clipped = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            clipped += qRed(picture.pixel(x, y)) == 255;
    }
    // The glitter on the lake may.
    QVERIFY2(clipped < picture.width() * picture.height() / 1000,
             qPrintable(QString::number(clipped)));
}

void TestSampleBracket::photographBracket_offsetsGiven_areThoseOfTheShots()
{
    BracketSettings settings = smallSettings();
    settings.offsets = {{0, 0}, {7, -3}, {-2, 5}};
    // Noise hides single pixels, so the means of the moved scene are compared in blocks.
    const QVector<Shot> moved = photographBracket(settings);
    QCOMPARE(moved[1].offset, QPoint(7, -3));
    QCOMPARE(moved[2].offset, QPoint(-2, 5));
    const QRect inner(20, 20, 110, 60);
    const auto blocks = [](const QImage &picture) {
        return picture.scaled(22, 12, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    settings.stops = {0.0, 0.0, 0.0};
    const QVector<Shot> shots = photographBracket(settings);
    const QImage still = blocks(shots[0].picture.copy(inner));
    const QImage followed = blocks(shots[1].picture.copy(inner.translated(7, -3)));
    const QImage missed = blocks(shots[1].picture.copy(inner));
    int largestFollowed = 0;
    int largestMissed = 0;
    for (int y = 0; y < still.height(); ++y) {
        for (int x = 0; x < still.width(); ++x) {
            const int level = qGreen(still.pixel(x, y));
            largestFollowed =
                std::max(largestFollowed, std::abs(level - qGreen(followed.pixel(x, y))));
            largestMissed = std::max(largestMissed, std::abs(level - qGreen(missed.pixel(x, y))));
        }
    }
    QVERIFY2(largestFollowed < 6, qPrintable(QString::number(largestFollowed)));
    QVERIFY2(largestMissed > 60, qPrintable(QString::number(largestMissed)));
}

void TestSampleBracket::photographBracket_burst_neverOverlaps()
{
    const QVector<Shot> shots = photographBracket(smallSettings());
    for (int i = 1; i < shots.size(); ++i) {
        const ExposureData &before = shots[i - 1].exposure;
        const double gap = before.takenAt.msecsTo(shots[i].exposure.takenAt) / 1000.0;
        QVERIFY(gap > before.exposureTime);
        QVERIFY(gap < before.exposureTime + 1.0);
        QCOMPARE(shots[i].exposure.exposureTime, 4.0 * before.exposureTime);
    }
}

void TestSampleBracket::photographBracket_scene_exceedsWhatOneShotHolds()
{
    const RadianceImage radiance = renderRoom(150, 100, 0);
    std::vector<float> levels;
    for (const Vector3 &pixel : radiance.pixels)
        levels.push_back(pixel.y);
    std::sort(levels.begin(), levels.end());
    QVERIFY(levels.front() >= 0.0F);
    const float dark = levels[levels.size() / 20];
    const float bright = levels[levels.size() * 19 / 20];
    QVERIFY2(bright > 100.0F * dark, qPrintable(QString::number(bright / dark)));
}

void TestSampleBracket::pairShifts_bracket_areThoseOfTheHand_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<quint32>("seed");
    QTest::newRow("1800 x 1200, the default") << BracketSettings().size << BracketSettings().seed;
    QTest::newRow("600 x 400, another hand") << QSize(600, 400) << 2U;
    QTest::newRow("521 x 389, odd sides") << QSize(521, 389) << 3U;
    QTest::newRow("400 x 600, upright") << QSize(400, 600) << 4U;
}

void TestSampleBracket::pairShifts_bracket_areThoseOfTheHand()
{
    QFETCH(QSize, size);
    QFETCH(quint32, seed);
    if (kIsSanitized && size.width() > 1000)
        QSKIP("too slow under a sanitizer; the small sizes run the same code");
    BracketSettings settings;
    settings.size = size;
    settings.seed = seed;
    QVector<Shot> shots = photographBracket(settings);
    QList<QImage *> pictures;
    for (Shot &shot : shots)
        pictures.append(&shot.picture);
    const std::vector<QPoint> shifts = mtb::summedShifts(mtb::pairShifts(pictures));
    QCOMPARE(shifts.size(), static_cast<size_t>(shots.size() - 1));
    int moved = 0;
    for (int i = 1; i < shots.size(); ++i) {
        QCOMPARE(shifts[static_cast<size_t>(i) - 1], -shots[i].offset);
        moved += !shots[i].offset.isNull();
    }
    QVERIFY(moved > 0);
}

void TestSampleBracket::photograph_evenLight_scattersAsMuchAsPhotonsDo()
{
    // At a tenth of a full sensor of 40000 electrons: deviation sqrt(4000 + 16) electrons, hence
    // 1.6 % of the light. Both curves together turn that into 0.0077 of the value of 255.
    const QImage picture =
        photograph(evenRadiance(200, 200, 0.1F / 0.28F), {0, 0}, {200, 200}, 0.0, 5);
    double sum = 0.0;
    double squares = 0.0;
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 200; ++x) {
            const double level = qGreen(picture.pixel(x, y));
            sum += level;
            squares += level * level;
        }
    }
    const double mean = sum / 40000.0;
    const double deviation = std::sqrt(squares / 40000.0 - mean * mean);
    const double tone = (1.0 - std::exp(-0.22)) / (1.0 - std::exp(-2.2));
    const double expected = 255.0 * std::pow(tone, 1.0 / 2.2);
    QVERIFY2(std::fabs(mean - expected) < 0.3, qPrintable(QString::number(mean - expected)));
    const double slope = 2.2 * std::exp(-0.22) / (1.0 - std::exp(-0.22)) / 2.2 * expected;
    const double photonNoise = slope * std::sqrt(4016.0) / 40000.0;
    // Rounding to whole values adds a variance of 1/12.
    const double expectedDeviation = std::sqrt(photonNoise * photonNoise + 1.0 / 12.0);
    QVERIFY2(std::fabs(deviation / expectedDeviation - 1.0) < 0.05,
             qPrintable(QStringLiteral("%1 for %2").arg(deviation).arg(expectedDeviation)));
}

void TestSampleBracket::photograph_fullSensor_isWhite()
{
    const QImage picture = photograph(evenRadiance(8, 8, 100.0F), {0, 0}, {8, 8}, 0.0, 5);
    QCOMPARE(picture.pixel(3, 3), qRgb(255, 255, 255));
    const QImage dark = photograph(evenRadiance(8, 8, 0.0F), {0, 0}, {8, 8}, -4.0, 5);
    QVERIFY(qGreen(dark.pixel(3, 3)) < 16);
}

void TestSampleBracket::encoded_jpeg_carriesTheExposure()
{
    const Shot shot = smallShot();
    const QByteArray file = encoded(shot, "jpg");
    QCOMPARE(QImage::fromData(file).size(), QSize(150, 100));
    const ExifPointer exif = parsedExif(file);
    QVERIFY(exif);
    QCOMPARE(exifText(exif, EXIF_TAG_MODEL), QStringLiteral("Vesk Sample Camera"));
    QCOMPARE(exifText(exif, EXIF_TAG_EXPOSURE_TIME), QStringLiteral("1/1024 sec."));
    QCOMPARE(exifText(exif, EXIF_TAG_FNUMBER), QStringLiteral("f/8.0"));
    QCOMPARE(exifText(exif, EXIF_TAG_ISO_SPEED_RATINGS), QStringLiteral("100"));
    QCOMPARE(exifText(exif, EXIF_TAG_EXPOSURE_BIAS_VALUE), QStringLiteral("-3.00 EV"));
    QCOMPARE(exifText(exif, EXIF_TAG_DATE_TIME_ORIGINAL), QStringLiteral("2024:06:15 10:42:07"));
    QCOMPARE(exifText(exif, EXIF_TAG_PIXEL_X_DIMENSION), QStringLiteral("150"));
    QCOMPARE(exifText(exif, EXIF_TAG_PIXEL_Y_DIMENSION), QStringLiteral("100"));
}

void TestSampleBracket::encoded_png_carriesTheExposure()
{
    const Shot shot = smallShot();
    const QByteArray file = encoded(shot, "png");
    const int mark = file.indexOf("eXIf");
    QVERIFY(mark > 0);
    const auto *bytes = reinterpret_cast<const uchar *>(file.constData());
    const auto length = qFromBigEndian<quint32>(bytes + mark - 4);
    const QByteArray content = file.mid(mark + 4, static_cast<int>(length));
    QCOMPARE("Exif" + QByteArray(2, '\0') + content, exifBlock(shot.exposure, shot.picture.size()));
    const auto sum = static_cast<quint32>(crc32(0, bytes + mark, length + 4));
    QCOMPARE(qFromBigEndian<quint32>(bytes + mark + 4 + length), sum);
    QVERIFY(mark < file.indexOf("IDAT"));
}

void TestSampleBracket::encoded_png_keepsEveryPixel()
{
    const Shot shot = smallShot();
    QCOMPARE(QImage::fromData(encoded(shot, "png")).convertToFormat(QImage::Format_RGB32),
             shot.picture);
}

void TestSampleBracket::encoded_unknownFormat_isEmpty()
{
    QVERIFY(encoded(smallShot(), "gif").isEmpty());
}

QTEST_GUILESS_MAIN(TestSampleBracket)
#include "tst_sample_bracket.moc"
