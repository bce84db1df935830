#pragma once

#include "GainMap.h"

#include <QImage>

/// Pictures for screens that show more than the white of paper.
namespace display {

constexpr double kLeastPeak = 0.5;   ///< stops
constexpr double kMostPeak = 8.0;    ///< stops
constexpr double kDefaultPeak = 4.0; ///< stops

struct BrightSource
{
    QImage base;   ///< as it will be shown: Format_RGB32, any RGB profile or none, which is sRGB
    QImage light;  ///< Format_RGBX32FPx4 of the same size, linear, in the base's primaries
    QImage bounds; ///< of the radiance, see radiance::Result; may be null
    double peak = kDefaultPeak; ///< the most stops above the base, kLeastPeak to kMostPeak
};

/// The gain map (ISO 21496-1) of half the size, in red, green and blue: with gains of one channel
/// the colours of the base would stay where they are clipped and the light's are not. Where the
/// light, brought to the base's white by whiteMatch(), is brighter than the base, both together
/// show the light, up to `peak` stops brighter; where the base is brighter, fusion having lifted
/// it, the base stays. The range ends with the gain that but one in ten thousand samples exceed.
/// The map's picture is null when memory is lacking. Any thread, reentrant; uses all cores inside
/// the call, which change no bit.
GainMap makeGainMap(const BrightSource &source);

/// The same in plain code: the definition that the other equals to the bit.
GainMap makeGainMapPlain(const BrightSource &source);

} // namespace display
