#include "ShotLight.h"

#include <algorithm>
#include <numeric>

namespace registration {
namespace {

constexpr int kSamples = 96; ///< across and down
constexpr int kDarkestUsable = 24;
constexpr int kBrightestUsable = 240;

bool isUsable(QRgb pixel)
{
    const int most = std::max({qRed(pixel), qGreen(pixel), qBlue(pixel)});
    return most >= kDarkestUsable && most <= kBrightestUsable;
}

} // namespace

ShotLight shotLight(const QImage &shot)
{
    ShotLight light;
    for (int i = 0; i < kSamples * kSamples; ++i) {
        const auto x = static_cast<int>(qint64(shot.width()) * (i % kSamples) / kSamples);
        const auto y = static_cast<int>(qint64(shot.height()) * (i / kSamples) / kSamples);
        const QRgb pixel = shot.pixel(x, y);
        light.brightness += (qRed(pixel) + 2 * qGreen(pixel) + qBlue(pixel)) / 4.0;
        light.usableShare += isUsable(pixel) ? 1 : 0;
    }
    light.brightness /= kSamples * kSamples;
    light.usableShare /= kSamples * kSamples;
    return light;
}

int bestExposed(const std::vector<ShotLight> &lights)
{
    const auto best =
        std::max_element(lights.begin(), lights.end(), [](const auto &a, const auto &b) {
            return a.usableShare < b.usableShare;
        });
    return static_cast<int>(best - lights.begin());
}

std::vector<int> orderOfBrightness(const std::vector<ShotLight> &lights)
{
    std::vector<int> order(lights.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return lights[size_t(a)].brightness < lights[size_t(b)].brightness;
    });
    return order;
}

} // namespace registration
