#pragma once

#include "bracket_finder.h"

#include <QSize>

/// How much memory the merge of a bracket takes, before any pixel is decoded.
namespace merge_memory {

/// Which arithmetic the merge does.
enum class Method { Fusion, Radiance, Mean };

struct Needs
{
    QSize size;
    int shots = 0;
    bool areDeep = false; ///< a shot has more than 8 bits per channel
    bool areRaw = false;  ///< shots come from a raw converter, which takes memory of its own
    Method method = Method::Fusion;
    bool isResultDeep = false; ///< 16 bits are asked for
    int threads = 1;
};

/// Size, number and depth of a bracket, as the headers of its files tell them. Any thread.
Needs of(const Bracket &bracket);

/// The most that the process, its libraries and its raw converters will have at a time, in bytes.
/// Bytes per pixel are measured; see the numbers.
qint64 peakBytes(const Needs &needs);

} // namespace merge_memory
