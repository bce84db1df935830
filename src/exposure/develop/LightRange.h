#pragma once

#include <QColorSpace>
#include <QImage>

#include <algorithm>
#include <array>
#include <limits>

namespace develop {

/// What part red, green and blue have in the luminance, by the primaries of the space; their sum
/// is 1. Rec. 709's where the space does not tell.
std::array<float, 3> luminanceWeights(const QColorSpace &space);

/// The luminance of a pixel, never infinite; 0 when it is not a number or below nothing.
inline float luminanceOf(const float *pixel, const std::array<float, 3> &weights)
{
    const float sum = pixel[0] * weights[0] + pixel[1] * weights[1] + pixel[2] * weights[2];
    return sum > 0.0F ? std::min(sum, std::numeric_limits<float>::max()) : 0.0F;
}

/// How much light a picture holds, in stops above the light 1. Pixels without light do not count;
/// all are 0 where no pixel has any. Exact to 1/8 stop; equal on any number of threads.
struct LightRange
{
    double dark = 0.0;   ///< one pixel in a hundred is darker
    double middle = 0.0; ///< the mean
    double bright = 0.0; ///< one pixel in a thousand is brighter

    /// light: Format_RGBX32FPx4. Throws std::bad_alloc.
    static LightRange of(const QImage &light);
};

} // namespace develop
