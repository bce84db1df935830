#pragma once

#include <cstddef>
#include <cstdint>

// Rows of a GreyPlane: out of pixels 0xAARRGGBB as sums of red + 2 green + blue, halved, and added
// up. The plain functions are the definition; the others give the same to the bit, with vector
// instructions. Any thread, reentrant.
namespace registration {

/// Pixels with a channel from here on are clipped to white.
constexpr int kFirstClipped = 250;
/// Greys below are clipped to black.
constexpr int kFirstGrey = 16;

struct WordRows
{
    const uint32_t *upper;
    const uint32_t *lower; ///< not read by greyOfWords
    size_t width;          ///< values to write; greyOfPairs reads twice as many pixels of each row
    uint32_t opaque;       ///< bits to set in each pixel: 0xFF000000 when alpha means nothing
};

/// A value for each pixel.
void greyOfWords(const WordRows &rows, uint16_t *out);
/// A value for each 2 x 2 pixels.
void greyOfPairs(const WordRows &rows, uint16_t *out);

/// `width` means, each of 2 x 2 greys: of those that are there, kNoGrey for fewer than two. That of
/// three is rounded down, the others to the nearest.
void halveRow(const uint16_t *upper, const uint16_t *lower, size_t width, uint16_t *out);

constexpr size_t kCellSide = 8;

/// Of the greys that are there in a cell of kCellSide squared.
struct CellSums
{
    uint32_t count = 0;
    uint32_t sum = 0;
    uint32_t squares = 0; ///< 64 * kWhite squared fits
};

/// The sums of `cells` cells in a row. greys: their first row; lines: of them, 1..kCellSide.
void sumCells(const uint16_t *greys, size_t stride, size_t lines, size_t cells, CellSums *out);

namespace plain {

void greyOfWords(const WordRows &rows, uint16_t *out);
void greyOfPairs(const WordRows &rows, uint16_t *out);
void halveRow(const uint16_t *upper, const uint16_t *lower, size_t width, uint16_t *out);
void sumCells(const uint16_t *greys, size_t stride, size_t lines, size_t cells, CellSums *out);

} // namespace plain
} // namespace registration
