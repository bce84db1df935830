#include "FusionEngine.h"

#include "DeepRows.h"
#include "fusion_rows.h"

#include <algorithm>
#include <memory>

namespace {

/// Shares of the steps in the time that all take, roughly.
constexpr double kHalvesShare = 0.25;
constexpr double kWeightsShare = 0.2;
constexpr double kSmallerLevelsShare = 0.2; ///< half of it for making, half for blending
constexpr double kLastShare = 0.35;

/// Rows of smaller levels: above, the two, below, as far as there are rows.
struct FourRows
{
    int rows[4];

    FourRows(int y, int height)
        : rows{std::max(2 * y - 1, 0), 2 * y, std::min(2 * y + 1, height - 1),
               std::min(2 * y + 2, height - 1)}
    {
    }
};

/// floor(log2 of the shorter side), the picture itself counted, and at least one below it.
size_t levelCount(QSize size)
{
    size_t count = 2;
    for (int side = std::min(size.width(), size.height()); side >= 8; side /= 2)
        ++count;
    return count;
}

} // namespace

template <typename Rows>
fusion::FusionEngine<Rows>::BlendRows::BlendRows(size_t width, size_t half)
    : across(half, 1)
    , levels(width, 3)
    , base(width, 3)
    , sum(width, 3)
    , enlarged(width, kShot + 1)
    , words(width)
{
}

template <typename Rows>
fusion::FusionEngine<Rows>::FusionEngine(std::vector<Shot> &fusedShots, const Options &weighing,
                                         Watch &caller)
    : shots(fusedShots)
    , size(shots.front().picture.size())
    , options(weighing)
    , watch(caller)
{
    for (const Shot &shot : shots)
        readers.emplace_back(shot);
    levels.resize(levelCount(size));
    results.resize(levels.size());
    QSize levelSize = size;
    for (size_t level = 1; level < levels.size(); ++level) {
        levelSize = halfSize(levelSize);
        levels[level] = NumberPlanes<Kept>(levelSize, planeCount());
        results[level] = NumberPlanes<Number>(levelSize, 3);
    }
}

/// The rows of the shot that are not split yet are, up to the last that the half row needs.
template <typename Rows>
void fusion::FusionEngine<Rows>::makeHalfRow(size_t shot, int y, int &split, WorkRows<Number> &ring,
                                             Number *across, std::vector<Word> &words)
{
    const FourRows source(y, size.height());
    const auto width = static_cast<size_t>(size.width());
    const auto slot = [](int row) { return static_cast<size_t>(row) % 4 * 3; };
    for (; split <= source.rows[3]; ++split) {
        Number *const channels[3] = {ring[slot(split)], ring[slot(split) + 1],
                                     ring[slot(split) + 2]};
        Rows::split(readers[shot].row(split, words.data()), width, channels);
    }
    for (size_t channel = 0; channel < 3; ++channel) {
        const Number *rows[4];
        for (size_t i = 0; i < 4; ++i)
            rows[i] = ring[slot(source.rows[i]) + channel];
        Rows::firstSmaller(rows, width, static_cast<size_t>(levels[1].width()), across,
                           levels[1].row(channelPlane(shot, channel), y));
    }
}

template <typename Rows>
void fusion::FusionEngine<Rows>::makeHalves()
{
    struct Work
    {
        WorkRows<Number> ring;
        WorkRows<Number> across;
        std::vector<Word> words;
    };
    const auto width = static_cast<size_t>(size.width());
    for (size_t shot = 0; shot < shotCount(); ++shot) {
        watch.rows(levels[1].planeSize(), kHalvesShare / double(shotCount()), [&](int begin) {
            const auto work = std::make_shared<Work>(Work{
                WorkRows<Number>(width, 12), WorkRows<Number>(width, 1), std::vector<Word>(width)});
            return [this, work, shot, split = std::max(0, 2 * begin - 1)](int y) mutable {
                makeHalfRow(shot, y, split, work->ring, work->across[0], work->words);
            };
        });
    }
}

template <typename Rows>
void fusion::FusionEngine<Rows>::makeWeights()
{
    const NumberPlanes<Kept> &half = levels[1];
    const auto width = static_cast<size_t>(half.width());
    const auto readLevels = [&, width](size_t shot, size_t channel, int y, float *out) {
        Rows::toUnit(half.row(channelPlane(shot, channel), y), width, out);
    };
    const auto readUsable = [this](size_t shot, int y, float *out) {
        if (!readers[shot].isPartlyUsable())
            return false;
        readers[shot].usableRow(y, out);
        return true;
    };
    watch.rows(halfSize(half.planeSize()), kWeightsShare, [&](int) {
        const auto maker = std::make_shared<WeightMaker>(shotCount(), half.planeSize(), options,
                                                         readLevels, readUsable);
        return [&, maker](int y) {
            maker->makeRows(y);
            for (int i = 0; i < 2 && 2 * y + i < half.height(); ++i)
                for (size_t shot = 0; shot < lastShot(); ++shot)
                    Rows::toWeights(maker->share(shot, i), width,
                                    half.row(weightPlane(shot), 2 * y + i));
        };
    });
}

/// From the next larger level: the shots' numbers and weights.
template <typename Rows>
void fusion::FusionEngine<Rows>::makeLevel(size_t level)
{
    const NumberPlanes<Kept> &from = levels[level - 1];
    const NumberPlanes<Kept> &to = levels[level];
    const auto width = static_cast<size_t>(from.width());
    const double share = kSmallerLevelsShare / 2 / double(lastLevel());
    watch.rows(to.planeSize(), share, [&](int) {
        const auto across = std::make_shared<WorkRows<Number>>(width, 1);
        return [&, across](int y) {
            const FourRows source(y, from.height());
            for (size_t plane = 0; plane < planeCount(); ++plane) {
                const Kept *rows[4];
                for (size_t i = 0; i < 4; ++i)
                    rows[i] = from.row(plane, source.rows[i]);
                Rows::smaller(rows, width, static_cast<size_t>(to.width()), (*across)[0],
                              to.row(plane, y));
            }
        };
    });
}

/// Row y of a plane of the smaller level, twice as large.
template <typename Rows>
template <typename Of>
const typename Rows::Number *fusion::FusionEngine<Rows>::enlarge(BlendRows &rows,
                                                                 const NumberPlanes<Of> &from,
                                                                 size_t plane, int y, size_t target)
{
    const int near = y / 2;
    const int far = std::clamp(y % 2 == 0 ? near - 1 : near + 1, 0, from.height() - 1);
    Rows::larger(from.row(plane, near), from.row(plane, far), static_cast<size_t>(from.width()),
                 rows.across[0], rows.enlarged[target]);
    return rows.enlarged[target];
}

/// Adds a shot's Laplacian at row y to the sums; the last shot's starts them.
template <typename Rows>
void fusion::FusionEngine<Rows>::blendShot(BlendRows &rows, size_t level, int y, size_t shot)
{
    const NumberPlanes<Kept> &planes = levels[level];
    const auto width = static_cast<size_t>(planes.width());
    const Kept *weights = shot != lastShot() ? planes.row(weightPlane(shot), y) : nullptr;
    for (size_t channel = 0; channel < 3; ++channel) {
        const size_t plane = channelPlane(shot, channel);
        const Number *enlarged =
            level == lastLevel() ? nullptr : enlarge(rows, levels[level + 1], plane, y, kShot);
        const Kept *own = planes.row(plane, y);
        if (shot == lastShot())
            Rows::start(own, enlarged, width, rows.base[channel], rows.sum[channel]);
        else
            Rows::add(own, enlarged, rows.base[channel], weights, width, rows.sum[channel]);
    }
}

/// The same at the full size, from the shot itself.
template <typename Rows>
void fusion::FusionEngine<Rows>::blendFullShot(BlendRows &rows, int y, size_t shot)
{
    const auto width = static_cast<size_t>(size.width());
    Number *const split[3] = {rows.levels[0], rows.levels[1], rows.levels[2]};
    Rows::split(readers[shot].row(y, rows.words.data()), width, split);
    const Number *weights = nullptr;
    if (shot != lastShot())
        weights = enlarge(rows, levels[1], weightPlane(shot), y, kWeights);
    for (size_t channel = 0; channel < 3; ++channel) {
        const Number *enlarged = enlarge(rows, levels[1], channelPlane(shot, channel), y, kShot);
        if (shot == lastShot())
            Rows::startLevels(split[channel], enlarged, width, rows.base[channel],
                              rows.sum[channel]);
        else
            Rows::addLevels(split[channel], enlarged, rows.base[channel], weights, width,
                            rows.sum[channel]);
    }
}

template <typename Rows>
void fusion::FusionEngine<Rows>::blendLevel(size_t level)
{
    const NumberPlanes<Number> &out = results[level];
    const auto width = static_cast<size_t>(out.width());
    const double share = kSmallerLevelsShare / 2 / double(lastLevel());
    watch.rows(out.planeSize(), share, [&](int) {
        const auto rows = std::make_shared<BlendRows>(width, (width + 1) / 2);
        return [&, rows](int y) {
            blendShot(*rows, level, y, lastShot());
            for (size_t shot = 0; shot < lastShot(); ++shot)
                blendShot(*rows, level, y, shot);
            for (size_t channel = 0; channel < 3; ++channel) {
                const Number *enlarged = nullptr;
                if (level != lastLevel())
                    enlarged = enlarge(*rows, results[level + 1], channel, y, channel);
                Rows::finish(rows->sum[channel], enlarged, width, out.row(channel, y));
            }
        };
    });
}

/// Blends and writes a row of the full size.
template <typename Rows>
void fusion::FusionEngine<Rows>::blendLast(BlendRows &rows, int y, Word *out)
{
    blendFullShot(rows, y, lastShot());
    for (size_t shot = 0; shot < lastShot(); ++shot)
        blendFullShot(rows, y, shot);
    const Number *enlarged[3];
    const Number *sums[3];
    for (size_t channel = 0; channel < 3; ++channel) {
        enlarged[channel] = enlarge(rows, results[1], channel, y, channel);
        sums[channel] = rows.sum[channel];
    }
    Rows::join(sums, enlarged, static_cast<size_t>(size.width()), out);
}

/// The next larger level has been blended: nobody reads this one any more.
template <typename Rows>
void fusion::FusionEngine<Rows>::release(size_t level)
{
    levels[level] = {};
    results[level] = {};
}

/// Row y of the full size is done by the thread that began at row `begin`: what it has passed of
/// the level below is not read again, but for the first rows, which the thread before may still
/// need.
template <typename Rows>
void fusion::FusionEngine<Rows>::releaseRows(int begin, int y) const
{
    constexpr int kRowsBetween = 64;
    if ((y - begin) % kRowsBetween != kRowsBetween - 1)
        return;
    levels[1].giveBack(begin / 2 + 1, y / 2);
    results[1].giveBack(begin / 2 + 1, y / 2);
}

template <typename Rows>
void fusion::FusionEngine<Rows>::fuseInto(QImage &out)
{
    makeHalves();
    makeWeights();
    for (Shot &shot : shots)
        shot.mask = QImage();
    for (size_t level = 2; level < levels.size(); ++level)
        makeLevel(level);
    for (size_t level = lastLevel(); level > 0; --level) {
        blendLevel(level);
        if (level != lastLevel())
            release(level + 1);
    }
    uchar *bits = out.bits();
    const qsizetype rowBytes = out.bytesPerLine();
    watch.rows(size, kLastShare, [&](int begin) {
        const auto rows = std::make_shared<BlendRows>(static_cast<size_t>(size.width()),
                                                      static_cast<size_t>(levels[1].width()));
        return [&, rows, begin](int y) {
            blendLast(*rows, y, reinterpret_cast<Word *>(bits + y * rowBytes));
            releaseRows(begin, y);
        };
    });
    watch.finish();
}

template class fusion::FusionEngine<fusion::ByteRows>;
template class fusion::FusionEngine<fusion::DeepRows>;
