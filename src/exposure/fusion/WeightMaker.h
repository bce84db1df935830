#pragma once

#include "NumberPlanes.h"
#include "fusion_options.h"

#include <functional>
#include <vector>

namespace fusion {

/// Weights of the shots from their levels at half the size, see docs/fusion.md. One object serves
/// adjoining rows of one thread, from the top down.
class WeightMaker
{
public:
    /// Gives row y of a channel of a shot at half the size, levels 0..1, in `out`.
    using ReadLevels = std::function<void(size_t shot, size_t channel, int y, float *out)>;
    /// Gives row y at half the size of where the shot may be used, 0..1, or false when everywhere.
    using ReadUsable = std::function<bool(size_t shot, int y, float *out)>;

    /// halfSize: of the shots' half. Throws std::bad_alloc.
    WeightMaker(size_t shots, QSize halfSize, const Options &options, ReadLevels readLevels,
                ReadUsable readUsable);

    /// Rows 2 y and 2 y + 1, the second where there is one. After this share() gives them.
    void makeRows(int y);

    /// The share of the shot at row `offset` (0, 1) of those made, 0..1; all shots' have the sum 1.
    const float *share(size_t shot, int offset) const { return shares[2 * shot + size_t(offset)]; }

private:
    static constexpr int kWindow = 5;

    void makeMoments(int y);
    void makeMomentsOfShot(size_t shot, int y);
    void findVariances(size_t shot, int y);
    void weighRow(size_t shot, int y, float *out);
    void weighFreely(size_t count, float *out) const;
    size_t momentRow(size_t shot, int y) const;

    size_t count;
    QSize half;
    QSize quarter;
    Options options;
    ReadLevels readLevels;
    ReadUsable readUsable;
    int momentsEnd = -1; ///< rows before this one have been made; -1: none yet
    WorkRows<float> levels;
    WorkRows<float> work;
    WorkRows<float> means;   ///< the last kWindow + 1 rows of each shot
    WorkRows<float> squares; ///< likewise
    WorkRows<float> shares;  ///< two rows of each shot
};

} // namespace fusion
