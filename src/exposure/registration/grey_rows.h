#pragma once

#include <cstddef>
#include <cstdint>

// One row of a GreyPlane out of pixels 0xAARRGGBB: sums of red + 2 green + blue. The plain
// functions are the definition; the others give the same to the bit, with vector instructions.
// Any thread, reentrant.
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

namespace plain {

void greyOfWords(const WordRows &rows, uint16_t *out);
void greyOfPairs(const WordRows &rows, uint16_t *out);

} // namespace plain
} // namespace registration
