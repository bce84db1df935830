#pragma once

#include "encoding.h"

/// Radiance's picture format: a common exponent for red, green and blue of a pixel, a byte each; by
/// G. Ward, "Real Pixels", Graphics Gems II, 1991, and the format's own description, whose rows
/// hold one channel after the other, run-length coded.
namespace hdr_file {

/// Writes it with primaries and, where the luminance of white is known, EXPOSURE. picture:
/// Format_RGBX32FPx4, linear. See encoding.h for the rest.
QString encode(const QImage &picture, const PictureMetadata &metadata, QIODevice &device,
               const EncodeProgress &progress);

/// The four bytes of a pixel: three mantissas and the exponent. Negative light counts as none.
struct Bytes
{
    unsigned char channels[4];
};
Bytes bytesOf(const float *light);

} // namespace hdr_file
