#include "MotionGraph.h"

#include "linear_solver.h"
#include "motion_models.h"

#include <algorithm>

namespace registration {
namespace {

constexpr int kRounds = 3;              ///< maps are not linear, but nearly so for such motions
constexpr double kLeastVariance = 0.01; ///< of a pair, in square pixels
constexpr size_t kNoPlace = size_t(-1);

bool isToBeResampled(const PairResult &place)
{
    return place.kind == Kind::Rigid || place.kind == Kind::Perspective;
}

double weightOf(const PairResult &pair)
{
    return 1 / (kLeastVariance + pair.residualPixels * pair.residualPixels);
}

/// Least squares for one coordinate of one corner: differences between places, weighted.
struct DifferenceEquations
{
    explicit DifferenceEquations(size_t unknowns)
        : count(unknowns)
        , matrix(unknowns * unknowns)
        , right(unknowns)
    {
    }

    /// value(to) - value(from) = difference; kNoPlace: an end whose value is settled, and counted
    /// in the difference.
    void add(size_t from, size_t to, double difference, double weight)
    {
        addEnd(to, from, difference, weight);
        addEnd(from, to, -difference, weight);
    }

    std::vector<double> values() const { return solved(matrix, right); }

private:
    void addEnd(size_t end, size_t other, double difference, double weight)
    {
        if (end == kNoPlace)
            return;
        matrix[end * count + end] += weight;
        right[end] += weight * difference;
        if (other != kNoPlace)
            matrix[end * count + other] -= weight;
    }

    size_t count;
    std::vector<double> matrix;
    std::vector<double> right;
};

/// The map of this kind that takes the corners of a picture to these places.
Matrix matrixOfKind(Kind kind, QSize size, const std::array<QPointF, 4> &to)
{
    if (kind == Kind::Perspective)
        return matrixFromCorners(corners(size), to);
    std::vector<Match> matches;
    for (size_t i = 0; i < to.size(); ++i)
        matches.push_back({corners(size)[i], to[i]});
    return *rigidFit({matches, {1, 1, 1, 1}});
}

} // namespace

MotionGraph::MotionGraph(int shotCount, int referenceIndex, QSize referenceSize)
    : shots(shotCount)
    , reference(referenceIndex)
    , size(referenceSize)
{
}

void MotionGraph::add(int from, int to, const PairResult &pair)
{
    edges.push_back({from, to, pair});
}

bool MotionGraph::isRight(const Edge &edge, const std::vector<PairResult> &places) const
{
    const Matrix seen = product(edge.pair.toShot, places[size_t(edge.from)].toShot);
    return cornerDistance(seen, places[size_t(edge.to)].toShot, size) <= kLoopTolerance;
}

std::vector<MotionGraph::Edge> MotionGraph::rightEdges(const std::vector<PairResult> &places) const
{
    std::vector<Edge> right;
    for (const Edge &edge : edges) {
        if (isRight(edge, places))
            right.push_back(edge);
    }
    return right;
}

void MotionGraph::solve(std::vector<PairResult> &places) const
{
    const std::vector<Edge> right = rightEdges(places);
    std::vector<int> unknowns;
    for (int shot = 0; shot < shots; ++shot) {
        const auto ends = [shot](const Edge &edge) { return edge.to == shot; };
        if (shot != reference && isToBeResampled(places[size_t(shot)]) &&
            std::any_of(right.begin(), right.end(), ends))
            unknowns.push_back(shot);
    }
    for (int round = 0; round < kRounds && !unknowns.empty(); ++round)
        improve(right, unknowns, places);
}

/// By how much each unknown place should move at a corner; empty when that is not settled.
std::vector<QPointF> MotionGraph::moves(QPointF corner, const std::vector<Edge> &right,
                                        const std::vector<int> &unknowns,
                                        const std::vector<PairResult> &places) const
{
    std::vector<size_t> number(size_t(shots), kNoPlace);
    for (size_t i = 0; i < unknowns.size(); ++i)
        number[size_t(unknowns[i])] = i;
    DifferenceEquations across(unknowns.size());
    DifferenceEquations down(unknowns.size());
    for (const Edge &edge : right) {
        const QPointF seen =
            mapped(edge.pair.toShot, mapped(places[size_t(edge.from)].toShot, corner));
        const QPointF error = seen - mapped(places[size_t(edge.to)].toShot, corner);
        const size_t from = number[size_t(edge.from)];
        const size_t to = number[size_t(edge.to)];
        across.add(from, to, error.x(), weightOf(edge.pair));
        down.add(from, to, error.y(), weightOf(edge.pair));
    }
    const std::vector<double> x = across.values();
    const std::vector<double> y = down.values();
    std::vector<QPointF> result;
    for (size_t i = 0; i < std::min(x.size(), y.size()); ++i)
        result.emplace_back(x[i], y[i]);
    return result;
}

void MotionGraph::improve(const std::vector<Edge> &right, const std::vector<int> &unknowns,
                          std::vector<PairResult> &places) const
{
    std::vector<std::array<QPointF, 4>> to(unknowns.size());
    for (size_t corner = 0; corner < 4; ++corner) {
        const QPointF from = corners(size)[corner];
        const std::vector<QPointF> shifts = moves(from, right, unknowns, places);
        if (shifts.empty())
            return;
        for (size_t i = 0; i < unknowns.size(); ++i)
            to[i][corner] = mapped(places[size_t(unknowns[i])].toShot, from) + shifts[i];
    }
    for (size_t i = 0; i < unknowns.size(); ++i) {
        PairResult &place = places[size_t(unknowns[i])];
        place.toShot = matrixOfKind(place.kind, size, to[i]);
    }
}

} // namespace registration
