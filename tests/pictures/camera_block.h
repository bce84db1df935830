#pragma once

#include <QByteArray>

#include <libexif/exif-data.h>

/// EXIF blocks as cameras write them, and what an independent reader sees in blocks: libexif.
namespace camera_block {

/// What a camera on its side writes: big-endian, with a thumbnail and a place, orientation 6.
QByteArray made();

/// The same with one entry more in IFD0 or below it.
QByteArray with(ExifIfd ifd, int tag, ExifFormat format, unsigned long count,
                const QByteArray &value);

/// An entry in words, empty when the block does not have it.
QByteArray valueOf(const QByteArray &block, ExifIfd ifd, int tag);

/// An entry's bytes, empty when the block does not have it.
QByteArray bytesOf(const QByteArray &block, ExifIfd ifd, int tag);

/// The block has a thumbnail.
bool hasThumbnail(const QByteArray &block);

/// A little-endian block with an entry of so many bytes as maker note at this place, and one text
/// behind it.
QByteArray withMakerNoteAt(int place, const QByteArray &note);

} // namespace camera_block
