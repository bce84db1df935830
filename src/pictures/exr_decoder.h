#pragma once

#include "DecodedPicture.h"
#include "ReadOptions.h"
#include "picture_header.h"

#include <QFile>

#include <optional>

namespace exr_decoder {

/// As picture::decode(), for OpenEXR files of one part or the first one, in strips or tiles, of
/// red, green and blue or of luminance alone; nothing for all other files. The picture is the
/// display window, black where the file has no pixels. Its primaries are the chromaticities that
/// the file tells, else Rec. 709's. Colours are multiplied with alpha. Deep files and subsampled
/// channels are refused as unsupported. options.light is not Refused. file is open for reading. Any
/// thread, several at once.
std::optional<DecodedPicture> decode(QFile &file, const ReadOptions &options);

/// Nothing for files of other kinds, and for damaged ones.
std::optional<PictureHeader> headerOf(QIODevice &file);

} // namespace exr_decoder
