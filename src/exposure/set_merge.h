#pragma once

#include "ReadOptions.h"
#include "merge_job.h"
#include "picture_set.h"

#include <QPoint>
#include <QStringList>

#include <vector>

struct _cl_device_id;

/// A whole set by any method, from the pictures as files give them: the road of the command line
/// and of the editor.
namespace exposure {

enum class Method {
    Fusion,   ///< merge() in merge_job.h, to a picture
    Radiance, ///< the same, to the light itself
    Mean      ///< the weighted mean of the "Merge to HDR" tool, to the bit
};

/// How the shots of a set are to be read for the method: the mean's as the tool reads them, with 8
/// bits and the numbers of the file; the others' at their depth and in true colours. For the
/// radiance of camera raw files alone they are linear; with other files among paths all have
/// curves, as a set has one.
ReadOptions readOptionsFor(Method method, const QStringList &paths = {});

struct SetOptions : Options
{
    SetOptions() = default;
    SetOptions(const Options &options) // implicit, as most sets need no more
        : Options(options)
    {
    }

    bool isDeepWanted = false; ///< of the fusion: 16 bits, also of shots with 8
    /// Of the mean: a cl_device_id to merge on; null: the processor.
    _cl_device_id *device = nullptr;
};

struct SetOutcome : Outcome
{
    picture_set::OneSpace colours; ///< what was converted to the first shot's; not of the mean
    bool isDeviceComplete = true;  ///< the device reported no failure
    /// Of the mean, empty unless it has aligned: of shot i + 1 onto shot i, and onto shot 0.
    std::vector<QPoint> pairShifts;
    std::vector<QPoint> summedShifts;
};

/// shots: as read with readOptionsFor(method), in merge order. Fusion and radiance: brings them to
/// the colours of the first one, then as merge(); options.product is the method's, or Both with
/// the fusion. Mean: of the options, the alignment (anything but None moves by whole pixels, onto
/// the first), crop and device count; cancelling gives no picture, but does not hurry. Where the
/// shots share their pixels with nobody, they need no second memory. Any thread, reentrant; uses
/// all cores inside the call. Throws nothing.
SetOutcome mergeSet(Method method, QList<QImage> shots, const SetOptions &options = {},
                    const Control &control = {});

} // namespace exposure
