#include "merge_weights.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// HSL lightness, 0 to 1, of channels widened to 16 bits and rounded there, half up.
double lightness(QRgb color)
{
    const double a = std::max({qRed(color), qGreen(color), qBlue(color)}) * 257 / 65535.0;
    const double b = std::min({qRed(color), qGreen(color), qBlue(color)}) * 257 / 65535.0;
    const int l = static_cast<int>(0.5 * (a + b) * 65535 + 0.5);
    return l / 65535.0;
}

using Table = std::array<float, 256 * 256>;

Table makeTable()
{
    Table table = {};
    for (int largest = 0; largest < 256; ++largest) {
        for (int smallest = 0; smallest <= largest; ++smallest)
            table[static_cast<size_t>(weights::index(largest, smallest))] =
                weights::of(qRgb(largest, smallest, smallest));
    }
    return table;
}

} // namespace

float weights::of(QRgb color)
{
    const float distance = static_cast<float>(lightness(color)) - 0.5F;
    return std::exp(-distance * distance);
}

const float *weights::table()
{
    static const Table table = makeTable();
    return table.data();
}
