#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QSize>

namespace sample {

/// What a camera writes into a file about one exposure.
struct ExposureData
{
    double stops = 0.0;         ///< exposure bias
    double exposureTime = 0.01; ///< seconds
    double fNumber = 8.0;
    int iso = 100;
    QDateTime takenAt; ///< to the millisecond
};

/// EXIF block that starts with "Exif\0\0", as JPEG keeps it. size: of the picture, in pixels.
QByteArray exifBlock(const ExposureData &exposure, QSize size);

/// The encoded picture (a JPEG or PNG file) with the EXIF block put in its place. What is neither
/// comes back unchanged.
QByteArray withExif(const QByteArray &encoded, const QByteArray &exif);

} // namespace sample
