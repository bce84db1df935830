#include "grey_plane.h"
#include "grey_rows.h"

namespace registration {
namespace {

uint32_t channel(uint32_t pixel, int shift)
{
    return pixel >> shift & 0xFFU;
}

bool saysNothing(uint32_t pixel)
{
    return channel(pixel, 24) < 0xFF || channel(pixel, 16) >= kFirstClipped
           || channel(pixel, 8) >= kFirstClipped || channel(pixel, 0) >= kFirstClipped;
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

} // namespace registration
