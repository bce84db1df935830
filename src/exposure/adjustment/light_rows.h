#pragma once

#include <cstddef>

/// The surroundings of pixels in a row: the cells of a light map, mixed between their middles, with
/// vector instructions. Equals LightMap::at to the bit. Any thread, reentrant.
namespace exposure {

/// More than the lanes of a vector, which are read at once.
constexpr int kCellsBehind = 16;

/// A row of cells, mixed for the place of a row of pixels.
struct CellRow
{
    const float *slopes; ///< of each cell, the last once more, and kCellsBehind of any value
    const float *offsets;
    int count;  ///< of the cells
    float side; ///< of a cell, in pixels of the picture
};

/// Where pixels of a row lie along the picture.
struct PixelRow
{
    float corner; ///< of pixel 0, in pixels of the picture
    float step;   ///< pixels of the picture to one
    int first;
    size_t count;
};

/// slopes, offsets: one each for every pixel from the first on.
void mixCells(const CellRow &cells, const PixelRow &pixels, float *slopes, float *offsets);

} // namespace exposure
