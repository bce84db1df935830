#pragma once

#include "pair_registration.h"
#include "registration.h"

namespace registration {

/// The shots of one registerShots() call, walked from the reference to the darker ones and then to
/// the brighter ones. Each shot is compared with the reference and with the shot before it, whose
/// place is known: two ways that must lead to the same place. Where they do, their mean is taken;
/// where they do not, the one that is trusted more; where one is not to be had, the other.
/// Three pyramids are kept at a time. Throws std::bad_alloc.
class SetRegistration
{
public:
    SetRegistration(const QList<QImage> &shots, int reference, const Options &options,
                    const std::atomic<bool> &isCancelled);

    /// What is unfinished stays unaligned when cancelled.
    std::vector<Transform> run(const std::vector<int> &orderOfBrightness);

private:
    void walk(const std::vector<int> &shotsOutwards);
    PairResult placed(const ShotPyramid &before, const PairResult &placeOfBefore,
                      const ShotPyramid &shot);
    PairResult pair(const ShotPyramid &first, const ShotPyramid &second);
    ShotPyramid pyramid(int shot) const;
    void report();

    const QList<QImage> &shots;
    const int reference;
    const Options &options;
    const std::atomic<bool> &isCancelled;
    const int finest;
    ShotPyramid referencePyramid;
    std::vector<PairResult> results;
    int shotsDone = 0;
};

} // namespace registration
