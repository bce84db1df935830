#include "planes.h"

#include "large_memory.h"
#include "parallel_rows.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

using motion::Plane;

/// Sums of a plane's numbers over the window of a radius around each place, row after row from one
/// on down; what is outside repeats the edge. Sum: unsigned, wide enough for a window.
template <typename Sum>
class WindowSums
{
public:
    WindowSums(const Plane &numbers, int planeWidth, int planeHeight, int windowRadius,
               int firstRow)
        : plane(numbers)
        , width(static_cast<size_t>(planeWidth))
        , height(planeHeight)
        , radius(windowRadius)
        , row(firstRow)
        , padded(width + 2 * static_cast<size_t>(radius))
        , ring(width * static_cast<size_t>(2 * radius + 1))
        , sums(width)
    {
        for (int i = -radius; i < radius; ++i)
            take(row + i);
    }

    /// Those of the next row, valid until the next call.
    const Sum *next()
    {
        take(row + radius);
        ++row;
        return sums.data();
    }

private:
    /// Adds a row's sums across and takes off those that it follows 2 radius + 1 rows later.
    void take(int taken)
    {
        const int window = 2 * radius + 1;
        const auto slot = static_cast<size_t>((taken + window) % window);
        Sum *__restrict across = &ring[slot * width];
        Sum *__restrict all = sums.data();
        for (size_t x = 0; x < width; ++x)
            all[x] = static_cast<Sum>(all[x] - across[x]);
        sumAcross(&plane[static_cast<size_t>(std::clamp(taken, 0, height - 1)) * width], across);
        for (size_t x = 0; x < width; ++x)
            all[x] = static_cast<Sum>(all[x] + across[x]);
    }

    void sumAcross(const uint8_t *from, Sum *__restrict across)
    {
        const auto margin = static_cast<size_t>(radius);
        std::fill_n(padded.begin(), margin, from[0]);
        std::copy_n(from, width, padded.begin() + radius);
        std::fill_n(padded.end() - radius, margin, from[width - 1]);
        std::copy_n(padded.begin(), width, across);
        for (size_t shift = 1; shift <= 2 * margin; ++shift) {
            const uint8_t *shifted = &padded[shift];
            for (size_t x = 0; x < width; ++x)
                across[x] = static_cast<Sum>(across[x] + shifted[x]);
        }
    }

    const Plane &plane;
    const size_t width;
    const int height;
    const int radius;
    int row;
    Plane padded;
    std::vector<Sum> ring; ///< sums across of the window's rows
    std::vector<Sum> sums;
};

/// A plane of what `of` makes of each sum of the windows.
template <typename Sum, typename Of>
Plane ofWindows(const Plane &plane, int width, int height, int radius, Of of)
{
    Plane result(plane.size());
    parallel::rows({width, height}, [&](int begin, int end) {
        WindowSums<Sum> windows(plane, width, height, radius, begin);
        for (int y = begin; y < end; ++y) {
            const Sum *sums = windows.next();
            uint8_t *__restrict out = &result[static_cast<size_t>(y) * static_cast<size_t>(width)];
            for (int x = 0; x < width; ++x)
                out[x] = of(sums[x]);
        }
    });
    return result;
}

bool isOfOneLevel(const uint8_t *levels, size_t count, uint8_t level)
{
    return levels[0] == level && std::memcmp(levels, levels + 1, count - 1) == 0;
}

/// Rows of a picture whose pixels a plane's places each stand for `factor` x `factor` of, an even
/// number, interpolated in between. Borrows the plane.
template <int factor>
class Enlarger
{
public:
    Enlarger(const Plane &smallLevels, int planeWidth, int planeHeight)
        : levels(smallLevels)
        , width(static_cast<size_t>(planeWidth))
        , height(planeHeight)
        , mixed(width + 2)
        , made((width + 1) * factor)
    {
    }

    /// The first `count` pixels of row y.
    void makeRow(int y, size_t count, uchar *out)
    {
        const int fromHalfBefore = y + factor / 2; // half a place before the first one
        const uint8_t *above = levelsOf(fromHalfBefore / factor - 1);
        const uint8_t *below = levelsOf(fromHalfBefore / factor);
        if (isOfOneLevel(above, width, above[0]) && isOfOneLevel(below, width, above[0])) {
            std::memset(out, above[0], count);
            return;
        }
        mixDown(above, below, 2 * (fromHalfBefore % factor) + 1);
        mixAcross();
        std::memcpy(out, made.data() + factor / 2, count);
    }

private:
    static constexpr int kFull = 2 * factor; ///< shares of two places together

    const uint8_t *levelsOf(int row) const
    {
        return &levels[static_cast<size_t>(std::clamp(row, 0, height - 1)) * width];
    }

    void mixDown(const uint8_t *above, const uint8_t *below, int shareBelow)
    {
        uint16_t *__restrict to = &mixed[1];
        for (size_t x = 0; x < width; ++x)
            to[x] = static_cast<uint16_t>(above[x] * (kFull - shareBelow) + below[x] * shareBelow);
        mixed.front() = mixed[1];
        mixed.back() = mixed[width];
    }

    /// The pixels from the middle of each place to that of the next.
    void mixAcross()
    {
        constexpr int kArea = kFull * kFull;
        const uint16_t *from = mixed.data();
        uint8_t *__restrict to = made.data();
        for (size_t i = 0; i <= width; ++i) {
            for (size_t k = 0; k < factor; ++k) {
                const int share = 2 * static_cast<int>(k) + 1;
                const int sum = from[i] * (kFull - share) + from[i + 1] * share;
                to[i * factor + k] = static_cast<uint8_t>((sum + kArea / 2) / kArea);
            }
        }
    }

    const Plane &levels;
    const size_t width;
    const int height;
    std::vector<uint16_t> mixed; ///< the two rows; with a place more at both ends
    Plane made;                  ///< pixels, from half a place before the first on
};

template <int factor>
void enlarge(const Plane &levels, int width, int height, QImage &picture)
{
    uchar *bits = picture.bits();
    const qsizetype rowBytes = picture.bytesPerLine();
    const auto count = static_cast<size_t>(picture.width());
    parallel::rows(picture.size(), [&](int begin, int end) {
        Enlarger<factor> enlarger(levels, width, height);
        for (int y = begin; y < end; ++y)
            enlarger.makeRow(y, count, bits + y * rowBytes);
    });
}

void copy(const Plane &levels, int width, QImage &picture)
{
    for (int y = 0; y < picture.height(); ++y)
        std::memcpy(picture.scanLine(y), &levels[static_cast<size_t>(y) * size_t(width)],
                    static_cast<size_t>(picture.width()));
}

} // namespace

motion::Plane motion::planes::crowded(const Plane &flags, int width, int height, int radius,
                                      int least)
{
    if (radius == 0)
        return flags;
    const auto isCrowded = [least](uint8_t sum) { return static_cast<uint8_t>(sum >= least); };
    return ofWindows<uint8_t>(flags, width, height, radius, isCrowded); // 15 x 15 flags fit
}

motion::Plane motion::planes::softened(const Plane &levels, int width, int height)
{
    constexpr int kRadius = 2;
    constexpr unsigned kWindow = 25;
    const auto mean = [](uint16_t sum) {
        return static_cast<uint8_t>((sum + kWindow / 2) / kWindow);
    };
    return ofWindows<uint16_t>(levels, width, height, kRadius, mean);
}

QImage motion::planes::enlarged(const Plane &levels, int width, int height, int factor, QSize size)
{
    QImage picture = memory::largeImage(size, QImage::Format_Grayscale8);
    if (picture.isNull())
        throw std::bad_alloc();
    switch (factor) {
    case 1:
        copy(levels, width, picture);
        break;
    case 2:
        enlarge<2>(levels, width, height, picture);
        break;
    case 4:
        enlarge<4>(levels, width, height, picture);
        break;
    default:
        enlarge<8>(levels, width, height, picture);
    }
    return picture;
}
