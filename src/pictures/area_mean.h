#pragma once

#include <QImage>

namespace picture {

/// The picture with fewer pixels, each the mean of the area that it covers, rounded. Formats RGB32,
/// RGBX64 and the premultiplied ones of 8 and 16 bits stay; others, and sizes that are larger in
/// one direction, are left to Qt, which keeps the format or takes a near one. Profile and
/// resolution stay. Null for an empty size. Any thread; uses all cores inside the call, equal
/// results on any number of them. Not those threads of Qt's on which the GUI thread's painting
/// waits: there it would wait for all of this.
QImage areaMean(const QImage &picture, QSize size);

} // namespace picture
