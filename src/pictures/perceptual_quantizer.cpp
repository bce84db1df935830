#include "perceptual_quantizer.h"

#include "LightRows.h"
#include "cicp_profile.h"
#include "large_memory.h"
#include "light_primaries.h"
#include "parallel_rows.h"

#include <QColorSpace>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace {

constexpr int kLinear = 8; // of H.273

// ST 2084, section 5.
constexpr double kM1 = 2610.0 / 16384.0;
constexpr double kM2 = 2523.0 / 4096.0 * 128.0;
constexpr double kC1 = 3424.0 / 4096.0;
constexpr double kC2 = 2413.0 / 4096.0 * 32.0;
constexpr double kC3 = 2392.0 / 4096.0 * 32.0;
constexpr double kBrightest = 10000.0; // candelas per square metre

/// Levels for floats from 2^-40 to 1, looked up by their first bits: steps of 1/4096 are finer than
/// a tenth of a level of 10 bits.
class Table
{
public:
    Table()
        : levels(indexOf(1.0F) + 1)
    {
        for (size_t i = 0; i < levels.size(); ++i) {
            const uint32_t bits = (kFirst + uint32_t(i)) << kDropped;
            float luminance = 0.0F;
            std::memcpy(&luminance, &bits, sizeof bits);
            const double level = perceptual_quantizer::levelOf(kBrightest * double(luminance));
            levels[i] = quint16(std::lround(65535.0 * level));
        }
    }

    /// share: of 10000 candelas per square metre.
    quint16 level(float share) const
    {
        return share >= kLeast ? levels[indexOf(std::min(share, 1.0F))] : quint16(0);
    }

private:
    static constexpr uint32_t kDropped = 11;
    static constexpr float kLeast = 0x1p-40F;
    static constexpr uint32_t kFirst = (127U - 40U) << (23U - kDropped);

    static size_t indexOf(float share)
    {
        uint32_t bits = 0;
        std::memcpy(&bits, &share, sizeof bits);
        return ((bits + (1U << (kDropped - 1))) >> kDropped) - kFirst;
    }

    std::vector<quint16> levels;
};

void convertRow(const float *light, const light_primaries::Matrix &m, const Table &table, int count,
                quint16 *levels)
{
    for (int x = 0; x < count; ++x, light += 4, levels += 4) {
        for (size_t c = 0; c < 3; ++c)
            levels[c] = table.level(m[3 * c] * light[0] + m[3 * c + 1] * light[1] +
                                    m[3 * c + 2] * light[2]);
        levels[3] = 0xFFFF;
    }
}

/// Of every level of 16 bits, 1 for white.
std::vector<float> lightOfLevels()
{
    std::vector<float> light(0x10000);
    for (size_t level = 0; level < light.size(); ++level)
        light[level] = float(perceptual_quantizer::luminanceOf(double(level) / 65535.0) /
                             perceptual_quantizer::kWhiteLuminance);
    return light;
}

light_primaries::Matrix toShares(const QColorSpace &space)
{
    light_primaries::Matrix matrix = light_primaries::between(
        space.iccProfile(), cicp_profile::of(perceptual_quantizer::kPrimaries, kLinear));
    for (float &number : matrix)
        number *= float(perceptual_quantizer::kWhiteLuminance / kBrightest);
    return matrix;
}

} // namespace

double perceptual_quantizer::levelOf(double luminance)
{
    const double y = std::pow(std::clamp(luminance / kBrightest, 0.0, 1.0), kM1);
    return std::pow((kC1 + kC2 * y) / (1.0 + kC3 * y), kM2);
}

double perceptual_quantizer::luminanceOf(double level)
{
    const double root = std::pow(std::clamp(level, 0.0, 1.0), 1.0 / kM2);
    const double share = std::max(root - kC1, 0.0) / (kC2 - kC3 * root);
    return kBrightest * std::pow(share, 1.0 / kM1);
}

QImage perceptual_quantizer::levelsOf(const QImage &light)
{
    QImage levels = memory::largeImage(light.size(), QImage::Format_RGBX64);
    if (levels.isNull())
        return levels;
    const light_primaries::Matrix matrix = toShares(light.colorSpace());
    const Table table;
    // Threads write beside each other: nothing may detach.
    uchar *bytes = levels.bits();
    const qsizetype stride = levels.bytesPerLine();
    parallel::rows(light.size(), [&](int begin, int end) {
        for (int y = begin; y < end; ++y)
            convertRow(reinterpret_cast<const float *>(light.constScanLine(y)), matrix, table,
                       light.width(), reinterpret_cast<quint16 *>(bytes + y * stride));
    });
    return levels;
}

QImage perceptual_quantizer::lightOf(const QImage &levels, const QColorSpace &space,
                                     const ReadOptions &options)
{
    static const std::vector<float> light = lightOfLevels();
    LightRows::Layout layout;
    layout.size = levels.size();
    layout.hasAlpha = levels.hasAlphaChannel();
    layout.space = space;
    LightRows rows(layout, options);
    if (rows.isNull())
        return {};
    for (int y = 0; y < levels.height(); ++y) {
        const auto *words = reinterpret_cast<const quint16 *>(levels.constScanLine(y));
        float *numbers = rows.row(y);
        for (int x = 0; x < levels.width(); ++x, words += 4, numbers += 4) {
            for (size_t c = 0; c < 3; ++c)
                numbers[c] = light[words[c]];
            numbers[3] = float(words[3]) / 65535.0F;
        }
        rows.rowWritten(y);
    }
    return rows.taken();
}
