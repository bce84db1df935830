#include "LocalCorrelation.h"

#include <cmath>

namespace {

constexpr int kSide = 15;
constexpr int kStep = 8;
constexpr double kLeastDeviation = 6.0;
constexpr int kDarkest = 3;
constexpr int kBrightest = 252;

struct Sums
{
    double a = 0;
    double b = 0;
    double aa = 0;
    double bb = 0;
    double ab = 0;
};

bool isUsable(QRgb pixel)
{
    const int most = std::max({qRed(pixel), qGreen(pixel), qBlue(pixel)});
    return qAlpha(pixel) == 255 && most >= kDarkest && most <= kBrightest;
}

/// False when a pixel of the window does not count.
bool addWindow(const QImage &first, const QImage &second, int left, int top, Sums &sums)
{
    for (int y = top; y < top + kSide; ++y) {
        const auto *a = reinterpret_cast<const QRgb *>(first.constScanLine(y));
        const auto *b = reinterpret_cast<const QRgb *>(second.constScanLine(y));
        for (int x = left; x < left + kSide; ++x) {
            if (!isUsable(a[x]) || !isUsable(b[x]))
                return false;
            const double p = (qRed(a[x]) + 2 * qGreen(a[x]) + qBlue(a[x])) / 4.0;
            const double q = (qRed(b[x]) + 2 * qGreen(b[x]) + qBlue(b[x])) / 4.0;
            sums.a += p;
            sums.b += q;
            sums.aa += p * p;
            sums.bb += q * q;
            sums.ab += p * q;
        }
    }
    return true;
}

void addCorrelation(const Sums &sums, LocalCorrelation &result)
{
    constexpr double kCount = kSide * kSide;
    const double varianceA = sums.aa / kCount - sums.a / kCount * (sums.a / kCount);
    const double varianceB = sums.bb / kCount - sums.b / kCount * (sums.b / kCount);
    constexpr double kLeastVariance = kLeastDeviation * kLeastDeviation;
    if (varianceA < kLeastVariance || varianceB < kLeastVariance)
        return;
    const double both = sums.ab / kCount - sums.a / kCount * (sums.b / kCount);
    result.mean += both / std::sqrt(varianceA * varianceB);
    ++result.windows;
}

} // namespace

LocalCorrelation localCorrelation(const QImage &first, const QImage &second)
{
    const QImage a = first.convertToFormat(QImage::Format_ARGB32);
    const QImage b = second.convertToFormat(QImage::Format_ARGB32);
    LocalCorrelation result;
    for (int y = 0; y + kSide <= a.height(); y += kStep) {
        for (int x = 0; x + kSide <= a.width(); x += kStep) {
            Sums sums;
            if (addWindow(a, b, x, y, sums))
                addCorrelation(sums, result);
        }
    }
    result.mean /= std::max(1, result.windows);
    return result;
}
