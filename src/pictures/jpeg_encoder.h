#pragma once

#include "encoding.h"

namespace jpeg_file {

/// Writes a JPEG file, see encoding.h. picture: Format_RGB32. quality: 1..100; from 90 on colours
/// are kept at full resolution. metadata: exif::kLargestJpegBlock at most.
QString encode(const QImage &picture, const PictureMetadata &metadata, int quality,
               QIODevice &device, const EncodeProgress &progress);

} // namespace jpeg_file
