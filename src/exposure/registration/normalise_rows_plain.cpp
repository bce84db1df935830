#include "grey_rows.h"
#include "normalise_rows.h"
#include "normalised_plane.h"

#include <algorithm>

namespace registration {
namespace {

int8_t normalisedValue(uint16_t grey, float mean, float scale)
{
    if (grey == kNoGrey)
        return kNothing;
    const float value = std::min(std::max((float(grey) - mean) * scale, -127.0F), 127.0F);
    const float rounded = value + kRounder;
    return static_cast<int8_t>(rounded - kRounder);
}

} // namespace

void plain::normaliseRow(const uint16_t *grey, size_t groups, const float *means,
                         const float *scales, int8_t *out)
{
    for (size_t group = 0; group < groups; ++group) {
        const float meanStep = means[group + 1] - means[group];
        const float scaleStep = scales[group + 1] - scales[group];
        for (size_t i = 0; i < kCellSide; ++i) {
            const size_t x = group * kCellSide + i;
            out[x] = normalisedValue(grey[x], means[group] + meanStep * kShares[i],
                                     scales[group] + scaleStep * kShares[i]);
        }
    }
}

} // namespace registration
