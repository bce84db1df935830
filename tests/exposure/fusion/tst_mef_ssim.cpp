// The measures of quality on cases that can be worked out by hand: alternating pixels of +-a have
// under the window the mean 0 and the variance a^2, and vanish when the size is halved.

#include "mef_ssim.h"
#include "mef_ssimd.h"

#include <QtTest>

#include <cmath>

class tst_mef_ssim : public QObject
{
    Q_OBJECT

private slots:
    void score_resultLikeAllShots_isOne();
    void score_flatResult_isWhatTheFormulaGives();
    void score_contrastOfTheWeakerShot_isWhatTheFormulaGives();
    void score_oppositeStructure_isZero();
    void score_twoDirections_prefersTheStrongerShot();
    void movingScore_nothingMoved_equalsTheStaticOne();
    void movingScore_oneMomentWhole_beatsTheGhost();
};

namespace {

constexpr double kStability = 7.65 * 7.65;
constexpr double kFinestShare = 0.0448 / (0.0448 + 0.2856 + 0.3001);

QImage alternating(int amplitude, QSize size = {64, 64})
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const int level = 128 + ((x + y) % 2 == 0 ? amplitude : -amplitude);
            picture.setPixel(x, y, qRgb(level, level, level));
        }
    }
    return picture;
}

/// Soft waves, so that all scales have structure.
QImage waves(double length, double phase)
{
    QImage picture(96, 96, QImage::Format_RGB32);
    for (int y = 0; y < 96; ++y) {
        for (int x = 0; x < 96; ++x) {
            const int level = int(128 + 60 * std::sin(x / length + phase) * std::cos(y / length));
            picture.setPixel(x, y, qRgb(level, level, level));
        }
    }
    return picture;
}

bool isNear(double value, double expected)
{
    if (qAbs(value - expected) < 2e-4)
        return true;
    qWarning("%f where %f is expected", value, expected);
    return false;
}

/// Puts a dark square there.
QImage withSquare(QImage picture, int x)
{
    for (int row = 30; row < 60; ++row)
        for (int column = x; column < x + 24; ++column)
            picture.setPixel(column, row,
                             (row / 4 + column / 4) % 2 ? qRgb(5, 5, 5) : qRgb(250, 250, 250));
    return picture;
}

QImage meanOf(const QImage &first, const QImage &second)
{
    QImage mean = first;
    for (int y = 0; y < mean.height(); ++y) {
        for (int x = 0; x < mean.width(); ++x) {
            const int level = (qRed(first.pixel(x, y)) + qRed(second.pixel(x, y))) / 2;
            mean.setPixel(x, y, qRgb(level, level, level));
        }
    }
    return mean;
}

} // namespace

void tst_mef_ssim::score_resultLikeAllShots_isOne()
{
    const QImage shot = waves(5.0, 0.3);
    QVERIFY(isNear(mefSsim::score({shot, shot, shot}, shot), 1.0));
}

void tst_mef_ssim::score_flatResult_isWhatTheFormulaGives()
{
    const double finest = kStability / (40.0 * 40.0 + kStability);
    const double score = mefSsim::score({alternating(40), alternating(20)}, alternating(0));
    QVERIFY(isNear(score, std::pow(finest, kFinestShare)));
}

void tst_mef_ssim::score_contrastOfTheWeakerShot_isWhatTheFormulaGives()
{
    const double finest = (2 * 40.0 * 20.0 + kStability) / (40.0 * 40.0 + 20.0 * 20.0 + kStability);
    const double score = mefSsim::score({alternating(40), alternating(20)}, alternating(20));
    QVERIFY(isNear(score, std::pow(finest, kFinestShare)));
}

void tst_mef_ssim::score_oppositeStructure_isZero()
{
    QVERIFY(isNear(mefSsim::score({alternating(40), alternating(40)}, alternating(-40)), 0.0));
}

void tst_mef_ssim::score_twoDirections_prefersTheStrongerShot()
{
    const std::vector<QImage> shots{waves(5.0, 0.0), alternating(8, {96, 96})};
    QVERIFY(mefSsim::score(shots, shots[0]) > mefSsim::score(shots, shots[1]) + 0.3);
}

void tst_mef_ssim::movingScore_nothingMoved_equalsTheStaticOne()
{
    const std::vector<QImage> shots{waves(5.0, 0.3), waves(5.0, 0.3)};
    const QImage result = waves(5.0, 0.4);
    const mefSsimd::Score score = mefSsimd::scores(shots, result);
    QCOMPARE(score.dynamicShare, 0.0);
    QVERIFY(isNear(score.quality, mefSsim::score(shots, result)));
}

void tst_mef_ssim::movingScore_oneMomentWhole_beatsTheGhost()
{
    const QImage scene = waves(9.0, 0.3);
    const std::vector<QImage> shots{withSquare(scene, 8), withSquare(scene, 60)};
    const QImage ghost = meanOf(shots[0], shots[1]);
    const mefSsimd::Score whole = mefSsimd::scores(shots, shots[0]);
    const mefSsimd::Score ghostly = mefSsimd::scores(shots, ghost);
    QVERIFY(whole.dynamicShare > 0.1 && whole.dynamicShare < 0.6);
    QVERIFY2(whole.dynamicQuality > 0.97, qPrintable(QString::number(whole.dynamicQuality)));
    QVERIFY2(ghostly.dynamicQuality < 0.9, qPrintable(QString::number(ghostly.dynamicQuality)));
    QVERIFY(whole.quality > ghostly.quality + 0.05);
}

QTEST_GUILESS_MAIN(tst_mef_ssim)
#include "tst_mef_ssim.moc"
