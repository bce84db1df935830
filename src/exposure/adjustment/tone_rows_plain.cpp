#include "tone_rows.h"

#include <algorithm>

namespace exposure {
namespace {

constexpr float kTop = 65535.0F;
constexpr double kTowardsMiddle = 1.5;
constexpr double kAwayFromIt = 0.75;

float gainOf(const Tones &tones, float luma, float slope, float offset)
{
    const float surroundings = std::clamp(slope * luma + offset, 0.0F, kTop) * (1.0F / kTop);
    const float dark = 1.0F - surroundings;
    const float lift = tones.shadows * (dark * dark * dark);
    const float drop = tones.highlights * (surroundings * surroundings * dark);
    return 1.0F + lift + drop;
}

uint16_t channelOf(float value, float luma, float gain, float saturation)
{
    const float bright = value * gain;
    const float grey = luma * gain;
    const float mixed = grey + (bright - grey) * saturation;
    return static_cast<uint16_t>(std::clamp(mixed, 0.0F, kTop) + 0.5F);
}

} // namespace

Tones::Tones(const Look &look)
    : shadows(float(look.shadows * (look.shadows > 0 ? kTowardsMiddle : kAwayFromIt)))
    , highlights(float(look.highlights * (look.highlights < 0 ? kTowardsMiddle : kAwayFromIt)))
    , saturation(float(look.saturation))
    , hasTones(look.hasTones())
{
}

void plain::applyTones(const Tones &tones, const ChannelRow &row)
{
    for (size_t x = 0; x < row.width; ++x) {
        const float red = row.red[x];
        const float green = row.green[x];
        const float blue = row.blue[x];
        const float luma = 0.2126F * red + 0.7152F * green + 0.0722F * blue;
        const float gain =
            tones.hasTones ? gainOf(tones, luma, row.slopes[x], row.offsets[x]) : 1.0F;
        row.red[x] = channelOf(red, luma, gain, tones.saturation);
        row.green[x] = channelOf(green, luma, gain, tones.saturation);
        row.blue[x] = channelOf(blue, luma, gain, tones.saturation);
    }
}

} // namespace exposure
