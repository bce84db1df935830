#pragma once

#include <QImage>
#include <QRgba64>

/// The channels of pixels on the scale of 0 to 65535, whatever their depth.
namespace exposure::look {

inline quint16 red(QRgb pixel)
{
    return quint16(qRed(pixel) * 257);
}

inline quint16 green(QRgb pixel)
{
    return quint16(qGreen(pixel) * 257);
}

inline quint16 blue(QRgb pixel)
{
    return quint16(qBlue(pixel) * 257);
}

inline quint16 red(QRgba64 pixel)
{
    return pixel.red();
}

inline quint16 green(QRgba64 pixel)
{
    return pixel.green();
}

inline quint16 blue(QRgba64 pixel)
{
    return pixel.blue();
}

/// The pixel with other channels and its alpha. The channels are on the pixel's own scale.
inline QRgb withChannels(QRgb pixel, int red, int green, int blue)
{
    return qRgba(red, green, blue, qAlpha(pixel));
}

inline QRgba64 withChannels(QRgba64 pixel, int red, int green, int blue)
{
    return qRgba64(quint16(red), quint16(green), quint16(blue), pixel.alpha());
}

} // namespace exposure::look
