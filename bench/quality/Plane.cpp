#include "Plane.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr int kWindow = 11;
constexpr double kSigma = 1.5;

std::vector<double> gaussianTaps()
{
    std::vector<double> taps;
    for (int i = 0; i < kWindow; ++i) {
        const double distance = i - kWindow / 2;
        taps.push_back(std::exp(-distance * distance / (2 * kSigma * kSigma)));
    }
    const double sum = std::accumulate(taps.begin(), taps.end(), 0.0);
    for (double &tap : taps)
        tap /= sum;
    return taps;
}

/// The weighted sum of taps.size() values, `step` apart.
double weightedSum(const double *first, size_t step, const std::vector<double> &taps)
{
    double sum = 0.0;
    for (size_t i = 0; i < taps.size(); ++i)
        sum += taps[i] * first[i * step];
    return sum;
}

} // namespace

Plane planes::grey(const QImage &picture)
{
    const QImage words = picture.convertToFormat(QImage::Format_RGB32);
    Plane plane(words.width(), words.height());
    for (int y = 0; y < plane.height; ++y) {
        for (int x = 0; x < plane.width; ++x) {
            const QRgb pixel = words.pixel(x, y);
            plane.at(x, y) = 0.299 * qRed(pixel) + 0.587 * qGreen(pixel) + 0.114 * qBlue(pixel);
        }
    }
    return plane;
}

Plane planes::product(const Plane &first, const Plane &second)
{
    Plane result = first;
    for (size_t i = 0; i < result.values.size(); ++i)
        result.values[i] *= second.values[i];
    return result;
}

Plane planes::halved(const Plane &plane)
{
    Plane half((plane.width + 1) / 2, (plane.height + 1) / 2);
    for (int y = 0; y < half.height; ++y) {
        for (int x = 0; x < half.width; ++x) {
            const int right = std::min(2 * x + 1, plane.width - 1);
            const int below = std::min(2 * y + 1, plane.height - 1);
            half.at(x, y) = (plane.at(2 * x, 2 * y) + plane.at(right, 2 * y) +
                             plane.at(2 * x, below) + plane.at(right, below)) /
                            4;
        }
    }
    return half;
}

Plane planes::windowMean(const Plane &plane)
{
    if (plane.width < kWindow || plane.height < kWindow)
        return {};
    static const std::vector<double> taps = gaussianTaps();
    Plane across(plane.width - kWindow + 1, plane.height);
    for (int y = 0; y < across.height; ++y)
        for (int x = 0; x < across.width; ++x)
            across.at(x, y) = weightedSum(&plane.values[0] + y * plane.width + x, 1, taps);
    Plane result(across.width, plane.height - kWindow + 1);
    for (int y = 0; y < result.height; ++y)
        for (int x = 0; x < result.width; ++x)
            result.at(x, y) = weightedSum(&across.values[0] + y * across.width + x,
                                          static_cast<size_t>(across.width), taps);
    return result;
}

double planes::mean(const Plane &plane)
{
    if (plane.values.empty())
        return 0.0;
    return std::accumulate(plane.values.begin(), plane.values.end(), 0.0) /
           static_cast<double>(plane.values.size());
}
