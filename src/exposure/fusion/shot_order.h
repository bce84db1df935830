#pragma once

#include "fusion_options.h"

#include <vector>

namespace fusion {

/// Sorts shots of one size and format by their pixels and masks, so that what follows does not
/// depend on the order in which they came: sums of floats do. Usually the first pixels decide.
void sortByContents(std::vector<Shot> &shots);

} // namespace fusion
