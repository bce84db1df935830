#pragma once

#include "opencl_api.h"

#include <QImage>
#include <QList>
#include <QString>

#include <memory>

/// Merging on an OpenCL device of one's choice. Unlike the tool, which shows whatever a device
/// gives, the program asks beforehand and notices failures.
namespace device {

/// Handle of the first device of that name among those of VeskDeviceInfo; null when there is none.
cl_device_id named(const QString &name);

/// Why the device cannot merge count pictures of that size, in words that follow its name; empty
/// when it can. Builds the program on the device.
QString whyNot(cl_device_id id, QSize size, int count);

/// Merges pictures of one size, which stay as they are, to the pixels that mergeExposures gives.
/// Null when the device reported an error or memory is lacking.
std::unique_ptr<QImage> merge(cl_device_id id, const QList<QImage *> &pictures);

} // namespace device
