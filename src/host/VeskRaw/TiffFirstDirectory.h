#pragma once

#include <QSize>

#include <optional>

class QIODevice;

/// What the first directory of a TIFF file says of its picture.
struct TiffFirstDirectory
{
    QSize size;
    int bitsPerSample = 1;
    /// Whether the samples are grey levels or colours that any viewer shows, not a sensor's mosaic.
    bool isViewable = false;
    bool isDng = false;

    /// Reads it from device, open for reading and seekable; nothing when the file is no TIFF or is
    /// damaged there. Any thread.
    static std::optional<TiffFirstDirectory> read(QIODevice &device);
};
