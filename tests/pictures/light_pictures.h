#pragma once

#include "picture_reader.h"
#include "picture_writer.h"

#include <QBuffer>
#include <QColorSpace>
#include <qfloat16.h>

#include <algorithm>
#include <cmath>

/// Light for the tests of files that hold it, and what it must become.
namespace light {

inline ReadOptions asking(ReadOptions::Light light,
                          ReadOptions::Depth depth = ReadOptions::Depth::AsStored)
{
    ReadOptions options;
    options.light = light;
    options.depth = depth;
    options.colours = ReadOptions::Colours::True;
    return options;
}

inline const float *pixel(const QImage &picture, int x, int y)
{
    return reinterpret_cast<const float *>(picture.constScanLine(y)) + 4 * x;
}

/// Fourteen stops, with black, much light and negative light among them.
inline float numberAt(int x, int y, int channel)
{
    const int i = (x * 7 + y * 13 + channel * 29) % 127;
    return i == 0 ? 0.0F : i == 1 ? 60000.0F : i == 2 ? -0.25F : std::exp2(float(i) / 9 - 9);
}

inline QImage lightPicture(QSize size)
{
    QImage picture(size, QImage::Format_RGBX32FPx4);
    for (int y = 0; y < size.height(); ++y) {
        auto *numbers = reinterpret_cast<float *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x, numbers += 4) {
            for (int c = 0; c < 3; ++c)
                numbers[c] = numberAt(x, y, c);
            numbers[3] = 1.0F;
        }
    }
    picture.setColorSpace(QColorSpace(QColorSpace::SRgbLinear));
    return picture;
}

inline float asHalf(float number)
{
    return float(qfloat16(number));
}

/// The formula of IEC 61966-2-1.
inline double levelOf(double light)
{
    const double kept = std::clamp(light, 0.0, 1.0);
    return kept <= 0.0031308 ? 12.92 * kept : 1.055 * std::pow(kept, 1 / 2.4) - 0.055;
}

inline QByteArray written(const QImage &picture, PictureFormat format,
                          const WriteOptions &options = {})
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadWrite);
    picture::write(picture, buffer, format, options);
    return bytes;
}

} // namespace light
