#pragma once

#include "ExitCode.h"

#include <QStringList>

namespace command_line {

/// "veskhdr merge": words are those after the command's name.
ExitCode runMerge(const QStringList &words);

/// What "veskhdr merge --help" shows.
QString mergeHelp();

} // namespace command_line
