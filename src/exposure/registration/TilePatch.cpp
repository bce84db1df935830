#include "TilePatch.h"

#include "patch_rows.h"

#include <algorithm>
#include <cmath>

namespace registration {
namespace {

int64_t fixedPoint(double position)
{
    return std::llround(position * (1 << kPositionBits));
}

} // namespace

TilePatch::TilePatch(int sideValues, int radiusValues)
    : side(sideValues)
    , radius(radiusValues)
{
}

double TilePatch::readTile(const NormalisedPlane &plane, int x, int y)
{
    int there = 0;
    for (int line = 0; line < side; ++line) {
        const int8_t *from = plane.row(y + line) + x;
        int16_t *to = &tile[static_cast<size_t>(line) * kTileStride];
        for (int i = 0; i < side; ++i) {
            to[i] = static_cast<int16_t>(from[i] != kNothing ? from[i] : 0);
            there += from[i] != kNothing ? 1 : 0;
        }
        std::fill(to + side, to + kTileStride, int16_t{0});
    }
    return double(there) / (side * side);
}

double TilePatch::readPatch(const NormalisedPlane &plane, QPointF centre,
                            const std::array<double, 4> &turn)
{
    constexpr double kToMiddle = (kSegment - 1) / 2.0; // of a segment, which itself is not turned
    const int reach = side + 2 * radius;
    const double middle = (reach - 1) / 2.0;
    const double dx = kToMiddle - middle;
    const PatchInput input{plane.row(0),
                           plane.stride,
                           plane.width,
                           plane.height,
                           fixedPoint(centre.x() + turn[0] * dx - turn[1] * middle - kToMiddle),
                           fixedPoint(centre.y() + turn[2] * dx - turn[3] * middle),
                           fixedPoint(turn[0] * kSegment),
                           fixedPoint(turn[2] * kSegment),
                           fixedPoint(turn[1]),
                           fixedPoint(turn[3]),
                           (reach + kSegment - 1) / kSegment,
                           reach,
                           kPatchStride};
    return double(registration::readPatch(input, patch.data())) / (reach * reach);
}

void TilePatch::sumSquares(std::array<int64_t, kMostOffsets * kMostOffsets> &squares) const
{
    const size_t offsets = 2 * static_cast<size_t>(radius) + 1;
    const auto length = static_cast<size_t>(side);
    squares.fill(0);
    for (size_t y = 0; y < length + offsets - 1; ++y) {
        const int16_t *row = &patch[y * kPatchStride];
        int64_t sum = dotProduct(row, row, length);
        for (size_t dx = 0; dx < offsets; ++dx) {
            const size_t firstOffset = y < length ? 0 : y - length + 1;
            for (size_t dy = firstOffset; dy <= std::min(y, offsets - 1); ++dy)
                squares[dy * offsets + dx] += sum;
            sum += row[dx + length] * row[dx + length] - row[dx] * row[dx];
        }
    }
}

void TilePatch::score(std::array<double, kMostOffsets * kMostOffsets> &scores) const
{
    const size_t offsets = 2 * static_cast<size_t>(radius) + 1;
    std::array<int32_t, kMostOffsets * kMostOffsets> products;
    std::array<int64_t, kMostOffsets * kMostOffsets> squares;
    correlate(
        {tile.data(), patch.data(), static_cast<size_t>(side), kTileStride, kPatchStride, offsets},
        products.data());
    sumSquares(squares);
    const double tileSquares = std::pow(tileContrast() * side, 2);
    for (size_t i = 0; i < offsets * offsets; ++i)
        scores[i] = products[i] / std::sqrt(std::max(1.0, tileSquares * double(squares[i])));
}

double TilePatch::tileContrast() const
{
    return contrastOf(tile.data(), kTileStride);
}

double TilePatch::patchContrast() const
{
    const auto margin = static_cast<size_t>(radius);
    return contrastOf(patch.data() + margin * kPatchStride + margin, kPatchStride);
}

double TilePatch::contrastOf(const int16_t *values, size_t stride) const
{
    int64_t sum = 0;
    for (int line = 0; line < side; ++line) {
        const int16_t *row = values + static_cast<size_t>(line) * stride;
        sum += dotProduct(row, row, static_cast<size_t>(side));
    }
    return std::sqrt(double(sum)) / side;
}

} // namespace registration
