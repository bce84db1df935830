#include "tile_patch.h"

#include <algorithm>
#include <cmath>

namespace registration {
namespace {

constexpr int kSegment = 8;
constexpr int kFractions = 32;

struct Fraction
{
    int whole;
    int part; ///< of kFractions
};

Fraction fraction(double position)
{
    const double steps = std::floor(position * kFractions + 0.5);
    const double whole = std::floor(steps / kFractions);
    return {static_cast<int>(whole), static_cast<int>(steps - whole * kFractions)};
}

/// Interpolated values; 0 where one of the four around is missing. Returns how many are there.
int interpolate(const int8_t *upper, const int8_t *lower, int partX, int partY, int16_t *out)
{
    int there = 0;
    for (int i = 0; i < kSegment; ++i) {
        const bool isThere = upper[i] != kNothing && upper[i + 1] != kNothing
                             && lower[i] != kNothing && lower[i + 1] != kNothing;
        const int above = upper[i] * (kFractions - partX) + upper[i + 1] * partX;
        const int below = lower[i] * (kFractions - partX) + lower[i + 1] * partX;
        const int value = (above * (kFractions - partY) + below * partY + 512) >> 10;
        out[i] = static_cast<int16_t>(isThere ? value : 0);
        there += isThere ? 1 : 0;
    }
    return there;
}

bool isInside(const NormalisedPlane &plane, double x, double y)
{
    return x >= 0 && y >= 0 && x + kSegment + 1 < plane.width && y + 2 < plane.height;
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
    }
    return double(there) / (side * side);
}

double TilePatch::readPatch(const NormalisedPlane &plane, QPointF centre,
                            const std::array<double, 4> &turn)
{
    const int reach = side + 2 * radius;
    const double middle = (reach - 1) / 2.0;
    patchThere = 0;
    for (int line = 0; line < reach; ++line) {
        const double dy = line - middle;
        for (int first = 0; first < reach; first += kSegment) {
            constexpr double kToMiddle = (kSegment - 1) / 2.0;
            const double dx = first + kToMiddle - middle;
            readSegment(plane, centre.x() + turn[0] * dx + turn[1] * dy - kToMiddle,
                        centre.y() + turn[2] * dx + turn[3] * dy,
                        &patch[static_cast<size_t>(line) * kPatchStride + size_t(first)]);
        }
    }
    return double(patchThere) / (reach * reach);
}

void TilePatch::readSegment(const NormalisedPlane &plane, double x, double y, int16_t *out)
{
    if (!isInside(plane, x, y)) {
        std::fill_n(out, kSegment, int16_t{0});
        return;
    }
    const Fraction fx = fraction(x);
    const Fraction fy = fraction(y);
    patchThere += interpolate(plane.row(fy.whole) + fx.whole, plane.row(fy.whole + 1) + fx.whole,
                              fx.part, fy.part, out);
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
    correlate({tile.data(), patch.data(), static_cast<size_t>(side), kTileStride, kPatchStride,
               offsets},
              products.data());
    sumSquares(squares);
    const double tileSquares = std::pow(tileContrast() * side, 2);
    for (size_t i = 0; i < offsets * offsets; ++i)
        scores[i] = products[i] / std::sqrt(std::max(1.0, tileSquares * double(squares[i])));
}

double TilePatch::tileContrast() const
{
    int64_t sum = 0;
    for (int line = 0; line < side; ++line) {
        const int16_t *row = &tile[static_cast<size_t>(line) * kTileStride];
        sum += dotProduct(row, row, static_cast<size_t>(side));
    }
    return std::sqrt(double(sum)) / side;
}

} // namespace registration
