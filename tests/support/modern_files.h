#pragma once

#include <QByteArray>
#include <QImage>

/// AVIF and JPEG XL files without loss, by their own libraries.
namespace modern_files {

struct Recipe
{
    QImage picture; ///< any format; alpha is kept where it has a channel for it
    int bits = 8;   ///< of a channel: 8, 10 or 12, of JPEG XL also 16
    QByteArray profile;
    int primaries = 1; ///< H.273, when there is no profile: 1 is sRGB's, 12 Display P3's
    int transfer = 13; ///< 13 is sRGB's, 16 is PQ
    QByteArray exif;   ///< a block without "Exif"
    QByteArray xmp;
    bool isMetadataCompressed = false; ///< of JPEG XL
    int quarterTurns = 0;              ///< of AVIF, against the clock
    int mirror = -1;                   ///< of AVIF: 0 upside down, 1 left to right
    int orientation = 1;               ///< of JPEG XL, as in EXIF
};

/// Empty on failure.
QByteArray avif(const Recipe &recipe);
QByteArray jxl(const Recipe &recipe);

} // namespace modern_files
