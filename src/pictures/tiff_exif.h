#pragma once

#include <QByteArray>

#include <tiffio.h>

/// Puts an EXIF block into TIFF files, whose own tags hold the same things. Tags that the TIFF
/// library does not know, and the maker note, are left out. One thread per file.
namespace tiff_exif {

/// Camera, date and texts, for the directory that is being made.
void setTexts(TIFF *tiff, const QByteArray &block);

/// Data of exposure and place, as directories of their own, for the first directory, which must be
/// written. False when the file takes no more.
bool appendDirectories(TIFF *tiff, const QByteArray &block);

} // namespace tiff_exif
