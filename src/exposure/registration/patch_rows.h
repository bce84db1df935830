#pragma once

#include <cstddef>
#include <cstdint>

// A patch of a NormalisedPlane, interpolated between its values. The plain function is the
// definition; the other gives the same to the bit, with vector instructions. Any thread, reentrant.
namespace registration {

constexpr int kSegment = 8;       ///< values in a row that share one fraction of a step
constexpr int kPositionBits = 16; ///< behind the point of positions
constexpr int kFractionBits = 5;  ///< of them that are looked at

/// Lines of segments. Positions, times 2^kPositionBits, are those of a segment's first value.
struct PatchInput
{
    const int8_t *plane;
    size_t stride;
    int width;
    int height;
    int64_t x; ///< of the first segment of the first line
    int64_t y;
    int64_t segmentStepX;
    int64_t segmentStepY;
    int64_t lineStepX;
    int64_t lineStepY;
    int segments;
    int lines;
    size_t outStride;
};

/// Writes segments * kSegment values a line: 0 where one of the four values around is kNothing or
/// a segment is not inside as a whole. Returns how many others there are.
int readPatch(const PatchInput &input, int16_t *out);

namespace plain {

int readPatch(const PatchInput &input, int16_t *out);

} // namespace plain

/// Where a segment is to be read.
struct SegmentPlace
{
    int64_t x;
    int64_t y;
    int partX; ///< of 2^kFractionBits
    int partY;

    SegmentPlace(const PatchInput &input, int segment, int line)
    {
        constexpr int kShift = kPositionBits - kFractionBits;
        constexpr int64_t kHalf = int64_t(1) << (kShift - 1);
        constexpr int64_t kMask = (1 << kFractionBits) - 1;
        const int64_t stepsX =
            (input.x + segment * input.segmentStepX + line * input.lineStepX + kHalf) >> kShift;
        const int64_t stepsY =
            (input.y + segment * input.segmentStepY + line * input.lineStepY + kHalf) >> kShift;
        x = stepsX >> kFractionBits;
        y = stepsY >> kFractionBits;
        partX = static_cast<int>(stepsX & kMask);
        partY = static_cast<int>(stepsY & kMask);
    }

    bool isInside(const PatchInput &input) const
    {
        return x >= 0 && y >= 0 && x + kSegment < input.width && y + 1 < input.height;
    }
};

} // namespace registration
