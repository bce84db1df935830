#include "mtb_alignment.h"

#include "assertion_report.h"
#include "GreyHistogram.h"
#include "mtb_alignment_plain.h"
#include "mtb_search.h"
#include "mtb_shifts.h"
#include "Overlap.h"
#include "parallel_rows.h"
#include "picture_pixels.h"

#include <QPoint>
#include <QVector>

#include <algorithm>
#include <new>
#include <numeric>

namespace {

constexpr const char *kSourceFile = "src/VeskHDR/mtb_alignment.cpp";
constexpr int kGreyLevels = 256;

QVector<QRgb> greyColorTable()
{
    QVector<QRgb> table(kGreyLevels);
    for (int level = 0; level < kGreyLevels; ++level)
        table[level] = qRgb(level, level, level);
    return table;
}

int greyLevel(QRgb pixel)
{
    return (11 * qRed(pixel) + 16 * qGreen(pixel) + 5 * qBlue(pixel)) / 32;
}

/// A row of an 8-bit image as `width` bytes, 0 where the image has none. `padded` is room for a
/// copy.
const uchar *rowOfWidth(const QImage &image, int y, int width, std::vector<uchar> &padded)
{
    const bool hasRow = y < image.height();
    if (hasRow && image.width() >= width)
        return image.constScanLine(y);
    padded.assign(static_cast<size_t>(width), 0);
    if (hasRow)
        std::copy_n(image.constScanLine(y), image.width(), padded.begin());
    return padded.data();
}

template <typename Pixel>
Pixel *pixelRow(uchar *bits, int bytesPerLine, int y)
{
    return reinterpret_cast<Pixel *>(bits + qptrdiff(y) * bytesPerLine);
}

/// Rows begin..end of target: source moved by (dx, dy), 0 where nothing of it lands.
template <typename Pixel>
void copyShiftedRows(const QImage &source, int dx, int dy, uchar *target, int bytesPerLine,
                     QSize targetSize, int begin, int end)
{
    const Overlap columns(source.width(), dx, targetSize.width());
    const Overlap rows(source.height(), dy, targetSize.height());
    for (int y = begin; y < end; ++y) {
        Pixel *row = pixelRow<Pixel>(target, bytesPerLine, y);
        Pixel *const rowEnd = row + targetSize.width();
        const qint64 sourceY = qint64(y) - dy;
        if (sourceY >= rows.begin && sourceY < rows.end && columns.begin < columns.end) {
            const auto *from =
                reinterpret_cast<const Pixel *>(source.constScanLine(static_cast<int>(sourceY)));
            row = std::fill_n(row, columns.begin + dx, Pixel(0));
            row = std::copy(from + columns.begin, from + columns.end, row);
        }
        std::fill(row, rowEnd, Pixel(0));
    }
}

template <typename Pixel>
void copyShifted(const QImage &source, int dx, int dy, QImage &target)
{
    uchar *bits = target.bits();
    const int bytesPerLine = target.bytesPerLine();
    const QSize size = target.size();
    parallel::rows(size, [&](int begin, int end) {
        copyShiftedRows<Pixel>(source, dx, dy, bits, bytesPerLine, size, begin, end);
    });
}

} // namespace

QImage *shiftQImage(const QImage *img, int dx, int dy)
{
    auto *out = new (std::nothrow) QImage(img->size(), QImage::Format_ARGB32);
    assertion::require(out != nullptr, "out!=NULL", "shiftQImage", kSourceFile, 60);
    copyShifted<QRgb>(pixels::asWords(*img), dx, dy, *out);
    return out;
}

QImage *setbitmap(QSize size)
{
    auto *img = new (std::nothrow) QImage(size, QImage::Format_Indexed8);
    assertion::require(img != nullptr, "img!=NULL", "setbitmap", kSourceFile, 336);
    img->setColorTable({0xFF000000, 0xFFFFFFFF});
    return img;
}

qint64 sumimage(const QImage *img)
{
    qint64 sum = 0;
    for (int y = 0; y < img->height(); ++y) {
        const uchar *row = img->constScanLine(y);
        sum = std::accumulate(row, row + img->width(), sum);
    }
    return sum;
}

void setThreshold(const QImage *img, int threshold, int tolerance, QImage *tb, QImage *eb)
{
    const int width = std::min(tb->width(), eb->width());
    const int height = std::min(tb->height(), eb->height());
    std::vector<uchar> padded;
    for (int y = 0; y < height; ++y) {
        const uchar *levels = rowOfWidth(*img, y, width, padded);
        uchar *thresholdRow = tb->scanLine(y);
        uchar *exclusionRow = eb->scanLine(y);
        for (int x = 0; x < width; ++x) {
            const int level = levels[x];
            thresholdRow[x] = level >= threshold;
            exclusionRow[x] = level <= threshold - tolerance || level >= threshold + tolerance;
        }
    }
}

void getLum(const QImage *img, QImage *lum, std::vector<double> &cdf)
{
    GreyHistogram histogram;
    lum->setColorTable(greyColorTable());
    const QImage words = pixels::asWords(*img);
    const int width = std::min(words.width(), lum->width());
    const int height = std::min(words.height(), lum->height());
    for (int y = 0; y < height; ++y) {
        const auto *pixelRow = reinterpret_cast<const QRgb *>(words.constScanLine(y));
        uchar *greyRow = lum->scanLine(y);
        for (int x = 0; x < width; ++x) {
            const int level = greyLevel(pixelRow[x]);
            ++histogram.counts[static_cast<size_t>(level)];
            greyRow[x] = static_cast<uchar>(level);
        }
    }
    cdf = histogram.cumulative(static_cast<double>(img->width()) * img->height());
}

void XORimages(const QImage *tb1, const QImage *eb1, const QImage *tb2, const QImage *eb2,
               QImage *out)
{
    out->fill(0);
    const int width = tb1->width();
    const int writableWidth = std::min(width, out->width());
    const int height = std::min(tb1->height(), out->height());
    std::vector<uchar> padded1;
    std::vector<uchar> padded2;
    std::vector<uchar> paddedTb2;
    for (int y = 0; y < height; ++y) {
        const uchar *bits1 = tb1->constScanLine(y);
        const uchar *bits2 = rowOfWidth(*tb2, y, width, paddedTb2);
        const uchar *trusted1 = rowOfWidth(*eb1, y, width, padded1);
        const uchar *trusted2 = rowOfWidth(*eb2, y, width, padded2);
        uchar *differences = out->scanLine(y);
        for (int x = 0; x < writableWidth; ++x)
            differences[x] = bits1[x] != bits2[x] && *trusted1++ != 0 && *trusted2++ != 0;
    }
}

void shiftimage(const QImage *in, int dx, int dy, QImage *out)
{
    copyShifted<uchar>(*in, dx, dy, *out);
}

void getExpShift(const QImage *img1, int threshold1, const QImage *img2, int threshold2,
                 int tolerance, int level, int &shiftX, int &shiftY)
{
    if (img1->isNull() || img1->size() != img2->size()) {
        getExpShiftPlain(img1, threshold1, img2, threshold2, tolerance, level, shiftX, shiftY);
        return;
    }
    const auto halvings = mtb::halvings(img1->size(), level);
    const auto reference =
        mtb::bitmapPyramid(mtb::greyImage(*img1), threshold1, tolerance, halvings);
    const auto moved = mtb::bitmapPyramid(mtb::greyImage(*img2), threshold2, tolerance, halvings);
    mtb::search(reference, moved, shiftX, shiftY);
}

void mtbalign(bool skipSearch, const QImage *img1, const QImage *img2, double percentile,
              int tolerance, int levels, int &shiftX, int &shiftY)
{
    if (skipSearch)
        return;
    if (img1->isNull() || img1->size() != img2->size()) {
        mtbalignPlain(skipSearch, img1, img2, percentile, tolerance, levels, shiftX, shiftY);
        return;
    }
    mtb::GreyImage grey(img1->width(), img1->height());
    const auto halvings = mtb::halvings(img1->size(), levels);
    const auto reference = mtb::bitmapPyramid(*img1, percentile, tolerance, halvings, grey);
    const auto moved = mtb::bitmapPyramid(*img2, percentile, tolerance, halvings, grey);
    mtb::search(reference, moved, shiftX, shiftY);
}

void mtb_alignment(bool skipSearch, QList<QImage *> &ImagePtrList)
{
    assertion::require(ImagePtrList.size() >= 2, "ImagePtrList.size()>=2", "mtb_alignment",
                       kSourceFile, 80);
    std::vector<QPoint> shifts(static_cast<size_t>(ImagePtrList.size()) - 1);
    if (!skipSearch)
        shifts = mtb::pairShifts(ImagePtrList);
    mtb::shiftPictures(ImagePtrList, mtb::summedShifts(shifts));
}
