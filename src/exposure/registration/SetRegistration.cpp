#include "SetRegistration.h"

#include "motion_models.h"

#include <algorithm>
#include <cmath>

namespace registration {
namespace {

constexpr double kLoopTolerance = 1.5; ///< pixels that the two ways to a shot may be apart
constexpr double kContradicted = 0.7;  ///< of the confidence is left when they are further apart
constexpr double kTripodPixels = 1.0;  ///< that a tripod may give way, in all shots of a set

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
    result.movement = toBefore.movement + beforeToShot.movement;
    return result;
}

/// Between two maps, by where they put the corners.
Matrix meanOf(const PairResult &a, const PairResult &b, QSize size)
{
    const double weightA = 1 / (0.01 + a.residualPixels * a.residualPixels);
    const double weightB = 1 / (0.01 + b.residualPixels * b.residualPixels);
    std::vector<Match> matches;
    std::array<QPointF, 4> to;
    for (size_t i = 0; i < to.size(); ++i) {
        const QPointF from = corners(size)[i];
        to[i] = (mapped(a.toShot, from) * weightA + mapped(b.toShot, from) * weightB) /
                (weightA + weightB);
        matches.push_back({from, to[i]});
    }
    if (std::max(a.kind, b.kind) == Kind::Perspective)
        return matrixFromCorners(corners(size), to);
    return *rigidFit({matches, {1, 1, 1, 1}});
}

/// What two ways to one shot say together.
PairResult reconciled(const PairResult &direct, const PairResult &chain, QSize size)
{
    if (!isFound(direct) || !isFound(chain))
        return isFound(chain) ? chain : direct;
    PairResult result = direct.confidence >= chain.confidence ? direct : chain;
    if (cornerDistance(direct.toShot, chain.toShot, size) > kLoopTolerance) {
        result.confidence *= kContradicted;
        return result;
    }
    if (needsNoResampling(direct) || needsNoResampling(chain))
        return needsNoResampling(direct) ? direct : chain;
    result.toShot = meanOf(direct, chain, size);
    result.kind = std::max(direct.kind, chain.kind);
    result.movement = std::min(direct.movement, chain.movement);
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

/// A set in which nothing is turned or shifted by more than a pixel was taken from a tripod, and
/// stays as it is: hands move more than that. What a perspective fit finds in it is how the tiles
/// of two exposures differ.
void keepTripodSet(std::vector<PairResult> &results)
{
    const auto staysInPlace = [](const PairResult &pair) {
        return !isFound(pair) || pair.movement <= kTripodPixels;
    };
    if (!std::all_of(results.begin(), results.end(), staysInPlace))
        return;
    for (PairResult &pair : results) {
        if (isFound(pair))
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
{
}

std::vector<Transform> SetRegistration::run(const std::vector<int> &orderOfBrightness)
{
    results[size_t(reference)] = {
        Kind::Identity, identityMatrix(), 1.0, 0.0, 1.0, Reason::None, 0.0};
    referencePyramid = pyramid(reference);
    report();
    const auto middle = std::find(orderOfBrightness.begin(), orderOfBrightness.end(), reference);
    walk({std::make_reverse_iterator(middle), orderOfBrightness.rend()});
    walk({middle + 1, orderOfBrightness.end()});
    keepTripodSet(results);
    std::vector<Transform> transforms;
    for (const PairResult &result : results)
        transforms.push_back(transformOf(result));
    return transforms;
}

void SetRegistration::walk(const std::vector<int> &shotsOutwards)
{
    ShotPyramid before;
    PairResult placeOfBefore;
    for (int shot : shotsOutwards) {
        if (isCancelled)
            return;
        ShotPyramid current = pyramid(shot);
        PairResult &place = results[size_t(shot)];
        place = placed(before, placeOfBefore, current);
        if (isFound(place)) {
            before = std::move(current);
            placeOfBefore = place;
        }
        report();
    }
}

PairResult SetRegistration::placed(const ShotPyramid &before, const PairResult &placeOfBefore,
                                   const ShotPyramid &shot)
{
    const PairResult direct = pair(referencePyramid, shot);
    if (before.levels.empty())
        return direct;
    const PairResult fromBefore = pair(before, shot);
    if (!isFound(fromBefore))
        return direct;
    return reconciled(direct, chained(placeOfBefore, fromBefore), referencePyramid.size);
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
