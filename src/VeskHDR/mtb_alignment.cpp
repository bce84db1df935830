#include "mtb_alignment.h"

#include "assertion_report.h"
#include "mtb_shifts.h"
#include "picture_pixels.h"

#include <QPoint>
#include <QVector>

#include <algorithm>
#include <array>
#include <memory>
#include <new>

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

/// Byte of an 8-bit image, 0 outside it.
int byteAt(const QImage &image, int x, int y)
{
    return image.valid(x, y) ? image.constScanLine(y)[x] : 0;
}

/// Copies source into target with its content moved by (dx, dy), Pixel by Pixel.
template <typename Pixel>
void copyShifted(const QImage &source, int dx, int dy, QImage &target)
{
    for (int y = 0; y < source.height(); ++y) {
        const qint64 targetY = qint64(y) + dy;
        if (targetY < 0)
            continue;
        if (targetY >= std::min(source.height(), target.height()))
            break;
        const auto *sourceRow = reinterpret_cast<const Pixel *>(source.constScanLine(y));
        auto *targetRow = reinterpret_cast<Pixel *>(target.scanLine(static_cast<int>(targetY)));
        for (int x = 0; x < source.width(); ++x) {
            const qint64 targetX = qint64(x) + dx;
            if (targetX >= std::min(source.width(), target.width()))
                break;
            if (targetX >= 0)
                targetRow[targetX] = sourceRow[x];
        }
    }
}

/// Nearest-neighbour copy of half the size, rounded half up.
QImage halved(const QImage &image)
{
    return image.scaled(qRound(image.width() / 2.0), qRound(image.height() / 2.0),
                        Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

/// Smallest grey level that at least this fraction of the pixels does not exceed; 256 if none.
int percentileLevel(const std::vector<double> &cdf, double percentile)
{
    const auto reaches = [percentile](double fraction) { return fraction >= percentile; };
    return static_cast<int>(std::find_if(cdf.begin(), cdf.end(), reaches) - cdf.begin());
}

} // namespace

QImage *shiftQImage(const QImage *img, int dx, int dy)
{
    auto *out = new (std::nothrow) QImage(img->size(), QImage::Format_ARGB32);
    assertion::require(out != nullptr, "out!=NULL", "shiftQImage", kSourceFile, 60);
    out->fill(0);
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
        for (int x = 0; x < img->width(); ++x)
            sum += row[x];
    }
    return sum;
}

void setThreshold(const QImage *img, int threshold, int tolerance, QImage *tb, QImage *eb)
{
    const int width = std::min(tb->width(), eb->width());
    const int height = std::min(tb->height(), eb->height());
    for (int y = 0; y < height; ++y) {
        uchar *thresholdRow = tb->scanLine(y);
        uchar *exclusionRow = eb->scanLine(y);
        for (int x = 0; x < width; ++x) {
            const int level = byteAt(*img, x, y);
            thresholdRow[x] = level >= threshold;
            exclusionRow[x] = level <= threshold - tolerance || level >= threshold + tolerance;
        }
    }
}

void getLum(const QImage *img, QImage *lum, std::vector<double> &cdf)
{
    std::array<qint64, kGreyLevels> counts = {};
    cdf.resize(kGreyLevels);
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
    const double pixelCount = static_cast<double>(img->width()) * img->height();
    const double share = pixelCount > 0 ? 1.0 / pixelCount : 0.0;
    double sum = 0.0;
    for (size_t level = 0; level < kGreyLevels; ++level) {
        sum = static_cast<double>(counts[level]) * share + sum;
        cdf[level] = sum;
    }
}

void XORimages(const QImage *tb1, const QImage *eb1, const QImage *tb2, const QImage *eb2,
               QImage *out)
{
    out->fill(0);
    for (int y = 0; y < tb1->height(); ++y) {
        int position1 = 0;
        int position2 = 0;
        for (int x = 0; x < tb1->width(); ++x) {
            const bool differs = byteAt(*tb1, x, y) != byteAt(*tb2, x, y) &&
                                 byteAt(*eb1, position1++, y) != 0 &&
                                 byteAt(*eb2, position2++, y) != 0;
            if (differs && out->valid(x, y))
                out->scanLine(y)[x] = 1;
        }
    }
}

void shiftimage(const QImage *in, int dx, int dy, QImage *out)
{
    out->fill(0);
    copyShifted<uchar>(*in, dx, dy, *out);
}

void getExpShift(const QImage *img1, int threshold1, const QImage *img2, int threshold2,
                 int tolerance, int level, int &shiftX, int &shiftY)
{
    int startX = -1;
    int startY = -1;
    if (level > 0) {
        const QImage half1 = halved(*img1);
        const QImage half2 = halved(*img2);
        int x = 0;
        int y = 0;
        getExpShift(&half1, threshold1, &half2, threshold2, tolerance, level - 1, x, y);
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

void mtbalign(bool skipSearch, const QImage *img1, const QImage *img2, double percentile,
              int tolerance, int levels, int &shiftX, int &shiftY)
{
    QImage grey1(img1->size(), QImage::Format_Indexed8);
    QImage grey2(img2->size(), QImage::Format_Indexed8);
    std::vector<double> cdf1;
    std::vector<double> cdf2;
    getLum(img1, &grey1, cdf1);
    getLum(img2, &grey2, cdf2);
    const int threshold1 = percentileLevel(cdf1, percentile);
    const int threshold2 = percentileLevel(cdf2, percentile);
    if (!skipSearch)
        getExpShift(&grey1, threshold1, &grey2, threshold2, tolerance, levels, shiftX, shiftY);
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
