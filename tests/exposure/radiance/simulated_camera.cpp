#include "simulated_camera.h"

#include <QColor>

#include <algorithm>
#include <cmath>
#include <random>

namespace simulatedCamera {

Scene scene(QSize size, double stops, quint32 seed)
{
    constexpr int kPatch = 12;
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> stopsBelow(0.0, stops);
    std::uniform_real_distribution<double> tint(-0.7, 0.7);
    const int across = (size.width() + kPatch - 1) / kPatch;
    const int down = (size.height() + kPatch - 1) / kPatch;
    std::vector<std::array<double, 3>> patches(size_t(across * down));
    for (auto &patch : patches) {
        const double stop = stopsBelow(random);
        for (double &channel : patch)
            channel = std::exp2(-std::clamp(stop + tint(random), 0.0, stops));
    }
    Scene scene{size, {}};
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            for (const double light : patches[size_t(y / kPatch * across + x / kPatch)])
                scene.light.push_back(float(light * (1.0 - 0.002 * (x % kPatch))));
    return scene;
}

double srgbLevel(double light)
{
    return light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

double contrastyLevel(double light)
{
    const double level = srgbLevel(light);
    return level + 0.12 * std::sin(2.0 * M_PI * (level - 0.5)) * (1.0 - level * 0.2);
}

double variance(const Camera &camera, double light)
{
    const double slope = (camera.curve(light + 1e-4) - camera.curve(std::max(light - 1e-4, 0.0))) /
                         (light + 1e-4 - std::max(light - 1e-4, 0.0));
    const double step = 1.0 / 255 / slope;
    const double read = camera.readNoise / camera.electrons;
    return light / camera.electrons + read * read + step * step / 12;
}

QImage taken(const Scene &scene, const Camera &camera, double exposure, QImage::Format format,
             quint32 seed)
{
    std::mt19937 random(seed);
    std::normal_distribution<double> normal;
    QImage picture(scene.size, format);
    const float *light = scene.light.data();
    for (int y = 0; y < scene.size.height(); ++y) {
        for (int x = 0; x < scene.size.width(); ++x, light += 3) {
            quint16 levels[3];
            for (int c = 0; c < 3; ++c) {
                const double caught = double(light[c]) * exposure * camera.electrons;
                const double noise =
                    normal(random) * std::sqrt(caught + camera.readNoise * camera.readNoise);
                const double seen = std::clamp((caught + noise) / camera.electrons, 0.0, 1.0);
                const double level = std::clamp(camera.curve(seen), 0.0, 1.0);
                levels[c] =
                    quint16(format == QImage::Format_RGBX64 ? std::lround(level * 65535)
                                                            : std::lround(level * 255) * 257);
            }
            picture.setPixelColor(x, y,
                                  QRgba64::fromRgba64(levels[0], levels[1], levels[2], 0xFFFF));
        }
    }
    return picture;
}

} // namespace simulatedCamera
