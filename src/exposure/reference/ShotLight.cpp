#include "ShotLight.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace exposure {
namespace {

constexpr int kSamples = 128; ///< across and down
constexpr int kDarkestVisible = 16;
constexpr int kBrightestVisible = 249;
constexpr double kNoise = 4.0; ///< levels; a step between two points within it is no detail

struct Point
{
    int grey; ///< red + 2 green + blue
    bool isVisible;
};

Point pointOf(QRgb pixel)
{
    const int most = std::max({qRed(pixel), qGreen(pixel), qBlue(pixel)});
    return {qRed(pixel) + 2 * qGreen(pixel) + qBlue(pixel),
            most >= kDarkestVisible && most <= kBrightestVisible && qAlpha(pixel) == 255};
}

double step(const Point &a, const Point &b)
{
    if (!a.isVisible || !b.isVisible)
        return 0.0;
    return std::log2(std::max(1.0, std::abs(a.grey - b.grey) / (4 * kNoise)));
}

double meanStep(const std::vector<Point> &points)
{
    double sum = 0.0;
    for (int y = 0; y + 1 < kSamples; ++y) {
        for (int x = 0; x + 1 < kSamples; ++x) {
            const Point *point = &points[size_t(y * kSamples + x)];
            sum += step(point[0], point[1]) + step(point[0], point[kSamples]);
        }
    }
    return sum / (2 * (kSamples - 1) * (kSamples - 1));
}

/// The next of a row of hashes (FNV-1a, on whole pixels).
quint32 hashed(quint32 before, QRgb pixel)
{
    return (before ^ pixel) * 16777619U;
}

} // namespace

ShotLight shotLight(const QImage &shot)
{
    ShotLight light;
    std::vector<Point> points;
    points.reserve(kSamples * kSamples);
    for (int i = 0; i < kSamples * kSamples; ++i) {
        const auto x = static_cast<int>(qint64(shot.width()) * (i % kSamples) / kSamples);
        const auto y = static_cast<int>(qint64(shot.height()) * (i / kSamples) / kSamples);
        const QRgb pixel = shot.pixel(x, y);
        points.push_back(pointOf(pixel));
        light.brightness += points.back().grey / 4.0;
        light.visibleShare += points.back().isVisible ? 1 : 0;
        light.fingerprint = hashed(light.fingerprint, pixel);
    }
    light.brightness /= kSamples * kSamples;
    light.visibleShare /= kSamples * kSamples;
    light.detail = meanStep(points);
    return light;
}

} // namespace exposure
