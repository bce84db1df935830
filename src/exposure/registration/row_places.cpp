#include "row_places.h"

#include "resample_rows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace registration {
namespace {

constexpr int kBlockBits = 4;
constexpr int kBlock =
    1 << kBlockBits; ///< pixels in a row between whose ends places are interpolated
constexpr int kFractionBits = 16;
constexpr int kPhaseShift = 9; ///< from fractions to phases

static_assert((1 << kFractionBits) >> kPhaseShift == kPhases);

/// A place in the shot, in pixels with kFractionBits behind the point.
struct Position
{
    int64_t x;
    int64_t y;
};

int64_t fixedPoint(double pixels)
{
    constexpr double kFar = 1 << 20;
    const double near = pixels >= -kFar && pixels <= kFar ? pixels : -kFar;
    return int64_t(std::floor(near * (1 << kFractionBits) + 0.5));
}

/// The map along one row: mapped(), with what the row's pixels share done once.
class RowMap
{
public:
    RowMap(const Matrix &m, double y)
        : step{m[0], m[3], m[6]}
        , atZero{m[1] * y + m[2], m[4] * y + m[5], m[7] * y + m[8]}
    {
    }

    Position at(double x) const
    {
        const double scale = 1.0 / (step[2] * x + atZero[2]);
        return {fixedPoint((step[0] * x + atZero[0]) * scale),
                fixedPoint((step[1] * x + atZero[1]) * scale)};
    }

private:
    const std::array<double, 3> step;
    const std::array<double, 3> atZero;
};

/// As many steps as a block has lead from one place to the other.
void interpolate(int64_t from, int64_t to, int count, int32_t *places)
{
    constexpr int kShift = kBlockBits + kPhaseShift;
    constexpr int64_t kHalf = int64_t(1) << (kShift - 1);
    constexpr int64_t kMostForWords = INT32_MAX / kBlock / 2;
    const int64_t start = from * kBlock + kHalf;
    const int64_t step = to - from;
    if (std::abs(step) > kMostForWords) {
        for (int i = 0; i < count; ++i)
            places[i] = int32_t((start + step * i) >> kShift);
        return;
    }
    // The same in 32 bits, which vectors have room for.
    const auto whole = int32_t(start >> kShift);
    const auto rest = int32_t(start & ((int64_t(1) << kShift) - 1));
    const auto shortStep = int32_t(step);
    for (int i = 0; i < count; ++i)
        places[i] = whole + ((rest + shortStep * i) >> kShift);
}

} // namespace

RowPlaces::RowPlaces(int width)
    : x(size_t(width))
    , y(size_t(width))
{
}

void findPlaces(const Matrix &toShot, int y, RowPlaces &places)
{
    const auto width = int(places.x.size());
    const RowMap map(toShot, y);
    Position from = map.at(0);
    for (int first = 0; first < width; first += kBlock) {
        const Position to = map.at(first + kBlock);
        const int count = std::min(kBlock, width - first);
        interpolate(from.x, to.x, count, places.x.data() + first);
        interpolate(from.y, to.y, count, places.y.data() + first);
        from = to;
    }
}

} // namespace registration
