#pragma once

#include "MotionGraph.h"
#include "pair_registration.h"
#include "registration.h"

namespace registration {

/// The shots of one registerShots() call, walked from the reference to the darker ones and then to
/// the brighter ones. Each shot is compared with the reference and with the shot before it, whose
/// place is known: two ways that must lead to the same place. Where they do not, a third way, by
/// the shot before that, tells which pair is wrong, and it does not count; where there is none, the
/// way that is trusted more does; where one is not to be had, the other. At the end all pairs that
/// count are weighed together. Four pyramids are kept at a time. Throws std::bad_alloc.
class SetRegistration
{
public:
    SetRegistration(const QList<QImage> &shots, int reference, const Options &options,
                    const std::atomic<bool> &isCancelled);

    /// What is unfinished stays unaligned when cancelled.
    std::vector<Transform> run(const std::vector<int> &orderOfBrightness);

private:
    struct Placed
    {
        int shot;
        ShotPyramid pyramid;
    };

    void walk(const std::vector<int> &shotsOutwards);
    PairResult placed(const std::vector<Placed> &before, int shot, const ShotPyramid &current);
    PairResult wayBy(const Placed &before, int shot, const ShotPyramid &current);
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
    MotionGraph graph;
    int shotsDone = 0;
};

} // namespace registration
