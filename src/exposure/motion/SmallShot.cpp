#include "SmallShot.h"

#include "parallel_rows.h"

#include <algorithm>

namespace {

using motion::SmallShot;

/// Sums down the columns of a block row, two channels in a word; 16 rows of 255 fit.
struct ColumnSums
{
    std::vector<uint32_t> redBlue;
    std::vector<uint32_t> alphaGreen;

    explicit ColumnSums(int width)
        : redBlue(static_cast<size_t>(width))
        , alphaGreen(static_cast<size_t>(width))
    {
    }

    void clear()
    {
        std::fill(redBlue.begin(), redBlue.end(), 0U);
        std::fill(alphaGreen.begin(), alphaGreen.end(), 0U);
    }

    void add(const uint32_t *row)
    {
        for (size_t x = 0; x < redBlue.size(); ++x) {
            redBlue[x] += row[x] & 0xFF00FFU;
            alphaGreen[x] += (row[x] >> 8) & 0xFF00FFU;
        }
    }

    /// The higher 8 bits of each channel of 16, lowest channel red.
    void add(const uint64_t *row)
    {
        for (size_t x = 0; x < redBlue.size(); ++x) {
            const uint64_t high = (row[x] >> 8) & 0x00FF00FF00FF00FFU;
            const auto red = static_cast<uint32_t>(high & 0xFF);
            const auto green = static_cast<uint32_t>((high >> 16) & 0xFF);
            const auto blue = static_cast<uint32_t>((high >> 32) & 0xFF);
            redBlue[x] += red << 16 | blue;
            alphaGreen[x] += static_cast<uint32_t>(high >> 48) << 16 | green;
        }
    }
};

/// The means of a block, whose columns are [begin, end).
void storeBlock(const ColumnSums &sums, size_t begin, size_t end, uint32_t rows, bool hasAlpha,
                size_t place, SmallShot &small)
{
    uint32_t red = 0;
    uint32_t green = 0;
    uint32_t blue = 0;
    uint32_t alpha = 0;
    for (size_t x = begin; x < end; ++x) {
        red += sums.redBlue[x] >> 16;
        blue += sums.redBlue[x] & 0xFFFFU;
        alpha += sums.alphaGreen[x] >> 16;
        green += sums.alphaGreen[x] & 0xFFFFU;
    }
    const uint32_t pixels = rows * static_cast<uint32_t>(end - begin);
    small.levels[0][place] = static_cast<uint8_t>((red + pixels / 2) / pixels);
    small.levels[1][place] = static_cast<uint8_t>((green + pixels / 2) / pixels);
    small.levels[2][place] = static_cast<uint8_t>((blue + pixels / 2) / pixels);
    small.covered[place] = static_cast<uint8_t>(!hasAlpha || alpha == 255 * pixels);
}

void shrinkRow(const QImage &picture, int side, int y, ColumnSums &sums, SmallShot &small)
{
    const int end = std::min((y + 1) * side, picture.height());
    sums.clear();
    for (int row = y * side; row < end; ++row) {
        const uchar *words = picture.constScanLine(row);
        if (picture.depth() == 64)
            sums.add(reinterpret_cast<const uint64_t *>(words));
        else
            sums.add(reinterpret_cast<const uint32_t *>(words));
    }
    const auto rows = static_cast<uint32_t>(end - y * side);
    for (int x = 0; x < small.width; ++x) {
        const auto first = static_cast<size_t>(x) * static_cast<size_t>(side);
        const size_t last = std::min(first + static_cast<size_t>(side), sums.redBlue.size());
        storeBlock(sums, first, last, rows, picture.hasAlphaChannel(),
                   static_cast<size_t>(y) * static_cast<size_t>(small.width) +
                       static_cast<size_t>(x),
                   small);
    }
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
    for (SmallShot::Levels &channel : small.levels)
        channel.resize(places);
    small.covered.resize(places);
    parallel::rows({picture.width() * side, small.height}, [&](int begin, int end) {
        ColumnSums sums(picture.width());
        for (int y = begin; y < end; ++y)
            shrinkRow(picture, side, y, sums, small);
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
