#include "SetRegistration.h"

#include <algorithm>
#include <cmath>

namespace registration {
namespace {

constexpr double kContradicted = 0.7; ///< of the confidence is left when they are further apart
constexpr double kSureOfWarp = 0.8;   ///< confidence
constexpr double kTripodPixels = 1.0; ///< that a tripod may give way, in all shots of a set

bool isFound(const PairResult &pair)
{
    return pair.kind != Kind::Unaligned && pair.confidence >= kLeastConfidence;
}

bool needsNoResampling(const PairResult &pair)
{
    return pair.kind == Kind::Identity || pair.kind == Kind::Shift;
}

/// From the reference to a shot by way of another one.
PairResult chained(const PairResult &toBefore, const PairResult &beforeToShot)
{
    PairResult result;
    result.toShot = product(beforeToShot.toShot, toBefore.toShot);
    result.kind = std::max(toBefore.kind, beforeToShot.kind);
    if (result.kind <= Kind::Shift)
        result.kind = result.toShot == identityMatrix() ? Kind::Identity : Kind::Shift;
    result.confidence = std::min(toBefore.confidence, beforeToShot.confidence);
    result.residualPixels = std::hypot(toBefore.residualPixels, beforeToShot.residualPixels);
    result.reason = Reason::None;
    result.movement = std::hypot(toBefore.movement, beforeToShot.movement);
    result.placesMoved = std::hypot(toBefore.placesMoved, beforeToShot.placesMoved);
    return result;
}

bool agree(const PairResult &a, const PairResult &b, QSize size)
{
    return isFound(a) && isFound(b) &&
           cornerDistance(a.toShot, b.toShot, size) <= MotionGraph::kLoopTolerance;
}

const PairResult &moreTrusted(const PairResult &a, const PairResult &b)
{
    return a.confidence >= b.confidence ? a : b;
}

/// What two ways to one shot that meet say together, until all are weighed together.
PairResult united(const PairResult &direct, const PairResult &chain)
{
    if (needsNoResampling(direct))
        return direct;
    PairResult result = moreTrusted(direct, chain);
    result.kind = std::max({direct.kind, chain.kind, Kind::Rigid});
    result.confidence = std::max(direct.confidence, chain.confidence);
    result.movement = std::min(direct.movement, chain.movement);
    result.placesMoved = std::min(direct.placesMoved, chain.placesMoved);
    return result;
}

Transform transformOf(const PairResult &pair)
{
    Transform transform;
    transform.confidence = pair.confidence;
    transform.residualPixels = pair.residualPixels;
    transform.kind = isFound(pair) ? pair.kind : Kind::Unaligned;
    transform.reason = isFound(pair) ? Reason::None : pair.reason;
    if (transform.kind == Kind::Shift)
        transform.matrix = shiftMatrix(-pair.toShot[2], -pair.toShot[5]);
    else if (transform.kind != Kind::Unaligned && transform.kind != Kind::Identity)
        transform.matrix = inverse(pair.toShot);
    return transform;
}

bool isWarped(const PairResult &pair)
{
    return pair.kind == Kind::Perspective && pair.confidence >= kSureOfWarp &&
           pair.placesMoved > kTripodPixels;
}

/// A set in which nothing is turned or shifted by more than a pixel, and what the fit is unsure of,
/// was taken from a tripod and stays as it is: hands move more than that. What a perspective fit
/// finds in it is mostly how the tiles of two exposures differ; but a shot in which a tenth of the
/// places that agree lie further off than a pixel is warped itself, as scans of film are.
void keepTripodSet(std::vector<PairResult> &results)
{
    const auto staysInPlace = [](const PairResult &pair) {
        return !isFound(pair) || pair.movement <= kTripodPixels + pair.residualPixels;
    };
    if (!std::all_of(results.begin(), results.end(), staysInPlace))
        return;
    for (PairResult &pair : results) {
        if (isFound(pair) && !isWarped(pair))
            pair.kind = Kind::Identity;
    }
}

int finestScaleOf(const QList<QImage> &shots)
{
    int scale = 1;
    for (const QImage &shot : shots)
        scale = std::max(scale, finestScale(shot.size()));
    return scale;
}

} // namespace

SetRegistration::SetRegistration(const QList<QImage> &pictures, int referenceIndex,
                                 const Options &wishes, const std::atomic<bool> &cancelFlag)
    : shots(pictures)
    , reference(referenceIndex)
    , options(wishes)
    , isCancelled(cancelFlag)
    , finest(finestScaleOf(pictures))
    , results(static_cast<size_t>(pictures.size()))
    , graph(int(pictures.size()), referenceIndex, pictures[referenceIndex].size())
{
}

std::vector<Transform> SetRegistration::run(const std::vector<int> &orderOfBrightness)
{
    PairResult &unmoved = results[size_t(reference)];
    unmoved.kind = Kind::Identity;
    unmoved.confidence = 1.0;
    unmoved.reason = Reason::None;
    referencePyramid = pyramid(reference);
    report();
    const auto middle = std::find(orderOfBrightness.begin(), orderOfBrightness.end(), reference);
    walk({std::make_reverse_iterator(middle), orderOfBrightness.rend()});
    walk({middle + 1, orderOfBrightness.end()});
    graph.solve(results);
    keepTripodSet(results);
    std::vector<Transform> transforms;
    for (const PairResult &result : results)
        transforms.push_back(transformOf(result));
    return transforms;
}

void SetRegistration::walk(const std::vector<int> &shotsOutwards)
{
    std::vector<Placed> before; // the last two, the nearest first
    for (int shot : shotsOutwards) {
        if (isCancelled)
            return;
        ShotPyramid current = pyramid(shot);
        PairResult &place = results[size_t(shot)];
        place = placed(before, shot, current);
        if (isFound(place)) {
            before.insert(before.begin(), {shot, std::move(current)});
            before.resize(std::min<size_t>(before.size(), 2));
        }
        report();
    }
}

/// The way to a shot by way of one whose place is known. Unaligned when there is none.
PairResult SetRegistration::wayBy(const Placed &before, int shot, const ShotPyramid &current)
{
    const PairResult step = pair(before.pyramid, current);
    if (!isFound(step))
        return {};
    graph.add(before.shot, shot, step);
    return chained(results[size_t(before.shot)], step);
}

PairResult SetRegistration::placed(const std::vector<Placed> &before, int shot,
                                   const ShotPyramid &current)
{
    const PairResult direct = pair(referencePyramid, current);
    if (isFound(direct))
        graph.add(reference, shot, direct);
    if (before.empty())
        return direct;
    const PairResult chain = wayBy(before[0], shot, current);
    if (!isFound(direct) || !isFound(chain))
        return isFound(chain) ? chain : direct;
    const QSize size = referencePyramid.size;
    if (agree(direct, chain, size))
        return united(direct, chain);
    if (before.size() > 1) {
        const PairResult third = wayBy(before[1], shot, current);
        if (agree(direct, third, size))
            return united(direct, third);
        if (agree(chain, third, size))
            return united(chain, third);
    }
    PairResult result = moreTrusted(direct, chain);
    result.confidence *= kContradicted;
    return result;
}

PairResult SetRegistration::pair(const ShotPyramid &first, const ShotPyramid &second)
{
    const Kind mostly = options.isPerspectiveAllowed ? Kind::Perspective : Kind::Rigid;
    return registerPair(first, second, mostly, isCancelled);
}

ShotPyramid SetRegistration::pyramid(int shot) const
{
    return shotPyramid(shots[shot], finest, isCancelled);
}

void SetRegistration::report()
{
    ++shotsDone;
    if (options.onProgress)
        options.onProgress(double(shotsDone) / double(shots.size()));
}

} // namespace registration
