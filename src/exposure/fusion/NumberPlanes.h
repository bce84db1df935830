#pragma once

#include "large_memory.h"

#include <hwy/aligned_allocator.h>

#include <QSize>

#include <algorithm>
#include <cstddef>
#include <new>

namespace fusion {

/// Rows begin at addresses that are multiples of this and are followed by padding up to the next
/// one, so that vectors need no tail. No vector that is used is longer.
constexpr size_t kRowAlignment = 64;

/// Rows of numbers beyond a row's end that may be read and written: two vectors.
constexpr size_t kRowSlack = 128;

/// Several planes of one size in one piece of memory, row by row of all planes, whose contents are
/// not set. Owns them. Throws std::bad_alloc.
template <typename Number>
class NumberPlanes
{
public:
    NumberPlanes() = default;
    NumberPlanes(QSize planeSize, size_t planeCount)
        : size(planeSize)
        , planes(planeCount)
        , stride(strideOf(static_cast<size_t>(planeSize.width())))
        , numbers(memory::large(
              (stride * static_cast<size_t>(planeSize.height()) * planes + kRowSlack) *
              sizeof(Number)))
    {
    }

    int width() const { return size.width(); }
    int height() const { return size.height(); }
    QSize planeSize() const { return size; }

    Number *row(size_t plane, int y) const
    {
        return static_cast<Number *>(numbers.get()) +
               (static_cast<size_t>(y) * planes + plane) * stride;
    }

    /// Rows [begin, end) of all planes are read no more.
    void giveBack(int begin, int end) const
    {
        if (begin < end)
            memory::giveBack(row(0, begin), row(0, end));
    }

private:
    static size_t strideOf(size_t width)
    {
        constexpr size_t kStep = kRowAlignment / sizeof(Number);
        return (width + kStep - 1) / kStep * kStep;
    }

    QSize size;
    size_t planes = 0;
    size_t stride = 0;
    memory::Large numbers;
};

/// A few rows to work in, each with padding that repeats its first and last number. Owns them.
/// Throws std::bad_alloc.
template <typename Number>
class WorkRows
{
public:
    WorkRows() = default;
    WorkRows(size_t rowWidth, size_t rows)
        : stride((kFront + rowWidth + kRowSlack + kFront - 1) / kFront * kFront)
        , numbers(hwy::AllocateAligned<Number>(stride * rows))
    {
        if (!numbers)
            throw std::bad_alloc();
        std::fill(numbers.get(), numbers.get() + stride * rows, Number());
    }

    Number *operator[](size_t row) const { return numbers.get() + row * stride + kFront; }

    /// Repeats the ends of a row that has been written, `count` numbers of it.
    static void repeatEnds(Number *row, size_t count)
    {
        row[-1] = row[-2] = row[0];
        row[count] = row[count + 1] = row[count - 1];
    }

private:
    static constexpr size_t kFront = kRowAlignment / sizeof(Number);

    size_t stride = 0;
    hwy::AlignedFreeUniquePtr<Number[]> numbers;
};

} // namespace fusion
