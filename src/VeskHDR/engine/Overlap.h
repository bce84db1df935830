#pragma once

#include <QtGlobal>

#include <algorithm>

/// The stretch begin..end of 0..length that lands inside 0..targetLength, and does not go beyond
/// length, when it is moved by `shift`. Empty (begin == end) when nothing does.
struct Overlap
{
    Overlap(int length, int shift, int targetLength)
        : begin(static_cast<int>(std::clamp<qint64>(-qint64(shift), 0, length)))
        , end(static_cast<int>(
              std::clamp<qint64>(std::min(length, targetLength) - qint64(shift), begin, length)))
    {
    }

    int begin;
    int end;
};
