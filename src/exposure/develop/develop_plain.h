#pragma once

#include "develop_options.h"

namespace develop {

/// What picture() gives, pixel after pixel and level after level: the definition that the fast
/// code must equal. The bracket of Local is fused by the fusion itself, which has a yardstick of
/// its own. light: as picture() takes it, not null.
QImage picturePlain(const QImage &light, const Options &options);

} // namespace develop
