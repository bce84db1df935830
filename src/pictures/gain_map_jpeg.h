#pragma once

#include "GainMap.h"
#include "encoding.h"

namespace jpeg_file {

/// What the XMP packet of the picture grows by.
constexpr qsizetype kGainMapPropertyBytes = 1000;

/// Writes a JPEG file whose pixels are those of encode() in jpeg_encoder.h, and the gain map behind
/// it: as ISO 21496-1 has it, listed as CIPA DC-007 has it, and in the older XMP form for programs
/// that know no other. All other viewers show the picture. picture, metadata and quality: as
/// encode() takes them, but with room in the packet. See encoding.h for the rest.
QString encodeWithGainMap(const QImage &picture, const PictureMetadata &metadata, int quality,
                          const GainMap &map, QIODevice &device, const EncodeProgress &progress);

} // namespace jpeg_file
