// Lookups bound this: two numbers a channel and shot, which stand side by side in the table. Shot
// after shot over a stretch of pixels whose sums stay in the nearest cache, in the order of the
// plain code, hence equal results.

#include "radiance_rows.h"

#include "radiance_options.h"

#include <QRgba64>

#include <algorithm>
#include <limits>

namespace radiance {
namespace {

constexpr int kStretch = 256; // pixels

struct Levels
{
    int channels[3];
    bool isOpaque;
};

Levels levelsOf(QRgb word)
{
    return {{qRed(word), qGreen(word), qBlue(word)}, qAlpha(word) == 255};
}

Levels levelsOf(QRgba64 word)
{
    return {{word.red(), word.green(), word.blue()}, word.alpha() == 0xFFFF};
}

template <typename Word>
const Word *rowOf(const QImage &picture, int y)
{
    return reinterpret_cast<const Word *>(picture.constScanLine(y));
}

const unsigned char *maskRow(const ShotRows &shot, int y)
{
    return shot.mask->isNull() ? nullptr : shot.mask->constScanLine(y / 2);
}

} // namespace

/// What the shots that say nothing sure of a channel say together.
class RadianceRows::Bound
{
public:
    void add(float light, float exposure, bool isBright)
    {
        if (isBright)
            most = std::max(most, light / exposure);
        else
            least = std::min(least, light / exposure);
        hasBright |= isBright;
        hasDark |= !isBright;
    }

    float value() const
    {
        if (hasBright && hasDark)
            return (most + least) / 2.0F;
        return hasBright ? most : hasDark ? least : 0.0F;
    }

    unsigned char kind() const
    {
        return hasBright == hasDark ? kMeasured : hasBright ? kIsBrighter : kIsDarker;
    }

private:
    float most = 0.0F;
    float least = std::numeric_limits<float>::max();
    bool hasBright = false;
    bool hasDark = false;
};

/// Takes the bound in the place of the light of each channel that has no weight.
unsigned char RadianceRows::takeBounds(const Bound *bounds, Sums &sums)
{
    unsigned char kind = kMeasured;
    for (int c = 0; c < 3; ++c) {
        if (sums.weight[c] > 0.0F)
            continue;
        sums.light[c] = bounds[c].value();
        sums.weight[c] = 1.0F;
        kind = std::max(kind, bounds[c].kind());
    }
    return kind;
}

RadianceRows::RadianceRows(const std::vector<ShotRows> &shotsInOrder, const Response &responseOfAll)
    : shots(shotsInOrder)
    , response(responseOfAll)
    , tables(responseOfAll)
{
}

void RadianceRows::makeRow(int y, float *pixels, unsigned char *bounds) const
{
    if (response.levels() == Response::kByteLevels)
        makeRowOf<QRgb>(y, pixels, bounds);
    else
        makeRowOf<QRgba64>(y, pixels, bounds);
}

template <typename Word>
void RadianceRows::makeRowOf(int y, float *pixels, unsigned char *bounds) const
{
    const int width = shots.front().picture->width();
    Sums sums[kStretch];
    for (int begin = 0; begin < width; begin += kStretch) {
        const int end = std::min(begin + kStretch, width);
        std::fill(sums, sums + (end - begin), Sums());
        for (const ShotRows &shot : shots)
            addShot<Word>(shot, y, begin, end, sums);
        for (int x = begin; x < end; ++x) {
            Sums &sum = sums[x - begin];
            if (!(std::min({sum.weight[0], sum.weight[1], sum.weight[2]}) > 0.0F)) {
                const unsigned char bound = fillIn<Word>(x, y, sum);
                if (bound != kMeasured)
                    bounds[x] = bound;
            }
            for (int c = 0; c < 3; ++c)
                pixels[4 * x + c] = sum.light[c] / sum.weight[c];
            pixels[4 * x + 3] = 1.0F;
        }
    }
}

inline void RadianceRows::addPixel(float exposure, float share, const int *levels, Sums &sums) const
{
    for (int c = 0; c < 3; ++c) {
        const LevelWeight weight = tables.channel(c)[levels[c]];
        sums.light[c] += share * weight.weightedLight;
        sums.weight[c] += exposure * weight.weight;
    }
}

/// All of it counts in full, as of most shots.
template <typename Word>
void RadianceRows::addOpenShot(const ShotRows &shot, int y, int begin, int end, Sums *sums) const
{
    const Word *words = rowOf<Word>(*shot.picture, y);
    const float exposure = shot.exposure;
    const LevelWeight *red = tables.channel(0);
    const LevelWeight *green = tables.channel(1);
    const LevelWeight *blue = tables.channel(2);
    for (int x = begin; x < end; ++x, ++sums) {
        const Levels levels = levelsOf(words[x]);
        const LevelWeight weights[] = {red[levels.channels[0]], green[levels.channels[1]],
                                       blue[levels.channels[2]]};
        for (int c = 0; c < 3; ++c) {
            sums->light[c] += weights[c].weightedLight;
            sums->weight[c] += exposure * weights[c].weight;
        }
    }
}

template <typename Word>
void RadianceRows::addShot(const ShotRows &shot, int y, int begin, int end, Sums *sums) const
{
    const unsigned char *mask = maskRow(shot, y);
    const bool hasAlpha = shot.picture->hasAlphaChannel();
    if (!mask && !hasAlpha)
        return addOpenShot<Word>(shot, y, begin, end, sums);
    const Word *words = rowOf<Word>(*shot.picture, y);
    for (int x = begin; x < end; ++x, ++sums) {
        const Levels levels = levelsOf(words[x]);
        const float share = hasAlpha && !levels.isOpaque ? 0.0F
                            : mask                       ? float(mask[x / 2]) / 255.0F
                                                         : 1.0F;
        addPixel(share * shot.exposure, share, levels.channels, *sums);
    }
}

/// Where a channel has no weight: without the masks when these leave no shot, and else the nearest
/// light that the shots allow.
template <typename Word>
unsigned char RadianceRows::fillIn(int x, int y, Sums &sums) const
{
    const auto isCovered = [x, y](const ShotRows &shot) {
        return !shot.picture->hasAlphaChannel() ||
               levelsOf(rowOf<Word>(*shot.picture, y)[x]).isOpaque;
    };
    const auto isOpen = [&](const ShotRows &shot) {
        const unsigned char *mask = maskRow(shot, y);
        return isCovered(shot) && (!mask || mask[x / 2] > 0);
    };
    const bool ignoresMasks = std::none_of(shots.begin(), shots.end(), isOpen);
    Bound bounds[3];
    for (const ShotRows &shot : shots) {
        if (!(ignoresMasks ? isCovered(shot) : isOpen(shot)))
            continue;
        const Levels levels = levelsOf(rowOf<Word>(*shot.picture, y)[x]);
        if (ignoresMasks)
            addPixel(shot.exposure, 1.0F, levels.channels, sums);
        for (int c = 0; c < 3; ++c)
            bounds[c].add(response.channel(c)[size_t(levels.channels[c])], shot.exposure,
                          levels.channels[c] > response.levels() / 2);
    }
    return takeBounds(bounds, sums);
}

} // namespace radiance
