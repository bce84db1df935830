#pragma once

#include "DecodedPicture.h"
#include "ReadOptions.h"
#include "picture_header.h"

#include <QFile>

#include <optional>

namespace avif_decoder {

/// As picture::decode(), for AVIF files of 8, 10 or 12 bits by libavif; nothing for all other
/// files. Upright as the file's own properties say, with the profile that it holds or that its
/// code points mean. Of sequences the first picture. Files of the perceptual quantizer (PQ) are
/// light, 1 for white (see perceptual_quantizer.h), and refused as unsupported where none is
/// wanted; those of HLG always. file is open for reading. Any thread, several at once.
std::optional<DecodedPicture> decode(QFile &file, const ReadOptions &options);

/// Nothing for files of other kinds, and for damaged ones. file: as below.
std::optional<PictureHeader> headerOf(QIODevice &file);

/// The EXIF block of an AVIF file, without "Exif" in front; empty when there is none. file: open
/// and seekable; is left at its start.
QByteArray exifIn(QIODevice &file);
/// The XMP packet, likewise.
QByteArray xmpIn(QIODevice &file);

} // namespace avif_decoder
