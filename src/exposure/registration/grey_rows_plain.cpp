#include "grey_plane.h"
#include "grey_rows.h"

#include <algorithm>
#include <initializer_list>

namespace registration {
namespace {

uint32_t channel(uint32_t pixel, int shift)
{
    return pixel >> shift & 0xFFU;
}

bool saysNothing(uint32_t pixel)
{
    return channel(pixel, 24) < 0xFF || channel(pixel, 16) >= kFirstClipped ||
           channel(pixel, 8) >= kFirstClipped || channel(pixel, 0) >= kFirstClipped;
}

uint32_t brightness(uint32_t pixel)
{
    return channel(pixel, 16) + 2 * channel(pixel, 8) + channel(pixel, 0);
}

uint16_t greyOf(const uint32_t (&pixels)[4])
{
    uint32_t sum = 0;
    for (uint32_t pixel : pixels) {
        if (saysNothing(pixel))
            return kNoGrey;
        sum += brightness(pixel);
    }
    return sum < kFirstGrey ? kNoGrey : static_cast<uint16_t>(sum);
}

uint16_t meanOf(std::initializer_list<uint16_t> greys)
{
    uint32_t count = 0;
    uint32_t sum = 0;
    for (uint16_t grey : greys) {
        count += grey != kNoGrey;
        sum += grey != kNoGrey ? grey : 0U;
    }
    if (count < 2)
        return kNoGrey;
    return static_cast<uint16_t>(count == 3 ? sum / 3 : (sum + count / 2) / count);
}

void addGrey(uint16_t grey, CellSums &cell)
{
    if (grey == kNoGrey)
        return;
    ++cell.count;
    cell.sum += grey;
    cell.squares += uint32_t{grey} * grey;
}

} // namespace

void plain::greyOfWords(const WordRows &rows, uint16_t *out)
{
    for (size_t x = 0; x < rows.width; ++x) {
        const uint32_t pixel = rows.upper[x] | rows.opaque;
        out[x] = greyOf({pixel, pixel, pixel, pixel});
    }
}

void plain::greyOfPairs(const WordRows &rows, uint16_t *out)
{
    for (size_t x = 0; x < rows.width; ++x) {
        out[x] = greyOf({rows.upper[2 * x] | rows.opaque, rows.upper[2 * x + 1] | rows.opaque,
                         rows.lower[2 * x] | rows.opaque, rows.lower[2 * x + 1] | rows.opaque});
    }
}

void plain::halveRow(const uint16_t *upper, const uint16_t *lower, size_t width, uint16_t *out)
{
    for (size_t x = 0; x < width; ++x)
        out[x] = meanOf({upper[2 * x], upper[2 * x + 1], lower[2 * x], lower[2 * x + 1]});
}

void plain::sumCells(const uint16_t *greys, size_t stride, size_t lines, size_t cells,
                     CellSums *out)
{
    std::fill_n(out, cells, CellSums());
    for (size_t y = 0; y < lines; ++y) {
        for (size_t x = 0; x < cells * kCellSide; ++x)
            addGrey(greys[y * stride + x], out[x / kCellSide]);
    }
}

} // namespace registration
