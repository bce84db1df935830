#include "block_rows.h"

#include <algorithm>

namespace {

using motion::BlockRow;
using motion::BlockWords;

/// What is gathered of one channel of a block.
struct Channel
{
    uint32_t sum = 0;
    uint32_t darkest = 255;
    uint32_t brightest = 0;

    void add(uint32_t level)
    {
        sum += level;
        darkest = std::min(darkest, level);
        brightest = std::max(brightest, level);
    }
};

void measureBlock(const BlockWords &words, size_t block, const BlockRow &out)
{
    const size_t begin = block * words.side;
    const size_t end = std::min(begin + words.side, words.width);
    const auto pixels = static_cast<uint32_t>(words.rowCount * (end - begin));
    Channel channels[4]; // blue, green, red, alpha
    for (size_t row = 0; row < words.rowCount; ++row)
        for (size_t x = begin; x < end; ++x)
            for (unsigned i = 0; i < 4; ++i)
                channels[i].add(words.rows[row][x] >> (8 * i) & 0xFFU);
    for (size_t i = 0; i < 3; ++i) {
        const Channel &channel = channels[2 - i];
        out.means[i][block] = static_cast<uint8_t>((channel.sum + pixels / 2) / pixels);
        out.darkest[i][block] = static_cast<uint8_t>(channel.darkest);
        out.brightest[i][block] = static_cast<uint8_t>(channel.brightest);
    }
    out.covered[block] = static_cast<uint8_t>(!words.hasAlpha || channels[3].darkest == 255);
}

} // namespace

void motion::measureBlocksPlain(const BlockWords &words, size_t first, size_t end,
                                const BlockRow &out)
{
    for (size_t block = first; block < end; ++block)
        measureBlock(words, block, out);
}
