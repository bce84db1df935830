#pragma once

#include <QByteArray>
#include <QIODevice>

/// The blocks of metadata in the first directory of a TIFF file, or of a camera raw file that is
/// one inside, byte for byte. (libtiff swaps the bytes of those that are declared as numbers.)
/// Empty when there are none, they are damaged or larger than any. Any thread, one per device.
namespace tiff_packets {

/// file: open and seekable.
QByteArray xmpIn(QIODevice &file);

/// The datasets of the tag for them or, where it is not there, of the Photoshop block.
QByteArray iptcIn(QIODevice &file);

} // namespace tiff_packets
