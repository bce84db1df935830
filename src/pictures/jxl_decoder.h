#pragma once

#include "DecodedPicture.h"
#include "ReadOptions.h"
#include "picture_header.h"

#include <QFile>

#include <optional>

namespace jxl_decoder {

/// As picture::decode(), for JPEG XL files of whole numbers by libjxl; nothing for all other files.
/// Upright, with the profile of the pixels as they are decoded. Of animations the first picture.
/// Files of the perceptual quantizer (PQ) are light, 1 for white (see perceptual_quantizer.h), and
/// refused as unsupported where none is wanted; those of HLG and of floating-point numbers always.
/// file is open for reading. Any thread, several at once.
std::optional<DecodedPicture> decode(QFile &file, const ReadOptions &options);

/// Nothing for files of other kinds, and for damaged ones. file: as below.
std::optional<PictureHeader> headerOf(QIODevice &file);

/// The EXIF block of a JPEG XL file, without "Exif" in front; empty when there is none. file: open
/// and seekable; is left at its start.
QByteArray exifIn(QIODevice &file);
/// The XMP packet, likewise.
QByteArray xmpIn(QIODevice &file);

} // namespace jxl_decoder
