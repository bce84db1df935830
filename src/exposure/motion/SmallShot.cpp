#include "SmallShot.h"

#include "block_rows.h"

#include "parallel_rows.h"

#include <algorithm>

namespace {

using motion::SmallShot;

/// The rows' words with 8 bits a channel: the picture's own, or made in `room`.
void setRow(const QImage &picture, int y, size_t row, std::vector<uint32_t> &room,
            motion::BlockWords &words)
{
    const uchar *bytes = picture.constScanLine(y);
    if (picture.depth() == 32) {
        words.rows[row] = reinterpret_cast<const uint32_t *>(bytes);
        return;
    }
    const auto *deep = reinterpret_cast<const uint64_t *>(bytes);
    room.resize(words.side * words.width);
    uint32_t *out = &room[row * words.width];
    for (size_t x = 0; x < words.width; ++x) {
        const uint64_t pixel = deep[x]; // red in the lowest 16 bits
        out[x] = static_cast<uint32_t>((pixel >> 32 & 0xFF000000U) | (pixel << 8 & 0xFF0000U) |
                                       (pixel >> 16 & 0xFF00U) | (pixel >> 40 & 0xFFU));
    }
    words.rows[row] = out;
}

motion::BlockRow rowOf(SmallShot &small, int y)
{
    const size_t first = static_cast<size_t>(y) * static_cast<size_t>(small.width);
    motion::BlockRow row;
    for (size_t channel = 0; channel < 3; ++channel) {
        row.means[channel] = &small.levels[channel][first];
        row.darkest[channel] = &small.darkest[channel][first];
        row.brightest[channel] = &small.brightest[channel][first];
    }
    row.covered = &small.covered[first];
    return row;
}

/// room: for words that are made, grows as needed.
void shrinkRow(const QImage &picture, int side, int y, std::vector<uint32_t> &room,
               SmallShot &small)
{
    motion::BlockWords words;
    words.side = static_cast<size_t>(side);
    words.width = static_cast<size_t>(picture.width());
    words.hasAlpha = picture.hasAlphaChannel();
    const int end = std::min((y + 1) * side, picture.height());
    for (int row = y * side; row < end; ++row)
        setRow(picture, row, words.rowCount++, room, words);
    motion::measureBlocks(words, rowOf(small, y));
}

/// Per number of a line the best of itself and its neighbours.
template <typename Best>
void bestOfThree(const uint8_t *from, size_t count, uint8_t *__restrict to, Best best)
{
    const size_t last = count - 1;
    to[0] = best(from[0], from[last > 0 ? 1 : 0]);
    for (size_t i = 1; i < last; ++i)
        to[i] = best(best(from[i - 1], from[i + 1]), from[i]);
    to[last] = best(from[last > 0 ? last - 1 : 0], from[last]);
}

/// Per place the best of the 3 x 3 around. The pointers spare the compiler the fear of overlap.
template <typename Best>
void bestAround(const SmallShot::Levels &from, int width, int height, SmallShot::Levels &to,
                Best best)
{
    const auto columns = static_cast<size_t>(width);
    const auto last = static_cast<size_t>(height) - 1;
    SmallShot::Levels rows(from.size());
    for (size_t y = 0; y <= last; ++y)
        bestOfThree(&from[y * columns], columns, &rows[y * columns], best);
    to.resize(from.size());
    for (size_t y = 0; y <= last; ++y) {
        const uint8_t *above = &rows[(y > 0 ? y - 1 : y) * columns];
        const uint8_t *here = &rows[y * columns];
        const uint8_t *below = &rows[(y < last ? y + 1 : y) * columns];
        uint8_t *__restrict out = &to[y * columns];
        for (size_t x = 0; x < columns; ++x)
            out[x] = best(best(above[x], below[x]), here[x]);
    }
}

/// The level at each place halfway to the best of the 3 x 3 around; `rounding` 0 or 1.
template <typename Best>
void halfwayToBest(const SmallShot::Levels &levels, int width, int height, int rounding,
                   SmallShot::Levels &to, Best best)
{
    bestAround(levels, width, height, to, best);
    const uint8_t *own = levels.data();
    uint8_t *__restrict out = to.data();
    for (size_t i = 0; i < to.size(); ++i)
        out[i] = static_cast<uint8_t>((own[i] + out[i] + rounding) / 2);
}

} // namespace

int motion::blockSide(QSize size)
{
    constexpr int kLongestSide = 1000;
    constexpr int kLargestBlock = 16;
    int side = 2;
    while (side < kLargestBlock && std::max(size.width(), size.height()) > kLongestSide * side)
        side *= 2;
    return side;
}

motion::SmallShot motion::shrink(const QImage &picture, int side)
{
    SmallShot small;
    small.width = (picture.width() + side - 1) / side;
    small.height = (picture.height() + side - 1) / side;
    const auto places = static_cast<size_t>(small.width) * static_cast<size_t>(small.height);
    for (SmallShot::Channels *channels : {&small.levels, &small.darkest, &small.brightest})
        for (SmallShot::Levels &channel : *channels)
            channel.resize(places);
    small.covered.resize(places);
    parallel::rows({picture.width() * side, small.height}, [&](int begin, int end) {
        std::vector<uint32_t> room;
        for (int y = begin; y < end; ++y)
            shrinkRow(picture, side, y, room, small);
    });
    const auto smaller = [](uint8_t a, uint8_t b) { return a < b ? a : b; };
    const auto larger = [](uint8_t a, uint8_t b) { return a > b ? a : b; };
    parallel::each(3, [&](int channel) {
        const auto i = static_cast<size_t>(channel);
        halfwayToBest(small.levels[i], small.width, small.height, 0, small.lowest[i], smaller);
        halfwayToBest(small.levels[i], small.width, small.height, 1, small.highest[i], larger);
    });
    return small;
}
