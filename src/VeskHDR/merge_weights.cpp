#include "merge_weights.h"

#include <cmath>
#include <vector>

namespace {

std::vector<float> makeTable()
{
    std::vector<float> table(256 * 256, 0.0F);
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
    static const std::vector<float> table = makeTable();
    return table.data();
}
