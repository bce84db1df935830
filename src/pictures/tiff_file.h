#pragma once

#include <QIODevice>

#include <memory>

#include <tiffio.h>

namespace tiff_file {

using File = std::unique_ptr<TIFF, decltype(&TIFFClose)>;

/// The TIFF file on device, which is borrowed and must be open and seekable. mode: as of TIFFOpen.
/// libtiff says nothing about it, neither aloud nor to handlers. Null on failure. Any thread.
File open(QIODevice &device, const char *mode);

} // namespace tiff_file
