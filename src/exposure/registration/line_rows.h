#pragma once

#include "resample_rows.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <vector>

// One row of a resampled picture that lies on a nearly level line of the shot, as the rows of
// hand-held shots do: every column of the shot is filtered down to the line, then the line across,
// so that neighbours share the work (two passes, as in Catmull and Smith, "3-D transformations of
// images in scanline order", SIGGRAPH 1980, section 3). The plain functions are the definition; the
// others give the same to the bit, with vector instructions. Any thread, reentrant.
namespace registration {

/// What the shot has where the line crosses its columns. Channel: uint8_t or uint16_t.
template <typename Channel>
class LineColumns
{
public:
    /// Whole numbers, 64 to a level, or levels with a fraction.
    using Sum = std::conditional_t<sizeof(Channel) == 1, int16_t, float>;

    explicit LineColumns(int width);

    /// Four channels, alpha last, of a column, -kBefore to width + kBehind - 1.
    Sum *sums(int column) { return allSums.data() + 4 * (column + kBefore); }
    const Sum *sums(int column) const { return allSums.data() + 4 * (column + kBefore); }
    /// The least and the most that its nearest four pixels have.
    Channel *least(int column) { return allLeast.data() + 4 * (column + kBefore); }
    const Channel *least(int column) const { return allLeast.data() + 4 * (column + kBefore); }
    Channel *most(int column) { return allMost.data() + 4 * (column + kBefore); }
    const Channel *most(int column) const { return allMost.data() + 4 * (column + kBefore); }

    /// What lies beside the shot becomes what its outermost columns have.
    void repeatOutermost();

private:
    static constexpr int kBefore = int(kTaps) / 2 - 1;
    static constexpr int kBehind = int(kTaps) / 2;

    void copy(int from, int to);

    const int width;
    std::vector<Sum> allSums;
    std::vector<Channel> allLeast;
    std::vector<Channel> allMost;
};

extern template class LineColumns<uint8_t>;
extern template class LineColumns<uint16_t>;

/// Columns begin to end - 1 of the shot, which lie within it.
struct ColumnRange
{
    int begin;
    int end;
};

/// places: for each column of the range where the line crosses it, in rows times kPhases. Rows
/// beyond the shot are as the outermost ones.
void filterDown(const SourcePixels &source, const int32_t *places, ColumnRange range,
                LineColumns<uint8_t> &columns);
void filterDown(const SourcePixels &source, const int32_t *places, ColumnRange range,
                LineColumns<uint16_t> &columns);

/// places: for each pixel of out the column times kPhases, from 0 to that of the last column; the
/// columns that the filter reads are there. out: words, or four channels each. A pixel whose
/// nearest 4 x 4 pixels are not all opaque is 0.
void filterAcross(const LineColumns<uint8_t> &columns, const int32_t *places, size_t count,
                  bool isOpaque, uint8_t *out);
void filterAcross(const LineColumns<uint16_t> &columns, const int32_t *places, size_t count,
                  bool isOpaque, uint16_t *out);

namespace plain {

void filterDown(const SourcePixels &source, const int32_t *places, ColumnRange range,
                LineColumns<uint8_t> &columns);
void filterDown(const SourcePixels &source, const int32_t *places, ColumnRange range,
                LineColumns<uint16_t> &columns);
void filterAcross(const LineColumns<uint8_t> &columns, const int32_t *places, size_t count,
                  bool isOpaque, uint8_t *out);
void filterAcross(const LineColumns<uint16_t> &columns, const int32_t *places, size_t count,
                  bool isOpaque, uint16_t *out);

} // namespace plain
} // namespace registration
