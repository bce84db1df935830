#pragma once

#include "encoding.h"

namespace tiff_file {

/// Writes a TIFF file, see encoding.h; the premultiplied formats tell readers so.
QString encode(const QImage &picture, const PictureMetadata &metadata, QIODevice &device,
               const EncodeProgress &progress);

} // namespace tiff_file
