#include "LightRange.h"

#include "Chromaticities.h"
#include "parallel_rows.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <mutex>
#include <vector>

namespace develop {
namespace {

// A positive number's exponent and 3 more bits name its bin. Counts of whole pixels have the same
// sum in any order.
constexpr int kLowBits = 20;
constexpr size_t kBins = size_t(1) << (31 - kLowBits);
constexpr size_t kFirstInfinite = size_t(0x7F800000) >> kLowBits;

using Counts = std::vector<qint64>;

size_t binOf(float luminance)
{
    quint32 bits = 0;
    std::memcpy(&bits, &luminance, sizeof bits);
    return std::min(size_t(bits >> kLowBits), kFirstInfinite - 1);
}

double stopsOf(size_t bin)
{
    const auto bits = static_cast<quint32>((bin << kLowBits) + (1U << (kLowBits - 1)));
    float middle = 0.0F;
    std::memcpy(&middle, &bits, sizeof middle);
    return std::log2(double(middle));
}

Counts countsOf(const QImage &light)
{
    Counts counts(kBins);
    std::mutex mutex;
    const std::array<float, 3> weights = luminanceWeights(light.colorSpace());
    parallel::rows(light.size(), [&](int begin, int end) {
        Counts own(kBins);
        for (int y = begin; y < end; ++y) {
            const auto *pixel = reinterpret_cast<const float *>(light.constScanLine(y));
            for (int x = 0; x < light.width(); ++x, pixel += 4) {
                const float luminance = luminanceOf(pixel, weights);
                if (luminance > 0.0F)
                    ++own[binOf(luminance)];
            }
        }
        const std::lock_guard<std::mutex> lock(mutex);
        std::transform(own.begin(), own.end(), counts.begin(), counts.begin(), std::plus<>());
    });
    return counts;
}

/// The bin below which this share of the counted lies.
double stopsBelow(const Counts &counts, qint64 all, double share)
{
    const auto wanted = static_cast<qint64>(share * double(all));
    qint64 below = 0;
    for (size_t bin = 0; bin < kBins; ++bin) {
        below += counts[bin];
        if (below > wanted)
            return stopsOf(bin);
    }
    return 0.0;
}

/// Columns are what a full primary gives of X, Y and Z, but for its strength.
std::array<double, 3> columnOf(QPointF chromaticity)
{
    return {chromaticity.x(), chromaticity.y(), 1.0 - chromaticity.x() - chromaticity.y()};
}

double determinant(const std::array<double, 3> &a, const std::array<double, 3> &b,
                   const std::array<double, 3> &c)
{
    return a[0] * (b[1] * c[2] - b[2] * c[1]) - b[0] * (a[1] * c[2] - a[2] * c[1]) +
           c[0] * (a[1] * b[2] - a[2] * b[1]);
}

} // namespace

std::array<float, 3> luminanceWeights(const QColorSpace &space)
{
    const Chromaticities of = Chromaticities::of(space);
    const auto red = columnOf(of.red);
    const auto green = columnOf(of.green);
    const auto blue = columnOf(of.blue);
    const auto white = columnOf(of.white);
    const std::array<double, 3> parts = {determinant(white, green, blue) * red[1],
                                         determinant(red, white, blue) * green[1],
                                         determinant(red, green, white) * blue[1]};
    const double sum = parts[0] + parts[1] + parts[2];
    if (!(std::abs(sum) > 0.0) || !std::isfinite(sum))
        return {0.2126F, 0.7152F, 0.0722F};
    return {static_cast<float>(parts[0] / sum), static_cast<float>(parts[1] / sum),
            static_cast<float>(parts[2] / sum)};
}

LightRange LightRange::of(const QImage &light)
{
    const Counts counts = countsOf(light);
    qint64 all = 0;
    double sum = 0.0;
    for (size_t bin = 0; bin < kBins; ++bin) {
        all += counts[bin];
        if (counts[bin] > 0)
            sum += double(counts[bin]) * stopsOf(bin);
    }
    if (all == 0)
        return {};
    return {stopsBelow(counts, all, 0.01), sum / double(all), stopsBelow(counts, all, 0.999)};
}

} // namespace develop
