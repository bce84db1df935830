#pragma once

#include "GainMap.h"
#include "PictureFormat.h"
#include "gain_map_maker.h"

#include <QImage>

namespace command_line {

/// The picture to write for a screen that shows more than white, and for JPEG files the gain map
/// that goes with it. source: in the base's profile or any other; its light is brought to the
/// base's primaries. Returns false when memory is lacking. Any thread.
bool makeBright(display::BrightSource source, PictureFormat format, QImage &picture, GainMap &map);

} // namespace command_line
