#pragma once

#include "encoding.h"

namespace png_file {

/// Writes a PNG file, see encoding.h. effort: 1 (fast) to 9 (small) for its compression.
QString encode(const QImage &picture, const PictureMetadata &metadata, QIODevice &device,
               const EncodeProgress &progress, int effort = 1);

} // namespace png_file
