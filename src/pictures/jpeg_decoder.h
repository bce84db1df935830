#pragma once

#include "picture_decoder.h"

#include <cstdio>

namespace jpeg {

/// Decodes the JPEG file that is open at its start, upright. Pixels and formats are those of the
/// toolkit's own JPEG reader, which however only warns about a picture that ends early and leaves
/// the missing part grey: here that is DecodeError::Damaged.
/// file is borrowed, its position afterwards is undefined. Any thread, reentrant.
DecodedPicture decode(std::FILE *file, qint64 pixelLimit);

} // namespace jpeg
