#include "merge_weights.h"

#include <array>
#include <cmath>

namespace {

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
    const float distance = static_cast<float>(QColor(color).lightnessF()) - 0.5F;
    return std::exp(-distance * distance);
}

const float *weights::table()
{
    static const Table table = makeTable();
    return table.data();
}
