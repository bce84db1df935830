#include "random_shots.h"

#include <QColor>
#include <QRandomGenerator>

#include <algorithm>
#include <cmath>

namespace {

double sceneAt(int x, int y, int channel)
{
    return 0.5 + 0.3 * std::sin(x * 0.11 + channel) + 0.2 * std::cos(y * 0.07 * (channel + 1));
}

} // namespace

std::vector<fusion::Shot> randomShots::bracket(size_t count, QSize size, QImage::Format format,
                                               quint32 seed)
{
    QRandomGenerator random(seed);
    std::vector<fusion::Shot> shots;
    for (size_t i = 0; i < count; ++i) {
        const double gain = 0.4 + 2.0 * double(i) / double(count);
        QImage picture(size, format);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                quint16 levels[3];
                for (int channel = 0; channel < 3; ++channel) {
                    const double noise = 0.06 * (random.generateDouble() - 0.5);
                    const double level = (sceneAt(x, y, channel) + noise) * gain;
                    levels[channel] = static_cast<quint16>(std::clamp(level, 0.0, 1.0) * 65535);
                }
                picture.setPixelColor(x, y,
                                      QRgba64::fromRgba64(levels[0], levels[1], levels[2], 65535));
            }
        }
        shots.push_back({picture, {}});
    }
    return shots;
}

void randomShots::uncover(std::vector<fusion::Shot> &shots, quint32 seed)
{
    QRandomGenerator random(seed);
    for (size_t i = 0; i < shots.size(); ++i) {
        QImage &picture = shots[i].picture;
        const int third = picture.width() / 3;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const bool isSide = i % 2 == 0 ? x < third : x >= picture.width() - third;
                const bool isRow = y < picture.height() / 8;
                if (isSide || isRow || random.bounded(97) == 0)
                    picture.setPixelColor(x, y,
                                          QRgba64::fromRgba64(0xABCD, 0x1234, 0xF00D,
                                                              quint16(random.bounded(65535))));
            }
        }
    }
}

void randomShots::maskSome(std::vector<fusion::Shot> &shots, quint32 seed)
{
    QRandomGenerator random(seed);
    for (size_t i = 0; i < shots.size(); i += 2) {
        QImage mask(fusion::halfSize(shots[i].picture.size()), QImage::Format_Grayscale8);
        for (int y = 0; y < mask.height(); ++y)
            for (int x = 0; x < mask.width(); ++x)
                mask.scanLine(y)[x] = static_cast<uchar>(x % 5 == 0 ? 0 : random.bounded(256));
        shots[i].mask = mask;
    }
}
