// Light developed to pictures: fast against plain, and what each method promises.

#include "DisplayCode.h"
#include "LightRange.h"
#include "develop.h"
#include "develop_plain.h"
#include "virtual_exposures.h"

#include "parallel_rows.h"

#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <limits>

using develop::DisplayCode;
using develop::LightRange;
using develop::Method;
using develop::Options;
using develop::Result;

Q_DECLARE_METATYPE(develop::Method)

class TestDevelop : public QObject
{
    Q_OBJECT

private slots:
    void code_everyLevel_comesBack();
    void code_randomLight_equalsPlain();
    void code_borders_roundToTheNearestLevel();
    void code_badNumbers_haveLevels();
    void luminance_knownSpaces_hasTheirWeights();
    void range_knownLight_isFound();
    void range_noLight_isZero();
    void exposures_wideRange_coverIt();
    void exposures_narrowRange_isOne();
    void picture_anySize_equalsPlain_data();
    void picture_anySize_equalsPlain();
    void picture_threads_changeNoBit();
    void picture_badNumbers_areBlackOrWhite();
    void exposure_oneStop_isTheNextShot();
    void global_brighterLight_isNeverDarker();
    void global_middle_isMiddleGreyWhateverTheScale();
    void local_darkAndBrightHalves_bothKeepDetails();
    void local_grey_staysGrey();
    void picture_otherPrimaries_areKept();
    void picture_badInput_isRefused();
    void picture_cancelled_givesNothing();
    void picture_progress_grows();

private:
    static QImage randomLight(QSize size, quint32 seed);
    static QImage flat(QSize size, float light);
};

namespace {

float *pixel(QImage &picture, int x, int y)
{
    return reinterpret_cast<float *>(picture.scanLine(y)) + 4 * x;
}

quint16 redAt(const QImage &picture, int x, int y)
{
    return reinterpret_cast<const QRgba64 *>(picture.constScanLine(y))[x].red();
}

Options of(Method method, double exposure = 0.0)
{
    Options options;
    options.method = method;
    options.exposure = exposure;
    return options;
}

} // namespace

QImage TestDevelop::randomLight(QSize size, quint32 seed)
{
    QRandomGenerator random(seed);
    QImage light(size, QImage::Format_RGBX32FPx4);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) {
            const double stops = random.bounded(12.0) - 8.0;
            for (int c = 0; c < 3; ++c)
                pixel(light, x, y)[c] =
                    static_cast<float>(std::exp2(stops) * (0.5 + random.bounded(1.0)));
            pixel(light, x, y)[3] = 1.0F;
        }
    light.setColorSpace(QColorSpace::SRgbLinear);
    return light;
}

QImage TestDevelop::flat(QSize size, float value)
{
    QImage light(size, QImage::Format_RGBX32FPx4);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) {
            std::fill_n(pixel(light, x, y), 3, value);
            pixel(light, x, y)[3] = 1.0F;
        }
    light.setColorSpace(QColorSpace::SRgbLinear);
    return light;
}

void TestDevelop::code_everyLevel_comesBack()
{
    const DisplayCode code;
    for (int level = 0; level <= DisplayCode::kTop; ++level) {
        const auto light = static_cast<float>(DisplayCode::lightOf(double(level) / 65535));
        if (code.levelOf(light) != level)
            QCOMPARE(int(code.levelOf(light)), level);
    }
}

void TestDevelop::code_randomLight_equalsPlain()
{
    const DisplayCode code;
    QRandomGenerator random(1);
    for (int i = 0; i < 300000; ++i) {
        const auto light = static_cast<float>(std::exp2(random.bounded(30.0) - 27.0));
        if (code.levelOf(light) != code.levelOfPlain(light))
            QCOMPARE(code.levelOf(light), code.levelOfPlain(light));
    }
}

void TestDevelop::code_borders_roundToTheNearestLevel()
{
    const DisplayCode code;
    for (int level = 0; level < DisplayCode::kTop; level += 7) {
        const double border = DisplayCode::lightOf((level + 0.5) / 65535);
        QCOMPARE(int(code.levelOf(static_cast<float>(border * (1 - 1e-6)))), level);
        QCOMPARE(int(code.levelOf(static_cast<float>(border * (1 + 1e-6)))), level + 1);
    }
}

void TestDevelop::code_badNumbers_haveLevels()
{
    const DisplayCode code;
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const float numbers[] = {std::numeric_limits<float>::quiet_NaN(),
                             -kInfinity,
                             -1.0F,
                             -0.0F,
                             0.0F,
                             std::numeric_limits<float>::denorm_min(),
                             1.0F,
                             std::numeric_limits<float>::max(),
                             kInfinity};
    for (const float number : numbers) {
        const int expected = number >= 1.0F ? 65535 : 0;
        QCOMPARE(int(code.levelOf(number)), expected);
        QCOMPARE(int(code.levelOfPlain(number)), expected);
    }
}

void TestDevelop::luminance_knownSpaces_hasTheirWeights()
{
    const auto srgb = develop::luminanceWeights(QColorSpace::SRgb);
    QVERIFY(std::abs(srgb[0] - 0.2126) < 1e-3 && std::abs(srgb[1] - 0.7152) < 1e-3);
    const auto p3 = develop::luminanceWeights(QColorSpace::DisplayP3);
    QVERIFY(std::abs(p3[0] - 0.2290) < 1e-3 && std::abs(p3[1] - 0.6917) < 1e-3);
    QCOMPARE(develop::luminanceWeights(QColorSpace()), srgb);
}

void TestDevelop::range_knownLight_isFound()
{
    QImage light = flat({100, 100}, 1.0F);
    for (int x = 0; x < 100; ++x) {
        std::fill_n(pixel(light, x, 0), 3, 64.0F);
        std::fill_n(pixel(light, x, 1), 3, 1.0F / 64);
        std::fill_n(pixel(light, x, 2), 3, 1.0F / 64);
    }
    const LightRange range = LightRange::of(light);
    QVERIFY2(std::abs(range.bright - 6.0) < 0.2, qPrintable(QString::number(range.bright)));
    QVERIFY2(std::abs(range.dark + 6.0) < 0.2, qPrintable(QString::number(range.dark)));
    QVERIFY2(std::abs(range.middle + 0.06) < 0.2, qPrintable(QString::number(range.middle)));
}

void TestDevelop::range_noLight_isZero()
{
    const LightRange range = LightRange::of(flat({5, 3}, 0.0F));
    QCOMPARE(range.dark, 0.0);
    QCOMPARE(range.middle, 0.0);
    QCOMPARE(range.bright, 0.0);
}

void TestDevelop::exposures_wideRange_coverIt()
{
    for (const double width : {5.0, 9.0, 14.0, 30.0}) {
        const LightRange range = {-width, -width / 2, 0.0};
        const std::vector<float> gains = develop::virtualExposures(range, 0.0);
        QVERIFY(gains.size() >= 2 && gains.size() <= develop::kMostExposures);
        QVERIFY(std::is_sorted(gains.begin(), gains.end()));
        QVERIFY(gains.front() * std::exp2(range.bright) < 1.0);
        QVERIFY(gains.back() * std::exp2(range.dark) > 0.04);
        if (gains.size() < develop::kMostExposures)
            QVERIFY(gains[1] / gains[0] <= 4.01F);
    }
}

void TestDevelop::exposures_narrowRange_isOne()
{
    QCOMPARE(develop::virtualExposures({-3.0, -2.0, -1.0}, 0.0).size(), size_t(1));
}

void TestDevelop::picture_anySize_equalsPlain_data()
{
    QTest::addColumn<Method>("method");
    QTest::addColumn<double>("exposure");
    QTest::addColumn<QSize>("size");
    const std::pair<const char *, Method> methods[] = {
        {"exposure", Method::Exposure}, {"global", Method::Global}, {"local", Method::Local}};
    for (const auto &[name, method] : methods)
        for (const QSize size : {QSize(1, 1), QSize(1, 67), QSize(67, 1), QSize(131, 97)})
            for (const double exposure : {0.0, 1.5, -40.0})
                QTest::addRow("%s %dx%d %g", name, size.width(), size.height(), exposure)
                    << method << exposure << size;
}

void TestDevelop::picture_anySize_equalsPlain()
{
    QFETCH(Method, method);
    QFETCH(double, exposure);
    QFETCH(QSize, size);
    const QImage light = randomLight(size, 7);
    const Result result = develop::picture(light, of(method, exposure));
    QCOMPARE(result.status, fusion::Status::Done);
    QCOMPARE(result.picture, develop::picturePlain(light, of(method, exposure)));
}

void TestDevelop::picture_threads_changeNoBit()
{
    const QImage light = randomLight({301, 257}, 3);
    for (const Method method : {Method::Exposure, Method::Global, Method::Local}) {
        parallel::setThreadLimit(1);
        const QImage one = develop::picture(light, of(method)).picture;
        parallel::setThreadLimit(5);
        const QImage five = develop::picture(light, of(method)).picture;
        parallel::setThreadLimit(0);
        QVERIFY(!one.isNull());
        QCOMPARE(five, one);
    }
}

void TestDevelop::picture_badNumbers_areBlackOrWhite()
{
    QImage light = flat({64, 64}, 0.25F);
    std::fill_n(pixel(light, 10, 10), 3, std::numeric_limits<float>::quiet_NaN());
    std::fill_n(pixel(light, 40, 40), 3, std::numeric_limits<float>::infinity());
    std::fill_n(pixel(light, 20, 50), 3, -5.0F);
    for (const Method method : {Method::Exposure, Method::Global}) {
        const QImage picture = develop::picture(light, of(method)).picture;
        QCOMPARE(int(redAt(picture, 10, 10)), 0);
        QCOMPARE(int(redAt(picture, 40, 40)), 65535);
        QCOMPARE(int(redAt(picture, 20, 50)), 0);
    }
}

void TestDevelop::exposure_oneStop_isTheNextShot()
{
    const QImage light = flat({9, 9}, 0.125F);
    const QImage brighter = develop::picture(light, of(Method::Exposure, 1.0)).picture;
    const QImage next = develop::picture(flat({9, 9}, 0.25F), of(Method::Exposure)).picture;
    QCOMPARE(brighter, next);
    QCOMPARE(int(redAt(next, 0, 0)),
             int(std::lround((1.055 * std::pow(0.25, 1 / 2.4) - 0.055) * 65535)));
}

void TestDevelop::global_brighterLight_isNeverDarker()
{
    QImage light = flat({400, 1}, 0.0F);
    for (int x = 0; x < 400; ++x)
        std::fill_n(pixel(light, x, 0), 3, static_cast<float>(std::exp2(x / 40.0 - 8)));
    const QImage picture = develop::picture(light, of(Method::Global)).picture;
    for (int x = 1; x < 400; ++x)
        QVERIFY(redAt(picture, x, 0) >= redAt(picture, x - 1, 0));
    QCOMPARE(int(redAt(picture, 399, 0)), 65535);
    QVERIFY(redAt(picture, 380, 0) < 65535);
}

void TestDevelop::global_middle_isMiddleGreyWhateverTheScale()
{
    for (const float scale : {0.001F, 1.0F, 900.0F}) {
        const QImage picture = develop::picture(flat({8, 8}, scale), of(Method::Global)).picture;
        // All light is the brightest here, so the operator takes .18 to .18 (1 + 1 / .18) / 1.18.
        const double grey = std::pow(redAt(picture, 4, 4) / 65535.0, 2.2);
        QVERIFY2(grey > 0.9, qPrintable(QString::number(grey)));
    }
    QImage wide = flat({64, 64}, 1.0F);
    std::fill_n(pixel(wide, 0, 0), 3, 4096.0F);
    for (int x = 1; x < 9; ++x)
        std::fill_n(pixel(wide, x, 0), 3, 4096.0F);
    const QImage picture = develop::picture(wide, of(Method::Global)).picture;
    const double light = DisplayCode::lightOf(redAt(picture, 32, 32) / 65535.0);
    QVERIFY2(std::abs(light - 0.18 / 1.18) < 0.015, qPrintable(QString::number(light)));
}

void TestDevelop::local_darkAndBrightHalves_bothKeepDetails()
{
    // Ripples of a tenth around light that differs by ten stops between the halves: where one
    // exposure shows the bright half, the ripples of the dark one are 278 levels high.
    QImage light = flat({256, 128}, 0.0F);
    for (int y = 0; y < 128; ++y)
        for (int x = 0; x < 256; ++x) {
            const double ripple = 1.0 + 0.1 * ((x / 4 + y / 4) % 2);
            std::fill_n(pixel(light, x, y), 3,
                        static_cast<float>((x < 128 ? 1.0 / 256 : 4.0) * ripple));
        }
    const QImage picture = develop::picture(light, of(Method::Local)).picture;
    for (const int x : {32, 224}) {
        const int step = std::abs(int(redAt(picture, x, 64)) - int(redAt(picture, x + 4, 64)));
        QVERIFY2(step > 65535 / 150, qPrintable(QString::number(step)));
        QVERIFY(redAt(picture, x, 64) > 6000 && redAt(picture, x, 64) < 63000);
    }
    QVERIFY(redAt(picture, 224, 64) > redAt(picture, 32, 64));
}

void TestDevelop::local_grey_staysGrey()
{
    QImage light = randomLight({90, 70}, 5);
    for (int y = 0; y < 70; ++y)
        for (int x = 0; x < 90; ++x)
            std::fill_n(pixel(light, x, y), 3, pixel(light, x, y)[0]);
    const QImage picture = develop::picture(light, of(Method::Local)).picture;
    for (int y = 0; y < 70; ++y)
        for (int x = 0; x < 90; ++x) {
            const QRgba64 colour = reinterpret_cast<const QRgba64 *>(picture.constScanLine(y))[x];
            QVERIFY(colour.red() == colour.green() && colour.green() == colour.blue());
        }
}

void TestDevelop::picture_otherPrimaries_areKept()
{
    QImage light = flat({4, 4}, 0.5F);
    light.setColorSpace(QColorSpace(QColorSpace::DisplayP3)
                            .withTransferFunction(QColorSpace::TransferFunction::Linear));
    const QColorSpace space = develop::picture(light, of(Method::Exposure)).picture.colorSpace();
    QCOMPARE(space.primaries(), QColorSpace::Primaries::DciP3D65);
    QCOMPARE(space.transferFunction(), QColorSpace::TransferFunction::SRgb);
    light.setColorSpace({});
    QCOMPARE(develop::picture(light, of(Method::Exposure)).picture.colorSpace(),
             QColorSpace(QColorSpace::SRgb));
}

void TestDevelop::picture_badInput_isRefused()
{
    QCOMPARE(develop::picture({}).status, fusion::Status::BadShots);
    QCOMPARE(develop::picture(QImage(4, 4, QImage::Format_RGB32)).status, fusion::Status::BadShots);
}

void TestDevelop::picture_cancelled_givesNothing()
{
    const std::atomic<bool> cancelled{true};
    fusion::Control control;
    control.cancelled = &cancelled;
    for (const Method method : {Method::Exposure, Method::Global, Method::Local}) {
        const Result result = develop::picture(randomLight({50, 50}, 1), of(method), control);
        QCOMPARE(result.status, fusion::Status::Cancelled);
        QVERIFY(result.picture.isNull());
    }
}

void TestDevelop::picture_progress_grows()
{
    for (const Method method : {Method::Exposure, Method::Global, Method::Local}) {
        std::vector<double> parts;
        fusion::Control control;
        control.progress = [&parts](double part) { parts.push_back(part); };
        develop::picture(randomLight({200, 300}, 1), of(method), control);
        QVERIFY(parts.size() > 1);
        QVERIFY(std::is_sorted(parts.begin(), parts.end()));
        QVERIFY(parts.front() > 0.0 && parts.back() == 1.0);
    }
}

QTEST_GUILESS_MAIN(TestDevelop)
#include "tst_develop.moc"
