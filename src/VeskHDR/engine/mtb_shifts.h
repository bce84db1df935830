#pragma once

#include "veskhdr_export.h"

#include <QImage>
#include <QList>
#include <QPoint>
#include <QSize>

#include <vector>

/// The steps of mtb_alignment one by one, for callers that want to know the shifts.
/// Any thread, reentrant.
namespace mtb {

/// The alignment thresholds at the median and does not trust grey levels within 3 of it.
constexpr double kMedian = 0.5;
constexpr int kTolerance = 4;

/// Levels of the search above the full size, for pictures of this size: floor(log2 of the smaller
/// side) - 6, at least 0.
VESKHDR_EXPORT int pyramidLevels(QSize size);

/// Largest shift in pixels, per direction, that a search of so many levels can find.
VESKHDR_EXPORT int largestFindableShift(int levels);

/// Shift of picture i + 1 onto picture i at index i. Needs two pictures or more, see mtb_alignment.
VESKHDR_EXPORT std::vector<QPoint> pairShifts(const QList<QImage *> &pictures);

/// Shift of picture i + 1 onto picture 0 at index i.
VESKHDR_EXPORT std::vector<QPoint> summedShifts(const std::vector<QPoint> &pairShifts);

/// Replaces picture i + 1 by a copy (as shiftQImage makes it) shifted by summedShifts[i] and
/// deletes the unshifted one. The copies belong to the list's owner.
VESKHDR_EXPORT void shiftPictures(QList<QImage *> &pictures,
                                  const std::vector<QPoint> &summedShifts);

} // namespace mtb
