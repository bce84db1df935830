#pragma once

#include <QPoint>
#include <QPointF>
#include <QSize>
#include <QString>

#include <array>

/// Where a hand-held shot lies over another one. Any thread, reentrant.
///
/// Coordinates are those of pixel centres: (0, 0) is the middle of the first pixel, x to the right,
/// y down, and the last pixel of a picture has its middle at (width - 1, height - 1).
namespace registration {

/// A projective map, 3 x 3, row by row: (x, y) goes to (m0 x + m1 y + m2, m3 x + m4 y + m5) divided
/// by m6 x + m7 y + m8. Those of this room have m8 = 1.
using Matrix = std::array<double, 9>;

enum class Kind {
    Identity,    ///< the shot lies on the reference as it is
    Shift,       ///< whole pixels
    Rigid,       ///< a turn and a shift
    Perspective, ///< the camera was tilted, too
    Unaligned    ///< no motion could be trusted; the matrix is the identity
};

/// Why a shot is unaligned.
enum class Reason {
    None,
    TooSmall, ///< fewer pixels than the method needs
    NoDetail, ///< nothing to hold on to: flat, black, clipped
    NoMatch   ///< the two pictures do not show the same thing, or not enough of it
};

/// How one shot lies over the reference.
struct Transform
{
    Kind kind = Kind::Unaligned;
    Matrix matrix = {1, 0, 0, 0, 1,
                     0, 0, 0, 1}; ///< from the shot's pixel centres to the reference's
    double confidence = 0.0;      ///< 0..1; below kLeastConfidence: unaligned
    double residualPixels = 0.0;  ///< root mean square over the places that agree
    Reason reason = Reason::None;
};

/// Shots that are trusted less are left where they are.
constexpr double kLeastConfidence = 0.25;

Matrix identityMatrix();
Matrix shiftMatrix(double x, double y);

/// First `second`, then `first`, scaled to m8 = 1.
Matrix product(const Matrix &first, const Matrix &second);

/// The way back, scaled to m8 = 1. Of a matrix that has none, the identity.
Matrix inverse(const Matrix &matrix);

QPointF mapped(const Matrix &matrix, QPointF point);

/// Centres of the four corner pixels, clockwise from the top left.
std::array<QPointF, 4> corners(QSize size);

/// How far two maps set a corner of a picture of this size apart, in pixels, at most.
double cornerDistance(const Matrix &first, const Matrix &second, QSize size);

/// The map that takes the four points to those four. The identity when three of them lie on a line.
Matrix matrixFromCorners(const std::array<QPointF, 4> &from, const std::array<QPointF, 4> &to);

/// True for shifts by whole pixels, the identity among them.
bool isWholeShift(const Matrix &matrix);

/// "identity", "shift", "rigid", "perspective", "unaligned": for reports that programs read.
QString kindName(Kind kind);

/// The end of the sentence "IMG_3 was left unaligned: ...", in English. Empty for Reason::None.
QString reasonText(Reason reason);

} // namespace registration
