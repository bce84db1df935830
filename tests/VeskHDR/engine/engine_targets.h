#pragma once

#include "exposure_merge_rows.h"
#include "mtb_rows.h"
#include "vector_targets.h"

namespace vectorTargets {

/// True when the engine really runs the target that is forced, and nothing else under its name.
inline bool isEngineRunning(const Forced &forced)
{
    return merge::rowTarget() == forced.target && mtb::rowTarget() == forced.target;
}

} // namespace vectorTargets
