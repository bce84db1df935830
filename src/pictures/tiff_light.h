#pragma once

#include "DecodedPicture.h"
#include "ReadOptions.h"

#include <QByteArray>

#include <tiffio.h>

/// The pixels of TIFF files that hold floats.
namespace tiff_light {

struct Layout
{
    QSize size;
    int bits = 32; ///< 16 or 32
    int channels = 3;
    int colours = 3; ///< the first ones: 3, or 1 for grey
    bool hasAlpha = false;
    bool isMultiplied = false;
    QByteArray profile; ///< of red, green and blue: its curve counts, too; without: linear sRGB
};

/// tiff: its current directory, as layout says. options.light is not Refused. One thread for each
/// file.
DecodedPicture read(TIFF *tiff, const Layout &layout, const ReadOptions &options);

} // namespace tiff_light
