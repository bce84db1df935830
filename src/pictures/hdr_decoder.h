#pragma once

#include "DecodedPicture.h"
#include "ReadOptions.h"
#include "picture_header.h"

#include <QFile>

#include <optional>

/// Radiance's picture format (see hdr_encoder.h), by its description in the manual of the program.
namespace hdr_decoder {

/// As picture::decode(), for Radiance files of red, green and blue, with rows as they are,
/// run-length coded in the old or the new manner, and in any of the eight orders; nothing for all
/// other files. A pixel has the middle of what its mantissa stands for. Primaries are those that
/// the file tells, else Rec. 709's; EXPOSURE tells the luminance of white and leaves the numbers as
/// they are. Files of CIE XYZ are refused as unsupported. options.light is not Refused. file is
/// open for reading. Any thread, several at once.
std::optional<DecodedPicture> decode(QFile &file, const ReadOptions &options);

/// Nothing for files of other kinds, and for damaged ones.
std::optional<PictureHeader> headerOf(QIODevice &file);

} // namespace hdr_decoder
