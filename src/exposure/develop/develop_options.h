#pragma once

#include "fusion_options.h"

#include <QImage>

namespace develop {

/// How light becomes a picture.
enum class Method {
    Exposure, ///< as one shot would show it: what is brighter than white is white
    Global,   ///< one curve for the whole picture
    Local     ///< each place at the exposure that shows it best
};

struct Options
{
    Method method = Method::Local;
    double exposure = 0.0; ///< stops brighter, -16 to 16; values beyond are taken as the nearest
};

struct Result
{
    /// Format_RGBX64, tagged with the primaries of the light and sRGB's curve. Null unless done.
    QImage picture;
    fusion::Status status = fusion::Status::BadShots;
};

} // namespace develop
