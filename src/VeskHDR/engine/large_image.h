#pragma once

#include <QImage>

namespace pixels {

/// New image with contents that are not initialised, like QImage(size, format), for images of many
/// megabytes: the system is asked to give its memory in large pages, which takes less than half of
/// the time. Null when memory is lacking. format: 32 bits per pixel. Any thread, reentrant.
QImage largeImage(QSize size, QImage::Format format);

} // namespace pixels
