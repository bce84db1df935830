#pragma once

#include "picture_shift.h"
#include "veskhdr_export.h"

#include <QImage>
#include <QList>
#include <QPoint>
#include <QSize>

#include <vector>

/// The alignment of a list of pictures, for callers that want to know the shifts.
/// Any thread, reentrant. std::bad_alloc where memory is lacking.
namespace mtb {

/// The alignment thresholds at the median and does not trust grey levels within 3 of it.
constexpr double kMedian = 0.5;
constexpr int kTolerance = 4;

/// Levels of the search above the full size, for pictures of this size: floor(log2 of the smaller
/// side) - 6, at least 0.
int pyramidLevels(QSize size);

/// Largest shift in pixels, per direction, that a search of so many levels can find.
int largestFindableShift(int levels);

/// Shift of picture i + 1 onto picture i at index i. Needs two pictures or more, see mtb_alignment.
VESKHDR_EXPORT std::vector<QPoint> pairShifts(const QList<QImage *> &pictures);

/// Shift of picture i + 1 onto picture 0 at index i.
VESKHDR_EXPORT std::vector<QPoint> summedShifts(const std::vector<QPoint> &pairShifts);

/// What an alignment found; both are empty without a search.
struct Alignment
{
    std::vector<QPoint> pairShifts;
    std::vector<QPoint> summedShifts;
};

/// Aligns pictures 1..n-1 to picture 0, which stays; see shift::pictures. Without a search the
/// others are replaced by copies that are not shifted. Ends the process with an assertion report,
/// in the name of mtb_alignment, when the list has fewer than two pictures.
Alignment alignPictures(QList<QImage *> &pictures, bool skipSearch, shift::Memory memory);

} // namespace mtb
