#pragma once

#include "encoding.h"

namespace png_file {

/// Writes a PNG file, see encoding.h.
QString encode(const QImage &picture, const PictureMetadata &metadata, QIODevice &device,
               const EncodeProgress &progress);

} // namespace png_file
