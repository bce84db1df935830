#include "motion.h"

#include "FlagRuns.h"
#include "Movement.h"
#include "SmallShot.h"
#include "clipped_parts.h"
#include "planes.h"
#include "regions.h"

#include <algorithm>
#include <new>

namespace {

using motion::Control;
using motion::Plane;
using motion::Region;
using motion::RegionChoice;
using motion::Result;
using motion::SmallShot;
using motion::Status;
using motion::ThingTake;

constexpr size_t kMostShots = 64;
constexpr int kMargin = 3; ///< around what moved, at the small size; the soft edge lies in it
constexpr size_t kLeastPlaces = 150; ///< of a region with its margin
constexpr size_t kLargestHole = 8;   ///< one of so many parts of all that moved
constexpr int kNarrow = 6;           ///< half of the widest gap that leaves a hole closed

/// What tells the caller how far it got, and hears when to stop.
class Steps
{
public:
    explicit Steps(const Control &caller)
        : control(caller)
    {
    }

    /// False when the work is to end.
    bool reached(double progress) const
    {
        if (control.cancelled != nullptr && *control.cancelled)
            return false;
        if (control.progress)
            control.progress(progress);
        return true;
    }

private:
    const Control &control;
};

bool canBeSearched(const std::vector<QImage> &shots, int reference,
                   const std::vector<ThingTake> &things)
{
    const auto count = static_cast<int>(shots.size());
    if (shots.size() < 2 || shots.size() > kMostShots || reference >= count)
        return false;
    if (std::any_of(things.begin(), things.end(), [count](const ThingTake &thing) {
            return thing.shot < 0 || thing.shot >= count;
        }))
        return false;
    return std::all_of(shots.begin(), shots.end(), [&](const QImage &shot) {
        return !shot.isNull() && shot.size() == shots.front().size();
    });
}

/// Takes a region's places from the shots that the choice leaves out, but those where all that it
/// keeps show nothing and another shot does.
void cut(const Region &region, const RegionChoice &choice, const std::vector<SmallShot> &shots,
         const motion::Movement &movement, std::vector<Plane> &usable)
{
    for (size_t shot = 0; shot < shots.size(); ++shot)
        if (choice.kept[shot] == 0)
            for (const size_t place : region)
                usable[shot][place] = 0;
    for (const motion::ClippedPart &part : clippedParts(region, choice, shots, movement))
        for (size_t shot = 0; shot < shots.size(); ++shot)
            if (part.shots[shot] != 0)
                for (const size_t place : part.places)
                    usable[shot][place] = 255;
}

/// The plane as a picture of half the shots' size, null when it is all of one level.
QImage asMask(const Plane &plane, const SmallShot &small, int side, QSize size, uint8_t neutral)
{
    if (std::all_of(plane.begin(), plane.end(), [=](uint8_t level) { return level == neutral; }))
        return {};
    const QSize half((size.width() + 1) / 2, (size.height() + 1) / 2);
    const Plane soft = motion::planes::softened(plane, small.width, small.height);
    return motion::planes::enlarged(soft, small.width, small.height, side / 2, half);
}

/// For each group of runs whether flagged places enclose it and are many beside it.
std::vector<char> holesAmong(const motion::FlagRuns &found, const SmallShot &size, size_t flagged)
{
    const auto width = static_cast<size_t>(size.width);
    const size_t places = size.covered.size();
    const std::vector<size_t> sizes = found.groupSizes();
    std::vector<char> isHole(found.groupCount());
    for (size_t group = 0; group < isHole.size(); ++group)
        isHole[group] = static_cast<char>(sizes[group] <= flagged / kLargestHole);
    for (const motion::FlagRuns::Run &run : found.runs())
        if (run.begin % width == 0 || run.end % width == 0 || run.begin < width ||
            run.end > places - width)
            isHole[run.group] = 0;
    return isHole;
}

/// Places that flagged ones enclose are flagged too, when they are few beside them: the middle of a
/// thing of one colour changes nothing where it covers itself, but is to come from the same shot.
/// A gap of up to twice `gap` leaves them enclosed.
void fillHoles(Plane &flags, const SmallShot &size, int gap)
{
    const auto flagged = static_cast<size_t>(std::count(flags.begin(), flags.end(), 1));
    if (flagged == 0)
        return;
    Plane apart = motion::planes::crowded(flags, size.width, size.height, gap, 1);
    for (uint8_t &flag : apart)
        flag = static_cast<uint8_t>(flag == 0);
    const motion::FlagRuns found(apart, static_cast<size_t>(size.width));
    const std::vector<char> isHole = holesAmong(found, size, flagged);
    Plane holes(flags.size());
    for (const motion::FlagRuns::Run &run : found.runs())
        if (isHole[run.group] != 0)
            std::fill(&holes[run.begin], &holes[run.begin] + (run.end - run.begin), uint8_t(1));
    const Plane filled = motion::planes::crowded(holes, size.width, size.height, gap, 1);
    for (size_t i = 0; i < flags.size(); ++i)
        flags[i] |= filled[i];
}

std::vector<Region> movingRegions(const motion::Movement &movement, const SmallShot &small)
{
    Plane grown =
        motion::planes::crowded(movement.changes(), small.width, small.height, kMargin, 1);
    fillHoles(grown, small, kNarrow);
    fillHoles(grown, small, 0);
    return motion::touching(grown, small.width, kLeastPlaces);
}

/// Which shots are to be the references of regions.
struct Wishes
{
    int reference; ///< of all of them, or kAutomatic
    const std::vector<ThingTake> &things;
};

/// That of a region with a place that somebody has named; the last one's, if there are several.
int referenceOf(const Region &region, const Wishes &wishes, int side, int width)
{
    int reference = wishes.reference;
    for (const ThingTake &thing : wishes.things) {
        const QPoint block(thing.place.x() / side, thing.place.y() / side);
        const auto place = static_cast<size_t>(block.y()) * size_t(width) + size_t(block.x());
        if (thing.place.x() >= 0 && thing.place.y() >= 0 && block.x() < width &&
            std::binary_search(region.begin(), region.end(), place))
            reference = thing.shot;
    }
    return reference;
}

Result masksOf(const std::vector<SmallShot> &shots, int side, QSize size, const Wishes &wishes,
               const Steps &steps)
{
    Result result;
    result.status = Status::Cancelled;
    const motion::Movement movement(shots);
    const std::vector<Region> regions = movingRegions(movement, shots[0]);
    std::vector<Plane> usable(shots.size(), Plane(shots[0].covered.size(), 255));
    Plane found(shots[0].covered.size());
    for (size_t i = 0; i < regions.size(); ++i) {
        if (!steps.reached(0.7 + 0.2 * double(i) / double(regions.size())))
            return result;
        const int fixed = referenceOf(regions[i], wishes, side, shots[0].width);
        cut(regions[i], motion::choose(regions[i], shots, movement, fixed), shots, movement,
            usable);
        for (const size_t place : regions[i])
            found[place] = 255;
    }
    std::vector<QImage> masks;
    for (const Plane &plane : usable) {
        if (!steps.reached(0.9 + 0.1 * double(masks.size()) / double(usable.size())))
            return result;
        masks.push_back(asMask(plane, shots[0], side, size, 255));
    }
    if (!steps.reached(1.0))
        return result;
    result = {masks, asMask(found, shots[0], side, size, 0), Status::Done};
    return result;
}

Result search(const std::vector<QImage> &shots, const Wishes &wishes, const Steps &steps)
{
    Result result;
    result.status = Status::Cancelled;
    const QSize size = shots.front().size();
    const int side = motion::blockSide(size);
    std::vector<SmallShot> small;
    for (const QImage &shot : shots) {
        if (!steps.reached(0.5 * double(small.size()) / double(shots.size())))
            return result;
        small.push_back(motion::shrink(motion::readable(shot), side));
    }
    if (!steps.reached(0.5))
        return result;
    return masksOf(small, side, size, wishes, steps);
}

} // namespace

Result motion::find(const std::vector<QImage> &shots, int reference, const Control &control,
                    const std::vector<ThingTake> &things)
{
    if (!canBeSearched(shots, reference, things))
        return {};
    try {
        return search(shots, {reference, things}, Steps(control));
    } catch (const std::bad_alloc &) {
        Result result;
        result.status = Status::OutOfMemory;
        return result;
    }
}
