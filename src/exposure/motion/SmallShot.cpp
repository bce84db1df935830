#include "SmallShot.h"

#include "block_rows.h"

#include "parallel_rows.h"

#include <algorithm>
#include <new>

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

/// Halfway from each level of the row in the middle to the best of the 3 x 3 around, rounded down
/// or up. down: a row to work in, with a number more at both ends.
template <int rounding, typename Best>
void halfwayRow(const std::array<const uint8_t *, 3> &rows, size_t count, Best best,
                std::vector<uint8_t> &down, uint8_t *__restrict to)
{
    uint8_t *__restrict middle = &down[1];
    for (size_t x = 0; x < count; ++x)
        middle[x] = best(best(rows[0][x], rows[2][x]), rows[1][x]);
    down[0] = down[1];
    down[count + 1] = down[count];
    const uint8_t *left = down.data();
    for (size_t x = 0; x < count; ++x)
        to[x] = static_cast<uint8_t>(
            (rows[1][x] + best(best(left[x], left[x + 2]), left[x + 1]) + rounding) / 2);
}

/// Row y of what lies halfway to the extremes around.
void findRangeOfRow(SmallShot &small, int y, std::vector<uint8_t> &room)
{
    const auto smaller = [](uint8_t a, uint8_t b) { return a < b ? a : b; };
    const auto larger = [](uint8_t a, uint8_t b) { return a > b ? a : b; };
    const auto width = static_cast<size_t>(small.width);
    const auto first = [&](int row) {
        return static_cast<size_t>(std::clamp(row, 0, small.height - 1)) * width;
    };
    for (size_t channel = 0; channel < 3; ++channel) {
        const uint8_t *levels = small.levels[channel].data();
        const std::array<const uint8_t *, 3> rows{levels + first(y - 1), levels + first(y),
                                                  levels + first(y + 1)};
        halfwayRow<0>(rows, width, smaller, room, &small.lowest[channel][first(y)]);
        halfwayRow<1>(rows, width, larger, room, &small.highest[channel][first(y)]);
    }
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

QImage motion::readable(const QImage &picture)
{
    switch (picture.format()) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
    case QImage::Format_ARGB32_Premultiplied:
    case QImage::Format_RGBX64:
    case QImage::Format_RGBA64:
    case QImage::Format_RGBA64_Premultiplied:
        return picture;
    default:
        break;
    }
    QImage converted = picture.convertToFormat(picture.hasAlphaChannel() ? QImage::Format_ARGB32
                                                                         : QImage::Format_RGB32);
    if (converted.isNull())
        throw std::bad_alloc();
    return converted;
}

motion::SmallShot motion::shrink(const QImage &picture, int side)
{
    SmallShot small;
    small.width = (picture.width() + side - 1) / side;
    small.height = (picture.height() + side - 1) / side;
    const auto places = static_cast<size_t>(small.width) * static_cast<size_t>(small.height);
    for (SmallShot::Channels *channels :
         {&small.levels, &small.lowest, &small.highest, &small.darkest, &small.brightest})
        for (SmallShot::Levels &channel : *channels)
            channel.resize(places);
    small.covered.resize(places);
    parallel::rows({picture.width() * side, small.height}, [&](int begin, int end) {
        std::vector<uint32_t> room;
        for (int y = begin; y < end; ++y)
            shrinkRow(picture, side, y, room, small);
    });
    parallel::rows({small.width * 4, small.height}, [&](int begin, int end) {
        std::vector<uint8_t> room(static_cast<size_t>(small.width) + 2);
        for (int y = begin; y < end; ++y)
            findRangeOfRow(small, y, room);
    });
    return small;
}
