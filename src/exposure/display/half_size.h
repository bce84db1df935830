#pragma once

#include <QSize>

#include <functional>
#include <vector>

namespace display {

/// A plane of half the size, 4 floats a place, that comes as near to the plane of full size as it
/// can, in the least squares, when it is doubled again by linear interpolation. The mean of two by
/// two pixels, which is what one would take first, is a fifth farther off.
///
/// size: of the full plane. row: writes that row of it, 4 floats a pixel; called on several
/// threads, for a row up to twice. Throws std::bad_alloc. The number of threads changes no bit.
std::vector<float> halfSizeOf(QSize size, const std::function<void(int y, float *pixels)> &row);

} // namespace display
