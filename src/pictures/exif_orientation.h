#pragma once

#include <QImageIOHandler>

/// The orientation that a camera writes into its pictures. Any thread, reentrant.
namespace exif {

/// True when the bytes are an EXIF block: "Exif", two zero bytes and at least a header.
bool isExif(const unsigned char *bytes, unsigned length);

/// What to do with the stored pixels to see the picture upright; nothing when the block does not
/// say, or is damaged.
QImageIOHandler::Transformations orientation(const unsigned char *bytes, unsigned length);

} // namespace exif
