#pragma once

#include "OutputFile.h"
#include "PictureFormat.h"

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

/// Whether a pixel of the picture is not opaque. Any thread.
bool hasTransparency(const QImage &picture);

/// Writes the picture with its resolution, its colour profile and the EXIF block. The file appears
/// under its name only when it is complete, otherwise nothing is left. picture: any format, written
/// with 8 bits per channel. PNG and TIFF files keep the alpha channel of a picture that has a pixel
/// which is not opaque; JPEG files have none, so there it is laid on white. Any thread, reentrant.
WriteResult writePicture(const QImage &picture, const QString &path, PictureFormat format,
                         const WriteOptions &options);
