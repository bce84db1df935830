#include "mtb_primitives.h"

#include "assertion_report.h"
#include "picture_pixels.h"
#include "picture_shift.h"

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <numeric>

namespace {

constexpr int kGreyLevels = 256;

QList<QRgb> greyColorTable()
{
    QList<QRgb> table(kGreyLevels);
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

/// Entry i: the sum of the shares of the levels up to i, added one after the other.
std::vector<double> sharesUpTo(const std::array<qint64, kGreyLevels> &counts, double pixelCount)
{
    const double share = pixelCount > 0 ? 1.0 / pixelCount : 0.0;
    std::vector<double> shares(counts.size());
    double sum = 0.0;
    for (size_t level = 0; level < counts.size(); ++level) {
        sum += static_cast<double>(counts[level]) * share;
        shares[level] = sum;
    }
    return shares;
}

} // namespace

QImage *shiftQImage(const QImage *img, int dx, int dy)
{
    auto *out = new (std::nothrow) QImage;
    assertion::require(out != nullptr, "out!=NULL", "shiftQImage", assertion::kAlignmentFile, 60);
    *out = shift::copy(pixels::asWords(*img), dx, dy);
    return out;
}

QImage *setbitmap(QSize size)
{
    auto *img = new (std::nothrow) QImage(size, QImage::Format_Indexed8);
    assertion::require(img != nullptr, "img!=NULL", "setbitmap", assertion::kAlignmentFile, 336);
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
    const qint64 lastBelow = qint64(threshold) - tolerance;
    const qint64 firstAbove = qint64(threshold) + tolerance;
    std::vector<uchar> padded;
    for (int y = 0; y < height; ++y) {
        const uchar *levels = rowOfWidth(*img, y, width, padded);
        uchar *thresholdRow = tb->scanLine(y);
        uchar *exclusionRow = eb->scanLine(y);
        for (int x = 0; x < width; ++x) {
            const int level = levels[x];
            thresholdRow[x] = level >= threshold;
            exclusionRow[x] = level <= lastBelow || level >= firstAbove;
        }
    }
}

void getLum(const QImage *img, QImage *lum, std::vector<double> &cdf)
{
    std::array<qint64, kGreyLevels> counts = {};
    lum->setColorTable(greyColorTable());
    const QImage words = pixels::asWords(*img);
    const int width = std::min(words.width(), lum->width());
    const int height = std::min(words.height(), lum->height());
    for (int y = 0; y < height; ++y) {
        const auto *pixelRow = reinterpret_cast<const QRgb *>(words.constScanLine(y));
        uchar *greyRow = lum->scanLine(y);
        for (int x = 0; x < width; ++x) {
            const int level = greyLevel(pixelRow[x]);
            ++counts[static_cast<size_t>(level)];
            greyRow[x] = static_cast<uchar>(level);
        }
    }
    cdf = sharesUpTo(counts, static_cast<double>(img->width()) * img->height());
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
    shift::copyBytes(*in, dx, dy, *out);
}
