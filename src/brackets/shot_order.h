#pragma once

#include "Shot.h"

#include <vector>

/// The order in which a camera took its shots, and the time between them. Clocks are set, go
/// wrong, and some tell no seconds; numbers in file names run on. Any thread, reentrant.
namespace brackets {

/// Shots of one camera, picture size and orientation, in the order in which they were taken.
struct Sequence
{
    std::vector<Shot> shots;
    /// Seconds between two readings of the clock that look the same: 0, or 60 where it tells no
    /// seconds.
    double clockSeconds = 0;
};

/// Shots sorted out by camera, size and orientation, each kind in order: by file name where the
/// clock runs along with the names but for a few jumps (daylight saving, a clock that was set), and
/// by time otherwise.
std::vector<Sequence> inSequences(std::vector<Shot> shots);

/// The shortest pause that may lie between the end of the exposure of shot i and shot i + 1, in
/// seconds, 0 or more. A jump of the clock by whole hours between two file numbers that follow each
/// other counts for none; a jump back for an endless pause.
double pauseAfter(const Sequence &sequence, size_t i);

} // namespace brackets
