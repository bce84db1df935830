#include "rendered_shots.h"

#include <QRgba64>

#include <cmath>
#include <map>
#include <memory>
#include <random>
#include <vector>

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr int kSamples = 2; ///< across and down in each pixel

/// 0..1, the same for the same numbers.
double hashed(int x, int y, unsigned seed)
{
    uint32_t h = seed * 0x9E3779B9U ^ uint32_t(x) * 0x85EBCA6BU ^ uint32_t(y) * 0xC2B2AE35U;
    h = (h ^ h >> 15) * 0x2C1B3C6DU;
    h = (h ^ h >> 12) * 0x297A2D39U;
    return double(h ^ h >> 15) / 4294967296.0;
}

double smooth(double t)
{
    return t * t * (3 - 2 * t);
}

double valueNoise(double x, double y, unsigned seed)
{
    const double left = std::floor(x);
    const double top = std::floor(y);
    const double u = smooth(x - left);
    const double v = smooth(y - top);
    const auto at = [&](int dx, int dy) { return hashed(int(left) + dx, int(top) + dy, seed); };
    return (at(0, 0) * (1 - u) + at(1, 0) * u) * (1 - v) + (at(0, 1) * (1 - u) + at(1, 1) * u) * v;
}

double noise(double x, double y, unsigned seed)
{
    double sum = 0;
    double share = 0.5;
    for (double scale : {64.0, 27.0, 11.0, 5.0, 2.5}) {
        sum += share * valueNoise(x / scale, y / scale, seed++);
        share *= 0.7;
    }
    return sum / 1.39;
}

/// A scene drawn once, in half pixels, to be looked at often: from kFrame pixels left of the
/// reference's first and above it.
class DrawnScene
{
public:
    explicit DrawnScene(const rendered::Scene &scene)
        : values(size_t(kWidth) * kHeight)
    {
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x)
                values[size_t(y) * kWidth + size_t(x)] =
                    float(scene(x / 2.0 - kFrame, y / 2.0 - kFrame));
        }
    }

    double at(double x, double y) const
    {
        const double px = std::clamp(2 * (x + kFrame), 0.0, kWidth - 1.001);
        const double py = std::clamp(2 * (y + kFrame), 0.0, kHeight - 1.001);
        const float *upper = &values[size_t(py) * kWidth + size_t(px)];
        const float *lower = upper + kWidth;
        const double u = px - std::floor(px);
        const double v = py - std::floor(py);
        return (upper[0] * (1 - u) + upper[1] * u) * (1 - v) +
               (lower[0] * (1 - u) + lower[1] * u) * v;
    }

private:
    static constexpr int kFrame = 120;
    static constexpr int kWidth = 2 * (700 + 2 * kFrame);
    static constexpr int kHeight = 2 * (520 + 2 * kFrame);

    std::vector<float> values;
};

rendered::Scene drawn(const rendered::Scene &scene)
{
    const auto picture = std::make_shared<DrawnScene>(scene);
    return [picture](double x, double y) { return picture->at(x, y); };
}

double lightAt(const rendered::Scene &scene, const rendered::Camera &camera, int x, int y)
{
    double sum = 0;
    for (int i = 0; i < kSamples * kSamples; ++i) {
        const QPointF at(x - 0.5 + (i % kSamples + 0.5) / kSamples,
                         y - 0.5 + (i / kSamples + 0.5) / kSamples);
        const QPointF place = registration::mapped(camera.toReference, at);
        sum += scene(place.x(), place.y());
    }
    return sum / (kSamples * kSamples) * std::exp2(camera.stops);
}

double encoded(double light)
{
    if (light <= 0.0031308)
        return 12.92 * light;
    return 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

double decoded(double value)
{
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

} // namespace

rendered::Scene rendered::texturedScene(unsigned seed)
{
    static std::map<unsigned, Scene> scenes; // drawing one takes longer than photographing it
    Scene &scene = scenes[seed];
    if (scene)
        return scene;
    scene = drawn([seed](double x, double y) {
        const double base = noise(x, y, seed);
        const bool isDark = std::fmod(valueNoise(x / 40, y / 40, seed + 9) * 8, 2.0) < 1.0;
        return 0.45 * base * base * (isDark ? 0.25 : 1.0) + 0.005;
    });
    return scene;
}

rendered::Scene rendered::skyAbove(double line, unsigned seed)
{
    const Scene ground = texturedScene(seed);
    return
        [=](double x, double y) { return y < line + 20 * std::sin(x / 60) ? 0.3 : ground(x, y); };
}

rendered::Scene rendered::houseFront()
{
    return drawn([](double x, double y) {
        const double u = x / 60 - std::floor(x / 60);
        const double v = y / 75 - std::floor(y / 75);
        const bool isWindow = u > 0.25 && u < 0.75 && v > 0.2 && v < 0.8;
        const double curtain = hashed(int(std::floor(x / 60)), int(std::floor(y / 75)), 5);
        return (isWindow ? 0.02 + 0.06 * curtain : 0.25) + 0.05 * noise(x, y, 77);
    });
}

rendered::Scene rendered::tiledFloor()
{
    return drawn([](double x, double y) {
        const double u = x / 48 - std::floor(x / 48);
        const double v = y / 48 - std::floor(y / 48);
        const bool isJoint = u < 0.06 || v < 0.06;
        const double shade = hashed(int(std::floor(x / 48)), int(std::floor(y / 48)), 9);
        return (isJoint ? 0.05 : 0.3 + 0.03 * shade) + 0.03 * noise(x, y, 55);
    });
}

rendered::Scene rendered::photograph(const QImage &picture)
{
    const QImage grey = picture.convertToFormat(QImage::Format_Grayscale8);
    return [grey](double x, double y) {
        const double px = std::clamp(x, 0.0, grey.width() - 1.001);
        const double py = std::clamp(y, 0.0, grey.height() - 1.001);
        const int left = int(px);
        const int top = int(py);
        const auto at = [&](int dx, int dy) {
            return decoded(grey.constScanLine(top + dy)[left + dx] / 255.0);
        };
        const double u = px - left;
        const double v = py - top;
        return (at(0, 0) * (1 - u) + at(1, 0) * u) * (1 - v) +
               (at(0, 1) * (1 - u) + at(1, 1) * u) * v;
    };
}

QImage rendered::shot(const Scene &scene, const Camera &camera)
{
    QImage image(camera.size, QImage::Format_RGB32);
    std::mt19937 random(camera.seed);
    std::normal_distribution<double> grain(0.0, std::max(camera.noise, 1e-9));
    for (int y = 0; y < image.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const double level = 255 * encoded(lightAt(scene, camera, x, y));
            const auto channel = [&] {
                return int(std::clamp(level + grain(random), 0.0, 255.0) + 0.5);
            };
            const int red = channel();
            const int green = channel();
            row[x] = qRgb(red, green, channel());
        }
    }
    return image;
}

QImage rendered::linearShot(const Scene &scene, const Camera &camera)
{
    QImage image(camera.size, QImage::Format_RGBX64);
    for (int y = 0; y < image.height(); ++y) {
        auto *row = reinterpret_cast<QRgba64 *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const double light = std::clamp(lightAt(scene, camera, x, y), 0.0, 1.0);
            const auto level = quint16(65535 * light + 0.5);
            row[x] = QRgba64::fromRgba64(level, level, level, 0xFFFF);
        }
    }
    return image;
}

registration::Matrix rendered::turned(QSize size, double degrees, double x, double y)
{
    using namespace registration;
    const double c = std::cos(degrees * kPi / 180);
    const double s = std::sin(degrees * kPi / 180);
    const double cx = (size.width() - 1) / 2.0;
    const double cy = (size.height() - 1) / 2.0;
    const Matrix turn{c, -s, 0, s, c, 0, 0, 0, 1};
    return product(shiftMatrix(cx + x, cy + y), product(turn, shiftMatrix(-cx, -cy)));
}

registration::Matrix rendered::tilted(QSize size, double yaw, double pitch, double roll)
{
    using namespace registration;
    const auto rotation = [](double degrees, int a, int b) {
        Matrix m = identityMatrix();
        m[size_t(4 * a)] = m[size_t(4 * b)] = std::cos(degrees * kPi / 180);
        m[size_t(3 * a + b)] = -std::sin(degrees * kPi / 180);
        m[size_t(3 * b + a)] = std::sin(degrees * kPi / 180);
        return m;
    };
    const double f = size.width();
    const Matrix camera{f, 0, (size.width() - 1) / 2.0, 0, f, (size.height() - 1) / 2.0, 0, 0, 1};
    const Matrix turn =
        product(rotation(yaw, 0, 2), product(rotation(pitch, 1, 2), rotation(roll, 0, 1)));
    return product(camera, product(turn, inverse(camera)));
}
