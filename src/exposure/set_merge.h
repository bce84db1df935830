#pragma once

#include "ReadOptions.h"
#include "merge_job.h"

/// A whole set by either method, from the pictures as files give them.
namespace exposure {

enum class Method {
    Fusion, ///< merge() in merge_job.h
    Mean    ///< the weighted mean of the "Merge to HDR" tool, to the bit
};

/// How the shots of a set are to be read for the method: the mean's as the tool reads them, with 8
/// bits and the numbers of the file; the fusion's at their depth and in true colours.
ReadOptions readOptionsFor(Method method);

/// shots: as read with readOptionsFor(method), in merge order. Fusion: brings them to the colours
/// of the first one, then as merge(). Mean: of the options, the alignment (anything but None moves
/// by whole pixels, onto the first) and crop count; cancelling gives no picture, but does not
/// hurry. Any thread, reentrant; uses all cores inside the call. Throws nothing.
Outcome mergeSet(Method method, QList<QImage> shots, const Options &options = {},
                 const Control &control = {});

} // namespace exposure
