#pragma once

#include "encoding.h"

namespace exr_file {

/// Writes an OpenEXR file: ZIP compression, halves (values beyond 65504 become that) or floats,
/// with chromaticities, white luminance and what EXIF tells of the exposure. picture:
/// Format_RGBX32FPx4, linear. bitsPerSample: 16 or 32. See encoding.h for the rest.
QString encode(const QImage &picture, const PictureMetadata &metadata, int bitsPerSample,
               QIODevice &device, const EncodeProgress &progress);

/// Gives the library as many threads as there are processors; they are the whole process's. Once,
/// before a file is opened. Any thread.
void startThreads();

/// Whether this build can write and read the format.
bool isAvailable();

} // namespace exr_file
