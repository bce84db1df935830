#pragma once

#include "DecodedPicture.h"
#include "ReadOptions.h"

#include <QFile>

namespace jpeg {

/// As picture::decode(), for a JPEG file that is open for reading; the position afterwards is
/// undefined. Pixels and formats are those of Qt's own JPEG reader, which however only warns about
/// a picture that ends early and leaves the missing part grey: here that is DecodeError::Damaged.
/// A file that lacks its end marker alone is whole.
/// Any thread, several at once.
DecodedPicture decode(QFile &file, const ReadOptions &options);

} // namespace jpeg
