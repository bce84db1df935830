#pragma once

#include "encoding.h"

namespace jxl_file {

/// Whether this build writes JPEG XL files.
bool isAvailable();

/// Writes a JPEG XL file for screens beyond white: 10 bits, see perceptual_quantizer.h, with the
/// camera's data and XMP. picture: Format_RGBX32FPx4, linear. quality: 1..100, as of JPEG files.
/// See encoding.h for the rest; progress is not told, as the library tells none.
QString encode(const QImage &picture, const PictureMetadata &metadata, int quality,
               QIODevice &device);

} // namespace jxl_file
