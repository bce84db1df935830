#include "pair_registration.h"

#include "coarse_search.h"

#include <algorithm>
#include <cmath>

namespace registration {
namespace {

constexpr int kLeastSide = 16;      ///< of the finest level
constexpr double kSettled = 0.5;    ///< confidence that needs no other start
constexpr double kFaint = 0.03;     ///< confidence below which there is nothing to confirm
constexpr double kConfirmed = 0.35; ///< of what the way back confirms
constexpr double kSamePlace = 1.0;  ///< pixels that there and back may be apart at a corner
constexpr double kOtherTurns[] = {-5.0, 5.0, -10.0, 10.0};
constexpr double kWholeShiftPixels = 0.2; ///< that a whole-pixel shift may set a corner apart
constexpr double kSettledPixels = 0.5;    ///< of the finest level: more is worth another look
constexpr int kLeastTextured = 6;
constexpr double kLeastStretch = 0.7; ///< of an area, by a hand-held camera
constexpr double kMostStretch = 1.4;

/// How far tiles are looked for.
enum class Search { Usual, Wide };

/// The search at one level.
MatchSearch searchAt(const ShotPyramid &reference, size_t level, Search width)
{
    const NormalisedPlane &plane = reference.levels[level];
    const int quarter = std::min(plane.width, plane.height) / 4 / 16 * 16;
    MatchSearch search;
    search.level = level;
    search.side = std::clamp(quarter, 16, level == 0 ? 96 : 64);
    const size_t levelsAbove = reference.levels.size() - 1 - level;
    search.radius = levelsAbove < 2 || width == Search::Wide ? kLargestRadius : level == 0 ? 3 : 4;
    return search;
}

bool isPlausible(const Matrix &map, QSize size)
{
    constexpr double kStep = 4.0;
    for (QPointF corner : corners(size)) {
        const QPointF origin = mapped(map, corner);
        const QPointF x = (mapped(map, corner + QPointF(kStep, 0)) - origin) / kStep;
        const QPointF y = (mapped(map, corner + QPointF(0, kStep)) - origin) / kStep;
        const double stretch = x.x() * y.y() - x.y() * y.x();
        if (!(stretch > kLeastStretch && stretch < kMostStretch))
            return false;
    }
    return true;
}

/// Rises from 0 to 1 between two values.
double ramp(double value, double from, double to)
{
    return std::clamp((value - from) / (to - from), 0.0, 1.0);
}

/// Three doubts, each of which can bring it down: that too small a part of the tiles agrees (up to
/// a third of the picture may move), that too few do, that they are not alike.
double confidenceOf(const MotionFit &fit, int textured)
{
    const double share = double(fit.inliers) / std::max(1, textured);
    return ramp(share, 0.1, 0.55) * ramp(fit.inliers, 3, 12) * ramp(fit.meanScore, 0.2, 0.5) *
           ramp(fit.coverage, 0.0, 0.2);
}

class Refinement
{
public:
    Refinement(const ShotPyramid &referencePyramid, const ShotPyramid &shotPyramid, Kind most,
               Search searchWidth, const std::atomic<bool> &cancelFlag)
        : reference(referencePyramid)
        , shot(shotPyramid)
        , mostly(most)
        , width(searchWidth)
        , isCancelled(cancelFlag)
    {
    }

    PairResult from(const Matrix &start)
    {
        map = start;
        const size_t levels = std::min(reference.levels.size(), shot.levels.size());
        double wideConfidence = 1.0;
        for (size_t level = levels; level-- > 0 && !isCancelled;) {
            step(searchAt(reference, level, width));
            if (level <= 1)
                wideConfidence = std::min(wideConfidence, confidenceOf(fit, textured));
        }
        if (lastChange > kSettledPixels * reference.finestScale)
            polish();
        return isCancelled ? PairResult() : result(wideConfidence);
    }

private:
    void polish()
    {
        MatchSearch search = searchAt(reference, 0, width);
        search.radius = 2;
        const Matrix before = map;
        const MotionFit first = fit;
        step(search);
        if (fit.kind == first.kind && fit.inliers >= first.inliers)
            return;
        map = before; // fewer places agree: the wider look counts
        fit = first;
    }

    void step(const MatchSearch &search)
    {
        const Matrix before = map;
        const MatchResult found = findMatches(reference, shot, map, search, isCancelled);
        textured = found.textured;
        fit = fitMotion(found.matches, map, reference.size, reference.scale(search.level), mostly);
        if (fit.kind != Kind::Unaligned && isPlausible(fit.toShot, reference.size))
            map = fit.toShot;
        else
            fit.kind = Kind::Unaligned;
        lastChange = cornerDistance(map, before, reference.size);
    }

    PairResult result(double wideConfidence) const
    {
        PairResult pair;
        if (fit.kind == Kind::Unaligned) {
            pair.reason = textured < kLeastTextured ? Reason::NoDetail : Reason::NoMatch;
            return pair;
        }
        pair.confidence = std::min(wideConfidence, confidenceOf(fit, textured));
        pair.residualPixels = fit.residual;
        pair.movement = fit.movement;
        pair.placesMoved = fit.placesMoved;
        pair.agreement = fit.meanScore * fit.inliers;
        if (fit.isWholeShiftAsGood ||
            cornerDistance(fit.wholeShift, fit.toShot, reference.size) <= kWholeShiftPixels)
            takeWholeShift(pair);
        else
            take(pair, fit.kind, fit.toShot);
        if (pair.confidence < kLeastConfidence)
            pair.reason = textured < kLeastTextured ? Reason::NoDetail : Reason::NoMatch;
        return pair;
    }

    static void take(PairResult &pair, Kind kind, const Matrix &toShot)
    {
        pair.kind = kind;
        pair.toShot = toShot;
        pair.reason = Reason::None;
    }

    void takeWholeShift(PairResult &pair) const
    {
        const bool isIdentity = fit.wholeShift == identityMatrix();
        take(pair, isIdentity ? Kind::Identity : Kind::Shift, fit.wholeShift);
    }

    const ShotPyramid &reference;
    const ShotPyramid &shot;
    const Kind mostly;
    const Search width;
    const std::atomic<bool> &isCancelled;
    Matrix map = identityMatrix();
    MotionFit fit;
    int textured = 0;
    double lastChange = 0.0; ///< by which the last step moved a corner, in pixels
};

bool isBetter(const PairResult &a, const PairResult &b)
{
    return a.confidence * a.agreement > b.confidence * b.agreement;
}

void tryStarts(Refinement &refinement, const std::vector<CoarseStart> &starts, PairResult &best)
{
    for (const CoarseStart &start : starts) {
        const PairResult pair = refinement.from(start.toShot);
        if (!isBetter(best, pair))
            best = pair;
    }
}

bool isTooSmall(const ShotPyramid &pyramid)
{
    return pyramid.levels.empty() ||
           std::min(pyramid.levels[0].width, pyramid.levels[0].height) < kLeastSide;
}

PairResult bestOfStarts(const ShotPyramid &reference, const ShotPyramid &shot, Kind mostly,
                        Search width, const std::atomic<bool> &isCancelled)
{
    Refinement refinement(reference, shot, mostly, width, isCancelled);
    PairResult best;
    best.reason = Reason::NoDetail; // unless there is a shift to start from
    tryStarts(refinement, coarseStarts(reference, shot, 0.0, isCancelled), best);
    for (double degrees : kOtherTurns) {
        if (best.confidence >= kSettled || isCancelled)
            break;
        std::vector<CoarseStart> starts = coarseStarts(reference, shot, degrees, isCancelled);
        starts.resize(std::min<size_t>(1, starts.size()));
        tryStarts(refinement, starts, best);
    }
    return best;
}

/// The two ways between two pictures are found independently of one another: each looks for tiles
/// of its own.
PairResult confirmedByTheWayBack(const ShotPyramid &reference, const ShotPyramid &shot, Kind mostly,
                                 const std::atomic<bool> &isCancelled)
{
    PairResult there = bestOfStarts(reference, shot, mostly, Search::Wide, isCancelled);
    const PairResult back = bestOfStarts(shot, reference, mostly, Search::Wide, isCancelled);
    if (std::min(there.confidence, back.confidence) < kFaint)
        return there;
    const Matrix round = product(back.toShot, there.toShot);
    if (cornerDistance(round, identityMatrix(), reference.size) > kSamePlace)
        return there;
    there.confidence = std::max(there.confidence, kConfirmed);
    there.reason = Reason::None;
    return there;
}

} // namespace

PairResult registerPair(const ShotPyramid &reference, const ShotPyramid &shot, Kind mostly,
                        const std::atomic<bool> &isCancelled)
{
    if (isTooSmall(reference) || isTooSmall(shot)) {
        PairResult none;
        none.reason = Reason::TooSmall;
        return none;
    }
    const PairResult best = bestOfStarts(reference, shot, mostly, Search::Usual, isCancelled);
    if (best.confidence < kFaint || best.confidence >= kLeastConfidence)
        return best;
    return confirmedByTheWayBack(reference, shot, mostly, isCancelled);
}

} // namespace registration
