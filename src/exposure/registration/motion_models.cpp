#include "motion_models.h"

#include "linear_solver.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace registration {
namespace {

constexpr size_t kParameters = 8;
constexpr int kSteps = 2; // each round of weighing takes as many again

using Row = std::array<double, kParameters>;

/// How the mapped point changes with the first eight numbers of the matrix.
struct Derivatives
{
    Row x;
    Row y;
};

Derivatives derivatives(const Matrix &m, QPointF p)
{
    const double depth = m[6] * p.x() + m[7] * p.y() + m[8];
    const QPointF to = mapped(m, p);
    const double x = p.x() / depth;
    const double y = p.y() / depth;
    const double one = 1.0 / depth;
    return {{x, y, one, 0, 0, 0, -x * to.x(), -y * to.x()},
            {0, 0, 0, x, y, one, -x * to.y(), -y * to.y()}};
}

struct NormalEquations
{
    std::vector<double> matrix = std::vector<double>(kParameters * kParameters);
    std::vector<double> right = std::vector<double>(kParameters);

    void add(const Row &row, double error, double weight)
    {
        for (size_t i = 0; i < kParameters; ++i) {
            const double weighted = weight * row[i];
            right[i] += weighted * error;
            for (size_t k = 0; k < kParameters; ++k)
                matrix[i * kParameters + k] += weighted * row[k];
        }
    }
};

NormalEquations normalEquations(const WeightedMatches &matches, const Matrix &map,
                                const UnitFrame &frame)
{
    NormalEquations equations;
    for (size_t i = 0; i < matches.matches.size(); ++i) {
        if (matches.weights[i] == 0.0)
            continue;
        const QPointF from = frame.toUnit(matches.matches[i].reference);
        const QPointF error = frame.toUnit(matches.matches[i].shot) - mapped(map, from);
        const Derivatives slopes = derivatives(map, from);
        equations.add(slopes.x, error.x(), matches.weights[i]);
        equations.add(slopes.y, error.y(), matches.weights[i]);
    }
    return equations;
}

double variance(const NormalEquations &equations, const Row &row)
{
    const std::vector<double> x = solved(equations.matrix, {row.begin(), row.end()});
    return x.empty() ? HUGE_VAL : std::inner_product(row.begin(), row.end(), x.begin(), 0.0);
}

struct Means
{
    QPointF reference;
    QPointF shot;
    double weight = 0.0;
};

Means means(const WeightedMatches &matches)
{
    Means result;
    for (size_t i = 0; i < matches.matches.size(); ++i) {
        result.reference += matches.matches[i].reference * matches.weights[i];
        result.shot += matches.matches[i].shot * matches.weights[i];
        result.weight += matches.weights[i];
    }
    if (result.weight > 0) {
        result.reference /= result.weight;
        result.shot /= result.weight;
    }
    return result;
}

} // namespace

UnitFrame::UnitFrame(QSize size)
    : middle((size.width() - 1) / 2.0, (size.height() - 1) / 2.0)
    , scale(std::max(1.0, std::max(size.width(), size.height()) / 2.0))
{
}

Matrix UnitFrame::inPixels(const Matrix &unitMap) const
{
    const Matrix toUnits = {1 / scale, 0, -middle.x() / scale, 0, 1 / scale, -middle.y() / scale, 0,
                            0,         1};
    return product(inverse(toUnits), product(unitMap, toUnits));
}

Matrix UnitFrame::inUnits(const Matrix &pixelMap) const
{
    const Matrix toPixels = {scale, 0, middle.x(), 0, scale, middle.y(), 0, 0, 1};
    return product(inverse(toPixels), product(pixelMap, toPixels));
}

double squaredDistance(const Matrix &toShot, const Match &match)
{
    const QPointF error = mapped(toShot, match.reference) - match.shot;
    return error.x() * error.x() + error.y() * error.y();
}

double squaredError(const Matrix &toShot, const WeightedMatches &matches)
{
    double sum = 0;
    for (size_t i = 0; i < matches.matches.size(); ++i)
        sum += matches.weights[i] * squaredDistance(toShot, matches.matches[i]);
    return sum;
}

double biweight(double squaredDistance, double limit)
{
    const double rest = std::max(0.0, 1 - squaredDistance / (limit * limit));
    return rest * rest;
}

std::vector<double> biweights(const Matrix &toShot, const std::vector<Match> &matches, double limit)
{
    std::vector<double> weights;
    for (const Match &match : matches)
        weights.push_back(biweight(squaredDistance(toShot, match), limit));
    return weights;
}

std::optional<Matrix> rigidFit(const WeightedMatches &matches)
{
    const Means mean = means(matches);
    if (mean.weight <= 0)
        return {};
    double along = 0;
    double across = 0;
    for (size_t i = 0; i < matches.matches.size(); ++i) {
        const QPointF a = matches.matches[i].reference - mean.reference;
        const QPointF b = matches.matches[i].shot - mean.shot;
        along += matches.weights[i] * (a.x() * b.x() + a.y() * b.y());
        across += matches.weights[i] * (a.x() * b.y() - a.y() * b.x());
    }
    const double length = std::hypot(along, across);
    const double c = length > 0 ? along / length : 1.0;
    const double s = length > 0 ? across / length : 0.0;
    const QPointF m = mean.reference;
    return Matrix{c, -s, mean.shot.x() - c * m.x() + s * m.y(),
                  s, c,  mean.shot.y() - s * m.x() - c * m.y(),
                  0, 0,  1};
}

Matrix wholeShiftFit(const WeightedMatches &matches)
{
    const Means mean = means(matches);
    return shiftMatrix(std::round(mean.shot.x() - mean.reference.x()),
                       std::round(mean.shot.y() - mean.reference.y()));
}

std::optional<Matrix> perspectiveFit(const WeightedMatches &matches, const Matrix &near,
                                     const UnitFrame &frame)
{
    Matrix map = frame.inUnits(near);
    for (int step = 0; step < kSteps; ++step) {
        const NormalEquations equations = normalEquations(matches, map, frame);
        const std::vector<double> change = solved(equations.matrix, equations.right);
        if (change.empty())
            return {};
        for (size_t i = 0; i < kParameters; ++i)
            map[i] += change[i];
    }
    return frame.inPixels(map);
}

double cornerUncertainty(const WeightedMatches &matches, const Matrix &fit, const UnitFrame &frame,
                         QSize size, double deviation)
{
    const Matrix map = frame.inUnits(fit);
    const NormalEquations equations = normalEquations(matches, map, frame);
    double largest = 0;
    for (QPointF corner : corners(size)) {
        const Derivatives slopes = derivatives(map, frame.toUnit(corner));
        largest = std::max(largest, variance(equations, slopes.x) + variance(equations, slopes.y));
    }
    return std::sqrt(largest) * deviation;
}

} // namespace registration
