#include "perceptual_quantizer.h"

#include <QColorSpace>
#include <QtTest>

#include <algorithm>
#include <cmath>

/// The levels of SMPTE ST 2084.
class TestPerceptualQuantizer : public QObject
{
    Q_OBJECT

private slots:
    void levelOf_knownLuminances_areThoseOfTheStandard_data();
    void levelOf_knownLuminances_areThoseOfTheStandard();
    void levelsOf_anyGrey_isTheFormulaWithinATenthOfALevel();
    void levelsOf_saturatedColours_areThoseOfRec2020();
    void levelsOf_beyondTheRange_isCutOff();
};

namespace {

QImage row(const std::vector<std::array<float, 3>> &pixels)
{
    QImage light(int(pixels.size()), 1, QImage::Format_RGBX32FPx4);
    auto *to = reinterpret_cast<float *>(light.scanLine(0));
    for (const auto &pixel : pixels) {
        to = std::copy(pixel.begin(), pixel.end(), to);
        *to++ = 1.0F;
    }
    light.setColorSpace(QColorSpace(QColorSpace::SRgbLinear));
    return light;
}

/// 0..1
double levelAt(const QImage &levels, int x, int channel)
{
    return reinterpret_cast<const quint16 *>(levels.constScanLine(0))[4 * x + channel] / 65535.0;
}

} // namespace

void TestPerceptualQuantizer::levelOf_knownLuminances_areThoseOfTheStandard_data()
{
    QTest::addColumn<double>("luminance");
    QTest::addColumn<double>("level");
    // Of the formula, to seven digits.
    QTest::newRow("black") << 0.0 << 0.0;
    QTest::newRow("100 cd/m2") << 100.0 << 0.5080784;
    QTest::newRow("white, 203 cd/m2") << 203.0 << 0.5806889;
    QTest::newRow("1000 cd/m2") << 1000.0 << 0.7518271;
    QTest::newRow("the most") << 10000.0 << 1.0;
    QTest::newRow("beyond") << 20000.0 << 1.0;
}

void TestPerceptualQuantizer::levelOf_knownLuminances_areThoseOfTheStandard()
{
    QFETCH(double, luminance);
    QFETCH(double, level);
    QVERIFY(std::abs(perceptual_quantizer::levelOf(luminance) - level) < 2e-6);
}

void TestPerceptualQuantizer::levelsOf_anyGrey_isTheFormulaWithinATenthOfALevel()
{
    std::vector<std::array<float, 3>> pixels;
    for (double stops = -24.0; stops < 5.6; stops += 0.0037) {
        const auto light = float(std::exp2(stops));
        pixels.push_back({light, light, light});
    }
    const QImage levels = perceptual_quantizer::levelsOf(row(pixels));
    QCOMPARE(levels.format(), QImage::Format_RGBX64);
    double worst = 0.0;
    for (size_t x = 0; x < pixels.size(); ++x) {
        const double exact = perceptual_quantizer::levelOf(203.0 * double(pixels[x][0]));
        for (int c = 0; c < 3; ++c)
            worst = std::max(worst, 1023.0 * std::abs(levelAt(levels, int(x), c) - exact));
    }
    qInfo("worst error %.3f levels of 10 bits", worst);
    QVERIFY(worst < 0.1);
}

/// ITU-R BT.2087, table 4: sRGB's red, green and blue in BT.2020.
void TestPerceptualQuantizer::levelsOf_saturatedColours_areThoseOfRec2020()
{
    constexpr double kColumns[3][3] = {
        {0.6274, 0.0691, 0.0164}, {0.3293, 0.9195, 0.0880}, {0.0433, 0.0114, 0.8956}};
    const QImage levels = perceptual_quantizer::levelsOf(row({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    for (int x = 0; x < 3; ++x)
        for (int c = 0; c < 3; ++c)
            QVERIFY(std::abs(levelAt(levels, x, c) -
                             perceptual_quantizer::levelOf(203.0 * kColumns[x][c])) < 0.003);
}

void TestPerceptualQuantizer::levelsOf_beyondTheRange_isCutOff()
{
    const QImage levels = perceptual_quantizer::levelsOf(row({{1e6F, 1e6F, 1e6F}, {-1, -1, -1}}));
    for (int c = 0; c < 3; ++c) {
        QCOMPARE(levelAt(levels, 0, c), 1.0);
        QCOMPARE(levelAt(levels, 1, c), 0.0);
    }
}

QTEST_GUILESS_MAIN(TestPerceptualQuantizer)
#include "tst_perceptual_quantizer.moc"
