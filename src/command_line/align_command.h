#pragma once

#include "ExitCode.h"

#include <QStringList>

namespace command_line {

/// "veskhdr align": words are those after the command's name.
ExitCode runAlign(const QStringList &words);

/// What "veskhdr align --help" shows.
QString alignHelp();

} // namespace command_line
