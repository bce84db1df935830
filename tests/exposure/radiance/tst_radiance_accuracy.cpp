// How near the radiance comes to the light of a simulated scene: noise against the best weights
// there are, curves and exposures against the true ones.

#include "radiance.h"
#include "simulated_camera.h"

#include <QtTest>

#include <algorithm>
#include <cmath>

using radiance::Options;
using radiance::Result;
using radiance::Shot;
using simulatedCamera::Camera;
using simulatedCamera::Scene;

class TestRadianceAccuracy : public QObject
{
    Q_OBJECT

private slots:
    void merge_elevenStops_isWithinHalfADecibelOfTheBest();
    void merge_unknownCurve_isRecovered_data();
    void merge_unknownCurve_isRecovered();
    void merge_wrongExposure_isCorrected_data();
    void merge_wrongExposure_isCorrected();
    void merge_noExposures_areToldByThePixels();
    void merge_deepShots_keepTheProfilesCurve();

private:
    static std::vector<Shot> shoot(const Scene &scene, const Camera &camera,
                                   const std::vector<double> &exposures,
                                   QImage::Format format = QImage::Format_RGB32);
};

namespace {

const std::vector<double> kElevenStops = {1.0, 4.0, 16.0, 64.0, 256.0};

/// Errors of logarithms to the base 2 are printed by QVERIFY2.
QByteArray stops(double error)
{
    return QByteArray::number(error, 'f', 3) + " stops";
}

/// The signal to noise ratio in decibels of estimates of known lights.
class Ratio
{
public:
    void add(double estimate, double truth)
    {
        const double error = (estimate - truth) / truth;
        sum += error * error;
        ++count;
    }
    double decibels() const { return -10.0 * std::log10(sum / count); }

private:
    double sum = 0.0;
    double count = 0.0;
};

double lightOfSrgb(double level)
{
    return level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
}

float valueAt(const QImage &picture, int x, int y, int channel)
{
    return reinterpret_cast<const float *>(picture.constScanLine(y))[4 * x + channel];
}

int levelAt(const Shot &shot, int x, int y, int channel)
{
    const QRgb word = shot.picture.picture.pixel(x, y);
    return channel == 0 ? qRed(word) : channel == 1 ? qGreen(word) : qBlue(word);
}

/// With weights that know the noise of each shot at the true light; none can do better.
double bestEstimate(const std::vector<Shot> &shots, const Camera &camera, int x, int y, int channel,
                    double truth)
{
    double sum = 0.0;
    double total = 0.0;
    for (const Shot &shot : shots) {
        const int level = levelAt(shot, x, y, channel);
        if (level == 255)
            continue;
        const double weight = shot.exposure * shot.exposure /
                              simulatedCamera::variance(camera, truth * shot.exposure);
        sum += weight * lightOfSrgb(level / 255.0) / shot.exposure;
        total += weight;
    }
    return total > 0.0 ? sum / total : truth;
}

/// The middle of the differences of logarithms, and how far the worst tenth lies from it.
double worstTenth(std::vector<double> differences)
{
    std::sort(differences.begin(), differences.end());
    const double middle = differences[differences.size() / 2];
    for (double &difference : differences)
        difference = std::abs(difference - middle);
    std::sort(differences.begin(), differences.end());
    return differences[differences.size() * 9 / 10];
}

double worstTenthOf(const QImage &picture, const Scene &scene, double least, double most)
{
    std::vector<double> differences;
    const float *light = scene.light.data();
    for (int y = 0; y < scene.size.height(); ++y)
        for (int x = 0; x < scene.size.width(); ++x)
            for (int c = 0; c < 3; ++c, ++light)
                if (double(*light) > least && double(*light) < most)
                    differences.push_back(
                        std::log2(double(valueAt(picture, x, y, c)) / double(*light)));
    return worstTenth(differences);
}

} // namespace

std::vector<Shot> TestRadianceAccuracy::shoot(const Scene &scene, const Camera &camera,
                                              const std::vector<double> &exposures,
                                              QImage::Format format)
{
    std::vector<Shot> shots;
    quint32 seed = 100;
    for (const double exposure : exposures)
        shots.push_back(
            {{simulatedCamera::taken(scene, camera, exposure, format, seed++), {}}, exposure});
    return shots;
}

void TestRadianceAccuracy::merge_elevenStops_isWithinHalfADecibelOfTheBest()
{
    const Camera camera;
    const Scene scene = simulatedCamera::scene({300, 240}, 11.0, 1);
    const std::vector<Shot> shots = shoot(scene, camera, {0.9, 3.6, 14.4, 57.6, 230.4});
    Options options;
    options.curve = radiance::Curve::OfProfile;
    const Result result = radiance::merge(shots, options);
    Ratio ours;
    Ratio best;
    const double scale = shots[0].exposure; // white of the reference is 1
    for (int y = 0; y < scene.size.height(); ++y) {
        for (int x = 0; x < scene.size.width(); ++x) {
            for (int c = 0; c < 3; ++c) {
                const double truth =
                    double(scene.light[size_t((y * scene.size.width() + x) * 3 + c)]);
                ours.add(double(valueAt(result.picture, x, y, c)) / scale, truth);
                best.add(bestEstimate(shots, camera, x, y, c, truth), truth);
            }
        }
    }
    qInfo("radiance %.2f dB, best %.2f dB", ours.decibels(), best.decibels());
    QVERIFY(ours.decibels() > best.decibels() - 0.5);
    QVERIFY(best.decibels() > 30.0);
}

void TestRadianceAccuracy::merge_unknownCurve_isRecovered_data()
{
    QTest::addColumn<double>("step");
    QTest::addColumn<double>("allowed");
    QTest::newRow("a stop apart") << 2.0 << 0.1;
    QTest::newRow("two stops apart") << 4.0 << 0.15;
    QTest::newRow("three stops apart") << 8.0 << 0.2;
}

void TestRadianceAccuracy::merge_unknownCurve_isRecovered()
{
    QFETCH(double, step);
    QFETCH(double, allowed);
    Camera camera;
    camera.curve = &simulatedCamera::contrastyLevel;
    const Scene scene = simulatedCamera::scene({480, 360}, 11.0, 2);
    std::vector<double> exposures = {1.0};
    while (exposures.size() < 5)
        exposures.push_back(exposures.back() * step);
    const Result result = radiance::merge(shoot(scene, camera, exposures));
    QVERIFY(result.isCurveRecovered);
    QVERIFY(result.areExposuresKnown);
    const double least = 0.02 / exposures.back();
    const double recovered = worstTenthOf(result.picture, scene, least, 0.8);
    Options options;
    options.curve = radiance::Curve::OfProfile;
    const Result assumed = radiance::merge(shoot(scene, camera, exposures), options);
    const double byProfile = worstTenthOf(assumed.picture, scene, least, 0.8);
    qInfo("recovered %.3f stops, sRGB assumed %.3f stops", recovered, byProfile);
    QVERIFY2(recovered < allowed, stops(recovered));
    QVERIFY2(recovered < byProfile / 2, stops(byProfile));
}

void TestRadianceAccuracy::merge_wrongExposure_isCorrected_data()
{
    QTest::addColumn<bool>("hasOwnCurve");
    QTest::addColumn<double>("allowed");
    QTest::newRow("curve of the profile") << false << 0.03;
    QTest::newRow("curve recovered") << true << 0.1;
}

void TestRadianceAccuracy::merge_wrongExposure_isCorrected()
{
    QFETCH(bool, hasOwnCurve);
    QFETCH(double, allowed);
    Camera camera;
    if (hasOwnCurve)
        camera.curve = &simulatedCamera::contrastyLevel;
    const Scene scene = simulatedCamera::scene({480, 360}, 11.0, 3);
    std::vector<Shot> shots = shoot(scene, camera, kElevenStops);
    shots[2].exposure *= 0.25 / 0.283;
    Options options;
    options.curve = hasOwnCurve ? radiance::Curve::Recovered : radiance::Curve::OfProfile;
    const Result result = radiance::merge(shots, options);
    for (size_t i = 1; i < kElevenStops.size(); ++i) {
        const double step = std::log2(result.exposures[i] / result.exposures[i - 1]);
        QVERIFY2(std::abs(step - 2.0) < allowed, stops(step));
    }
}

void TestRadianceAccuracy::merge_noExposures_areToldByThePixels()
{
    const Scene scene = simulatedCamera::scene({480, 360}, 11.0, 4);
    std::vector<Shot> shots = shoot(scene, {}, {16.0, 1.0, 200.0});
    for (Shot &shot : shots)
        shot.exposure = 0.0;
    const Result result = radiance::merge(shots);
    QVERIFY(!result.areExposuresKnown);
    QVERIFY(!result.isCurveRecovered);
    QVERIFY2(std::abs(std::log2(result.exposures[1] * 16.0)) < 0.03,
             stops(std::log2(result.exposures[1] * 16.0)));
    QVERIFY2(std::abs(std::log2(result.exposures[2] * 16.0 / 200.0)) < 0.03,
             stops(std::log2(result.exposures[2] * 16.0 / 200.0)));
}

void TestRadianceAccuracy::merge_deepShots_keepTheProfilesCurve()
{
    Camera camera;
    camera.electrons = 60000.0;
    const Scene scene = simulatedCamera::scene({300, 240}, 11.0, 5);
    const Result result =
        radiance::merge(shoot(scene, camera, {1.0, 16.0, 256.0}, QImage::Format_RGBX64));
    QVERIFY(!result.isCurveRecovered);
    const double error = worstTenthOf(result.picture, scene, std::exp2(-8), 0.9);
    QVERIFY2(error < 0.05, stops(error));
}

QTEST_APPLESS_MAIN(TestRadianceAccuracy)
#include "tst_radiance_accuracy.moc"
