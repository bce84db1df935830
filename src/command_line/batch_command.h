#pragma once

#include "ExitCode.h"

#include <QStringList>

namespace command_line {

/// "veskhdr batch": words are those after the command's name.
ExitCode runBatch(const QStringList &words);

/// What "veskhdr batch --help" shows.
QString batchHelp();

} // namespace command_line
