#include "level_curve.h"

#include <QtTest>

#include <cmath>

using exposure::Look;

namespace {

double light(double encoded)
{
    return encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
}

double encodedLight(double linear)
{
    return linear <= 0.0031308 ? linear * 12.92 : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
}

double bent(double value, double contrast)
{
    const double steep = std::exp2(2 * std::abs(contrast));
    const double power = contrast < 0 ? 1 / steep : steep;
    return value < 0.5 ? std::pow(2 * value, power) / 2 : 1 - std::pow(2 - 2 * value, power) / 2;
}

int expectedLevel(const Look &look, int level, int top)
{
    const double range = look.whitePoint - look.blackPoint;
    double value = std::min(1.0, std::max(0.0, (level / 65535.0 - look.blackPoint) / range));
    if (look.exposure != 0)
        value = std::min(1.0, encodedLight(light(value) * std::exp2(look.exposure)));
    if (look.contrast != 0)
        value = bent(value, look.contrast);
    return int(std::lround(value * top));
}

} // namespace

class TestLevelCurve : public QObject
{
    Q_OBJECT

private slots:
    void everyLevel_isWhatTheFormulaSays_data()
    {
        QTest::addColumn<double>("exposure");
        QTest::addColumn<double>("contrast");
        QTest::addColumn<double>("black");
        QTest::addColumn<double>("white");
        QTest::newRow("neutral") << 0.0 << 0.0 << 0.0 << 1.0;
        QTest::newRow("brighter") << 0.7 << 0.0 << 0.0 << 1.0;
        QTest::newRow("as bright as can be") << 4.0 << 0.0 << 0.0 << 1.0;
        QTest::newRow("as dark as can be") << -4.0 << 0.0 << 0.0 << 1.0;
        QTest::newRow("hard") << 0.0 << 1.0 << 0.0 << 1.0;
        QTest::newRow("flat") << 0.0 << -1.0 << 0.0 << 1.0;
        QTest::newRow("stretched") << 0.0 << 0.0 << 0.4 << 0.6;
        QTest::newRow("all") << -1.3 << 0.45 << 0.07 << 0.83;
    }

    void everyLevel_isWhatTheFormulaSays()
    {
        QFETCH(const double, exposure);
        QFETCH(const double, contrast);
        QFETCH(const double, black);
        QFETCH(const double, white);
        Look look;
        look.exposure = exposure;
        look.contrast = contrast;
        look.blackPoint = black;
        look.whitePoint = white;
        for (const int top : {255, 65535}) {
            const std::vector<uint16_t> curve = exposure::levelCurve(look, top);
            QCOMPARE(curve.size(), size_t(65536));
            for (int level = 0; level < 65536; ++level)
                QCOMPARE(int(curve[size_t(level)]), expectedLevel(look, level, top));
        }
    }
};

QTEST_GUILESS_MAIN(TestLevelCurve)
#include "tst_level_curve.moc"
