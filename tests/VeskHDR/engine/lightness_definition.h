#pragma once

#include <QColor>

#include <algorithm>

/// HSL lightness (0..1) of a colour as the merge defines it, written apart from the engine: the
/// channels widened to 16 bits, half the sum of the largest and the smallest, rounded to 16 bits
/// half up, all in double precision. (QColor::lightnessF is in single precision since Qt 6.)
inline double lightnessDefinition(QRgb color)
{
    const double a = std::max({qRed(color), qGreen(color), qBlue(color)}) * 257 / 65535.0;
    const double b = std::min({qRed(color), qGreen(color), qBlue(color)}) * 257 / 65535.0;
    const int l = int(0.5 * (a + b) * 65535 + 0.5);
    return l / 65535.0;
}
