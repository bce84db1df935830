#pragma once

#include <QImage>

/// Where a picture has no detail left.
namespace clipping {

/// Red where a channel has its highest value, blue where all have the lowest, transparent
/// elsewhere: Format_ARGB32_Premultiplied of the picture's size. picture: Format_RGB32 or RGBX64;
/// null for others. Any thread.
QImage marks(const QImage &picture);

} // namespace clipping
