#pragma once

#include <QByteArray>

namespace exif {

/// The small JPEG file in the second directory of an EXIF block (as blockIn() gives it), upright as
/// the picture is stored; empty when there is none or the block is damaged. Any thread, reentrant.
QByteArray thumbnailIn(const QByteArray &block);

} // namespace exif
