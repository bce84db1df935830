#include "MovingScene.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cmath>

namespace {

double lightAt(int x, int y, int channel)
{
    const double ramp = std::pow(2.0, 4.0 * x / 320.0 - 2.5);
    const double texture = 1.0 + 0.3 * std::sin(x * 0.35 + channel) * std::cos(y * 0.29);
    return ramp * texture * (1.0 + 0.1 * channel);
}

double discLightAt(int x, int y, int channel)
{
    return (channel == 0 ? 0.9 : 0.25) * (1.0 + 0.4 * std::sin(x * 0.5) * std::sin(y * 0.5));
}

} // namespace

QImage MovingScene::shot(double exposure, QPoint disc, double noise, quint32 seed) const
{
    QRandomGenerator random(seed);
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const bool isDisc =
                disc.x() >= 0 && std::hypot(x - disc.x(), y - disc.y()) < discRadius;
            int levels[3];
            for (int channel = 0; channel < 3; ++channel) {
                const double light = isDisc ? discLightAt(x - disc.x(), y - disc.y(), channel)
                                            : lightAt(x, y, channel);
                const double spread = noise * 3.5 * (random.generateDouble() - 0.5);
                const double level = 255 * std::pow(light * exposure, 1 / 2.2) + spread;
                levels[channel] = static_cast<int>(std::clamp(level + 0.5, 0.0, 255.0));
            }
            picture.setPixel(x, y, qRgb(levels[0], levels[1], levels[2]));
        }
    }
    return picture;
}
