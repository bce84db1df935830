#pragma once

#include "Transform.h"

#include <QImage>
#include <QList>

#include <atomic>
#include <functional>
#include <vector>

namespace registration {

enum class Outcome { Done, Cancelled, OutOfMemory, NoShots };

struct Options
{
    int reference = -1;                             ///< index, or -1: exposure::referenceShot()
    bool isPerspectiveAllowed = true;               ///< false: a turn and a shift at most
    std::function<void(double)> onProgress;         ///< 0..1, on the calling thread; may be empty
    const std::atomic<bool> *isCancelled = nullptr; ///< looked at every few milliseconds
};

struct Result
{
    Outcome outcome = Outcome::NoShots;
    int reference = -1;                ///< index of the shot that the others go to
    std::vector<Transform> transforms; ///< one for each shot, the reference's the identity
};

/// Finds how each shot of one scene lies over the reference, whatever the exposures.
/// shots: upright pictures of any format and size, not null; borrowed for the call.
/// transforms is empty unless the outcome is Done. Any thread, reentrant; uses all cores inside the
/// call; equal results for any number of threads and on every vector target. Throws nothing.
Result registerShots(const QList<QImage> &shots, const Options &options = {});

} // namespace registration
