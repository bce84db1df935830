#pragma once

#include "ExitCode.h"
#include "MergeOptions.h"
#include "ProgressBar.h"

namespace command_line {

/// What the words choose shots for, for a merge of pictures of this size: masks are read, strokes
/// come after them. Says on standard error what is wrong with a mask, if anything is, and returns
/// the exit code for it. Main thread only.
ExitCode readParts(ProgressBar &bar, const MergeOptions &options, QSize size,
                   exposure::Options &how);

} // namespace command_line
