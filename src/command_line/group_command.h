#pragma once

#include "ExitCode.h"

#include <QStringList>

namespace command_line {

/// "veskhdr group": words are those after the command's name.
ExitCode runGroup(const QStringList &words);

/// What "veskhdr group --help" shows.
QString groupHelp();

} // namespace command_line
