// The fusion without any haste. Numbers of 8-bit pictures are integers of 16 bits: levels of grey
// times 64, weights times 32767; those of 16-bit pictures are floats, of which halved levels and
// weights (times 65535) are rounded to whole numbers.

#include "fusion_plain.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using fusion::Options;
using fusion::Shot;

template <typename Number>
struct Grid
{
    int width = 0;
    int height = 0;
    std::vector<Number> numbers;

    Grid() = default;
    Grid(int gridWidth, int gridHeight)
        : width(gridWidth)
        , height(gridHeight)
        , numbers(static_cast<size_t>(gridWidth) * static_cast<size_t>(gridHeight))
    {
    }

    /// The number there, or the nearest one for places outside.
    const Number &at(int x, int y) const
    {
        return numbers[index(std::clamp(x, 0, width - 1), std::clamp(y, 0, height - 1))];
    }
    Number &at(int x, int y) { return numbers[index(x, y)]; }

private:
    size_t index(int x, int y) const
    {
        return static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x);
    }
};

/// Arithmetic on levels of 8-bit pictures.
struct Integers
{
    using Number = int;
    static constexpr int kLargestLevel = 255;
    static constexpr float kUnit = 1.0F / (255 * 64);
    static constexpr float kFullWeight = 32767.0F;

    static int average(int a, int b) { return (a + b + 1) >> 1; }
    static int number(int level) { return level * 64; }
    static int weight(float share) { return static_cast<int>(share * kFullWeight + 0.5F); }
    static int scaled(int number, int weight) { return (number * weight + (1 << 14)) >> 15; }
    static int sum(int a, int b) { return std::clamp(a + b, -32768, 32767); }
    static int smaller(int a, int b, int c, int d)
    {
        const int middle = average(b, c);
        return average(middle, average(middle, average(a, d)));
    }
    static int larger(int near, int far) { return average(near, average(near, far)); }
    static int kept(int number) { return number; }
    static int level(int number) { return std::clamp((number + 32) >> 6, 0, kLargestLevel); }
};

/// Arithmetic on levels of 16-bit pictures.
struct Floats
{
    using Number = float;
    static constexpr int kLargestLevel = 65535;
    static constexpr float kUnit = 1.0F / 65535;

    static float number(int level) { return static_cast<float>(level); }
    static float weight(float share) { return kept(share * 65535.0F); }
    static float scaled(float number, float weight) { return number * (weight * kUnit); }
    static float sum(float a, float b) { return a + b; }
    static float smaller(float a, float b, float c, float d)
    {
        return (b + c) * 0.375F + (a + d) * 0.125F;
    }
    static float larger(float near, float far) { return near * 0.75F + far * 0.25F; }
    static float kept(float number) { return std::floor(number + 0.5F); }
    static int level(float number)
    {
        return static_cast<int>(std::clamp(number + 0.5F, 0.0F, 65535.0F));
    }
};

/// Half the size: taps 1 3 3 1 each way, down the columns first.
template <typename Arithmetic, typename Number = typename Arithmetic::Number>
Grid<Number> smaller(const Grid<Number> &grid)
{
    const QSize size = fusion::halfSize({grid.width, grid.height});
    Grid<Number> down(grid.width, size.height());
    for (int y = 0; y < down.height; ++y)
        for (int x = 0; x < down.width; ++x)
            down.at(x, y) = Arithmetic::smaller(grid.at(x, 2 * y - 1), grid.at(x, 2 * y),
                                                grid.at(x, 2 * y + 1), grid.at(x, 2 * y + 2));
    const Grid<Number> &rows = down;
    Grid<Number> half(size.width(), size.height());
    for (int y = 0; y < half.height; ++y)
        for (int x = 0; x < half.width; ++x)
            half.at(x, y) =
                Arithmetic::kept(Arithmetic::smaller(rows.at(2 * x - 1, y), rows.at(2 * x, y),
                                                     rows.at(2 * x + 1, y), rows.at(2 * x + 2, y)));
    return half;
}

/// The first halving of an 8-bit picture keeps every bit.
Grid<int> firstSmaller(const Grid<int> &grid, Integers)
{
    constexpr int kTaps[4] = {1, 3, 3, 1};
    const QSize size = fusion::halfSize({grid.width, grid.height});
    Grid<int> half(size.width(), size.height());
    for (int y = 0; y < half.height; ++y)
        for (int x = 0; x < half.width; ++x)
            for (int row = 0; row < 4; ++row)
                for (int column = 0; column < 4; ++column)
                    half.at(x, y) +=
                        kTaps[row] * kTaps[column] *
                        (std::as_const(grid).at(2 * x + column - 1, 2 * y + row - 1) / 64);
    return half;
}

Grid<float> firstSmaller(const Grid<float> &grid, Floats)
{
    return smaller<Floats>(grid);
}

/// Twice the size: 3/4 of the nearest and 1/4 of the next, down the columns first.
template <typename Arithmetic, typename Number = typename Arithmetic::Number>
Grid<Number> larger(const Grid<Number> &half, int width, int height)
{
    Grid<Number> down(half.width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < half.width; ++x)
            down.at(x, y) =
                Arithmetic::larger(half.at(x, y / 2), half.at(x, y / 2 + (y % 2) * 2 - 1));
    const Grid<Number> &rows = down;
    Grid<Number> full(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            full.at(x, y) =
                Arithmetic::larger(rows.at(x / 2, y), rows.at(x / 2 + (x % 2) * 2 - 1, y));
    return full;
}

std::array<int, 3> levelsAt(const QImage &picture, int x, int y, int largest)
{
    const QRgba64 pixel = picture.pixelColor(x, y).rgba64();
    if (largest > 255)
        return {pixel.red(), pixel.green(), pixel.blue()};
    return {pixel.red8(), pixel.green8(), pixel.blue8()};
}

bool isCovered(const QImage &picture, int x, int y)
{
    return !picture.hasAlphaChannel() || picture.pixelColor(x, y).rgba64().alpha() == 65535;
}

/// The column whose pixel stands for the one at x: itself, or the nearest covered one to the left,
/// or else the row's first covered one; -1 in a row without any.
int columnFor(const QImage &picture, int x, int y)
{
    for (int left = x; left >= 0; --left)
        if (isCovered(picture, left, y))
            return left;
    for (int right = x + 1; right < picture.width(); ++right)
        if (isCovered(picture, right, y))
            return right;
    return -1;
}

/// The row whose pixels stand for those of row y: the nearest with a covered pixel, -1 without any.
int rowFor(const QImage &picture, int y)
{
    for (int distance = 0; distance < picture.height(); ++distance)
        for (const int row : {y - distance, y + distance})
            if (row >= 0 && row < picture.height() && columnFor(picture, 0, row) >= 0)
                return row;
    return -1;
}

template <typename Arithmetic, typename Number = typename Arithmetic::Number>
std::array<Grid<Number>, 3> channelsOf(const QImage &picture)
{
    std::array<Grid<Number>, 3> channels;
    channels.fill(Grid<Number>(picture.width(), picture.height()));
    for (int y = 0; y < picture.height(); ++y) {
        const int row = rowFor(picture, y);
        for (int x = 0; x < picture.width() && row >= 0; ++x) {
            const auto levels =
                levelsAt(picture, columnFor(picture, x, row), row, Arithmetic::kLargestLevel);
            for (size_t i = 0; i < channels.size(); ++i)
                channels[i].at(x, y) = Arithmetic::number(levels[i]);
        }
    }
    return channels;
}

/// 0..1 at half the size: what the mask says, 0 where a pixel is not covered.
Grid<float> usableShare(const Shot &shot)
{
    const QSize size = fusion::halfSize(shot.picture.size());
    Grid<float> usable(size.width(), size.height());
    for (int y = 0; y < usable.height; ++y) {
        for (int x = 0; x < usable.width; ++x) {
            const int right = std::min(2 * x + 1, shot.picture.width() - 1);
            const int below = std::min(2 * y + 1, shot.picture.height() - 1);
            const bool covered =
                isCovered(shot.picture, 2 * x, 2 * y) && isCovered(shot.picture, right, 2 * y) &&
                isCovered(shot.picture, 2 * x, below) && isCovered(shot.picture, right, below);
            const int mask = shot.mask.isNull() ? 255 : shot.mask.constScanLine(y)[x];
            usable.at(x, y) = covered ? static_cast<float>(mask) * (1.0F / 255) : 0.0F;
        }
    }
    return usable;
}

/// Mean over 2 x 2 numbers.
Grid<float> quartered(const Grid<float> &grid)
{
    const QSize size = fusion::halfSize({grid.width, grid.height});
    Grid<float> quarter(size.width(), size.height());
    for (int y = 0; y < quarter.height; ++y)
        for (int x = 0; x < quarter.width; ++x)
            quarter.at(x, y) = ((grid.at(2 * x, 2 * y) + grid.at(2 * x + 1, 2 * y)) +
                                (grid.at(2 * x, 2 * y + 1) + grid.at(2 * x + 1, 2 * y + 1))) *
                               0.25F;
    return quarter;
}

/// Mean over 5 x 5 numbers.
Grid<float> windowMean(const Grid<float> &grid)
{
    Grid<float> down(grid.width, grid.height);
    for (int y = 0; y < grid.height; ++y)
        for (int x = 0; x < grid.width; ++x)
            down.at(x, y) = ((grid.at(x, y - 2) + grid.at(x, y + 2)) +
                             (grid.at(x, y - 1) + grid.at(x, y + 1))) +
                            grid.at(x, y);
    const Grid<float> &rows = down;
    Grid<float> mean(grid.width, grid.height);
    for (int y = 0; y < grid.height; ++y)
        for (int x = 0; x < grid.width; ++x)
            mean.at(x, y) = (((rows.at(x - 2, y) + rows.at(x + 2, y)) +
                              (rows.at(x - 1, y) + rows.at(x + 1, y))) +
                             rows.at(x, y)) *
                            0.04F;
    return mean;
}

/// Local variance of grey (0..1) at a quarter of the size.
template <typename Arithmetic, typename Number>
Grid<float> variance(const std::array<Grid<Number>, 3> &half)
{
    Grid<float> grey(half[0].width, half[0].height);
    for (size_t i = 0; i < grey.numbers.size(); ++i) {
        const float red = static_cast<float>(half[0].numbers[i]) * Arithmetic::kUnit;
        const float green = static_cast<float>(half[1].numbers[i]) * Arithmetic::kUnit;
        const float blue = static_cast<float>(half[2].numbers[i]) * Arithmetic::kUnit;
        grey.numbers[i] = ((red + blue) + (green + green)) * 0.25F;
    }
    Grid<float> squares = grey;
    for (float &square : squares.numbers)
        square *= square;
    const Grid<float> means = windowMean(quartered(grey));
    Grid<float> variances = windowMean(quartered(squares));
    for (size_t i = 0; i < variances.numbers.size(); ++i)
        variances.numbers[i] =
            std::max(variances.numbers[i] - means.numbers[i] * means.numbers[i], 0.0F);
    return variances;
}

/// exp(-4 x) for x in 0..0.75, within 2 %.
float bell(float x)
{
    float value = (x * x) * 0.03125F + (1.0F - x * 0.25F);
    for (int i = 0; i < 4; ++i)
        value *= value;
    return value;
}

/// Options beyond the neutral ones are powers of the terms.
float pixelWeight(std::array<float, 3> levels, float variance, const Options &options)
{
    float square = 0.0F;
    for (const float level : levels)
        square += (level - 0.5F) * (level - 0.5F);
    const float contrast = variance + 0.0003F;
    const float exposureTerm = bell(square);
    const float contrastTerm = contrast * contrast;
    if (options.isNeutral())
        return exposureTerm * contrastTerm;
    const float mean = (levels[0] + levels[1] + levels[2]) / 3;
    float colour = 0.001F;
    for (const float level : levels)
        colour += (level - mean) * (level - mean);
    return std::pow(exposureTerm, static_cast<float>(options.exposureWeight)) *
           std::pow(contrastTerm, static_cast<float>(options.contrastWeight)) *
           std::pow(colour, static_cast<float>(options.saturationWeight));
}

template <typename Arithmetic, typename Number>
Grid<float> rawWeights(const std::array<Grid<Number>, 3> &half, const Grid<float> &usable,
                       const Options &options)
{
    const Grid<float> variances = variance<Arithmetic>(half);
    Grid<float> weights = usable;
    for (int y = 0; y < weights.height; ++y) {
        for (int x = 0; x < weights.width; ++x) {
            std::array<float, 3> levels;
            for (size_t i = 0; i < levels.size(); ++i)
                levels[i] = static_cast<float>(half[i].at(x, y)) * Arithmetic::kUnit;
            weights.at(x, y) *=
                pixelWeight(levels, std::as_const(variances).at(x / 2, y / 2), options);
        }
    }
    return weights;
}

/// The fusion of one kind of arithmetic; a member a step.
template <typename Arithmetic>
class PlainFusion
{
public:
    PlainFusion(const std::vector<Shot> &shots, const Options &options);
    QImage fused();

private:
    using Number = typename Arithmetic::Number;
    using Level = std::array<Grid<Number>, 3>;

    void addShot(const Shot &shot, const Options &options);
    void normaliseWeights();
    Number laplacian(size_t shot, size_t level, size_t channel, int x, int y) const;
    Grid<Number> blended(size_t level, size_t channel) const;

    QSize size;
    size_t levelCount = 2;                    ///< the shots themselves counted
    std::vector<std::vector<Level>> pyramids; ///< of each shot
    std::vector<std::vector<Level>> enlarged; ///< of each shot, each level's next one enlarged
    std::vector<Grid<float>> raw;             ///< weights of each shot at half the size
    std::vector<std::vector<Grid<Number>>> weights; ///< of each shot but the last
};

template <typename Arithmetic>
PlainFusion<Arithmetic>::PlainFusion(const std::vector<Shot> &shots, const Options &options)
    : size(shots.front().picture.size())
{
    for (int side = std::min(size.width(), size.height()); side >= 8; side /= 2)
        ++levelCount;
    for (const Shot &shot : shots)
        addShot(shot, options);
    normaliseWeights();
}

template <typename Arithmetic>
void PlainFusion<Arithmetic>::addShot(const Shot &shot, const Options &options)
{
    std::vector<Level> pyramid{channelsOf<Arithmetic>(shot.picture)};
    std::vector<Level> larger1;
    for (size_t level = 1; level < levelCount; ++level) {
        Level next;
        Level large;
        for (size_t i = 0; i < 3; ++i) {
            const Grid<Number> &from = pyramid.back()[i];
            next[i] = level == 1 ? firstSmaller(from, Arithmetic()) : smaller<Arithmetic>(from);
            large[i] = larger<Arithmetic>(next[i], from.width, from.height);
        }
        pyramid.push_back(next);
        larger1.push_back(large);
    }
    raw.push_back(rawWeights<Arithmetic>(pyramid[1], usableShare(shot), options));
    pyramids.push_back(pyramid);
    enlarged.push_back(larger1);
}

/// Each shot's share of the sum of all; the last shot has what the others leave.
template <typename Arithmetic>
void PlainFusion<Arithmetic>::normaliseWeights()
{
    Grid<float> sums(raw[0].width, raw[0].height);
    for (const Grid<float> &shot : raw)
        for (size_t i = 0; i < sums.numbers.size(); ++i)
            sums.numbers[i] += shot.numbers[i];
    const float equal = 1.0F / static_cast<float>(raw.size());
    for (size_t shot = 0; shot + 1 < raw.size(); ++shot) {
        Grid<Number> first(sums.width, sums.height);
        for (size_t i = 0; i < sums.numbers.size(); ++i) {
            const float sum = sums.numbers[i];
            first.numbers[i] = Arithmetic::weight(sum > 0.0F ? raw[shot].numbers[i] / sum : equal);
        }
        std::vector<Grid<Number>> pyramid{larger<Arithmetic>(first, size.width(), size.height()),
                                          first};
        while (pyramid.size() < levelCount)
            pyramid.push_back(smaller<Arithmetic>(pyramid.back()));
        weights.push_back(pyramid);
    }
}

template <typename Arithmetic>
typename Arithmetic::Number PlainFusion<Arithmetic>::laplacian(size_t shot, size_t level,
                                                               size_t channel, int x, int y) const
{
    const Number number = pyramids[shot][level][channel].at(x, y);
    if (level + 1 == levelCount)
        return number;
    return number - enlarged[shot][level][channel].at(x, y);
}

/// The last shot's Laplacian and the others' differences from it, each by its weight.
template <typename Arithmetic>
Grid<typename Arithmetic::Number> PlainFusion<Arithmetic>::blended(size_t level,
                                                                   size_t channel) const
{
    const size_t last = pyramids.size() - 1;
    Grid<Number> result = pyramids[last][level][channel];
    for (int y = 0; y < result.height; ++y) {
        for (int x = 0; x < result.width; ++x) {
            const Number base = laplacian(last, level, channel, x, y);
            Number sum = base;
            for (size_t shot = 0; shot < last; ++shot)
                sum += Arithmetic::scaled(laplacian(shot, level, channel, x, y) - base,
                                          weights[shot][level].at(x, y));
            result.at(x, y) = sum;
        }
    }
    return result;
}

template <typename Arithmetic>
QImage PlainFusion<Arithmetic>::fused()
{
    Level result;
    for (size_t channel = 0; channel < 3; ++channel) {
        result[channel] = blended(levelCount - 1, channel);
        for (size_t level = levelCount - 1; level-- > 0;) {
            Grid<Number> next = blended(level, channel);
            const Grid<Number> large = larger<Arithmetic>(result[channel], next.width, next.height);
            for (size_t i = 0; i < next.numbers.size(); ++i)
                next.numbers[i] = Arithmetic::sum(next.numbers[i], large.numbers[i]);
            result[channel] = next;
        }
    }
    const bool deep = Arithmetic::kLargestLevel > 255;
    QImage picture(size, deep ? QImage::Format_RGBX64 : QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            std::array<quint16, 3> levels;
            for (size_t i = 0; i < 3; ++i)
                levels[i] =
                    static_cast<quint16>(Arithmetic::level(result[i].at(x, y)) * (deep ? 1 : 257));
            picture.setPixelColor(x, y,
                                  QRgba64::fromRgba64(levels[0], levels[1], levels[2], 65535));
        }
    }
    return picture;
}

/// What tells shots apart at a pixel: nothing of uncovered ones.
std::array<int, 4> pixelKey(const QImage &picture, int x, int y)
{
    if (!isCovered(picture, x, y))
        return {};
    const QRgba64 pixel = picture.pixelColor(x, y).rgba64();
    return {1, pixel.red(), pixel.green(), pixel.blue()};
}

/// An order that depends on the pixels and masks alone, so that the caller's order does not matter.
bool comesBefore(const Shot &first, const Shot &second)
{
    for (int y = 0; y < first.picture.height(); ++y) {
        for (int x = 0; x < first.picture.width(); ++x) {
            const std::array<int, 4> a = pixelKey(first.picture, x, y);
            const std::array<int, 4> b = pixelKey(second.picture, x, y);
            if (a != b)
                return a < b;
        }
    }
    if (first.mask.isNull() || second.mask.isNull())
        return first.mask.isNull() < second.mask.isNull();
    for (int y = 0; y < first.mask.height(); ++y)
        for (int x = 0; x < first.mask.width(); ++x)
            if (first.mask.constScanLine(y)[x] != second.mask.constScanLine(y)[x])
                return first.mask.constScanLine(y)[x] < second.mask.constScanLine(y)[x];
    return false;
}

} // namespace

QImage fusePlain(std::vector<Shot> shots, const Options &options)
{
    std::stable_sort(shots.begin(), shots.end(), comesBefore);
    const bool deep = shots.front().picture.depth() == 64;
    return deep ? PlainFusion<Floats>(shots, options).fused()
                : PlainFusion<Integers>(shots, options).fused();
}
