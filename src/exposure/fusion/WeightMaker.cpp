#include "WeightMaker.h"

#include "weight_rows.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr size_t kRingRows = 6; ///< of moments of a shot: a window and one more

/// Rows of WeightMaker::work.
enum WorkRow : size_t { UpperGrey, LowerGrey, AcrossMeans, AcrossSquares, Variances, Usable, Sums };
constexpr size_t kWorkRows = Sums + 1;

/// The weight where options are not neutral, as the neutral one of weightRows.
float freeWeight(const float levels[3], float variance, const fusion::Options &options)
{
    float square = 0.0F;
    for (int i = 0; i < 3; ++i)
        square += (levels[i] - 0.5F) * (levels[i] - 0.5F);
    float bell = (square * square) * 0.03125F + (1.0F - square * 0.25F);
    for (int i = 0; i < 4; ++i)
        bell *= bell;
    const float contrast = variance + 0.0003F;
    const float mean = (levels[0] + levels[1] + levels[2]) / 3;
    float colour = 0.001F;
    for (int i = 0; i < 3; ++i)
        colour += (levels[i] - mean) * (levels[i] - mean);
    return std::pow(bell, static_cast<float>(options.exposureWeight)) *
           std::pow(contrast * contrast, static_cast<float>(options.contrastWeight)) *
           std::pow(colour, static_cast<float>(options.saturationWeight));
}

} // namespace

fusion::WeightMaker::WeightMaker(size_t shots, QSize halfSize, const Options &weighing,
                                 ReadLevels levelReader, ReadUsable usableReader)
    : count(shots)
    , half(halfSize)
    , quarter(fusion::halfSize(halfSize))
    , options(weighing)
    , readLevels(std::move(levelReader))
    , readUsable(std::move(usableReader))
    , levels(static_cast<size_t>(half.width()), 3)
    , work(static_cast<size_t>(half.width()), kWorkRows)
    , means(static_cast<size_t>(quarter.width()), shots * kRingRows)
    , squares(static_cast<size_t>(quarter.width()), shots * kRingRows)
    , shares(static_cast<size_t>(half.width()), 2 * shots)
{
}

size_t fusion::WeightMaker::momentRow(size_t shot, int y) const
{
    const int row = std::clamp(y, 0, quarter.height() - 1);
    return shot * kRingRows + static_cast<size_t>(row) % kRingRows;
}

void fusion::WeightMaker::makeMomentsOfShot(size_t shot, int y)
{
    const auto width = static_cast<size_t>(half.width());
    for (const size_t grey : {UpperGrey, LowerGrey}) {
        const int row = std::min(2 * y + static_cast<int>(grey), half.height() - 1);
        for (size_t channel = 0; channel < 3; ++channel)
            readLevels(shot, channel, row, levels[channel]);
        const float *channels[3] = {levels[0], levels[1], levels[2]};
        weightRows::grey(channels, width, work[grey]);
        WorkRows<float>::repeatEnds(work[grey], width);
    }
    const size_t row = momentRow(shot, y);
    weightRows::moments(work[UpperGrey], work[LowerGrey], static_cast<size_t>(quarter.width()),
                        means[row], squares[row]);
}

/// Makes the moments up to the last row of the window around row y.
void fusion::WeightMaker::makeMoments(int y)
{
    if (momentsEnd < 0)
        momentsEnd = std::max(0, y - kWindow / 2);
    const int end = std::min(y + kWindow / 2 + 1, quarter.height());
    for (; momentsEnd < end; ++momentsEnd)
        for (size_t shot = 0; shot < count; ++shot)
            makeMomentsOfShot(shot, momentsEnd);
}

void fusion::WeightMaker::findVariances(size_t shot, int y)
{
    const float *meanRows[kWindow];
    const float *squareRows[kWindow];
    for (int i = 0; i < kWindow; ++i) {
        const size_t row = momentRow(shot, y + i - kWindow / 2);
        meanRows[i] = means[row];
        squareRows[i] = squares[row];
    }
    float *const across[2] = {work[AcrossMeans], work[AcrossSquares]};
    weightRows::variances(meanRows, squareRows, static_cast<size_t>(quarter.width()), across,
                          work[Variances]);
}

void fusion::WeightMaker::weighFreely(size_t width, float *out) const
{
    for (size_t x = 0; x < width; ++x) {
        const float pixel[3] = {levels[0][x], levels[1][x], levels[2][x]};
        out[x] = freeWeight(pixel, work[Variances][x], options);
    }
}

void fusion::WeightMaker::weighRow(size_t shot, int y, float *out)
{
    const auto width = static_cast<size_t>(half.width());
    for (size_t channel = 0; channel < 3; ++channel)
        readLevels(shot, channel, y, levels[channel]);
    const float *channels[3] = {levels[0], levels[1], levels[2]};
    if (options.isNeutral())
        weightRows::weights(channels, work[Variances], width, out);
    else
        weighFreely(width, out);
    if (!readUsable(shot, y, work[Usable]))
        return;
    for (size_t x = 0; x < width; ++x)
        out[x] *= work[Usable][x];
}

void fusion::WeightMaker::makeRows(int y)
{
    makeMoments(y);
    const int rows = std::min(2, half.height() - 2 * y);
    for (size_t shot = 0; shot < count; ++shot) {
        findVariances(shot, y);
        for (int i = 0; i < rows; ++i)
            weighRow(shot, 2 * y + i, shares[2 * shot + static_cast<size_t>(i)]);
    }
    const auto width = static_cast<size_t>(half.width());
    const float equal = 1.0F / static_cast<float>(count);
    for (size_t i = 0; i < static_cast<size_t>(rows); ++i) {
        for (size_t shot = 0; shot < count; ++shot)
            weightRows::addUp(shares[2 * shot + i], shot == 0, width, work[Sums]);
        for (size_t shot = 0; shot < count; ++shot)
            weightRows::shares(shares[2 * shot + i], work[Sums], equal, width,
                               shares[2 * shot + i]);
    }
}
