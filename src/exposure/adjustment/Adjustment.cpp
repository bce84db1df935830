#include "Adjustment.h"

#include "parallel_rows.h"

#include <QRgba64>

#include <algorithm>
#include <cmath>
#include <vector>

namespace exposure {
namespace {

constexpr int kLevels8 = 256;
constexpr int kLevels16 = 65536;
constexpr int kOne = 1 << 12; // of saturations

double toLinear(double encoded)
{
    return encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
}

double toEncoded(double linear)
{
    return linear <= 0.0031308 ? linear * 12.92 : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
}

/// From 0 to 1 and through the middle; steep there for positive contrast, flat for negative.
double curved(double value, double contrast)
{
    const double steep = std::exp2(std::abs(contrast) * 2);
    const double side = value < 0.5 ? value * 2 : 2 - value * 2;
    const double bent = std::pow(side, contrast < 0 ? 1 / steep : steep) / 2;
    return value < 0.5 ? bent : 1 - bent;
}

/// What becomes of each level, before saturation.
std::vector<quint16> curveOf(const Adjustment &adjustment, int levels)
{
    const double gain = std::exp2(std::clamp(adjustment.exposure, -4.0, 4.0));
    const double contrast = std::clamp(adjustment.contrast, -1.0, 1.0);
    const double top = levels - 1;
    std::vector<quint16> curve(static_cast<size_t>(levels));
    for (int level = 0; level < levels; ++level) {
        const double bright = gain == 1.0 ? level / top : toEncoded(toLinear(level / top) * gain);
        const double value = curved(std::clamp(bright, 0.0, 1.0), contrast);
        curve[static_cast<size_t>(level)] = static_cast<quint16>(std::lround(value * top));
    }
    return curve;
}

/// Rec. 709's luma, in integers that add up to 2 to the 15th.
int greyOf(int red, int green, int blue)
{
    return (6966 * red + 23436 * green + 2366 * blue + (1 << 14)) >> 15;
}

struct Mixer
{
    int saturation; ///< in units of kOne
    int top;        ///< the largest level

    int mixed(int grey, int channel) const
    {
        const qint64 away = qint64(channel - grey) * saturation;
        return std::clamp(grey + static_cast<int>((away + kOne / 2) >> 12), 0, top);
    }
};

void adjustRow(QRgb *row, int width, const std::vector<quint16> &curve, const Mixer &mixer)
{
    for (QRgb *pixel = row; pixel < row + width; ++pixel) {
        const int red = curve[static_cast<size_t>(qRed(*pixel))];
        const int green = curve[static_cast<size_t>(qGreen(*pixel))];
        const int blue = curve[static_cast<size_t>(qBlue(*pixel))];
        const int grey = greyOf(red, green, blue);
        *pixel = qRgb(mixer.mixed(grey, red), mixer.mixed(grey, green), mixer.mixed(grey, blue));
    }
}

void adjustRow(QRgba64 *row, int width, const std::vector<quint16> &curve, const Mixer &mixer)
{
    for (QRgba64 *pixel = row; pixel < row + width; ++pixel) {
        const int red = curve[pixel->red()];
        const int green = curve[pixel->green()];
        const int blue = curve[pixel->blue()];
        const int grey = greyOf(red, green, blue);
        *pixel = qRgba64(static_cast<quint16>(mixer.mixed(grey, red)),
                         static_cast<quint16>(mixer.mixed(grey, green)),
                         static_cast<quint16>(mixer.mixed(grey, blue)), 0xFFFF);
    }
}

template <typename Pixel>
void adjustAll(QImage &picture, const Adjustment &adjustment, int levels)
{
    const std::vector<quint16> curve = curveOf(adjustment, levels);
    const double saturation = std::clamp(adjustment.saturation, 0.0, 3.0);
    const Mixer mixer{static_cast<int>(std::lround(saturation * kOne)), levels - 1};
    picture.detach();
    uchar *const bits = picture.bits();
    const qsizetype rowBytes = picture.bytesPerLine();
    const int width = picture.width();
    parallel::rows(picture.size(), [&](int begin, int end) {
        for (int y = begin; y < end; ++y)
            adjustRow(reinterpret_cast<Pixel *>(bits + y * rowBytes), width, curve, mixer);
    });
}

} // namespace

void adjust(QImage &picture, const Adjustment &adjustment)
{
    if (adjustment.isNeutral())
        return;
    if (picture.format() == QImage::Format_RGB32)
        adjustAll<QRgb>(picture, adjustment, kLevels8);
    else if (picture.format() == QImage::Format_RGBX64)
        adjustAll<QRgba64>(picture, adjustment, kLevels16);
}

} // namespace exposure
