#include "taken_parts.h"

#include "SmallShot.h"
#include "planes.h"

#include "large_memory.h"
#include "parallel_rows.h"

#include <algorithm>
#include <map>
#include <new>

namespace {

using motion::Plane;
using motion::Take;

constexpr int kMargin = 3; ///< in blocks; the soft edge lies in it, so all that is taken is whole

/// The size of all shots in pixels, in blocks and at half the size.
struct Grid
{
    explicit Grid(QSize shots)
        : size(shots)
        , side(std::max(2, motion::blockSide(shots) / 2))
        , width((shots.width() + side - 1) / side)
        , height((shots.height() + side - 1) / side)
        , half((shots.width() + 1) / 2, (shots.height() + 1) / 2)
    {
    }

    size_t places() const { return static_cast<size_t>(width) * static_cast<size_t>(height); }

    QSize size;
    int side; ///< of a block
    int width;
    int height;
    QSize half;
};

/// What the rows of pixels of a row of blocks have together.
void joinRows(const QImage &mask, int begin, int end, Plane &together)
{
    std::fill(together.begin(), together.end(), uint8_t(0));
    uint8_t *__restrict to = together.data();
    const int width = mask.width();
    for (int y = begin; y < end; ++y) {
        const uchar *from = mask.constScanLine(y);
        for (int x = 0; x < width; ++x)
            to[x] = static_cast<uint8_t>(to[x] | from[x]);
    }
}

/// 1 for the blocks with a pixel of the part.
Plane blocksOf(const QImage &mask, const Grid &grid)
{
    Plane blocks(grid.places());
    const auto side = static_cast<size_t>(grid.side);
    const auto width = static_cast<size_t>(grid.width);
    parallel::rows({grid.size.width() * grid.side, grid.height}, [&](int begin, int end) {
        Plane together(width * side);
        for (int y = begin; y < end; ++y) {
            joinRows(mask, y * grid.side, std::min((y + 1) * grid.side, grid.size.height()),
                     together);
            uint8_t *to = &blocks[size_t(y) * width];
            for (size_t x = 0; x < width * side; x += side)
                *to++ = std::any_of(&together[x], &together[x] + side,
                                    [](uint8_t level) { return level != 0; });
        }
    });
    return blocks;
}

/// For each block the shot that it is taken from, counted from 1, or 0.
class TakenBlocks
{
public:
    TakenBlocks(const std::vector<QImage> &allShots, const Grid &shotGrid)
        : shots(allShots)
        , grid(shotGrid)
        , labels(grid.places())
    {
    }

    void add(const Take &take)
    {
        const Plane part = blocksOf(take.mask, grid);
        const Plane &covered = coverageOf(take.shot);
        for (size_t i = 0; i < labels.size(); ++i)
            if (part[i] != 0 && covered[i] != 0)
                labels[i] = static_cast<uint8_t>(take.shot + 1);
    }

    /// Adds the margins, where nothing else is taken.
    void grow()
    {
        const Plane own = labels;
        for (const auto &[shot, covered] : coverage) {
            const auto label = static_cast<uint8_t>(shot + 1);
            const Plane around =
                motion::planes::crowded(flagsOf(own, label), grid.width, grid.height, kMargin, 1);
            for (size_t i = 0; i < labels.size(); ++i)
                if (around[i] != 0 && labels[i] == 0 && covered[i] != 0)
                    labels[i] = label;
        }
    }

    bool areNone() const
    {
        return std::all_of(labels.begin(), labels.end(), [](uint8_t label) { return label == 0; });
    }

    /// How much of each place is taken at all, 0..255, at half the size.
    QImage all() const
    {
        Plane levels(labels.size());
        for (size_t i = 0; i < labels.size(); ++i)
            levels[i] = labels[i] != 0 ? 255 : 0;
        return soft(levels);
    }

    /// How much of it is taken from this shot; null for nothing.
    QImage from(int shot) const
    {
        if (coverage.count(shot) == 0)
            return {};
        Plane levels = flagsOf(labels, static_cast<uint8_t>(shot + 1));
        for (uint8_t &level : levels)
            level = level != 0 ? 255 : 0;
        return soft(levels);
    }

private:
    /// 1 for the blocks that the shot covers; looked at once.
    const Plane &coverageOf(int shot)
    {
        const auto known = coverage.find(shot);
        if (known != coverage.end())
            return known->second;
        const QImage &picture = shots[size_t(shot)];
        return coverage[shot] = picture.hasAlphaChannel()
                                    ? motion::shrink(motion::readable(picture), grid.side).covered
                                    : Plane(grid.places(), 1);
    }

    static Plane flagsOf(const Plane &labels, uint8_t label)
    {
        Plane flags(labels.size());
        for (size_t i = 0; i < flags.size(); ++i)
            flags[i] = static_cast<uint8_t>(labels[i] == label);
        return flags;
    }

    QImage soft(const Plane &levels) const
    {
        return motion::planes::enlarged(motion::planes::softened(levels, grid.width, grid.height),
                                        grid.width, grid.height, grid.side / 2, grid.half);
    }

    const std::vector<QImage> &shots;
    const Grid &grid;
    Plane labels;
    std::map<int, Plane> coverage; ///< of the shots that something is taken from
};

/// What of `mask` is left where `taken` of 255 is taken from it, and `own` of that for the shot.
void joinRow(const uchar *mask, const uchar *taken, const uchar *own, int width,
             uchar *__restrict out)
{
    for (int x = 0; x < width; ++x) {
        const auto product = static_cast<uint16_t>(mask[x] * (255 - taken[x]) + 128);
        const auto left = static_cast<uint16_t>((product + (product >> 8)) >> 8); // by 255, rounded
        out[x] = static_cast<uchar>(std::min<uint16_t>(255, static_cast<uint16_t>(left + own[x])));
    }
}

/// mask: null for 255 everywhere; own: null for nothing.
QImage joined(const QImage &mask, const QImage &taken, const QImage &own)
{
    QImage result = memory::largeImage(taken.size(), QImage::Format_Grayscale8);
    if (result.isNull())
        throw std::bad_alloc();
    uchar *bits = result.bits();
    const qsizetype rowBytes = result.bytesPerLine();
    const Plane all(size_t(taken.width()), 255);
    const Plane nothing(size_t(taken.width()), 0);
    parallel::rows(taken.size(), [&](int begin, int end) {
        for (int y = begin; y < end; ++y)
            joinRow(mask.isNull() ? all.data() : mask.constScanLine(y), taken.constScanLine(y),
                    own.isNull() ? nothing.data() : own.constScanLine(y), taken.width(),
                    bits + y * rowBytes);
    });
    return result;
}

} // namespace

bool motion::addTakes(const std::vector<Take> &takes, const std::vector<QImage> &shots,
                      std::vector<QImage> &masks, const std::atomic<bool> *cancelled)
{
    const auto isCancelled = [cancelled] { return cancelled != nullptr && *cancelled; };
    const Grid grid(shots.front().size());
    TakenBlocks blocks(shots, grid);
    for (const Take &take : takes) {
        if (isCancelled())
            return false;
        blocks.add(take);
    }
    if (blocks.areNone())
        return true;
    blocks.grow();
    const QImage taken = blocks.all();
    masks.resize(shots.size());
    for (size_t i = 0; i < masks.size(); ++i) {
        if (isCancelled())
            return false;
        masks[i] = joined(masks[i], taken, blocks.from(static_cast<int>(i)));
    }
    return true;
}
