#include "engine_pictures.h"
#include "engine_targets.h"
#include "exposure_merge.h"
#include "exposure_merge_plain.h"
#include "lightness_definition.h"
#include "merge_weights.h"
#include "parallel_rows.h"

#include <QColor>
#include <QImageReader>
#include <QtTest>

#include <cmath>
#include <cstring>
#include <memory>

namespace {

using Picture = std::unique_ptr<QImage>;

Picture uniform(QSize size, QRgb color, QImage::Format format = QImage::Format_ARGB32)
{
    auto picture = std::make_unique<QImage>(size, format);
    picture->fill(color);
    return picture;
}

/// One pixel of the merge, computed straight from its definition.
QRgb expectedPixel(const QList<QImage *> &list, int x, int y)
{
    float red = 0;
    float green = 0;
    float blue = 0;
    float weights = 0;
    for (const QImage *picture : list) {
        const QColor color(picture->pixel(x, y));
        const float d = float(lightnessDefinition(color.rgb())) - 0.5F;
        const float w = expf(-d * d);
        red += float(color.red()) * w;
        green += float(color.green()) * w;
        blue += float(color.blue()) * w;
        weights += w;
    }
    return QColor::fromRgb(int(red / weights), int(green / weights), int(blue / weights), 255)
        .rgb();
}

const QList<QImage::Format> kFormats = {
    QImage::Format_RGB32,      QImage::Format_ARGB32,      QImage::Format_ARGB32_Premultiplied,
    QImage::Format_Grayscale8, QImage::Format_Indexed8,    QImage::Format_Mono,
    QImage::Format_MonoLSB,    QImage::Format_RGB888,      QImage::Format_RGB16,
    QImage::Format_RGBA64,     QImage::Format_Grayscale16, QImage::Format_RGBA8888,
    QImage::Format_RGB30};

/// To compare by: QImage's own comparison looks up indexes that have no entry.
QByteArray bytesOf(const QImage &picture)
{
    return QByteArray(reinterpret_cast<const char *>(picture.constBits()),
                      int(picture.sizeInBytes()));
}

} // namespace

class TestExposureMerge : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { parallel::setThreadLimit(0); }

    void emptyList_givesNull();
    void nullPointer_givesNull();
    void singlePicture_isItselfUpToTruncation();
    void transparentBlack_countsAsBlack();
    void weights_ofBlackWhiteAndMidGrey();
    void laterPictureOfOtherSize_givesNull_data();
    void laterPictureOfOtherSize_givesNull();
    void alphaOfInputs_isIgnoredAndOutputIsOpaque();
    void result_isAnRgb32ImageOfTheFirstSize();
    void inputs_areLeftAsTheyWere();
    void constantPictures_stayConstant();
    void pixels_followTheDefinition();
    void weights_ofEveryPair_areTheRecordedOnes();
    void weightTable_holdsTheWeightOfEveryColour();
    void forcedTarget_notCompiled_isNotTakenForRunning();
    void everyPairOfLargestAndSmallestChannel_equalsThePlainCode();
    void randomPicturesOfAllFormats_equalThePlainCode();
    void threadCounts_giveTheSamePixels();
    void paddedRows_areNotRead();
    void photographs_equalThePlainCode_data();
    void photographs_equalThePlainCode();
};

void TestExposureMerge::emptyList_givesNull()
{
    QVERIFY(!mergeExposures({}));
    QVERIFY(!plain::mergeExposures({}));
}

void TestExposureMerge::nullPointer_givesNull()
{
    const Picture picture = uniform({4, 4}, qRgb(1, 2, 3));
    QVERIFY(!mergeExposures({picture.get(), nullptr}));
    QVERIFY(!mergeExposures({nullptr, picture.get()}));
}

void TestExposureMerge::singlePicture_isItselfUpToTruncation()
{
    std::mt19937 random(1);
    QImage picture = pictures::noise({256, 64}, QImage::Format_RGB32, random);
    const Picture merged(mergeExposures({&picture}));
    bool someChannelIsLower = false;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb in = picture.pixel(x, y);
            const QRgb out = merged->pixel(x, y);
            for (const int lost :
                 {qRed(in) - qRed(out), qGreen(in) - qGreen(out), qBlue(in) - qBlue(out)}) {
                QVERIFY(lost == 0 || lost == 1);
                someChannelIsLower = someChannelIsLower || lost == 1;
            }
        }
    }
    QVERIFY2(someChannelIsLower, "r * w / w never fell below r: was the quotient rounded?");
}

void TestExposureMerge::transparentBlack_countsAsBlack()
{
    const Picture border = uniform({3, 3}, 0x00000000);
    const Picture grey = uniform({3, 3}, qRgb(128, 128, 128));
    const Picture merged(mergeExposures({grey.get(), border.get()}));
    const float blackWeight = std::exp(-0.25F);
    const float greyWeight = weights::of(qRgb(128, 128, 128));
    const int expected = int(128.0F * greyWeight / (greyWeight + blackWeight));
    QCOMPARE(merged->pixel(1, 1), qRgb(expected, expected, expected));
    QVERIFY(expected < 128);
}

void TestExposureMerge::weights_ofBlackWhiteAndMidGrey()
{
    QCOMPARE(weights::of(qRgb(0, 0, 0)), expf(-0.25F));
    QCOMPARE(weights::of(qRgb(255, 255, 255)), expf(-0.25F));
    // Lightness exactly 0.5 does not exist in 8-bit grey; (255, 0, 0) comes nearest, half a 16-bit
    // step away, and its weight is 1 in single precision.
    QCOMPARE(weights::of(qRgb(255, 0, 0)), 1.0F);
    QVERIFY(qAbs(weights::of(qRgb(0, 0, 0)) - 0.7788F) < 0.0001F);
}

void TestExposureMerge::laterPictureOfOtherSize_givesNull_data()
{
    QTest::addColumn<QSize>("other");
    QTest::newRow("one column more") << QSize(9, 5);
    QTest::newRow("one column less") << QSize(7, 5);
    QTest::newRow("one row more") << QSize(8, 6);
    QTest::newRow("one row less") << QSize(8, 4);
    QTest::newRow("same area") << QSize(5, 8);
    QTest::newRow("empty") << QSize(0, 0);
}

void TestExposureMerge::laterPictureOfOtherSize_givesNull()
{
    QFETCH(QSize, other);
    const Picture a = uniform({8, 5}, qRgb(10, 20, 30));
    const Picture b = uniform({8, 5}, qRgb(30, 20, 10));
    const Picture odd = uniform(other, qRgb(1, 1, 1));
    for (const auto merge : {mergeExposures, plain::mergeExposures}) {
        QVERIFY(!merge({a.get(), odd.get(), b.get()}));
        QVERIFY(!merge({a.get(), b.get(), odd.get()}));
    }
}

void TestExposureMerge::alphaOfInputs_isIgnoredAndOutputIsOpaque()
{
    const Picture clear = uniform({5, 2}, qRgba(90, 60, 30, 0));
    const Picture half = uniform({5, 2}, qRgba(90, 60, 30, 128));
    const Picture opaque = uniform({5, 2}, qRgba(90, 60, 30, 255));
    const Picture mixed(mergeExposures({clear.get(), half.get()}));
    const Picture full(mergeExposures({opaque.get(), opaque.get()}));
    QCOMPARE(*mixed, *full);
    for (int x = 0; x < 5; ++x)
        QCOMPARE(reinterpret_cast<const QRgb *>(mixed->constScanLine(1))[x] >> 24, 0xFFU);
}

void TestExposureMerge::result_isAnRgb32ImageOfTheFirstSize()
{
    const Picture picture = uniform({17, 3}, qRgb(1, 2, 3), QImage::Format_RGB888);
    const Picture merged(mergeExposures({picture.get(), picture.get()}));
    QCOMPARE(merged->size(), QSize(17, 3));
    QCOMPARE(merged->format(), QImage::Format_RGB32);
}

void TestExposureMerge::inputs_areLeftAsTheyWere()
{
    std::mt19937 random(2);
    QImage a = pictures::noise({33, 9}, QImage::Format_ARGB32, random);
    QImage b = pictures::noise({33, 9}, QImage::Format_Indexed8, random);
    const QImage aBefore = a.copy();
    const QImage bBefore = b.copy();
    delete mergeExposures({&a, &b});
    QCOMPARE(bytesOf(a), bytesOf(aBefore));
    QCOMPARE(bytesOf(b), bytesOf(bBefore));
    QCOMPARE(b.colorTable(), bBefore.colorTable());
}

void TestExposureMerge::constantPictures_stayConstant()
{
    const Picture a = uniform({131, 37}, qRgb(200, 10, 77));
    const Picture b = uniform({131, 37}, qRgb(20, 110, 250));
    const Picture merged(mergeExposures({a.get(), b.get()}));
    const QImage constant = *uniform({131, 37}, merged->pixel(0, 0), QImage::Format_RGB32);
    QCOMPARE(*merged, constant);
}

void TestExposureMerge::pixels_followTheDefinition()
{
    std::mt19937 random(3);
    for (int count = 1; count <= 5; ++count) {
        pictures::Owned owned;
        for (int i = 0; i < count; ++i)
            owned.push_back(
                std::make_unique<QImage>(pictures::noise({61, 40}, QImage::Format_ARGB32, random)));
        const QList<QImage *> list = pictures::list(owned);
        const Picture merged(mergeExposures(list));
        const Picture plain(plain::mergeExposures(list));
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 61; ++x) {
                QCOMPARE(plain->pixel(x, y), expectedPixel(list, x, y));
                QCOMPARE(merged->pixel(x, y), expectedPixel(list, x, y));
            }
        }
    }
}

/// FNV-1a over the bytes of the weights, the lowest first, from the start that was recorded with
/// it.
void TestExposureMerge::weights_ofEveryPair_areTheRecordedOnes()
{
    const auto addTo = [](quint64 &hash, float weight) {
        quint32 bits = 0;
        static_assert(sizeof(bits) == sizeof(weight));
        memcpy(&bits, &weight, sizeof(bits));
        for (int shift = 0; shift < 32; shift += 8)
            hash = (hash ^ (bits >> shift & 0xFF)) * 0x100000001B3U;
    };
    quint64 table = 1469598103934665603U;
    quint64 single = table;
    quint64 plain = table;
    for (int largest = 0; largest < 256; ++largest) {
        for (int smallest = 0; smallest <= largest; ++smallest) {
            const QRgb color = qRgb(smallest, largest, smallest);
            addTo(table, weights::table()[weights::index(largest, smallest)]);
            addTo(single, weights::of(color));
            const float d = float(lightnessDefinition(color)) - 0.5F;
            addTo(plain, expf(-d * d));
        }
    }
    QCOMPARE(QString::number(plain, 16), QStringLiteral("a345ee4350659b1a"));
    QCOMPARE(QString::number(single, 16), QStringLiteral("a345ee4350659b1a"));
    QCOMPARE(QString::number(table, 16), QStringLiteral("a345ee4350659b1a"));
}

/// What the other tests rely on: a target that the compiler did not make runs as another one.
void TestExposureMerge::forcedTarget_notCompiled_isNotTakenForRunning()
{
    QVERIFY(!vectorTargets::all().empty());
    int64_t missing = 1;
    while (HWY_TARGETS & missing)
        missing *= 2;
    const vectorTargets::Forced forced(missing);
    QVERIFY(!vectorTargets::isEngineRunning(forced));
}

void TestExposureMerge::weightTable_holdsTheWeightOfEveryColour()
{
    // The table knows the largest and the smallest channel; the one between must not matter, nor
    // which channel is which.
    const float *table = weights::table();
    for (int largest = 0; largest < 256; ++largest) {
        for (int smallest = 0; smallest <= largest; ++smallest) {
            const float weight = table[weights::index(largest, smallest)];
            const int between = (largest * 3 + smallest) / 4;
            QCOMPARE(weights::of(qRgb(largest, between, smallest)), weight);
            QCOMPARE(weights::of(qRgb(smallest, largest, between)), weight);
            QCOMPARE(weights::of(qRgb(between, smallest, largest)), weight);
        }
    }
}

void TestExposureMerge::everyPairOfLargestAndSmallestChannel_equalsThePlainCode()
{
    QImage pairs(256, 256, QImage::Format_RGB32);
    QImage mirrored(256, 256, QImage::Format_RGB32);
    std::mt19937 random(4);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            const int between = std::min(x, y) + int(random() % unsigned(std::abs(x - y) + 1));
            pairs.setPixel(x, y, qRgb(x, between, y));
            mirrored.setPixel(255 - x, y, qRgb(between, y, x));
        }
    }
    for (const int64_t target : vectorTargets::all()) {
        const vectorTargets::Forced forced(target);
        QVERIFY2(vectorTargets::isEngineRunning(forced), hwy::TargetName(target));
        for (const QList<QImage *> &list : {QList<QImage *>{&pairs}, {&pairs, &mirrored}}) {
            const Picture merged(mergeExposures(list));
            const Picture plain(plain::mergeExposures(list));
            QVERIFY2(*merged == *plain, hwy::TargetName(target));
        }
    }
}

void TestExposureMerge::randomPicturesOfAllFormats_equalThePlainCode()
{
    constexpr uint32_t seed = 20201;
    qInfo("seed %u", seed);
    std::mt19937 random(seed);
    const std::vector<int64_t> targets = vectorTargets::all();
    for (int round = 0; round < 10000; ++round) {
        const QSize size(1 + int(random() % 40), 1 + int(random() % 12));
        const int count = 1 + int(random() % 5);
        pictures::Owned owned;
        for (int i = 0; i < count; ++i) {
            const QImage::Format format = kFormats[int(random() % unsigned(kFormats.size()))];
            owned.push_back(std::make_unique<QImage>(pictures::noise(size, format, random)));
        }
        const QList<QImage *> list = pictures::list(owned);
        const vectorTargets::Forced forced(targets[size_t(round) % targets.size()]);
        QVERIFY(vectorTargets::isEngineRunning(forced));
        const Picture merged(mergeExposures(list));
        const Picture plain(plain::mergeExposures(list));
        QVERIFY2(*merged == *plain, qPrintable(QStringLiteral("round %1, %2 pictures, %3 x %4")
                                                   .arg(round)
                                                   .arg(count)
                                                   .arg(size.width())
                                                   .arg(size.height())));
    }
}

void TestExposureMerge::threadCounts_giveTheSamePixels()
{
    std::mt19937 random(5);
    pictures::Owned owned;
    for (int i = 0; i < 3; ++i)
        owned.push_back(
            std::make_unique<QImage>(pictures::noise({101, 211}, QImage::Format_RGB32, random)));
    const Picture plain(plain::mergeExposures(pictures::list(owned)));
    for (const int threads : {1, 2, 3, 7, 64}) {
        parallel::setThreadLimit(threads);
        const Picture merged(mergeExposures(pictures::list(owned)));
        QCOMPARE(*merged, *plain);
    }
}

void TestExposureMerge::paddedRows_areNotRead()
{
    // Rows that start at odd places of a buffer, with rubbish between them.
    std::mt19937 random(6);
    constexpr int width = 29;
    constexpr int height = 21;
    constexpr int bytesPerLine = (width + 3) * 4;
    std::vector<uchar> buffer(size_t(bytesPerLine) * height + 4);
    std::generate(buffer.begin(), buffer.end(), [&] { return uchar(random()); });
    QImage padded(buffer.data() + 4, width, height, bytesPerLine, QImage::Format_RGB32);
    QImage tight = padded.copy();
    const Picture merged(mergeExposures({&padded, &tight}));
    const Picture plain(plain::mergeExposures({&tight, &tight}));
    QCOMPARE(*merged, *plain);
}

void TestExposureMerge::photographs_equalThePlainCode_data()
{
    QTest::addColumn<QString>("names");
    QTest::newRow("hand-held bracket") << "IMG_387*.jpeg";
    QTest::newRow("church interior") << "test1_memorial*.png";
}

void TestExposureMerge::photographs_equalThePlainCode()
{
    QFETCH(QString, names);
    const QStringList paths = pictures::photographs(names);
    if (paths.isEmpty())
        QSKIP("no photographs here; set VESK_TEST_PICTURES to a folder that has them");
    pictures::Owned owned;
    for (const QString &path : paths.mid(0, 3))
        owned.push_back(std::make_unique<QImage>(QImageReader(path).read()));
    const Picture plain(plain::mergeExposures(pictures::list(owned)));
    for (const int64_t target : vectorTargets::all()) {
        const vectorTargets::Forced forced(target);
        QVERIFY2(vectorTargets::isEngineRunning(forced), hwy::TargetName(target));
        const Picture merged(mergeExposures(pictures::list(owned)));
        QVERIFY2(*merged == *plain, hwy::TargetName(target));
    }
}

QTEST_GUILESS_MAIN(TestExposureMerge)
#include "tst_exposure_merge.moc"
