#pragma once

#include "opencl_api.h"
#include "veskhdr_export.h"

#include <QImage>
#include <QList>
#include <QPoint>

#include <functional>
#include <memory>
#include <vector>

/// One merge, from decoded pictures to the picture that is shown or saved: the road of the tool's
/// worker and of the command line.
namespace merge {

enum class Step { Align, Merge };

struct Options
{
    bool align = true;
    bool onDevice = false;
    /// The device when onDevice is set; with null every call to OpenCL fails.
    cl_device_id device = nullptr;
    /// The pictures own their pixels and nobody else knows them: the alignment may shift them where
    /// they are and needs no memory.
    bool mayReusePixels = false;
    /// Called before each step, on the caller's thread; must not throw.
    std::function<void(Step)> beforeStep = [](Step) {};
};

enum class Error {
    None,
    NoPictures,     ///< none at all, or one of them is null
    DifferentSizes, ///< asked by the processor only
    NoMemory,       ///< or no threads
};

struct Outcome
{
    std::unique_ptr<QImage> picture; ///< null on an error
    Error error = Error::None;
    /// The device reported no failure. The tool does not ask: what was not merged is opaque black.
    bool isDeviceComplete = true;
    /// Processor time in ticks of clock(), of the whole process; 0 on an error. On a device without
    /// the building of its program.
    quint64 ticks = 0;
    std::vector<QPoint> pairShifts;   ///< of picture i + 1 onto picture i; empty unless aligned
    std::vector<QPoint> summedShifts; ///< of picture i + 1 onto picture 0; empty unless aligned
};

/// Aligns the pictures to the first one if wanted and merges them, on the processor or on a device,
/// to the same pixels (see mergeExposures). The result has the first picture's size, colour profile
/// and resolution. On a device a picture of another size is cut, or padded with transparent black.
///
/// pictures: any formats; those of 32 bits are read as 0xAARRGGBB by the alignment and by devices.
/// After a success they are deleted and the list is empty; after an error the list has those that
/// are left, in their order, of which the alignment may have shifted some. It ends the process with
/// an assertion report when there is one picture to align.
/// Nothing is thrown. Any thread.
VESKHDR_EXPORT Outcome mergePictures(QList<QImage *> &pictures, const Options &options);

} // namespace merge
