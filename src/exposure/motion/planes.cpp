#include "planes.h"

#include "parallel_rows.h"

#include <QtAlgorithms>

#include <algorithm>
#include <new>

namespace {

using motion::planes::Plane;

/// Per number of a line the sum over `radius` to both sides, ends repeated.
template <typename From, typename To>
void slide(const From *from, int count, size_t step, int radius, To *to)
{
    const auto at = [&](int i) {
        return from[static_cast<size_t>(std::clamp(i, 0, count - 1)) * step];
    };
    unsigned sum = 0;
    for (int i = -radius; i <= radius; ++i)
        sum += at(i);
    for (int i = 0; i < count; ++i) {
        to[static_cast<size_t>(i) * step] = static_cast<To>(sum);
        sum += at(i + radius + 1);
        sum -= at(i - radius);
    }
}

/// Sums over the window: 15 x 15 of 255 fit.
std::vector<uint16_t> windowSums(const Plane &plane, int width, int height, int radius)
{
    const auto columns = static_cast<size_t>(width);
    std::vector<uint16_t> across(plane.size());
    std::vector<uint16_t> sums(plane.size());
    for (int y = 0; y < height; ++y)
        slide(&plane[static_cast<size_t>(y) * columns], width, 1, radius,
              &across[static_cast<size_t>(y) * columns]);
    for (int y = 0; y < height; ++y) {
        uint16_t *__restrict out = &sums[static_cast<size_t>(y) * columns];
        for (int row = y - radius; row <= y + radius; ++row) {
            const size_t source = static_cast<size_t>(std::clamp(row, 0, height - 1));
            const uint16_t *from = &across[source * columns];
            for (size_t x = 0; x < columns; ++x)
                out[x] = static_cast<uint16_t>(out[x] + from[x]);
        }
    }
    return sums;
}

/// Where a pixel's centre lies between two places, in 1 / (2 factor).
struct Between
{
    int first;
    int second;
    int secondWeight;

    Between(int pixel, int factor, int count)
    {
        const int twice = 2 * factor;
        const int position =
            2 * pixel + 1 - factor + twice; // half a place and one more to the left
        first = std::clamp(position / twice - 1, 0, count - 1);
        second = std::clamp(position / twice, 0, count - 1);
        secondWeight = position % twice;
    }
};

/// The interpolation across and down; `columns` has one entry for each pixel of a row.
void enlargeRow(const Plane &levels, int width, int height, const std::vector<Between> &columns,
                int factor, int y, std::vector<int> &mixed, uchar *out)
{
    const Between rows(y, factor, height);
    const uint8_t *first = &levels[static_cast<size_t>(rows.first) * static_cast<size_t>(width)];
    const uint8_t *second = &levels[static_cast<size_t>(rows.second) * static_cast<size_t>(width)];
    const auto isFull = [width](const uint8_t *row) {
        return std::all_of(row, row + width, [](uint8_t level) { return level == 255; });
    };
    if (isFull(first) && isFull(second)) {
        std::fill(out, out + columns.size(), uchar(255));
        return;
    }
    const int full = 2 * factor;
    for (size_t x = 0; x < mixed.size(); ++x)
        mixed[x] = first[x] * (full - rows.secondWeight) + second[x] * rows.secondWeight;
    const auto area = static_cast<unsigned>(full * full);
    const int shift = static_cast<int>(qCountTrailingZeroBits(area));
    for (size_t x = 0; x < columns.size(); ++x) {
        const Between &place = columns[x];
        const int sum = mixed[static_cast<size_t>(place.first)] * (full - place.secondWeight) +
                        mixed[static_cast<size_t>(place.second)] * place.secondWeight;
        out[x] = static_cast<uchar>((static_cast<unsigned>(sum) + area / 2) >> shift);
    }
}

} // namespace

Plane motion::planes::crowded(const Plane &flags, int width, int height, int radius, int least)
{
    const std::vector<uint16_t> sums = windowSums(flags, width, height, radius);
    Plane result(flags.size());
    for (size_t i = 0; i < result.size(); ++i)
        result[i] = static_cast<uint8_t>(sums[i] >= static_cast<uint32_t>(least));
    return result;
}

Plane motion::planes::blurred(const Plane &levels, int width, int height, int radius)
{
    const std::vector<uint16_t> sums = windowSums(levels, width, height, radius);
    const auto window = static_cast<uint32_t>((2 * radius + 1) * (2 * radius + 1));
    Plane result(levels.size());
    for (size_t i = 0; i < result.size(); ++i)
        result[i] = static_cast<uint8_t>((sums[i] + window / 2) / window);
    return result;
}

QImage motion::planes::enlarged(const Plane &levels, int width, int height, int factor, QSize size)
{
    QImage picture(size, QImage::Format_Grayscale8);
    if (picture.isNull())
        throw std::bad_alloc();
    std::vector<Between> columns;
    for (int x = 0; x < size.width(); ++x)
        columns.emplace_back(x, factor, width);
    uchar *bits = picture.bits();
    const qsizetype rowBytes = picture.bytesPerLine();
    parallel::rows(size, [&](int begin, int end) {
        std::vector<int> mixed(static_cast<size_t>(width));
        for (int y = begin; y < end; ++y)
            enlargeRow(levels, width, height, columns, factor, y, mixed, bits + y * rowBytes);
    });
    return picture;
}
