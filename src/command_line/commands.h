#pragma once

#include "ExitCode.h"

#include <QStringList>

/// Runs what the words after the program's name ask for.
ExitCode runProgram(const QStringList &words);
