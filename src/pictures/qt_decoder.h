#pragma once

#include "DecodedPicture.h"
#include "ReadOptions.h"

#include <QFile>

/// Decoding by QImageReader: all formats that have no decoder of their own here.
namespace qt_decoder {

/// As picture::decode(). file is open for reading. Any thread, several at once.
DecodedPicture decode(QFile &file, const ReadOptions &options);

} // namespace qt_decoder
