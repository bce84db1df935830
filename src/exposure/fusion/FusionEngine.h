#pragma once

#include "NumberPlanes.h"
#include "ShotReader.h"
#include "WeightMaker.h"
#include "fusion_options.h"
#include "fusion_watch.h"

#include <vector>

namespace fusion {

/// The fusion in blocks of rows, never a whole picture at full size but shots and result: first the
/// shots at half the size, then weights, then the smaller levels, then blending from the smallest
/// level up; the full size is blended and written row by row from the shots themselves.
/// Rows: ByteRows or DeepRows. Borrows shots, options and watch; lets go of the shots' masks once
/// the weights are made. Throws std::bad_alloc.
template <typename Rows>
class FusionEngine
{
public:
    FusionEngine(std::vector<Shot> &shots, const Options &options, Watch &watch);

    /// Writes the result, unless the watch is cancelled. out: of the shots' size.
    void fuseInto(QImage &out);

private:
    using Number = typename Rows::Number;
    using Kept = typename Rows::Kept;
    using Word = typename Rows::Word;
    using Reader = ShotReader<Word>;

    /// One thread's rows to work in while it blends.
    struct BlendRows
    {
        BlendRows(size_t width, size_t half);

        WorkRows<Number> across;   ///< at half the width
        WorkRows<Number> levels;   ///< 3: a shot's channels
        WorkRows<Number> base;     ///< 3: the last shot's Laplacian
        WorkRows<Number> sum;      ///< 3
        WorkRows<Number> enlarged; ///< 0..2: results of the smaller level, 3: weights, 4: a shot's
        std::vector<Word> words;
    };

    static constexpr size_t kWeights = 3;
    static constexpr size_t kShot = 4;

    void makeHalves();
    void makeHalfRow(size_t shot, int y, int &split, WorkRows<Number> &ring, Number *across,
                     std::vector<Word> &words);
    void makeWeights();
    void makeLevel(size_t level);
    void blendLevel(size_t level);
    void blendLast(BlendRows &rows, int y, Word *out);
    void blendShot(BlendRows &rows, size_t level, int y, size_t shot);
    void blendFullShot(BlendRows &rows, int y, size_t shot);
    void release(size_t level);
    void releaseRows(int begin, int y) const;
    template <typename Of>
    const Number *enlarge(BlendRows &rows, const NumberPlanes<Of> &from, size_t plane, int y,
                          size_t target);

    size_t shotCount() const { return readers.size(); }
    size_t lastShot() const { return readers.size() - 1; }
    size_t lastLevel() const { return levels.size() - 1; }
    size_t channelPlane(size_t shot, size_t channel) const { return 3 * shot + channel; }
    size_t weightPlane(size_t shot) const { return 3 * shotCount() + shot; }
    size_t planeCount() const { return 4 * shotCount() - 1; }

    std::vector<Shot> &shots;
    QSize size;
    const Options &options;
    Watch &watch;
    std::vector<Reader> readers;
    std::vector<NumberPlanes<Kept>> levels;    ///< [0] is empty: the shots themselves
    std::vector<NumberPlanes<Number>> results; ///< of the levels, three channels
};

} // namespace fusion
