#pragma once

#include "VeskDeviceInfo.h"

#include <QJsonObject>
#include <QString>

namespace command_line {

/// The thirteen facts of a device as lines of a name and a value.
QString toLines(const VeskDeviceInfo::OpenCLDevice &device);

/// The same facts as they come from the driver: sizes in bytes, the frequency in MHz; null for a
/// cache type or device type that has no name.
QJsonObject toJson(const VeskDeviceInfo::OpenCLDevice &device);

} // namespace command_line
