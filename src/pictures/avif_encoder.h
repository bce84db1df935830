#pragma once

#include "encoding.h"

namespace avif_file {

/// Whether this build writes AVIF files.
bool isAvailable();

/// Writes an AVIF file for screens beyond white: 10 bits, see perceptual_quantizer.h, with the
/// camera's data and XMP. picture: Format_RGBX32FPx4, linear. quality: 1..100, as of JPEG files.
/// See encoding.h for the rest; progress is not told, as the library tells none.
QString encode(const QImage &picture, const PictureMetadata &metadata, int quality,
               QIODevice &device);

} // namespace avif_file
