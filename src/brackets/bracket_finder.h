#pragma once

#include "Shot.h"

#include <vector>

struct BracketRules
{
    double largestGapSeconds = 5; ///< from the end of one exposure to the next shot
    int fewestPictures = 3;       ///< two or more
};

/// Shots in the order in which they were taken.
using Bracket = std::vector<Shot>;

namespace brackets {

/// The brackets among these shots, by time; shots in none are left out.
///
/// A bracket is a run of shots of one camera, size and orientation, with small gaps, whose
/// exposures differ: by the exposure bias or, where that stands still (manual exposure), by time,
/// aperture and sensitivity, then in even steps of at least half a stop. A run is cut into brackets
/// so that as many shots as possible belong to one with even steps. That tells brackets taken one
/// after the other apart, in whatever order the camera takes them, and single shots just before or
/// after one.
std::vector<Bracket> find(std::vector<Shot> shots, const BracketRules &rules);

} // namespace brackets
