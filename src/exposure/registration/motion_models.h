#pragma once

#include "tile_match.h"

#include <optional>

namespace registration {

/// Matches with a weight each, 0 for those that do not count.
struct WeightedMatches
{
    const std::vector<Match> &matches;
    std::vector<double> weights;
};

/// Coordinates within about +-1, so that the equations of a fit are well conditioned.
struct UnitFrame
{
    explicit UnitFrame(QSize size);

    QPointF toUnit(QPointF pixel) const { return (pixel - middle) / scale; }
    QPointF toPixel(QPointF unit) const { return unit * scale + middle; }
    /// The same map between pixels, and back.
    Matrix inPixels(const Matrix &unitMap) const;
    Matrix inUnits(const Matrix &pixelMap) const;

    QPointF middle;
    double scale;
};

double squaredDistance(const Matrix &toShot, const Match &match);

/// Weighted sum of squared distances.
double squaredError(const Matrix &toShot, const WeightedMatches &matches);

/// Tukey's biweight: (1 - (distance / limit)^2)^2, 0 beyond the limit.
double biweight(double squaredDistance, double limit);
std::vector<double> biweights(const Matrix &toShot, const std::vector<Match> &matches,
                              double limit);

/// The turn and shift with the least weighted squares. Nothing when all weights are 0.
std::optional<Matrix> rigidFit(const WeightedMatches &matches);

/// The shift with the least weighted squares, in whole pixels.
Matrix wholeShiftFit(const WeightedMatches &matches);

/// The perspective map with the least weighted squares near this one, by Gauss-Newton steps.
/// Nothing when the matches do not settle it.
std::optional<Matrix> perspectiveFit(const WeightedMatches &matches, const Matrix &near,
                                     const UnitFrame &frame);

/// Standard deviation, in pixels, of where a perspective fit puts the corner that it knows least
/// of, for matches whose coordinates deviate by `deviation`.
double cornerUncertainty(const WeightedMatches &matches, const Matrix &fit, const UnitFrame &frame,
                         QSize size, double deviation);

} // namespace registration
