#include "line_rows.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace registration {
namespace {

constexpr int kTapsBefore = int(kTaps) / 2 - 1;
constexpr size_t kChannels = 4;
constexpr size_t kAlpha = 3;

/// Where a filter begins, and which of its phases counts.
struct Taps
{
    explicit Taps(int32_t place)
        : first((place >> 7) - kTapsBefore)
        , weights(filterPhases()[size_t(place & (kPhases - 1))])
    {
        static_assert(kPhases == 1 << 7);
    }

    const int first;
    const TapWeights &weights;
};

/// value * weight / 32768, rounded.
int scaledProduct(int value, int weight)
{
    return (value * weight + 16384) >> 15;
}

/// value: 8 bits. Seven bits stand behind the point, of which the weights take one.
int weighted(uint8_t value, int weight)
{
    return scaledProduct(value << 7, weight);
}

float weighted(uint16_t value, int weight)
{
    return float(value) * (float(weight) / kWeightOne);
}

int weighted(int16_t sum, int weight)
{
    return scaledProduct(sum, weight);
}

float weighted(float sum, int weight)
{
    return sum * (float(weight) / kWeightOne);
}

int level(int sum)
{
    return (sum + 16) >> 5;
}

int level(float sum)
{
    return int(std::nearbyint(sum));
}

template <typename Channel>
Channel valueAt(const SourcePixels &source, int x, int y, size_t channel)
{
    const auto row = size_t(std::clamp(y, 0, source.height - 1));
    Channel value;
    std::memcpy(&value,
                source.bits + row * source.rowBytes +
                    (kChannels * size_t(x) + channel) * sizeof(Channel),
                sizeof(Channel));
    return value;
}

template <typename Channel>
void filterColumn(const SourcePixels &source, int x, const Taps &taps,
                  LineColumns<Channel> &columns)
{
    using Sum = typename LineColumns<Channel>::Sum;
    for (size_t channel = 0; channel < kChannels; ++channel) {
        decltype(weighted(Sum{}, 0)) sum = 0;
        for (int y = 0; y < int(kTaps); ++y)
            sum += weighted(valueAt<Channel>(source, x, taps.first + y, channel),
                            taps.weights[size_t(y)]);
        columns.sums(x)[channel] = Sum(sum);
        Channel least = valueAt<Channel>(source, x, taps.first + 1, channel);
        Channel most = least;
        for (int y = 2; y <= 4; ++y) {
            const auto value = valueAt<Channel>(source, x, taps.first + y, channel);
            least = std::min(least, value);
            most = std::max(most, value);
        }
        columns.least(x)[channel] = least;
        columns.most(x)[channel] = most;
    }
}

template <typename Channel>
void filterColumns(const SourcePixels &source, const int32_t *places, ColumnRange range,
                   LineColumns<Channel> &columns)
{
    for (int x = range.begin; x < range.end; ++x)
        filterColumn(source, x, Taps(places[x - range.begin]), columns);
}

template <typename Channel>
std::pair<Channel, Channel> rangeOf(const LineColumns<Channel> &columns, int first, size_t channel)
{
    std::pair<Channel, Channel> range(columns.least(first + 1)[channel],
                                      columns.most(first + 1)[channel]);
    for (int x = 2; x <= 4; ++x) {
        range.first = std::min(range.first, columns.least(first + x)[channel]);
        range.second = std::max(range.second, columns.most(first + x)[channel]);
    }
    return range;
}

template <typename Channel>
void filterPixel(const LineColumns<Channel> &columns, const Taps &taps, bool isOpaque, Channel *out)
{
    using Sum = typename LineColumns<Channel>::Sum;
    constexpr auto kFull = static_cast<Channel>(~Channel{0});
    std::fill_n(out, kChannels, Channel{0});
    if (!isOpaque && rangeOf(columns, taps.first, kAlpha).first < kFull)
        return;
    for (size_t channel = 0; channel < kAlpha; ++channel) {
        decltype(weighted(Sum{}, 0)) sum = 0;
        for (int x = 0; x < int(kTaps); ++x)
            sum += weighted(columns.sums(taps.first + x)[channel], taps.weights[size_t(x)]);
        const auto [least, most] = rangeOf(columns, taps.first, channel);
        out[channel] = Channel(std::clamp<int>(level(sum), least, most));
    }
    out[kAlpha] = kFull;
}

template <typename Channel>
void filterPixels(const LineColumns<Channel> &columns, const int32_t *places, size_t count,
                  bool isOpaque, Channel *out)
{
    for (size_t i = 0; i < count; ++i)
        filterPixel(columns, Taps(places[i]), isOpaque, out + kChannels * i);
}

} // namespace

template <typename Channel>
LineColumns<Channel>::LineColumns(int shotWidth)
    : width(shotWidth)
    , allSums(kChannels * size_t(width + kBefore + kBehind))
    , allLeast(allSums.size())
    , allMost(allSums.size())
{
}

template <typename Channel>
void LineColumns<Channel>::repeatOutermost()
{
    for (int x = -kBefore; x < 0; ++x)
        copy(0, x);
    for (int x = width; x < width + kBehind; ++x)
        copy(width - 1, x);
}

template <typename Channel>
void LineColumns<Channel>::copy(int from, int to)
{
    std::copy_n(sums(from), kChannels, sums(to));
    std::copy_n(least(from), kChannels, least(to));
    std::copy_n(most(from), kChannels, most(to));
}

template class LineColumns<uint8_t>;
template class LineColumns<uint16_t>;

void plain::filterDown(const SourcePixels &source, const int32_t *places, ColumnRange range,
                       LineColumns<uint8_t> &columns)
{
    filterColumns(source, places, range, columns);
}

void plain::filterDown(const SourcePixels &source, const int32_t *places, ColumnRange range,
                       LineColumns<uint16_t> &columns)
{
    filterColumns(source, places, range, columns);
}

void plain::filterAcross(const LineColumns<uint8_t> &columns, const int32_t *places, size_t count,
                         bool isOpaque, uint8_t *out)
{
    filterPixels(columns, places, count, isOpaque, out);
}

void plain::filterAcross(const LineColumns<uint16_t> &columns, const int32_t *places, size_t count,
                         bool isOpaque, uint16_t *out)
{
    filterPixels(columns, places, count, isOpaque, out);
}

} // namespace registration
