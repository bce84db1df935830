#pragma once

#include <QImage>

/// What photographers change in a finished picture, all neutral unless set.
namespace exposure {

struct Adjustment
{
    double exposure = 0.0;   ///< stops brighter, -4 to 4
    double contrast = 0.0;   ///< -1 (flat) to 1 (hard), around the middle of the encoded values
    double saturation = 1.0; ///< 0 (grey) to 3

    bool isNeutral() const { return exposure == 0.0 && contrast == 0.0 && saturation == 1.0; }
};

/// Changes the picture in place: exposure in linear light (values are taken as encoded like sRGB),
/// then contrast along an S-shaped curve that leaves black and white where they are, then the
/// distance of each pixel from its grey (Rec. 709 luma of the encoded values). Format_RGB32 or
/// Format_RGBX64; others, and a neutral adjustment, leave the picture as it is. Values beyond their
/// range are taken as the nearest within. Any thread; equal results on any number of threads.
void adjust(QImage &picture, const Adjustment &adjustment);

} // namespace exposure
