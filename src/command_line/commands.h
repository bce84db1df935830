#pragma once

#include "ExitCode.h"

#include <QStringList>

namespace command_line {

/// Runs what the words after the program's name ask for.
ExitCode run(const QStringList &words);

} // namespace command_line
