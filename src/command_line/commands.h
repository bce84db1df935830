#pragma once

#include "exit_code.h"

#include <QStringList>

/// Runs what the words after the program's name ask for.
ExitCode runProgram(const QStringList &words);
