#include "exposure_merge_plain.h"

#include "picture_pixels.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>
#include <vector>

namespace {

/// Weighted sums of one pixel, in single precision, in the order of the pictures.
struct PixelSum
{
    float red = 0.0F;
    float green = 0.0F;
    float blue = 0.0F;
    float weight = 0.0F;
};

/// HSL lightness by way of 16-bit integers, as Qt's QColor has it in double precision.
double lightness(QRgb color)
{
    const int largest = std::max(qRed(color), std::max(qGreen(color), qBlue(color)));
    const int smallest = std::min(qRed(color), std::min(qGreen(color), qBlue(color)));
    const double sum = largest * 0x101 / 65535.0 + smallest * 0x101 / 65535.0;
    return std::floor(0.5 * sum * 65535 + 0.5) / 65535.0;
}

float weightOf(QRgb color)
{
    const float d = static_cast<float>(lightness(color)) - 0.5F;
    return std::exp(-d * d);
}

void accumulate(const QImage &picture, std::vector<PixelSum> &sums)
{
    auto sum = sums.begin();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x, ++sum) {
            const QRgb color = pixels::at(picture, x, y);
            const float weight = weightOf(color);
            sum->red += static_cast<float>(qRed(color)) * weight;
            sum->green += static_cast<float>(qGreen(color)) * weight;
            sum->blue += static_cast<float>(qBlue(color)) * weight;
            sum->weight += weight;
        }
    }
}

/// Every picture weighs at least exp(-0.25), so there is always something to divide by.
QRgb meanColor(const PixelSum &sum)
{
    return qRgb(static_cast<int>(sum.red / sum.weight), static_cast<int>(sum.green / sum.weight),
                static_cast<int>(sum.blue / sum.weight));
}

void convert(const std::vector<PixelSum> &sums, QImage &merged)
{
    auto sum = sums.begin();
    for (int y = 0; y < merged.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(merged.scanLine(y));
        for (int x = 0; x < merged.width(); ++x, ++sum)
            row[x] = meanColor(*sum);
    }
}

QImage *merge(const QList<QImage *> &pictures)
{
    if (pictures.isEmpty() || !pictures.first())
        return nullptr;
    const QSize size = pictures.first()->size();
    std::vector<PixelSum> sums(static_cast<size_t>(size.width()) *
                               static_cast<size_t>(size.height()));
    for (const QImage *picture : pictures) {
        if (!picture || picture->size() != size)
            return nullptr;
        accumulate(*picture, sums);
    }
    auto merged = std::make_unique<QImage>(size, QImage::Format_RGB32);
    if (merged->size() != size)
        return nullptr;
    convert(sums, *merged);
    return merged.release();
}

} // namespace

QImage *plain::mergeExposures(const QList<QImage *> &pictures)
{
    try {
        return merge(pictures);
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}
