#pragma once

#include <QString>

/// The tool's keys in the settings file that it shares with its host: "/config.ini" below the
/// application's local data location. Whatever else stands in the file is neither decoded nor
/// changed, and the file is only written to store "OpenCLDevice". Any thread, no errors: what
/// cannot be read is empty, what cannot be written is not.
namespace tool_settings {

/// The key "language": a locale name such as "de_DE".
QString language();

/// The key "OpenCLDevice": a device's name.
QString openCLDevice();
void setOpenCLDevice(const QString &name);

} // namespace tool_settings
