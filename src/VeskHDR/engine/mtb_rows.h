#pragma once

#include <cstddef>
#include <cstdint>

/// Rows of the alignment's images, with the best instructions that the processor has.
/// Any thread, reentrant.
namespace mtb {

/// grey[x] = (11 R + 16 G + 5 B) / 32 of `width` words 0xAARRGGBB.
void greyRow(const uint32_t *words, size_t width, uint8_t *grey);

/// Grey levels first..last; none when first > last.
struct LevelRange
{
    int first;
    int last;
};

/// Packs a row to bits. bits[i] gets a 1 for each level in `range` of grey[64 i .. 64 i + 63]; grey
/// holds 64 * words levels.
void packRow(const uint8_t *grey, size_t words, LevelRange range, uint64_t *bits);

/// Number of differing pixels that count in one row: see mtb_search.h.
/// reference, referenceTrusted: threshold and exclusion row of the reference picture; moved: the
/// other picture's threshold row, already shifted; all `words` long. movedTrusted: the other
/// picture's exclusion row, not shifted, `width` pixels; shift: by how many columns it is to be.
struct RowPair
{
    const uint64_t *reference;
    const uint64_t *referenceTrusted;
    const uint64_t *moved;
    const uint64_t *movedTrusted;
    size_t words;
    int width;
    int shift;
};

int64_t rowError(const RowPair &rows);

/// The instructions that run at present, by Highway's number (hwy::TargetName).
int64_t rowTarget();

} // namespace mtb
