#pragma once

#include "ExifTags.h"

#include <QColorSpace>
#include <QDateTime>
#include <QImage>
#include <QStringList>

/// The EXIF data that a camera put into a picture file: JPEG, PNG, TIFF and those camera raw files
/// that are TIFF files inside. Any thread, reentrant.
namespace exif {

/// What the file says; of raw files with the colour space that their pixels are converted to. Empty
/// when it says nothing.
ExifTags read(const QString &path);

/// What a file format takes, in bytes without the "Exif" in front.
constexpr qsizetype kLargestJpegBlock = 65533 - 6;
constexpr qsizetype kAnySize = -1;

/// EXIF's number for the colours: 1 for sRGB, 65535 for all others.
quint16 numberOf(const QColorSpace &colours);

struct Adapted
{
    ExifTags tags;
    QStringList leftOut; ///< what could not be kept, in English, for reports
};

/// The data for a picture that was made from the camera's and is stored upright: orientation 1,
/// its pixel dimensions and colour space, nothing about places in the old picture. The maker note
/// stays whole where it was, or is left out. largestBlock: of the file that it is for.
Adapted forUprightPicture(const ExifTags &camera, const QImage &picture, qsizetype largestBlock);

/// The moment in EXIF's words ("2024:06:15 10:42:07", and digits behind the decimal point), as UTC;
/// not valid when there is none.
QDateTime momentOf(const QString &time, const QString &subSeconds);

} // namespace exif
