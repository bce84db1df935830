#pragma once

#include <QImage>

#include <cstdint>
#include <vector>

namespace motion {

/// A plane of flags or levels at the size at which movement is looked for.
using Plane = std::vector<uint8_t>;

} // namespace motion

/// Small filters on planes of width x height numbers of 8 bits. Any thread, reentrant; they use all
/// cores inside the call, which change no number.
namespace motion::planes {

/// 1 where at least `least` of the flags (0 or 1) in the window of radius 0 to 7 around are set;
/// what is outside repeats the edge.
Plane crowded(const Plane &flags, int width, int height, int radius, int least);

/// Mean over 5 x 5, rounded; what is outside repeats the edge.
Plane softened(const Plane &levels, int width, int height);

/// A Format_Grayscale8 picture of this size whose pixels the plane's each stand for `factor` x
/// `factor` of, interpolated in between. factor: a power of two up to 8. Throws std::bad_alloc.
QImage enlarged(const Plane &levels, int width, int height, int factor, QSize size);

} // namespace motion::planes
