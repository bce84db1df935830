#pragma once

#include "DecodedPicture.h"
#include "ReadOptions.h"

#include <QFile>

#include <optional>

/// Decoding by libtiff of what Qt's TIFF reader loses levels of: pictures with an alpha channel,
/// with which it multiplies colours, and those of 16 bits per channel, which it keeps in memory at
/// twice the size that is asked for.
namespace tiff_decoder {

/// As picture::decode(); nothing when Qt's reader does as well, or the file is no TIFF file.
/// Colours come out as they were before any multiplication with alpha. Floating-point numbers are
/// DecodeError::Unsupported. file is open for reading. Any thread, several at once.
std::optional<DecodedPicture> decode(QFile &file, const ReadOptions &options);

} // namespace tiff_decoder
