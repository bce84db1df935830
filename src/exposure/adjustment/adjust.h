#pragma once

#include "LightMap.h"
#include "Look.h"

#include <QImage>

namespace exposure {

/// Changes the picture in place, at its depth: highlights and shadows by how light the surroundings
/// of each pixel are (see LightMap: a curve of the levels alone would flatten the middle where it
/// opens the ends), saturation, then the levels (see levelCurve). Formats RGB32, ARGB32, RGBX64 and
/// RGBA64, alpha stays; others, and a neutral look, leave the picture and its memory as they are.
/// Numbers beyond their range are taken as the nearest within. Any thread, reentrant; uses all
/// cores inside the call, equal results on any number of threads.
void adjust(QImage &picture, const Look &look);

/// The same for a part of a picture: map is that of the whole, or null when the look has no tones;
/// window is where the part lies in it. Gives the pixels that the whole would have there.
void adjust(QImage &part, const Look &look, const LightMap *map, const LightMap::Window &window);

/// The definition, pixel by pixel, that the fast code equals to the bit.
void adjustPlain(QImage &picture, const Look &look);

/// Whether adjust() takes pictures of that format, and the one nearest to it that it takes: 8 bits
/// for 8 or fewer, 16 for more, with alpha where there is one.
QImage::Format adjustableFormat(const QImage &picture);

} // namespace exposure
