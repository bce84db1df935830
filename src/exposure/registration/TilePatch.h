#pragma once

#include "Transform.h"
#include "correlation.h"
#include "normalised_plane.h"

#include <array>

namespace registration {

/// Room for one tile and the patch around its place in the shot.
class TilePatch
{
public:
    static constexpr size_t kMostOffsets = 13; ///< twice the largest radius, plus one

    TilePatch(int side, int radius);

    /// Takes the tile whose first value is x, y. Returns the share of it that is there.
    double readTile(const NormalisedPlane &plane, int x, int y);

    /// Takes the patch from where the affine map has it: centre is where the middle of the tile
    /// goes, turn the 2 x 2 matrix (row by row) around it. Eight values in a row share one fraction
    /// of a step, so that they can be interpolated at once. Returns the share that is there.
    double readPatch(const NormalisedPlane &plane, QPointF centre,
                     const std::array<double, 4> &turn);

    /// Normalised correlation for every offset, (2 radius + 1) squared numbers.
    void score(std::array<double, kMostOffsets * kMostOffsets> &scores) const;

    /// Root mean square of the tile, and of the middle of the patch.
    double tileContrast() const;
    double patchContrast() const;

private:
    double contrastOf(const int16_t *values, size_t stride) const;
    void sumSquares(std::array<int64_t, kMostOffsets * kMostOffsets> &squares) const;

    static constexpr size_t kTileStride = 96;
    static constexpr size_t kPatchStride = 112;
    static constexpr size_t kPatchLines = 112;

    int side;
    int radius;
    alignas(64) std::array<int16_t, kTileStride * kLargestTile> tile; ///< rows padded with zeros
    alignas(64) std::array<int16_t, kPatchStride * kPatchLines> patch{};
};

} // namespace registration
