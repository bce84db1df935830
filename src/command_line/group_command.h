#pragma once

#include "ExitCode.h"

#include <QStringList>

/// "veskhdr group": words are those after the command's name.
ExitCode runGroup(const QStringList &words);

/// What "veskhdr group --help" shows.
QString groupHelp();
