#pragma once

#include <QColorSpace>
#include <QImage>

#include <array>

/// Linear light in the primaries of one colour space brought to those of another. Any thread.
namespace light_primaries {

/// Row by row; multiplied with red, green and blue of one space it gives those of the other. Both
/// whites are adapted to D50 by their profiles, so that white stays white. The unit matrix where a
/// profile tells no primaries.
using Matrix = std::array<float, 9>;
Matrix between(const QByteArray &fromProfile, const QByteArray &toProfile);

/// light: Format_RGBX32FPx4, linear, tagged; gets the primaries of that space (not valid: sRGB's)
/// and its tag, made linear. Colours that the space does not hold get negative numbers. Returns
/// false when memory is lacking. All cores.
bool bring(QImage &light, const QColorSpace &space);

} // namespace light_primaries
