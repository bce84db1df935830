#include "mtb_alignment_plain.h"

#include "mtb_primitives.h"

#include <algorithm>
#include <memory>

namespace {

/// Nearest-neighbour copy of half the size, rounded half up.
QImage halved(const QImage &image)
{
    if (image.isNull())
        return image;
    return image.scaled(qRound(image.width() / 2.0), qRound(image.height() / 2.0),
                        Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

constexpr int kMostLevels = 30; // beyond, shifts would not fit an int

/// How often the smaller side can be halved until it is shorter than 128.
int levelsFor(QSize size)
{
    int levels = 0;
    for (int side = std::min(size.width(), size.height()); side >= 128; side /= 2)
        ++levels;
    return levels;
}

/// The smallest level that at least this fraction of the pixels does not exceed, 256 if none.
int thresholdAt(const std::vector<double> &cdf, double percentile)
{
    int level = 0;
    while (level < 256 && !(cdf[static_cast<size_t>(level)] >= percentile))
        ++level;
    return level;
}

} // namespace

void plain::getExpShift(const QImage *img1, int threshold1, const QImage *img2, int threshold2,
                        int tolerance, int level, int &shiftX, int &shiftY)
{
    int startX = -1;
    int startY = -1;
    level = std::min(level, kMostLevels);
    if (level > 0) {
        const QImage half1 = halved(*img1);
        const QImage half2 = halved(*img2);
        int x = 0;
        int y = 0;
        plain::getExpShift(&half1, threshold1, &half2, threshold2, tolerance, level - 1, x, y);
        startX = 2 * x - 1;
        startY = 2 * y - 1;
    }

    const std::unique_ptr<QImage> tb1(setbitmap(img1->size()));
    const std::unique_ptr<QImage> eb1(setbitmap(img1->size()));
    const std::unique_ptr<QImage> tb2(setbitmap(img1->size()));
    const std::unique_ptr<QImage> eb2(setbitmap(img1->size()));
    setThreshold(img1, threshold1, tolerance, tb1.get(), eb1.get());
    setThreshold(img2, threshold2, tolerance, tb2.get(), eb2.get());
    const std::unique_ptr<QImage> shiftedTb2(setbitmap(img2->size()));
    const std::unique_ptr<QImage> shiftedEb2(setbitmap(img2->size()));
    const std::unique_ptr<QImage> difference(setbitmap(img2->size()));

    qint64 smallestError = qint64(img1->width()) * img2->height();
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            const int x = startX + i;
            const int y = startY + j;
            shiftimage(tb2.get(), x, y, shiftedTb2.get());
            shiftimage(eb2.get(), x, y, shiftedEb2.get());
            XORimages(tb1.get(), eb1.get(), shiftedTb2.get(), shiftedEb2.get(), difference.get());
            const qint64 error = sumimage(difference.get());
            if (error < smallestError) {
                shiftX = x;
                shiftY = y;
                smallestError = error;
            }
        }
    }
}

void plain::mtbalign(bool skipSearch, const QImage *img1, const QImage *img2, double percentile,
                     int tolerance, int levels, int &shiftX, int &shiftY)
{
    QImage grey1(img1->size(), QImage::Format_Indexed8);
    QImage grey2(img2->size(), QImage::Format_Indexed8);
    std::vector<double> cdf1;
    std::vector<double> cdf2;
    getLum(img1, &grey1, cdf1);
    getLum(img2, &grey2, cdf2);
    const int threshold1 = thresholdAt(cdf1, percentile);
    const int threshold2 = thresholdAt(cdf2, percentile);
    if (!skipSearch)
        plain::getExpShift(&grey1, threshold1, &grey2, threshold2, tolerance, levels, shiftX,
                           shiftY);
}

std::vector<QPoint> plain::pairShifts(const QList<QImage *> &pictures)
{
    const int levels = levelsFor(pictures.first()->size());
    std::vector<QPoint> shifts;
    for (int i = 0; i + 1 < pictures.size(); ++i) {
        QPoint shift;
        plain::mtbalign(false, pictures[i], pictures[i + 1], 0.5, 4, levels, shift.rx(),
                        shift.ry());
        shifts.push_back(shift);
    }
    return shifts;
}
