#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>

namespace registration {

constexpr size_t kRowPadding = 32; ///< values in the widest vector of 16-bit lanes

/// Values row by row. Rows are padded up to a multiple of kRowPadding. New planes hold whatever
/// the memory held; the padding holds the value given for it. Throws std::bad_alloc.
template <typename Value>
class Plane
{
public:
    Plane() = default;
    Plane(int columns, int lines, Value padding)
        : width(columns)
        , height(lines)
        , stride((static_cast<size_t>(columns) + kRowPadding - 1) / kRowPadding * kRowPadding)
        , values(new Value[stride * static_cast<size_t>(lines)])
    {
        for (int y = 0; y < height; ++y)
            std::fill(row(y) + width, row(y) + stride, padding);
    }

    Value *row(int y) { return values.get() + static_cast<size_t>(y) * stride; }
    const Value *row(int y) const { return values.get() + static_cast<size_t>(y) * stride; }

    int width = 0;
    int height = 0;
    size_t stride = 0; ///< values from one row to the next

private:
    std::unique_ptr<Value[]> values;
};

} // namespace registration
