#pragma once

#include "output_file.h"
#include "picture_format.h"

#include <QImage>
#include <QString>

#include <functional>

constexpr int kDefaultQuality = 95;

struct WriteOptions
{
    QByteArray exif;               ///< as exif::read and exif::forMergedPicture give it, or empty
    int quality = kDefaultQuality; ///< 1..100, JPEG only
    bool mayReplace = false;       ///< an existing file of that name
    std::function<void(double)> progress; ///< told how much is written, 0..1; may be empty
    OutputFile::TemporaryNameObserver temporaryName; ///< see OutputFile; may be empty
};

struct WriteResult
{
    OutputFile::Error error = OutputFile::Error::None;
    QString reason; ///< empty on success
};

/// Writes the picture with its resolution, its colour profile and the EXIF block. The file appears
/// under its name only when it is complete, otherwise nothing is left. picture: any format, written
/// as 8-bit RGB without alpha. Any thread, reentrant.
WriteResult writePicture(const QImage &picture, const QString &path, PictureFormat format,
                         const WriteOptions &options);
