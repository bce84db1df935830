#pragma once

#include <QByteArray>
#include <QImageIOHandler>

/// The orientation that a camera writes into its pictures. Any thread, reentrant.
namespace exif {

/// What to do with the stored pixels to see the picture upright; nothing when the EXIF block (as
/// blockIn() gives it) does not say, is damaged or empty.
QImageIOHandler::Transformations orientation(const QByteArray &block);

/// The same for the number, from 1 to 8, that stands in EXIF blocks and TIFF files; nothing for
/// other numbers.
QImageIOHandler::Transformations transformation(int orientation);

} // namespace exif
