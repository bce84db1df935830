#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// Row functions of SmallShot: blocks of pixels become one place each. Any thread, reentrant.
namespace motion {

/// The rows of pixels of one row of blocks.
struct BlockWords
{
    std::array<const uint32_t *, 16> rows{}; ///< words 0xAARRGGBB
    size_t rowCount = 0;                     ///< 1 to side: the last blocks are cut
    size_t side = 2;                         ///< of a block: 2, 4, 8 or 16
    size_t width = 0;                        ///< pixels of a row
    bool hasAlpha = false;                   ///< or all pixels count as opaque
};

/// Where a row of blocks goes: red, green and blue, one number for each block, no padding.
struct BlockRow
{
    std::array<uint8_t *, 3> means{};
    std::array<uint8_t *, 3> darkest{};
    std::array<uint8_t *, 3> brightest{};
    uint8_t *covered = nullptr; ///< 1 where all pixels of the block are opaque
};

/// Rounded means and extremes of the blocks [first, end) of a row, the last of which may be cut.
void measureBlocksPlain(const BlockWords &words, size_t first, size_t end, const BlockRow &out);

/// The same for all blocks of the row, in vector instructions, the best that the processor has.
void measureBlocks(const BlockWords &words, const BlockRow &out);

} // namespace motion
