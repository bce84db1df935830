#pragma once

#include <cstddef>
#include <cstdint>

/// Rows of a picture, and what lies in them, added up with vector instructions, in single
/// precision. The same on every processor, to the bit. Any thread, reentrant.
namespace picture {

/// Adds to each of the sums what the rows have there, times the share of the row, one row after the
/// other.
void addRows(const uint8_t *const *rows, const float *shares, size_t rowCount, size_t valueCount,
             float *sums);
void addRows(const uint16_t *const *rows, const float *shares, size_t rowCount, size_t valueCount,
             float *sums);

/// The pixels of a row under one of a smaller picture.
struct PixelSpan
{
    int first;
    int last;
    float firstShare; ///< of the pixel that is covered; all between the ends are whole
    float lastShare;  ///< none where there is only one
};

/// A pixel for each span: the sums under it, added up and times weight, at most the highest value,
/// rounded. channels: of a pixel, 1 or 4.
void addColumns(const float *sums, const PixelSpan *spans, size_t spanCount, int channels,
                float weight, uint8_t *pixels);
void addColumns(const float *sums, const PixelSpan *spans, size_t spanCount, int channels,
                float weight, uint16_t *pixels);

} // namespace picture
