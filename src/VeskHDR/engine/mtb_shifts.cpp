#include "mtb_shifts.h"

#include "mtb_alignment.h"
#include "mtb_alignment_plain.h"
#include "mtb_search.h"
#include "Overlap.h"
#include "parallel_rows.h"
#include "picture_pixels.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <numeric>

namespace {

bool sameSize(const QList<QImage *> &pictures)
{
    return std::all_of(pictures.begin(), pictures.end(), [&](const QImage *picture) {
        return !picture->isNull() && picture->size() == pictures.first()->size();
    });
}

/// Moves the content of a picture of words by (dx, dy) inside its own memory; what is uncovered
/// becomes transparent black.
void shiftInPlace(QImage &picture, int dx, int dy)
{
    const Overlap columns(picture.width(), dx, picture.width());
    const Overlap rows(picture.height(), dy, picture.height());
    uchar *bits = picture.bits();
    const qptrdiff bytesPerLine = picture.bytesPerLine();
    const auto rowAt = [=](int y) { return reinterpret_cast<QRgb *>(bits + y * bytesPerLine); };
    const auto fillRow = [&](int y) {
        QRgb *row = rowAt(y);
        const qint64 sourceY = qint64(y) - dy;
        if (sourceY < rows.begin || sourceY >= rows.end || columns.begin == columns.end) {
            std::fill_n(row, picture.width(), 0U);
            return;
        }
        const int begin = columns.begin + dx;
        const int end = columns.end + dx;
        std::memmove(row + begin, rowAt(sourceY) + columns.begin,
                     sizeof(QRgb) * static_cast<size_t>(end - begin));
        std::fill(row, row + begin, 0U);
        std::fill(row + end, row + picture.width(), 0U);
    };
    // A row must have been read before it is written.
    if (dy > 0) {
        for (int y = picture.height() - 1; y >= 0; --y)
            fillRow(y);
    } else {
        for (int y = 0; y < picture.height(); ++y)
            fillRow(y);
    }
}

/// Gives `shifted` what shiftQImage makes of the picture. The memory of a picture that nobody else
/// shares is used again, so that a second set of pictures is never held.
void shift(QImage &picture, int dx, int dy, QImage &shifted)
{
    if (!picture.isDetached() || !pixels::areWords(picture)) {
        const std::unique_ptr<QImage> copy(shiftQImage(&picture, dx, dy));
        shifted = std::move(*copy);
        return;
    }
    shifted = std::move(picture);
    shifted.reinterpretAsFormat(QImage::Format_ARGB32);
    shiftInPlace(shifted, dx, dy);
}

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
    if (!sameSize(pictures))
        return pairShiftsPlain(pictures);
    const QSize size = pictures.first()->size();
    const std::vector<Halving> halvings = mtb::halvings(size, pyramidLevels(size));
    std::vector<QPoint> shifts(static_cast<size_t>(pictures.size()) - 1);
    GreyImage grey(size.width(), size.height());
    BitmapPyramid previous = bitmapPyramid(*pictures.first(), kMedian, kTolerance, halvings, grey);
    for (size_t i = 0; i < shifts.size(); ++i) {
        BitmapPyramid next =
            bitmapPyramid(*pictures[static_cast<int>(i) + 1], kMedian, kTolerance, halvings, grey);
        search(previous, next, shifts[i].rx(), shifts[i].ry());
        previous = std::move(next);
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
    // All that can fail for lack of memory comes before the first picture is touched.
    std::vector<std::unique_ptr<QImage>> shifted(summedShifts.size());
    std::generate(shifted.begin(), shifted.end(), [] { return std::make_unique<QImage>(); });
    const auto unshifted = pictures.begin() + 1;
    parallel::each(static_cast<int>(shifted.size()), [&](int i) {
        const auto n = static_cast<size_t>(i);
        shift(**(unshifted + i), summedShifts[n].x(), summedShifts[n].y(), *shifted[n]);
    });
    for (int i = 0; i < static_cast<int>(shifted.size()); ++i) {
        delete *(unshifted + i);
        *(unshifted + i) = shifted[static_cast<size_t>(i)].release();
    }
}
