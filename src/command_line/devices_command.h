#pragma once

#include "ExitCode.h"

#include <QStringList>

namespace command_line {

/// "veskhdr devices": words are those after the command's name.
ExitCode runDevices(const QStringList &words);

/// What "veskhdr devices --help" shows.
QString devicesHelp();

} // namespace command_line
