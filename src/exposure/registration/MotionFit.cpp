#include "MotionFit.h"

#include "motion_models.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace registration {
namespace {

constexpr int kMostPairs = 150;
constexpr int kRounds = 6; ///< of fitting and weighing anew
constexpr double kLooseTolerance =
    1.5;                              ///< times the tolerance, for the consensus: it knows no tilt
constexpr double kWeightLimit = 1.25; ///< times the tolerance
constexpr int kLeastForRigid = 4;
constexpr int kLeastForPerspective = 12;
constexpr double kLeastF = 5.0; ///< F(5, n), chance exceeds it once in 5000 times
constexpr double kClearOfUncertainty = 5.0;
constexpr double kLeastBend = 0.25; ///< pixels at a corner; less is not worth eight parameters
constexpr int kFields = 4;

/// Every pair of matches, or kMostPairs spread evenly over them.
std::vector<std::pair<size_t, size_t>> pairsOf(size_t count)
{
    std::vector<std::pair<size_t, size_t>> pairs;
    const size_t all = count * (count - 1) / 2;
    const size_t step = std::max<size_t>(1, all / kMostPairs) | 1U; // odd, so that it meets all
    size_t number = 0;
    for (size_t a = 0; a < count; ++a) {
        for (size_t b = a + 1; b < count; ++b) {
            if (number++ % step == 0)
                pairs.emplace_back(a, b);
        }
    }
    return pairs;
}

/// A turn and shift of the plane.
struct RigidMap
{
    double c = 1.0;
    double s = 0.0;
    QPointF shift;

    QPointF mapped(QPointF p) const
    {
        return QPointF(c * p.x() - s * p.y(), s * p.x() + c * p.y()) + shift;
    }
    Matrix matrix() const { return {c, -s, shift.x(), s, c, shift.y(), 0, 0, 1}; }
};

/// The one that takes the middle of two places, and the direction between them, to those found.
RigidMap rigidThrough(const Match &a, const Match &b)
{
    const QPointF from = b.reference - a.reference;
    const QPointF to = b.shot - a.shot;
    const double along = from.x() * to.x() + from.y() * to.y();
    const double across = from.x() * to.y() - from.y() * to.x();
    const double length = std::hypot(along, across);
    RigidMap map;
    if (length > 0) {
        map.c = along / length;
        map.s = across / length;
    }
    map.shift = (a.shot + b.shot) / 2 - map.mapped((a.reference + b.reference) / 2);
    return map;
}

double agreement(const RigidMap &map, const std::vector<Match> &matches, double tolerance)
{
    double sum = 0;
    for (const Match &match : matches) {
        const QPointF error = map.mapped(match.reference) - match.shot;
        sum += biweight(error.x() * error.x() + error.y() * error.y(), tolerance);
    }
    return sum;
}

/// What the matches say once the start is taken out: where each place would go in the reference.
std::vector<Match> withoutStart(const std::vector<Match> &matches, const Matrix &start)
{
    const Matrix back = inverse(start);
    std::vector<Match> result = matches;
    for (Match &match : result)
        match.shot = mapped(back, match.shot);
    return result;
}

/// The turn and shift on top of the start that most matches agree with.
Matrix consensus(const std::vector<Match> &matches, const Matrix &start, double tolerance)
{
    const std::vector<Match> moved = withoutStart(matches, start);
    RigidMap best;
    double bestAgreement = agreement(best, moved, tolerance);
    for (const auto &[a, b] : pairsOf(moved.size())) {
        const RigidMap map = rigidThrough(moved[a], moved[b]);
        const double agrees = agreement(map, moved, tolerance);
        if (agrees > bestAgreement) {
            best = map;
            bestAgreement = agrees;
        }
    }
    return product(start, best.matrix());
}

/// A model with its weights, from fits that each weigh by the one before.
struct Fitted
{
    Matrix toShot;
    std::vector<double> weights;
};

Fitted fittedRigid(const std::vector<Match> &matches, Fitted fitted, double limit)
{
    for (int round = 0; round < kRounds; ++round) {
        if (const auto map = rigidFit({matches, fitted.weights}))
            fitted.toShot = *map;
        fitted.weights = biweights(fitted.toShot, matches, limit);
    }
    return fitted;
}

Fitted fittedPerspective(const std::vector<Match> &matches, const UnitFrame &frame, Fitted fitted,
                         double limit)
{
    for (int round = 0; round < kRounds; ++round) {
        if (const auto map = perspectiveFit({matches, fitted.weights}, fitted.toShot, frame))
            fitted.toShot = *map;
        fitted.weights = biweights(fitted.toShot, matches, limit);
    }
    return fitted;
}

/// True when chance does not explain by how much the better model's error is smaller.
bool isBeyondChance(double error, double betterError, int moreParameters, double freedom)
{
    if (freedom < 1.0)
        return false;
    return (error - betterError) / moreParameters > kLeastF * betterError / freedom;
}

double sumOf(const std::vector<double> &weights)
{
    return std::accumulate(weights.begin(), weights.end(), 0.0);
}

int inlierCount(const std::vector<double> &weights)
{
    return static_cast<int>(
        std::count_if(weights.begin(), weights.end(), [](double weight) { return weight > 0.0; }));
}

/// Numbers that the matches settle beyond those of a model.
double freedomOf(const std::vector<double> &weights, int parameters)
{
    return 2 * sumOf(weights) - parameters;
}

bool isPerspectiveBetter(const std::vector<Match> &matches, const Fitted &perspective,
                         const UnitFrame &frame, QSize size)
{
    if (inlierCount(perspective.weights) < kLeastForPerspective)
        return false;
    const WeightedMatches weighted{matches, perspective.weights};
    const auto rigid = rigidFit(weighted);
    const double freedom = freedomOf(perspective.weights, 8);
    const double error = squaredError(perspective.toShot, weighted);
    if (!rigid || !isBeyondChance(squaredError(*rigid, weighted), error, 5, freedom))
        return false;
    const double deviation = std::sqrt(error / freedom);
    const double uncertainty =
        cornerUncertainty(weighted, perspective.toShot, frame, size, deviation);
    return cornerDistance(perspective.toShot, *rigid, size) >
           std::max(kLeastBend, kClearOfUncertainty * uncertainty);
}

double coverageOf(const WeightedMatches &matches, QSize size)
{
    std::array<bool, kFields * kFields> isCovered{};
    for (size_t i = 0; i < matches.matches.size(); ++i) {
        const QPointF at = matches.matches[i].reference;
        const int x = std::clamp(int(at.x() * kFields / size.width()), 0, kFields - 1);
        const int y = std::clamp(int(at.y() * kFields / size.height()), 0, kFields - 1);
        if (matches.weights[i] > 0)
            isCovered[size_t(y * kFields + x)] = true;
    }
    return double(std::count(isCovered.begin(), isCovered.end(), true)) / isCovered.size();
}

/// Pixels by which nine in ten inliers move at most.
double movedAtMost(const WeightedMatches &matches, const Matrix &toShot)
{
    std::vector<double> distances;
    for (size_t i = 0; i < matches.matches.size(); ++i) {
        const QPointF at = matches.matches[i].reference;
        const QPointF moved = mapped(toShot, at) - at;
        if (matches.weights[i] > 0)
            distances.push_back(std::hypot(moved.x(), moved.y()));
    }
    const auto most = distances.begin() + long(distances.size() * 9 / 10);
    std::nth_element(distances.begin(), most, distances.end());
    return *most;
}

MotionFit described(const WeightedMatches &matches, const Fitted &fitted, Kind kind, QSize size)
{
    MotionFit fit;
    fit.kind = kind;
    fit.toShot = fitted.toShot;
    fit.inliers = inlierCount(fitted.weights);
    const double total = sumOf(fitted.weights);
    const double error = squaredError(fitted.toShot, matches);
    for (size_t i = 0; i < matches.matches.size(); ++i)
        fit.meanScore += matches.weights[i] * matches.matches[i].score / total;
    fit.residual = std::sqrt(error / total);
    fit.coverage = coverageOf(matches, size);
    fit.wholeShift = wholeShiftFit(matches);
    fit.movement = cornerDistance(*rigidFit(matches), identityMatrix(), size);
    fit.placesMoved = movedAtMost(matches, fitted.toShot);
    const int parameters = kind == Kind::Perspective ? 8 : 3;
    fit.isWholeShiftAsGood = !isBeyondChance(squaredError(fit.wholeShift, matches), error,
                                             parameters, freedomOf(fitted.weights, parameters));
    return fit;
}

} // namespace

MotionFit fitMotion(const std::vector<Match> &matches, const Matrix &start, QSize size,
                    double tolerance, Kind mostly)
{
    if (matches.size() < kLeastForRigid)
        return {};
    const double limit = kWeightLimit * tolerance;
    const Matrix agreed = consensus(matches, start, kLooseTolerance * tolerance);
    const Fitted first{agreed, biweights(agreed, matches, kLooseTolerance * tolerance)};
    if (mostly == Kind::Perspective) {
        const UnitFrame frame(size);
        const Fitted perspective = fittedPerspective(matches, frame, first, limit);
        if (isPerspectiveBetter(matches, perspective, frame, size))
            return described({matches, perspective.weights}, perspective, Kind::Perspective, size);
    }
    const Fitted rigid = fittedRigid(matches, first, limit);
    if (inlierCount(rigid.weights) < kLeastForRigid)
        return {};
    return described({matches, rigid.weights}, rigid, Kind::Rigid, size);
}

} // namespace registration
