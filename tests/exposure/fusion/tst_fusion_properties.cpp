// What a fusion must keep, whatever its arithmetic.

#include "fusion.h"
#include "random_shots.h"

#include <QtTest>

#include <algorithm>
#include <thread>

using fusion::Options;
using fusion::Shot;
using fusion::Status;

class tst_fusion_properties : public QObject
{
    Q_OBJECT

private slots:
    void fuse_oneShotRepeated_givesIt_data();
    void fuse_oneShotRepeated_givesIt();
    void fuse_constantShots_giveAConstant();
    void fuse_shotsInAnyOrder_giveTheSame();
    void fuse_blackAndWhiteFramesAdded_changesLittle();
    void fuse_stepEdge_staysWithinTheOvershootBound_data();
    void fuse_stepEdge_staysWithinTheOvershootBound();
    void fuse_greyShots_giveGrey();
    void fuse_uncoveredBorder_comesFromTheOtherShot();
    void fuse_rubbishBelowTransparentPixels_makesNoDifference();
    void fuse_maskedShot_givesTheOther();
    void fuse_noSaturationWeight_becomesVividWithIt();
    void fuse_otherFormats_areConverted();
    void fuse_unfitShots_areRefused();
    void fuse_cancelledBefore_givesNothing();
    void fuse_cancelledMeanwhile_givesNothing();
    void fuse_progress_growsToOneOnTheCallersThread();
};

namespace {

QImage filled(QSize size, QRgb colour)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

std::vector<Shot> repeated(const QImage &picture, size_t count)
{
    return std::vector<Shot>(count, Shot{picture, {}});
}

/// Mean over pixels and channels of the differences.
double meanDifference(const QImage &first, const QImage &second, const QRect &part)
{
    double sum = 0.0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            const QColor a = first.pixelColor(x, y);
            const QColor b = second.pixelColor(x, y);
            sum +=
                qAbs(a.red() - b.red()) + qAbs(a.green() - b.green()) + qAbs(a.blue() - b.blue());
        }
    }
    return sum / (3.0 * part.width() * part.height());
}

} // namespace

void tst_fusion_properties::fuse_oneShotRepeated_givesIt_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QImage::Format>("format");
    for (const int count : {1, 2, 3, 7, 43, 64}) {
        QTest::addRow("%d times, 8 bits", count) << count << QImage::Format_RGB32;
        QTest::addRow("%d times, 16 bits", count) << count << QImage::Format_RGBX64;
    }
}

void tst_fusion_properties::fuse_oneShotRepeated_givesIt()
{
    QFETCH(int, count);
    QFETCH(QImage::Format, format);
    const QImage shot = randomShots::bracket(1, {61, 53}, format, 1).front().picture;
    QCOMPARE(fusion::fuse(repeated(shot, size_t(count))).picture, shot);
}

void tst_fusion_properties::fuse_constantShots_giveAConstant()
{
    const QSize size(67, 45);
    const std::vector<Shot> shots{{filled(size, qRgb(20, 30, 40)), {}},
                                  {filled(size, qRgb(90, 100, 130)), {}},
                                  {filled(size, qRgb(200, 230, 255)), {}}};
    const QImage result = fusion::fuse(shots).picture;
    QCOMPARE(result, filled(size, result.pixel(0, 0)));
    QVERIFY(qRed(result.pixel(0, 0)) > 20 && qRed(result.pixel(0, 0)) < 200);
}

void tst_fusion_properties::fuse_shotsInAnyOrder_giveTheSame()
{
    for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_RGBX64}) {
        auto shots = randomShots::bracket(5, {83, 59}, format, 2);
        randomShots::maskSome(shots, 3);
        const QImage result = fusion::fuse(shots).picture;
        std::rotate(shots.begin(), shots.begin() + 2, shots.end());
        QCOMPARE(fusion::fuse(shots).picture, result);
        std::reverse(shots.begin(), shots.end());
        QCOMPARE(fusion::fuse(shots).picture, result);
    }
}

void tst_fusion_properties::fuse_blackAndWhiteFramesAdded_changesLittle()
{
    const QSize size(160, 120);
    auto shots = randomShots::bracket(3, size, QImage::Format_RGB32, 4);
    const QImage before = fusion::fuse(shots).picture;
    shots.push_back({filled(size, qRgb(0, 0, 0)), {}});
    shots.push_back({filled(size, qRgb(255, 255, 255)), {}});
    const double difference = meanDifference(fusion::fuse(shots).picture, before, before.rect());
    QVERIFY2(difference < 3.0, qPrintable(QString::number(difference)));
}

void tst_fusion_properties::fuse_stepEdge_staysWithinTheOvershootBound_data()
{
    QTest::addColumn<int>("darkLeft");
    QTest::addColumn<int>("darkRight");
    QTest::addColumn<int>("brightLeft");
    QTest::addColumn<int>("brightRight");
    QTest::newRow("nothing clipped") << 30 << 140 << 110 << 235;
    QTest::newRow("wide range") << 60 << 160 << 100 << 255;
    QTest::newRow("bright side clipped") << 45 << 80 << 100 << 255;
    QTest::newRow("weights change at the edge") << 30 << 100 << 140 << 255;
}

/// A dark and a bright side in two exposures: beside the edge no pixel leaves what the shots have
/// at its place by more than the bound that docs/fusion.md states.
void tst_fusion_properties::fuse_stepEdge_staysWithinTheOvershootBound()
{
    constexpr int kBound = 20;
    QFETCH(int, darkLeft);
    QFETCH(int, darkRight);
    QFETCH(int, brightLeft);
    QFETCH(int, brightRight);
    const QSize size(256, 128);
    QImage dark = filled(size, qRgb(darkLeft, darkLeft, darkLeft));
    QImage bright = filled(size, qRgb(brightLeft, brightLeft, brightLeft));
    for (int y = 0; y < size.height(); ++y) {
        for (int x = size.width() / 2; x < size.width(); ++x) {
            dark.setPixel(x, y, qRgb(darkRight, darkRight, darkRight));
            bright.setPixel(x, y, qRgb(brightRight, brightRight, brightRight));
        }
    }
    const QImage result = fusion::fuse({{dark, {}}, {bright, {}}}).picture;
    for (int x = 0; x < size.width(); ++x) {
        const int level = qRed(result.pixel(x, 64));
        const int least = qRed(dark.pixel(x, 64)) - kBound;
        const int most = qRed(bright.pixel(x, 64)) + kBound;
        QVERIFY2(level >= least && level <= most, qPrintable(QString("%1: %2").arg(x).arg(level)));
    }
}

void tst_fusion_properties::fuse_greyShots_giveGrey()
{
    for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_RGBX64}) {
        auto shots = randomShots::bracket(3, {71, 73}, format, 5);
        for (Shot &shot : shots)
            shot.picture =
                shot.picture.convertToFormat(QImage::Format_Grayscale8).convertToFormat(format);
        const QImage result = fusion::fuse(shots).picture;
        for (int y = 0; y < result.height(); ++y) {
            for (int x = 0; x < result.width(); ++x) {
                const QRgba64 pixel = result.pixelColor(x, y).rgba64();
                QVERIFY(pixel.red() == pixel.green() && pixel.green() == pixel.blue());
            }
        }
    }
}

void tst_fusion_properties::fuse_uncoveredBorder_comesFromTheOtherShot()
{
    const QSize size(200, 150);
    const auto shots = randomShots::bracket(2, size, QImage::Format_ARGB32, 6);
    auto cut = shots;
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < 40; ++x)
            cut[0].picture.setPixel(x, y, 0);
    const QImage result = fusion::fuse(cut).picture;
    const QRect border(0, 0, 36, 150);
    const double toCovering = meanDifference(result, shots[1].picture, border);
    const double toUncovered = meanDifference(result, shots[0].picture, border);
    QVERIFY2(toCovering < 0.35 * toUncovered,
             qPrintable(QString("%1 %2").arg(toCovering).arg(toUncovered)));
    const double inside =
        meanDifference(result, fusion::fuse(shots).picture, QRect(120, 0, 80, 150));
    QVERIFY2(inside < 2.0, qPrintable(QString::number(inside)));
}

void tst_fusion_properties::fuse_rubbishBelowTransparentPixels_makesNoDifference()
{
    auto first = randomShots::bracket(3, {64, 48}, QImage::Format_ARGB32, 7);
    auto second = first;
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 64; ++x) {
            first[1].picture.setPixel(x, y, 0);
            second[1].picture.setPixel(x, y, qRgba(255, 7, 99, x));
        }
    }
    QCOMPARE(fusion::fuse(first).picture, fusion::fuse(second).picture);
}

void tst_fusion_properties::fuse_maskedShot_givesTheOther()
{
    auto shots = randomShots::bracket(2, {64, 48}, QImage::Format_RGB32, 8);
    for (size_t masked = 0; masked < 2; ++masked) {
        auto some = shots;
        some[masked].mask = QImage(32, 24, QImage::Format_Grayscale8);
        some[masked].mask.fill(0);
        QCOMPARE(fusion::fuse(some).picture, shots[1 - masked].picture);
    }
}

void tst_fusion_properties::fuse_noSaturationWeight_becomesVividWithIt()
{
    const QSize size(40, 40);
    const std::vector<Shot> shots{{filled(size, qRgb(150, 60, 60)), {}},
                                  {filled(size, qRgb(110, 100, 100)), {}}};
    Options vivid;
    vivid.saturationWeight = 2.0;
    const QRgb neutral = fusion::fuse(shots).picture.pixel(20, 20);
    const QRgb weighted = fusion::fuse(shots, vivid).picture.pixel(20, 20);
    QVERIFY(qRed(weighted) - qGreen(weighted) > qRed(neutral) - qGreen(neutral) + 5);
}

void tst_fusion_properties::fuse_otherFormats_areConverted()
{
    const auto shots = randomShots::bracket(2, {33, 21}, QImage::Format_RGB32, 9);
    auto packed = shots;
    for (Shot &shot : packed)
        shot.picture = shot.picture.convertToFormat(QImage::Format_RGB888);
    QCOMPARE(fusion::fuse(packed).picture, fusion::fuse(shots).picture);
    packed[1].picture = packed[1].picture.convertToFormat(QImage::Format_RGBX64);
    QCOMPARE(fusion::fuse(packed).picture.format(), QImage::Format_RGBX64);
}

void tst_fusion_properties::fuse_unfitShots_areRefused()
{
    const QImage shot = filled({9, 7}, qRgb(1, 2, 3));
    const QImage otherSize = filled({9, 8}, qRgb(1, 2, 3));
    const QImage wrongMask(9, 7, QImage::Format_Grayscale8);
    for (const std::vector<Shot> &shots :
         {std::vector<Shot>(), repeated(shot, 65), std::vector<Shot>{{shot, {}}, {otherSize, {}}},
          std::vector<Shot>{{shot, wrongMask}, {shot, {}}}, repeated(QImage(), 2)}) {
        const fusion::Result result = fusion::fuse(shots);
        QCOMPARE(result.status, Status::BadShots);
        QVERIFY(result.picture.isNull());
    }
}

void tst_fusion_properties::fuse_cancelledBefore_givesNothing()
{
    const std::atomic<bool> cancelled{true};
    const auto shots = randomShots::bracket(2, {64, 64}, QImage::Format_RGB32, 10);
    const fusion::Result result = fusion::fuse(shots, {}, {&cancelled, {}});
    QCOMPARE(result.status, Status::Cancelled);
    QVERIFY(result.picture.isNull());
}

void tst_fusion_properties::fuse_cancelledMeanwhile_givesNothing()
{
    const auto shots = randomShots::bracket(2, {64, 64}, QImage::Format_RGB32, 10);
    std::atomic<bool> cancelled{false};
    int reports = 0;
    const auto cancelAtOnce = [&](double) {
        ++reports;
        cancelled = true;
    };
    const fusion::Result result = fusion::fuse(shots, {}, {&cancelled, cancelAtOnce});
    QCOMPARE(result.status, Status::Cancelled);
    QVERIFY(result.picture.isNull());
    QCOMPARE(reports, 1);
}

void tst_fusion_properties::fuse_progress_growsToOneOnTheCallersThread()
{
    const auto shots = randomShots::bracket(3, {300, 300}, QImage::Format_RGB32, 11);
    std::vector<double> reports;
    bool isCaller = true;
    const auto caller = std::this_thread::get_id();
    const auto report = [&](double progress) {
        reports.push_back(progress);
        isCaller = isCaller && std::this_thread::get_id() == caller;
    };
    QCOMPARE(fusion::fuse(shots, {}, {nullptr, report}).status, Status::Done);
    QVERIFY(isCaller);
    QVERIFY(reports.size() > 4);
    QVERIFY(std::is_sorted(reports.begin(), reports.end()));
    QVERIFY(reports.front() >= 0.0);
    QVERIFY(qAbs(reports.back() - 1.0) < 1e-9);
}

QTEST_GUILESS_MAIN(tst_fusion_properties)
#include "tst_fusion_properties.moc"
