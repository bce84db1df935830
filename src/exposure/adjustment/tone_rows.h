#pragma once

#include "Look.h"

#include <cstddef>
#include <cstdint>

/// Highlights, shadows and saturation of pixels in a row. The plain function is the definition; the
/// other gives the same to the bit, with vector instructions. Any thread, reentrant.
namespace exposure {

/// The channels of some pixels, 0 to 65535, which are changed in place.
struct ChannelRow
{
    uint16_t *red;
    uint16_t *green;
    uint16_t *blue;
    const float *slopes; ///< of the light map, with offsets; not read unless hasTones
    const float *offsets;
    size_t width;
};

/// What a look does in them. With s for the surroundings, 0 to 1, each channel is multiplied by
/// 1 + shadows (1 - s)^3 + highlights s^2 (1 - s): black stays, and white among white. Where
/// the surroundings are the pixel itself, at an edge, that is a curve whose slope is never below
/// 1/4 (the factors are 1.5 towards the middle, 0.75 away from it, times the look's). Then the
/// distance from the luma (Rec. 709, of the encoded values) is multiplied by the saturation.
struct Tones
{
    explicit Tones(const Look &look);

    float shadows;
    float highlights;
    float saturation;
    bool hasTones; ///< shadows or highlights are not 0
};

void applyTones(const Tones &tones, const ChannelRow &row);

namespace plain {

void applyTones(const Tones &tones, const ChannelRow &row);

} // namespace plain
} // namespace exposure
