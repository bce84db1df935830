#include "mtb_shifts.h"

#include "mtb_alignment.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>

namespace {

constexpr double kMedian = 0.5;
constexpr int kTolerance = 4;

} // namespace

int mtb::pyramidLevels(QSize size)
{
    const int smallerSide = std::min(size.width(), size.height());
    if (smallerSide < 1)
        return 0;
    return std::max(static_cast<int>(std::floor(std::log(smallerSide) / 0.6931471805599453)) - 6,
                    0);
}

int mtb::largestFindableShift(int levels)
{
    return (2 << levels) - 1;
}

std::vector<QPoint> mtb::pairShifts(const QList<QImage *> &pictures)
{
    const int levels = pyramidLevels(pictures.first()->size());
    std::vector<QPoint> shifts;
    for (int i = 0; i + 1 < pictures.size(); ++i) {
        QPoint shift;
        mtbalign(false, pictures[i], pictures[i + 1], kMedian, kTolerance, levels, shift.rx(),
                 shift.ry());
        shifts.push_back(shift);
    }
    return shifts;
}

std::vector<QPoint> mtb::summedShifts(const std::vector<QPoint> &pairShifts)
{
    std::vector<QPoint> sums(pairShifts.size());
    std::partial_sum(pairShifts.begin(), pairShifts.end(), sums.begin());
    return sums;
}

void mtb::shiftPictures(QList<QImage *> &pictures, const std::vector<QPoint> &summedShifts)
{
    // The picture at position 1 is always the next unshifted one.
    for (const QPoint shift : summedShifts) {
        const std::unique_ptr<QImage> unshifted(pictures.takeAt(1));
        pictures.append(shiftQImage(unshifted.get(), shift.x(), shift.y()));
    }
}
