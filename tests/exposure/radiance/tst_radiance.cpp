// The radiance's pixels against the plain code, and what it says of pixels that no shot measured.

#include "Response.h"
#include "radiance.h"
#include "radiance_plain.h"
#include "random_shots.h"

#include "parallel_rows.h"

#include <QColorSpace>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <limits>

using radiance::Options;
using radiance::Response;
using radiance::Result;
using radiance::Shot;

class TestRadiance : public QObject
{
    Q_OBJECT

private slots:
    void merge_anySize_equalsPlain_data();
    void merge_anySize_equalsPlain();
    void merge_uncoveredAndMaskedPixels_equalsPlain_data();
    void merge_uncoveredAndMaskedPixels_equalsPlain();
    void merge_threads_changeNoBit();
    void merge_orderOfShots_changesNoMoreThanRounding();
    void merge_oneShot_isItsLight();
    void merge_clippedEverywhere_isTheNearestBoundAndFlagged();
    void merge_blackEverywhere_isBlackAndFlagged();
    void merge_betweenWhiteAndBlack_isBetween();
    void merge_allMeasured_hasNoBounds();
    void merge_profile_givesCurveAndPrimaries();
    void merge_otherReference_scalesOnly();
    void merge_badShots_areRefused_data();
    void merge_badShots_areRefused();
    void merge_cancelled_givesNothing();

private:
    static std::vector<Shot> asShots(const std::vector<fusion::Shot> &pictures);
    static Shot flat(int level, double exposure);
    static void compareWithPlain(std::vector<Shot> shots);
};

namespace {

const float *pixel(const QImage &picture, int x, int y)
{
    return reinterpret_cast<const float *>(picture.constScanLine(y)) + 4 * x;
}

Options profileCurve()
{
    Options options;
    options.curve = radiance::Curve::OfProfile;
    return options;
}

} // namespace

std::vector<Shot> TestRadiance::asShots(const std::vector<fusion::Shot> &pictures)
{
    std::vector<Shot> shots;
    double exposure = 1.0;
    for (const fusion::Shot &picture : pictures) {
        shots.push_back({picture, exposure});
        exposure *= 1.7;
    }
    return shots;
}

Shot TestRadiance::flat(int level, double exposure)
{
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(qRgb(level, level, level));
    return {{picture, {}}, exposure};
}

/// The exposures rise from shot to shot, as the plain code wants it.
void TestRadiance::compareWithPlain(std::vector<Shot> shots)
{
    const Result fast = radiance::merge(shots, profileCurve());
    QCOMPARE(fast.status, fusion::Status::Done);
    QVERIFY(std::is_sorted(fast.exposures.begin(), fast.exposures.end()));
    const bool deep = shots.front().picture.picture.depth() == 64;
    const Response response =
        Response::ofProfile({}, deep ? Response::kShortLevels : Response::kByteLevels);
    const std::vector<float> exposures(fast.exposures.begin(), fast.exposures.end());
    const Result plain = radiance::mergePlain(shots, exposures, response);
    QImage bounds = fast.bounds;
    if (bounds.isNull()) {
        bounds = QImage(plain.bounds.size(), plain.bounds.format());
        bounds.fill(0);
    }
    QCOMPARE(bounds, plain.bounds);
    for (int y = 0; y < plain.picture.height(); ++y)
        QVERIFY(std::equal(pixel(plain.picture, 0, y),
                           pixel(plain.picture, plain.picture.width(), y),
                           pixel(fast.picture, 0, y)));
}

void TestRadiance::merge_anySize_equalsPlain_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("count");
    for (const QSize size : {QSize(1, 1), QSize(1, 7), QSize(7, 1), QSize(15, 17), QSize(255, 3),
                             QSize(256, 3), QSize(257, 3), QSize(513, 31)})
        for (const int count : {1, 2, 5})
            QTest::addRow("%d shots, %d x %d", count, size.width(), size.height()) << size << count;
    QTest::newRow("64 shots, 33 x 35") << QSize(33, 35) << 64;
}

void TestRadiance::merge_anySize_equalsPlain()
{
    QFETCH(QSize, size);
    QFETCH(int, count);
    for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_RGBX64})
        compareWithPlain(asShots(randomShots::bracket(size_t(count), size, format, 11)));
}

void TestRadiance::merge_uncoveredAndMaskedPixels_equalsPlain_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("8 bits") << QImage::Format_ARGB32;
    QTest::newRow("16 bits") << QImage::Format_RGBA64;
}

void TestRadiance::merge_uncoveredAndMaskedPixels_equalsPlain()
{
    QFETCH(QImage::Format, format);
    auto pictures = randomShots::bracket(4, {67, 53}, format, 12);
    randomShots::uncover(pictures, 13);
    compareWithPlain(asShots(pictures));
    randomShots::maskSome(pictures, 14);
    compareWithPlain(asShots(pictures));
    for (fusion::Shot &shot : pictures) {
        shot.mask = QImage(fusion::halfSize(shot.picture.size()), QImage::Format_Grayscale8);
        shot.mask.fill(0);
    }
    compareWithPlain(asShots(pictures));
}

void TestRadiance::merge_threads_changeNoBit()
{
    const auto shots = asShots(randomShots::bracket(3, {803, 701}, QImage::Format_RGB32, 15));
    parallel::setThreadLimit(1);
    const QImage one = radiance::merge(shots).picture;
    parallel::setThreadLimit(5);
    const QImage five = radiance::merge(shots).picture;
    parallel::setThreadLimit(0);
    QVERIFY(!one.isNull());
    QCOMPARE(five, one);
}

void TestRadiance::merge_orderOfShots_changesNoMoreThanRounding()
{
    auto shots = asShots(randomShots::bracket(4, {67, 53}, QImage::Format_RGB32, 16));
    for (size_t i = 1; i < shots.size(); ++i) // one profile for all, whichever comes first
        QVERIFY(shots[i].picture.picture.colorSpace() == shots[0].picture.picture.colorSpace());
    const QImage forwards = radiance::merge(shots, profileCurve()).picture;
    std::reverse(shots.begin(), shots.end());
    Options options = profileCurve();
    options.reference = 3;
    const QImage backwards = radiance::merge(shots, options).picture;
    for (int y = 0; y < forwards.height(); ++y)
        for (int i = 0; i < 4 * forwards.width(); ++i)
            QVERIFY(std::abs(pixel(backwards, 0, y)[i] - pixel(forwards, 0, y)[i]) <=
                    1e-5F * pixel(forwards, 0, y)[i]);
}

void TestRadiance::merge_oneShot_isItsLight()
{
    const Result result = radiance::merge({flat(188, 0.0)});
    QCOMPARE(result.status, fusion::Status::Done);
    QVERIFY(!result.isCurveRecovered);
    QVERIFY(!result.areExposuresKnown);
    for (int c = 0; c < 3; ++c)
        QVERIFY(std::abs(pixel(result.picture, 3, 3)[c] - 0.50289F) < 1e-4F);
    QCOMPARE(pixel(result.picture, 3, 3)[3], 1.0F);
}

void TestRadiance::merge_clippedEverywhere_isTheNearestBoundAndFlagged()
{
    Options options = profileCurve();
    options.reference = 1;
    const Result result = radiance::merge({flat(255, 1.0), flat(255, 4.0)}, options);
    QVERIFY(std::abs(pixel(result.picture, 2, 2)[1] - 4.0F) < 1e-5F);
    QCOMPARE(int(result.bounds.constScanLine(2)[2]), int(radiance::kIsBrighter));
}

void TestRadiance::merge_blackEverywhere_isBlackAndFlagged()
{
    const Result result = radiance::merge({flat(0, 1.0), flat(0, 4.0)}, profileCurve());
    QCOMPARE(pixel(result.picture, 2, 2)[1], 0.0F);
    QCOMPARE(int(result.bounds.constScanLine(2)[2]), int(radiance::kIsDarker));
}

void TestRadiance::merge_betweenWhiteAndBlack_isBetween()
{
    const Result result = radiance::merge({flat(0, 1.0), flat(255, 100.0)}, profileCurve());
    QVERIFY(std::abs(pixel(result.picture, 2, 2)[1] - 0.005F) < 1e-6F);
    QVERIFY(result.bounds.isNull());
}

void TestRadiance::merge_allMeasured_hasNoBounds()
{
    const Result result = radiance::merge({flat(100, 1.0), flat(190, 4.0)}, profileCurve());
    QVERIFY(result.bounds.isNull());
}

void TestRadiance::merge_profile_givesCurveAndPrimaries()
{
    Shot shot = flat(128, 1.0);
    shot.picture.picture.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    const Result result = radiance::merge({shot});
    QVERIFY(std::abs(pixel(result.picture, 0, 0)[0] - std::pow(128.0F / 255, 2.19922F)) < 1e-4F);
    QCOMPARE(result.picture.colorSpace().transferFunction(), QColorSpace::TransferFunction::Linear);
    QCOMPARE(result.picture.colorSpace().primaries(), QColorSpace::Primaries::AdobeRgb);
}

void TestRadiance::merge_otherReference_scalesOnly()
{
    const std::vector<Shot> shots = {flat(100, 1.0), flat(180, 4.0)};
    Options options = profileCurve();
    const Result first = radiance::merge(shots, options);
    options.reference = 1;
    const Result second = radiance::merge(shots, options);
    const double scale = second.exposures[1] / second.exposures[0];
    QVERIFY(std::abs(pixel(second.picture, 0, 0)[0] / pixel(first.picture, 0, 0)[0] / scale - 1.0) <
            1e-5);
    QCOMPARE(second.exposures[1], 1.0);
}

void TestRadiance::merge_badShots_areRefused_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("none") << 0;
    QTest::newRow("a null picture") << 1;
    QTest::newRow("two sizes") << 2;
    QTest::newRow("too many") << 3;
    QTest::newRow("a mask of the wrong size") << 4;
    QTest::newRow("no such reference") << 5;
}

void TestRadiance::merge_badShots_areRefused()
{
    QFETCH(int, kind);
    std::vector<Shot> shots(kind == 3 ? fusion::kMostShots + 1 : 2, flat(100, 1.0));
    Options options;
    if (kind == 0)
        shots.clear();
    if (kind == 1)
        shots[0].picture.picture = QImage();
    if (kind == 2)
        shots[1].picture.picture = QImage(3, 3, QImage::Format_RGB32);
    if (kind == 4)
        shots[1].picture.mask = QImage(8, 8, QImage::Format_Grayscale8);
    if (kind == 5)
        options.reference = 2;
    const Result result = radiance::merge(shots, options);
    QCOMPARE(result.status, fusion::Status::BadShots);
    QVERIFY(result.picture.isNull());
}

void TestRadiance::merge_cancelled_givesNothing()
{
    const std::atomic<bool> cancelled(true);
    fusion::Control control;
    control.cancelled = &cancelled;
    const Result result = radiance::merge({flat(100, 1.0), flat(180, 4.0)}, {}, control);
    QCOMPARE(result.status, fusion::Status::Cancelled);
    QVERIFY(result.picture.isNull());
}

QTEST_APPLESS_MAIN(TestRadiance)
#include "tst_radiance.moc"
