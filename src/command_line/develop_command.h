#pragma once

#include "ExitCode.h"

#include <QStringList>

/// "veskhdr develop": from the light of a scene to a picture for the screen. Main thread.
namespace command_line {

/// words: behind the command's name.
ExitCode runDevelop(const QStringList &words);

QString developHelp();

} // namespace command_line
