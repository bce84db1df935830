#pragma once

#include "opencl_api.h"

#include <QSize>
#include <QString>

/// OpenCL devices of one's choice. Unlike the tool, which shows whatever a device gives, the
/// command line asks beforehand what a device can do.
namespace opencl {

/// Handle of the first device of that name among those of VeskDeviceInfo; null when there is none.
cl_device_id findDevice(const QString &name);

/// What keeps the device from merging count pictures of that size, in words that follow its name;
/// empty when it can. Builds the program on the device.
QString deviceProblem(cl_device_id id, QSize size, int count);

} // namespace opencl
