#include "DeepRows.h"

#include <QRgba64>

#include <algorithm>

using fusion::DeepRows;

namespace {

float tapMean(float a, float b, float c, float d)
{
    return (b + c) * 0.375F + (a + d) * 0.125F;
}

float nearMean(float near, float far)
{
    return near * 0.75F + far * 0.25F;
}

void repeatEnds(float *row, size_t count)
{
    row[-1] = row[0];
    row[count] = row[count + 1] = row[count - 1];
}

quint64 level(float number)
{
    return static_cast<quint64>(static_cast<int>(std::clamp(number + 0.5F, 0.0F, 65535.0F)));
}

/// A number that is not negative, as it is kept.
quint16 rounded(float number)
{
    return static_cast<quint16>(static_cast<int>(number + 0.5F));
}

template <typename From>
void halve(const From *const rows[4], size_t count, size_t half, float *across, quint16 *out)
{
    for (size_t x = 0; x < count; ++x)
        across[x] = tapMean(rows[0][x], rows[1][x], rows[2][x], rows[3][x]);
    repeatEnds(across, count);
    for (size_t x = 0; x < half; ++x) {
        const float *first = across + 2 * x;
        out[x] = rounded(tapMean(first[-1], first[0], first[1], first[2]));
    }
}

template <typename From>
void enlarge(const From *near, const From *far, size_t half, float *across, float *out)
{
    for (size_t x = 0; x < half; ++x)
        across[x] = nearMean(near[x], far[x]);
    repeatEnds(across, half);
    for (size_t x = 0; x < half; ++x) {
        out[2 * x] = nearMean(across[x], across[x - 1]);
        out[2 * x + 1] = nearMean(across[x], across[x + 1]);
    }
}

template <typename From>
void startFrom(const From *numbers, const float *enlarged, size_t count, float *base, float *sum)
{
    for (size_t x = 0; x < count; ++x)
        base[x] = sum[x] = enlarged == nullptr ? numbers[x] : numbers[x] - enlarged[x];
}

template <typename From, typename Weight>
void addFrom(const From *numbers, const float *enlarged, const float *base, const Weight *weights,
             size_t count, float *sum)
{
    for (size_t x = 0; x < count; ++x) {
        const float own = enlarged == nullptr ? numbers[x] : numbers[x] - enlarged[x];
        sum[x] += (own - base[x]) * (weights[x] * DeepRows::kUnit);
    }
}

} // namespace

void DeepRows::split(const Word *words, size_t count, Number *const channels[3])
{
    for (size_t x = 0; x < count; ++x) {
        const QRgba64 pixel = QRgba64::fromRgba64(words[x]);
        channels[0][x] = static_cast<float>(pixel.red());
        channels[1][x] = static_cast<float>(pixel.green());
        channels[2][x] = static_cast<float>(pixel.blue());
    }
}

void DeepRows::firstSmaller(const Number *const rows[4], size_t count, size_t half, Number *across,
                            Kept *out)
{
    halve(rows, count, half, across, out);
}

void DeepRows::smaller(const Kept *const rows[4], size_t count, size_t half, Number *across,
                       Kept *out)
{
    halve(rows, count, half, across, out);
}

void DeepRows::larger(const Kept *near, const Kept *far, size_t half, Number *across, Number *out)
{
    enlarge(near, far, half, across, out);
}

void DeepRows::larger(const Number *near, const Number *far, size_t half, Number *across,
                      Number *out)
{
    enlarge(near, far, half, across, out);
}

void DeepRows::start(const Kept *numbers, const Number *enlarged, size_t count, Number *base,
                     Number *sum)
{
    startFrom(numbers, enlarged, count, base, sum);
}

void DeepRows::add(const Kept *numbers, const Number *enlarged, const Number *base,
                   const Kept *weights, size_t count, Number *sum)
{
    addFrom(numbers, enlarged, base, weights, count, sum);
}

void DeepRows::startLevels(const Number *levels, const Number *enlarged, size_t count, Number *base,
                           Number *sum)
{
    startFrom(levels, enlarged, count, base, sum);
}

void DeepRows::addLevels(const Number *levels, const Number *enlarged, const Number *base,
                         const Number *weights, size_t count, Number *sum)
{
    addFrom(levels, enlarged, base, weights, count, sum);
}

void DeepRows::finish(const Number *sum, const Number *enlarged, size_t count, Number *out)
{
    for (size_t x = 0; x < count; ++x)
        out[x] = enlarged == nullptr ? sum[x] : sum[x] + enlarged[x];
}

void DeepRows::join(const Number *const sums[3], const Number *const enlarged[3], size_t count,
                    Word *words)
{
    for (size_t x = 0; x < count; ++x) {
        quint16 levels[3];
        for (size_t i = 0; i < 3; ++i)
            levels[i] = static_cast<quint16>(level(sums[i][x] + enlarged[i][x]));
        words[x] = QRgba64::fromRgba64(levels[0], levels[1], levels[2], 65535);
    }
}

void DeepRows::toUnit(const Kept *numbers, size_t count, float *levels)
{
    for (size_t x = 0; x < count; ++x)
        levels[x] = numbers[x] * kUnit;
}

void DeepRows::toWeights(const float *shares, size_t count, Kept *weights)
{
    for (size_t x = 0; x < count; ++x)
        weights[x] = rounded(shares[x] * 65535.0F);
}
