#pragma once

#include "opencl_api.h"

#include <QString>

/// How a device did at merging a built-in set of pictures, beside the processor.
struct DeviceCheck
{
    QString problem; ///< why the device cannot merge, in words that follow its name; else empty
    qint64 bytes = 0;
    qint64 differingBytes = 0; ///< of the device's picture from the processor's
    qint64 deviceMilliseconds = 0;
    qint64 processorMilliseconds = 0;

    bool isEqual() const { return problem.isEmpty() && differingBytes == 0; }
};

namespace command_line {

/// Merges five pictures with every weight that there is, in several bands, on the device and on
/// the processor. Both were warmed up when the time is taken; it is wall clock and the device's
/// has the building of the program in it, as every merge has.
DeviceCheck checkDevice(cl_device_id id);

} // namespace command_line
