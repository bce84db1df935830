#pragma once

#include <QByteArray>
#include <QIODevice>

/// Where picture files keep what the camera says of a picture. Any thread, one per device.
namespace exif {

/// The EXIF block of a JPEG, PNG, WebP, AVIF or JPEG XL file, as it stands there but without "Exif"
/// and two zero bytes in front; empty when there is none, and for all other files. (A TIFF file has
/// none: it is one from its first byte to its last.) In JPEG files any segments may stand before
/// it. file: open and seekable; is left at its start.
QByteArray blockIn(QIODevice &file);

} // namespace exif
