#pragma once

#include <QImage>

namespace exposure {

/// The picture in Format_RGB32, or with alpha, and with the curve of sRGB when it holds linear
/// light in 16 bits per channel, else the picture itself: differences of its levels are then such
/// that one sees. Null when memory is lacking. Any thread; uses all cores inside the call.
QImage inScreenLevels(const QImage &picture);

} // namespace exposure
