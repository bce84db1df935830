#include "sample_camera.h"

#include "noise.h"

#include <array>

namespace sample {

namespace {

constexpr float kSensitivity = 0.28F;
constexpr float kFullWell = 40000.0F;
constexpr float kReadNoise = 4.0F;
constexpr int kRawMax = 4095;
constexpr double kShoulder = 2.2;
constexpr double kGamma = 2.2;

std::array<int, kRawMax + 1> toneCurve()
{
    std::array<int, kRawMax + 1> curve = {};
    for (int raw = 0; raw <= kRawMax; ++raw) {
        const double light = static_cast<double>(raw) / kRawMax;
        const double tone = (1.0 - std::exp(-kShoulder * light)) / (1.0 - std::exp(-kShoulder));
        curve[static_cast<size_t>(raw)] =
            static_cast<int>(std::lround(255.0 * std::pow(tone, 1.0 / kGamma)));
    }
    return curve;
}

/// Close to normal, mean 0 and deviation 1: four uniform numbers, summed.
float normalNumber(std::uint64_t key)
{
    const std::uint64_t bits = hashed(key);
    std::uint64_t sum = 0;
    for (unsigned shift = 0; shift < 64; shift += 16)
        sum += (bits >> shift) & 0xFFFFU;
    return (static_cast<float>(sum) * (1.0F / 65535.0F) - 2.0F) * 1.7320508F;
}

int rawValue(float light, std::uint64_t key)
{
    const float electrons = light * kFullWell;
    const float noise = std::sqrt(electrons + kReadNoise * kReadNoise) * normalNumber(key);
    return static_cast<int>(std::lround(clamp01((electrons + noise) / kFullWell) * kRawMax));
}

} // namespace

QImage photograph(const RadianceImage &radiance, QPoint origin, QSize size, double stops,
                  std::uint32_t noiseSeed)
{
    static const std::array<int, kRawMax + 1> curve = toneCurve();
    const float gain = kSensitivity * static_cast<float>(std::exp2(stops));
    QImage picture(size, QImage::Format_RGB32);
    std::uint64_t key = hashed(noiseSeed);
    const auto value = [&](float channel) {
        return curve[static_cast<size_t>(rawValue(channel * gain, ++key))];
    };
    for (int y = 0; y < size.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const Vector3 light = radiance.at(origin.x() + x, origin.y() + y);
            const int red = value(light.x);
            const int green = value(light.y);
            row[x] = qRgb(red, green, value(light.z));
        }
    }
    return picture;
}

} // namespace sample
