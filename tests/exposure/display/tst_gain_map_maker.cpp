// Gain maps of pictures whose gains are known, and fast against plain.

#include "bright_picture.h"
#include "gain_map_maker.h"
#include "parallel_rows.h"
#include "vector_targets.h"
#include "white_match.h"

#include <QColorSpace>
#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <cmath>

using display::BrightSource;

class TestGainMapMaker : public QObject
{
    Q_OBJECT

private slots:
    void makeGainMap_anySize_equalsPlainOnEveryTarget_data();
    void makeGainMap_anySize_equalsPlainOnEveryTarget();
    void makeGainMap_anyNumberOfThreads_givesTheSameMap();
    void makeGainMap_lightOfTheBase_hasNoGain();
    void makeGainMap_brightPart_hasItsGain_data();
    void makeGainMap_brightPart_hasItsGain();
    void makeGainMap_darkerLight_leavesTheBase();
    void makeGainMap_otherProfile_isTakenByItsCurve();
    void whiteMatch_mostOfThePicture_decides();
    void whiteMatch_bounds_areLeftOut();
    void whiteMatch_blackPicture_isOne();
    void brightPicture_eachChannel_isTheBrighterWithinThePeak();
    void brightPicture_deepBase_isNotRounded();
};

namespace {

double lightOfSrgb(double level)
{
    return level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
}

float *pixelOf(QImage &light, int x, int y)
{
    return reinterpret_cast<float *>(light.scanLine(y)) + 4 * x;
}

/// The light that the base shows, times so much.
QImage lightOf(const QImage &base, double times)
{
    QImage light(base.size(), QImage::Format_RGBX32FPx4);
    for (int y = 0; y < base.height(); ++y) {
        for (int x = 0; x < base.width(); ++x) {
            const QRgb word = base.pixel(x, y);
            const int levels[] = {qRed(word), qGreen(word), qBlue(word)};
            for (int c = 0; c < 3; ++c)
                pixelOf(light, x, y)[c] = float(times * lightOfSrgb(levels[c] / 255.0));
            pixelOf(light, x, y)[3] = 1.0F;
        }
    }
    light.setColorSpace(QColorSpace(QColorSpace::SRgbLinear));
    return light;
}

QImage randomBase(QSize size)
{
    QRandomGenerator random(quint32(size.width() * 1000 + size.height()));
    QImage base(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            base.setPixel(x, y, random.generate() | 0xFF000000U);
    return base;
}

BrightSource randomSource(QSize size)
{
    const QImage base = randomBase(size);
    QImage light = lightOf(base, 0.3);
    QRandomGenerator random(7);
    for (int y = 0; y < size.height(); ++y)
        for (int i = 0; i < 4 * size.width(); ++i)
            pixelOf(light, 0, y)[i] *= float(std::exp2(8.0 * random.generateDouble() - 3.0));
    return {base, light, {}, 4.0};
}

QImage grey(QSize size, int level)
{
    QImage base(size, QImage::Format_RGB32);
    base.fill(qRgb(level, level, level));
    return base;
}

/// A grey picture whose left third is so many times as bright as shown.
BrightSource partlyBright(double times, double peak)
{
    BrightSource source{grey({60, 40}, 128), {}, {}, peak};
    source.light = lightOf(source.base, 1.0);
    for (int y = 0; y < 40; ++y)
        for (int i = 0; i < 4 * 20; ++i)
            pixelOf(source.light, 0, y)[i] *= float(times);
    return source;
}

/// In stops, of the green channel.
double gainAt(const GainMap &map, int x, int y)
{
    return map.terms.channels[1].most * qGreen(map.picture.pixel(x, y)) / 255.0;
}

} // namespace

void TestGainMapMaker::makeGainMap_anySize_equalsPlainOnEveryTarget_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize size : {QSize(1, 1), QSize(1, 7), QSize(5, 1), QSize(16, 16), QSize(17, 9),
                             QSize(31, 33), QSize(257, 101)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void TestGainMapMaker::makeGainMap_anySize_equalsPlainOnEveryTarget()
{
    QFETCH(QSize, size);
    const BrightSource source = randomSource(size);
    const GainMap plain = display::makeGainMapPlain(source);
    QCOMPARE(plain.picture.size(), QSize((size.width() + 1) / 2, (size.height() + 1) / 2));
    for (const int64_t target : vectorTargets::all()) {
        const vectorTargets::Forced forced(target);
        const GainMap fast = display::makeGainMap(source);
        QVERIFY2(fast.picture == plain.picture, hwy::TargetName(target));
        QCOMPARE(fast.terms.alternateHeadroom, plain.terms.alternateHeadroom);
    }
}

void TestGainMapMaker::makeGainMap_anyNumberOfThreads_givesTheSameMap()
{
    const BrightSource source = randomSource({1500, 700});
    parallel::setThreadLimit(1);
    const GainMap one = display::makeGainMap(source);
    for (const int threads : {2, 5}) {
        parallel::setThreadLimit(threads);
        QVERIFY(display::makeGainMap(source).picture == one.picture);
    }
    parallel::setThreadLimit(0);
}

void TestGainMapMaker::makeGainMap_lightOfTheBase_hasNoGain()
{
    const QImage base = randomBase({64, 48});
    // Another unit of light changes nothing.
    const GainMap map = display::makeGainMap({base, lightOf(base, 37.0), {}, 4.0});
    QImage none(32, 24, QImage::Format_RGB32);
    none.fill(qRgb(0, 0, 0));
    QVERIFY(map.picture == none);
    QVERIFY(map.terms.alternateHeadroom > map.terms.baseHeadroom);
}

void TestGainMapMaker::makeGainMap_brightPart_hasItsGain_data()
{
    QTest::addColumn<double>("times");
    QTest::addColumn<double>("peak");
    QTest::addColumn<double>("gain");
    // Of (light + 1/64) / (base + 1/64), whose base is .2159.
    QTest::newRow("two stops") << 4.0 << 4.0
                               << std::log2((4 * .21586 + 1 / 64.) / (.21586 + 1 / 64.));
    QTest::newRow("beyond the peak") << 64.0 << 2.0 << 2.0;
    QTest::newRow("up to a high peak")
        << 64.0 << 8.0 << std::log2((64 * .21586 + 1 / 64.) / (.21586 + 1 / 64.));
}

void TestGainMapMaker::makeGainMap_brightPart_hasItsGain()
{
    QFETCH(double, times);
    QFETCH(double, peak);
    QFETCH(double, gain);
    const GainMap map = display::makeGainMap(partlyBright(times, peak));
    QVERIFY(std::abs(map.terms.alternateHeadroom - std::min(gain * 1.1, peak)) < gain * 0.11);
    QVERIFY(map.terms.alternateHeadroom <= peak);
    QVERIFY2(std::abs(gainAt(map, 3, 10) - gain) < 0.02,
             qPrintable(QString::number(gainAt(map, 3, 10))));
    QCOMPARE(gainAt(map, 25, 10), 0.0);
}

void TestGainMapMaker::makeGainMap_darkerLight_leavesTheBase()
{
    const GainMap map = display::makeGainMap(partlyBright(0.1, 4.0));
    QCOMPARE(gainAt(map, 3, 10), 0.0);
    QCOMPARE(gainAt(map, 25, 10), 0.0);
}

void TestGainMapMaker::makeGainMap_otherProfile_isTakenByItsCurve()
{
    BrightSource source = partlyBright(1.0, 4.0);
    source.base.setColorSpace(QColorSpace(QColorSpace::Primaries::SRgb, 1.0F));
    // Level 128 is now light .5, and level 64 light .25.
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 60; ++x) {
            source.base.setPixel(x, y, x < 20 ? qRgb(64, 64, 64) : qRgb(128, 128, 128));
            std::fill_n(pixelOf(source.light, x, y), 3, 128.0F / 255.0F);
        }
    const GainMap map = display::makeGainMap(source);
    const double expected = std::log2((128 / 255. + 1 / 64.) / (64 / 255. + 1 / 64.));
    QVERIFY2(std::abs(gainAt(map, 3, 10) - expected) < 0.02,
             qPrintable(QString::number(gainAt(map, 3, 10))));
}

void TestGainMapMaker::whiteMatch_mostOfThePicture_decides()
{
    BrightSource source = partlyBright(16.0, 4.0);
    QVERIFY(std::abs(display::whiteMatch(source.base, source.light, {}) - 1.0) < 1e-3);
    // The bright third is white in the base, hence out of the question even when it is most.
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 45; ++x) {
            source.base.setPixel(x, y, qRgb(255, 255, 255));
            std::fill_n(pixelOf(source.light, x, y), 3, 9.0F);
        }
    QVERIFY(std::abs(display::whiteMatch(source.base, source.light, {}) - 1.0) < 1e-3);
}

void TestGainMapMaker::whiteMatch_bounds_areLeftOut()
{
    const BrightSource source = partlyBright(16.0, 4.0);
    QImage bounds(60, 40, QImage::Format_Grayscale8);
    bounds.fill(255);
    for (int y = 0; y < 40; ++y)
        std::fill_n(bounds.scanLine(y), 10, uchar(0));
    QVERIFY(std::abs(display::whiteMatch(source.base, source.light, bounds) - 1 / 16.) < 1e-3);
}

void TestGainMapMaker::whiteMatch_blackPicture_isOne()
{
    const QImage black = grey({8, 8}, 0);
    QCOMPARE(display::whiteMatch(black, lightOf(black, 1.0), {}), 1.0);
}

void TestGainMapMaker::brightPicture_eachChannel_isTheBrighterWithinThePeak()
{
    BrightSource source = partlyBright(1.0, 2.0);
    float *pixel = pixelOf(source.light, 5, 5);
    pixel[0] = 0.5F;
    pixel[1] = 0.01F;
    pixel[2] = 100.0F;
    const QImage bright = display::brightPicture(source);
    const auto *shown = reinterpret_cast<const float *>(bright.constScanLine(5)) + 4 * 5;
    const float base = float(lightOfSrgb(128 / 255.0));
    QVERIFY(std::abs(shown[0] - 0.5F) < 1e-4F);
    QVERIFY(std::abs(shown[1] - base) < 1e-4F);
    QVERIFY(std::abs(shown[2] - (4.0F * (base + 1 / 64.F) - 1 / 64.F)) < 1e-3F);
    QCOMPARE(bright.colorSpace(), source.light.colorSpace());
}

void TestGainMapMaker::brightPicture_deepBase_isNotRounded()
{
    BrightSource source = partlyBright(0.0, 2.0);
    source.base = source.base.convertToFormat(QImage::Format_RGBX64);
    auto *word = reinterpret_cast<QRgba64 *>(source.base.scanLine(7)) + 3;
    *word = QRgba64::fromRgba64(20000, 20001, 20002, 65535);
    const QImage bright = display::brightPicture(source);
    const auto *shown = reinterpret_cast<const float *>(bright.constScanLine(7)) + 4 * 3;
    for (int c = 0; c < 3; ++c)
        QVERIFY(std::abs(double(shown[c]) - lightOfSrgb((20000 + c) / 65535.0)) < 2e-6);
}

QTEST_GUILESS_MAIN(TestGainMapMaker)
#include "tst_gain_map_maker.moc"
