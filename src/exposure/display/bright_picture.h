#pragma once

#include "gain_map_maker.h"

namespace display {

/// What base and gain map show together on a screen that is bright enough, but at full size and
/// without rounding: Format_RGBX32FPx4, linear, white of the base is 1. The source's base may also
/// be in Format_RGBX64. Tagged with the light's colour space; null when memory is lacking. Any
/// thread, reentrant; uses all cores inside the call.
QImage brightPicture(const BrightSource &source);

} // namespace display
