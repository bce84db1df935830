#pragma once

#include "tile_match.h"

namespace registration {

/// A motion of the camera that explains most of the matches.
struct MotionFit
{
    Kind kind = Kind::Unaligned; ///< Rigid or Perspective when one was found
    Matrix toShot = identityMatrix();
    Matrix wholeShift = identityMatrix(); ///< to the shot, the best by whole pixels
    bool isWholeShiftAsGood = false;      ///< the rest is no more than chance makes of it
    double movement = 0.0;    ///< pixels by which a turn and shift alone moves a corner, at most
    double placesMoved = 0.0; ///< pixels by which nine in ten inliers move at most
    int inliers = 0;
    double residual = 0.0;  ///< root mean square distance of the inliers, in pixels
    double meanScore = 0.0; ///< of the inliers
    double coverage = 0.0;  ///< share of 4 x 4 fields of the picture that hold an inlier
};

/// start: to the shot, as the matches were searched. size: of the reference. tolerance: pixels
/// within which a match agrees.
///
/// A consensus over pairs of matches (Fischler and Bolles, "Random Sample Consensus", CACM 1981,
/// section II) settles which matches move together; the pairs follow from their numbers, not from
/// chance, so that equal pictures give equal results. Weighted least squares with Tukey's biweight
/// then fit a rigid motion and a perspective one. The latter is taken where its five more
/// parameters make the residual smaller than chance would (F-test) and where it sets the corners
/// of the picture further from the rigid one's than its own uncertainty there; never when mostly
/// is Kind::Rigid.
MotionFit fitMotion(const std::vector<Match> &matches, const Matrix &start, QSize size,
                    double tolerance, Kind mostly);

} // namespace registration
