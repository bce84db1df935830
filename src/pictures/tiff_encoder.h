#pragma once

#include "encoding.h"

/// All lose nothing.
enum class TiffCompression { None, Lzw, Deflate };

namespace tiff_file {

struct Compression
{
    TiffCompression kind = TiffCompression::Lzw;
    int effort = 1; ///< of Deflate: 1 (fast) to 9 (small)
};

/// Writes a TIFF file, see encoding.h; the premultiplied formats tell readers so.
QString encode(const QImage &picture, const PictureMetadata &metadata, QIODevice &device,
               const EncodeProgress &progress, const Compression &compression = {});

} // namespace tiff_file
