#pragma once

#include "ReadOptions.h"

#include <QColorSpace>
#include <QImage>

/// The numbers that screens beyond white are sent: SMPTE ST 2084, the perceptual quantizer, for
/// red, green and blue of ITU-R BT.2020.
namespace perceptual_quantizer {

/// Code points of ITU-T H.273 for pictures that levelsOf() gives.
constexpr int kPrimaries = 9;
constexpr int kTransfer = 16;
constexpr int kMatrix = 9;

/// What white, light 1, has on the screen: ITU-R BT.2408, section 2.1.
constexpr double kWhiteLuminance = 203.0; ///< candelas per square metre

/// 0..1 for a luminance up to 10000 candelas per square metre.
double levelOf(double luminance);
/// The inverse: 0 to 10000 candelas per square metre for a level 0..1.
double luminanceOf(double level);

/// light: Format_RGBX32FPx4, linear, in the primaries of its colour space. Returns Format_RGBX64,
/// 0 to 65535 for the levels 0 to 1; colours beyond BT.2020 are cut off. Null when memory is
/// lacking. All cores.
QImage levelsOf(const QImage &light);

/// The light of decoded levels, 1 for white, as options asks for it (see LightRows): in floats, or
/// as a screen shows it. levels: upright, Format_RGBX64 or Format_RGBA64. space: the primaries that
/// they are of. Null when memory is lacking. One thread.
QImage lightOf(const QImage &levels, const QColorSpace &space, const ReadOptions &options);

} // namespace perceptual_quantizer
