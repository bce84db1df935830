#pragma once

#include <QByteArray>
#include <QFile>

namespace picture {

/// False when a file of this format (a format name of QImageReader) ends before its picture does.
/// Only asks where Qt's reader would silently give a picture with a part (or its colours)
/// missing: BMP, GIF and TIFF. Leaves the file at its start.
bool isComplete(QFile &file, const QByteArray &format);

} // namespace picture
