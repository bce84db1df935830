#include "resample_rows.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numeric>

namespace registration {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr int kLobes = 3;
constexpr double kSharpening = 0.2; ///< half way between two pixels

double sinc(double x)
{
    return x == 0.0 ? 1.0 : std::sin(kPi * x) / (kPi * x);
}

double lanczos(double x)
{
    return std::abs(x) < kLobes ? sinc(x) * sinc(x / kLobes) : 0.0;
}

/// The cubic B-spline: a blur.
double spline(double x)
{
    const double t = std::abs(x);
    if (t >= 2.0)
        return 0.0;
    return t < 1.0 ? 2.0 / 3 - t * t + t * t * t / 2 : (2 - t) * (2 - t) * (2 - t) / 6;
}

using ExactWeights = std::array<double, kTaps>;

template <typename Filter>
ExactWeights filterAt(double phase, const Filter &filter)
{
    ExactWeights weights{};
    for (size_t i = 0; i < kTaps; ++i)
        weights[i] = filter(double(i) - (kLobes - 1) - phase);
    const double sum = std::accumulate(weights.begin(), weights.end(), 0.0);
    for (double &weight : weights)
        weight /= sum;
    return weights;
}

/// Whole numbers that add up to kWeightOne.
TapWeights rounded(const ExactWeights &exact)
{
    TapWeights weights{};
    int rest = kWeightOne;
    for (size_t i = 0; i < kTaps; ++i) {
        weights[i] = static_cast<int16_t>(std::lround(exact[i] * kWeightOne));
        rest -= weights[i];
    }
    *std::max_element(weights.begin(), weights.end()) += static_cast<int16_t>(rest);
    return weights;
}

TapWeights weightsOf(int number)
{
    const double phase = double(number) / kPhases;
    const double sharpening = kSharpening * 4 * phase * (1 - phase);
    const ExactWeights blurred = filterAt(phase, spline);
    ExactWeights weights = filterAt(phase, lanczos);
    for (size_t i = 0; i < kTaps; ++i)
        weights[i] += sharpening * (weights[i] - blurred[i]);
    return rounded(weights);
}

std::array<TapWeights, kPhases> makePhases()
{
    std::array<TapWeights, kPhases> phases;
    for (int phase = 0; phase < kPhases; ++phase)
        phases[size_t(phase)] = weightsOf(phase);
    return phases;
}

/// Four channels, as many bytes each as Channel has.
template <typename Channel>
using Pixel = std::array<Channel, 4>;

/// 6 x 6 pixels, somewhere in memory.
struct Window
{
    const uint8_t *bits;
    size_t rowBytes;

    template <typename Channel>
    Channel at(size_t x, size_t y, size_t channel) const
    {
        Channel value;
        std::memcpy(&value, bits + y * rowBytes + (4 * x + channel) * sizeof(Channel),
                    sizeof(Channel));
        return value;
    }
};

/// value * weight / 32768, rounded.
int scaledProduct(int value, int weight)
{
    return (value * weight + 16384) >> 15;
}

/// Down the columns first, then across: 8 bits, with as many bits behind the point as 16-bit lanes
/// have room for.
int filtered(const Window &window, size_t channel, const TapWeights &across, const TapWeights &down,
             uint8_t)
{
    int sum = 0;
    for (size_t x = 0; x < kTaps; ++x) {
        int column = 0;
        for (size_t y = 0; y < kTaps; ++y)
            column += scaledProduct(window.at<uint8_t>(x, y, channel) << 7, down[y]);
        sum += scaledProduct(column, across[x]);
    }
    return (sum + 16) >> 5;
}

int filtered(const Window &window, size_t channel, const TapWeights &across, const TapWeights &down,
             uint16_t)
{
    int64_t sum = 0;
    for (size_t x = 0; x < kTaps; ++x) {
        int64_t column = 0;
        for (size_t y = 0; y < kTaps; ++y)
            column += int64_t(window.at<uint16_t>(x, y, channel)) * down[y];
        sum += column * across[x];
    }
    return static_cast<int>((sum + (int64_t(1) << 27)) >> 28);
}

/// What a channel has in the nearest 4 x 4 pixels.
template <typename Channel>
std::pair<int, int> rangeOf(const Window &window, size_t channel)
{
    std::pair<int, int> range(window.at<Channel>(1, 1, channel), window.at<Channel>(1, 1, channel));
    for (size_t y = 1; y <= 4; ++y) {
        for (size_t x = 1; x <= 4; ++x) {
            range.first = std::min<int>(range.first, window.at<Channel>(x, y, channel));
            range.second = std::max<int>(range.second, window.at<Channel>(x, y, channel));
        }
    }
    return range;
}

constexpr size_t kAlpha = 3;

template <typename Channel>
Pixel<Channel> resampled(const Window &window, const TapPlace &place, bool isOpaque)
{
    constexpr auto kFull = static_cast<Channel>(~Channel{0});
    if (!isOpaque && rangeOf<Channel>(window, kAlpha).first < kFull)
        return {};
    Pixel<Channel> pixel;
    for (size_t channel = 0; channel < kAlpha; ++channel) {
        const auto [least, most] = rangeOf<Channel>(window, channel);
        const int value = filtered(window, channel, filterPhases()[place.phaseX],
                                   filterPhases()[place.phaseY], Channel{});
        pixel[channel] = static_cast<Channel>(std::clamp(value, least, most));
    }
    pixel[kAlpha] = kFull;
    return pixel;
}

template <typename Channel, typename Whole>
void resampleRow(const SourcePixels &source, const TapPlace *places, size_t count, Channel *out)
{
    for (size_t i = 0; i < count; ++i) {
        const TapPlace &place = places[i];
        Pixel<Channel> pixel{};
        if (place.isCovered && isInner(source, place)) {
            const Window window{source.bits + size_t(place.y) * source.rowBytes +
                                    size_t(place.x) * sizeof(Whole),
                                source.rowBytes};
            pixel = resampled<Channel>(window, place, source.isOpaque);
        } else if (place.isCovered) {
            const BorderPixels<Whole> border(source, place);
            const Window window{reinterpret_cast<const uint8_t *>(border.pixels.data()),
                                kTaps * sizeof(Whole)};
            pixel = resampled<Channel>(window, place, source.isOpaque);
        }
        std::copy(pixel.begin(), pixel.end(), out + 4 * i);
    }
}

} // namespace

template <typename PixelWord>
BorderPixels<PixelWord>::BorderPixels(const SourcePixels &source, const TapPlace &place)
{
    constexpr int kCount = kTaps;
    for (int y = 0; y < kCount; ++y) {
        for (int x = 0; x < kCount; ++x) {
            const auto line = static_cast<size_t>(std::clamp(place.y + y, 0, source.height - 1));
            const auto column = static_cast<size_t>(std::clamp(place.x + x, 0, source.width - 1));
            std::memcpy(&pixels[size_t(y) * kTaps + size_t(x)],
                        source.bits + line * source.rowBytes + column * sizeof(PixelWord),
                        sizeof(PixelWord));
        }
    }
}

template struct BorderPixels<uint32_t>;
template struct BorderPixels<uint64_t>;

const std::array<TapWeights, kPhases> &filterPhases()
{
    static const std::array<TapWeights, kPhases> phases = makePhases();
    return phases;
}

void plain::resampleWords(const SourcePixels &source, const TapPlace *places, size_t count,
                          uint32_t *out)
{
    resampleRow<uint8_t, uint32_t>(source, places, count, reinterpret_cast<uint8_t *>(out));
}

void plain::resampleDeep(const SourcePixels &source, const TapPlace *places, size_t count,
                         uint16_t *out)
{
    resampleRow<uint16_t, uint64_t>(source, places, count, out);
}

} // namespace registration
