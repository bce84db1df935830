#pragma once

#include "ExitCode.h"

#include <QStringList>

namespace command_line {

/// "veskhdr inspect": words are those after the command's name.
ExitCode runInspect(const QStringList &words);

/// What "veskhdr inspect --help" shows.
QString inspectHelp();

} // namespace command_line
