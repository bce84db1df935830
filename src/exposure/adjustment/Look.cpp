#include "Look.h"

#include <algorithm>
#include <cmath>

namespace exposure {
namespace {

double within(double value, double least, double most, double neutral)
{
    return std::isnan(value) ? neutral : std::clamp(value, least, most);
}

} // namespace

Look Look::bounded() const
{
    const Look neutral;
    Look look;
    look.exposure = within(exposure, -4.0, 4.0, neutral.exposure);
    look.contrast = within(contrast, -1.0, 1.0, neutral.contrast);
    look.highlights = within(highlights, -1.0, 1.0, neutral.highlights);
    look.shadows = within(shadows, -1.0, 1.0, neutral.shadows);
    look.blackPoint = within(blackPoint, 0.0, 0.4, neutral.blackPoint);
    look.whitePoint = within(whitePoint, 0.6, 1.0, neutral.whitePoint);
    look.saturation = within(saturation, 0.0, 3.0, neutral.saturation);
    return look;
}

} // namespace exposure
