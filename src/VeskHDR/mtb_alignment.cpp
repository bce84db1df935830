#include "mtb_alignment.h"

#include "mtb_alignment_plain.h"
#include "mtb_search.h"
#include "mtb_shifts.h"

#include <new>

namespace {

/// The fast search takes pairs of one size.
bool isFastPair(const QImage &one, const QImage &other)
{
    return !one.isNull() && one.size() == other.size();
}

void searchGrey(const QImage &img1, int threshold1, const QImage &img2, int threshold2,
                int tolerance, int level, int &shiftX, int &shiftY)
{
    const auto halvings = mtb::halvings(img1.size(), level);
    const auto reference =
        mtb::bitmapPyramid(mtb::greyImage(img1), threshold1, tolerance, halvings);
    const auto moved = mtb::bitmapPyramid(mtb::greyImage(img2), threshold2, tolerance, halvings);
    mtb::search(reference, moved, shiftX, shiftY);
}

void searchPictures(const QImage &img1, const QImage &img2, double percentile, int tolerance,
                    int levels, int &shiftX, int &shiftY)
{
    mtb::GreyImage grey(img1.width(), img1.height());
    const auto halvings = mtb::halvings(img1.size(), levels);
    const auto reference = mtb::bitmapPyramid(img1, percentile, tolerance, halvings, grey);
    const auto moved = mtb::bitmapPyramid(img2, percentile, tolerance, halvings, grey);
    mtb::search(reference, moved, shiftX, shiftY);
}

/// Nothing is thrown at the host: what lacks memory ends early.
template <typename Work>
void untilMemoryRunsOut(Work work)
{
    try {
        work();
    } catch (const std::bad_alloc &) {
    }
}

} // namespace

void getExpShift(const QImage *img1, int threshold1, const QImage *img2, int threshold2,
                 int tolerance, int level, int &shiftX, int &shiftY)
{
    untilMemoryRunsOut([&] {
        if (isFastPair(*img1, *img2))
            searchGrey(*img1, threshold1, *img2, threshold2, tolerance, level, shiftX, shiftY);
        else
            plain::getExpShift(img1, threshold1, img2, threshold2, tolerance, level, shiftX,
                               shiftY);
    });
}

void mtbalign(bool skipSearch, const QImage *img1, const QImage *img2, double percentile,
              int tolerance, int levels, int &shiftX, int &shiftY)
{
    if (skipSearch)
        return;
    untilMemoryRunsOut([&] {
        if (isFastPair(*img1, *img2))
            searchPictures(*img1, *img2, percentile, tolerance, levels, shiftX, shiftY);
        else
            plain::mtbalign(skipSearch, img1, img2, percentile, tolerance, levels, shiftX, shiftY);
    });
}

void mtb_alignment(bool skipSearch, QList<QImage *> &ImagePtrList)
{
    untilMemoryRunsOut([&] { mtb::alignPictures(ImagePtrList, skipSearch, shift::Memory::New); });
}
