#include "normalised_plane.h"
#include "patch_rows.h"

#include <algorithm>

namespace registration {
namespace {

constexpr int kParts = 1 << kFractionBits;

int interpolateSegment(const int8_t *upper, const int8_t *lower, const SegmentPlace &place,
                       int16_t *out)
{
    int there = 0;
    for (int i = 0; i < kSegment; ++i) {
        const bool isThere = std::min({upper[i], upper[i + 1], lower[i], lower[i + 1]}) != kNothing;
        const int above = upper[i] * (kParts - place.partX) + upper[i + 1] * place.partX;
        const int below = lower[i] * (kParts - place.partX) + lower[i + 1] * place.partX;
        const int value =
            ((above + 2) >> 2) * (kParts - place.partY) + ((below + 2) >> 2) * place.partY;
        out[i] = static_cast<int16_t>(isThere ? (value + 128) >> 8 : 0);
        there += isThere ? 1 : 0;
    }
    return there;
}

} // namespace

int plain::readPatch(const PatchInput &input, int16_t *out)
{
    int there = 0;
    for (int line = 0; line < input.lines; ++line) {
        for (int segment = 0; segment < input.segments; ++segment) {
            const SegmentPlace place(input, segment, line);
            int16_t *to = out + size_t(line) * input.outStride + size_t(segment) * kSegment;
            if (!place.isInside(input)) {
                std::fill_n(to, kSegment, int16_t{0});
                continue;
            }
            const int8_t *upper = input.plane + size_t(place.y) * input.stride + size_t(place.x);
            there += interpolateSegment(upper, upper + input.stride, place, to);
        }
    }
    return there;
}

} // namespace registration
