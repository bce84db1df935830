#pragma once

#include "fusion_options.h"

#include <QtGlobal>

#include <vector>

namespace fusion {

/// Reads a shot row by row as if it covered everything: a pixel that is not opaque takes the colour
/// of the nearest opaque one to its left, or else of the row's first one; a row without any takes
/// the nearest row that has one, the upper of two. So no edge of the coverage shows in a pyramid.
/// Word: the pixel of the format, 32 bits 0xAARRGGBB or 64 bits of a QRgba64.
/// Borrows the shot. After construction any thread, reentrant.
template <typename Word>
class ShotReader
{
public:
    explicit ShotReader(const Shot &shot);

    /// Words of row y: the shot's own, or made in `room` for a row's words.
    const Word *row(int y, Word *room) const;

    /// Whether some pixels of the shot have less than full weight.
    bool isPartlyUsable() const { return !coverage.empty() || !shot.mask.isNull(); }

    /// Row y at half the size of where the shot can be used, 0..1.
    void usableRow(int y, float *shares) const;

private:
    /// Which pixels of a row are opaque.
    struct Coverage
    {
        int begin = 0;        ///< the first one; the width of the picture when there is none
        int end = 0;          ///< behind the last one
        bool hasGaps = false; ///< between these
        int standIn = -1;     ///< the row whose pixels this one shows; -1 for none
    };

    const Word *words(int y) const;
    Coverage coverageOf(int y) const;
    void findCoverage();
    void fill(const Coverage &from, const Word *source, Word *room) const;
    void leaveOut(int y, float *shares) const;

    const Shot &shot;
    std::vector<Coverage> coverage; ///< of each row; empty when all pixels are opaque
};

} // namespace fusion
