#pragma once

#include "GainMap.h"
#include "PictureFormat.h"
#include "gain_map_maker.h"

#include <QImage>

namespace display {

/// Bits per channel of files that are for bright screens only.
constexpr int kBrightBits = 10;

/// The picture to write for a screen that shows more than white, and the gain map, which goes into
/// JPEG files and tells the headroom of others. source: its light is brought to the base's
/// primaries. Returns false when memory is lacking. Any thread.
bool makeBright(BrightSource source, PictureFormat format, QImage &picture, GainMap &map);

} // namespace display
