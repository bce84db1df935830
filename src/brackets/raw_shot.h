#pragma once

#include "Shot.h"

namespace brackets {

/// What the header of a camera raw file says; the path is left to the caller. Fields that it does
/// not tell stay as they are in a new Shot. Any thread, reentrant.
Shot readRawShot(const QString &path);

} // namespace brackets
