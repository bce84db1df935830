#pragma once

#include "fusion_options.h"

#include <QImage>

#include <vector>

namespace radiance {

/// One shot of a bracket: what fusion takes, and how much light it let in.
struct Shot
{
    fusion::Shot picture;
    /// Exposure time times sensitivity, divided by the f-number squared, in any unit that is the
    /// same for all shots; 0 where it is not known.
    double exposure = 0.0;
};

/// How levels are turned into light.
enum class Curve {
    Automatic, ///< Recovered where the set can tell it, else OfProfile
    OfProfile, ///< by the tone curve of the first shot's colour profile: sRGB's where it has none
    Recovered, ///< by the curve that makes the shots agree
};

struct Options
{
    Curve curve = Curve::Automatic;
    int reference = 0; ///< index of the shot whose white is 1
};

/// What a value of the picture of bounds says of its pixel.
constexpr unsigned char kMeasured = 0;
constexpr unsigned char kIsDarker = 128;   ///< a channel is black in every shot
constexpr unsigned char kIsBrighter = 255; ///< a channel is white in every shot

struct Result
{
    /// Format_RGBX32FPx4, linear light in the primaries of the first shot's profile; white of the
    /// reference is 1. Null unless done.
    QImage picture;
    /// Format_Grayscale8: where the picture has a bound in the place of a measured value. Null
    /// where all is measured.
    QImage bounds;
    std::vector<double> exposures;  ///< as used, that of the reference is 1
    bool isCurveRecovered = false;  ///< else it is the profile's
    bool areExposuresKnown = false; ///< all were given, else they are from the pixels alone
    fusion::Status status = fusion::Status::BadShots;
};

} // namespace radiance
