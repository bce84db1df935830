#pragma once

#include "GainMap.h"
#include "Metadata.h"
#include "OutputFile.h"
#include "PictureFormat.h"
#include "ResultMark.h"
#include "tiff_encoder.h"

#include <QImage>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

constexpr int kDefaultQuality = 95;

struct WriteOptions
{
    Metadata metadata;              ///< as metadata::read gives them, or empty
    std::optional<ResultMark> mark; ///< of a merged picture; otherwise that in metadata stays
    int quality = kDefaultQuality;  ///< 1..100, of JPEG, AVIF and JPEG XL files
    /// 8, 16 or 32; 0: as many as the picture has. JPEG always has 8; 32 are floats, of TIFF and
    /// OpenEXR files, whose 16 are halves and what they have unless 32 are asked for.
    int bitsPerSample = 0;
    TiffCompression tiffCompression = TiffCompression::Lzw;
    /// Candelas per square metre of light 1, for files that hold light; 0: not known.
    double whiteLuminance = 0.0;
    GainMap gainMap;                      ///< of JPEG files; no picture: none
    int effort = 1;                       ///< of PNG and Deflate to make files small, 1 to 9
    bool mayReplace = false;              ///< an existing file of that name
    std::function<void(double)> progress; ///< told how much is written, 0..1; may be empty
    OutputFile::TemporaryNameObserver temporaryName; ///< see OutputFile; may be empty
};

struct WriteResult
{
    OutputFile::Error error = OutputFile::Error::None;
    QString reason;      ///< empty on success
    QStringList leftOut; ///< what the file does not keep of the metadata, in English, for reports
};

namespace picture {

/// Whether a pixel of the picture is not opaque. Any thread.
bool hasTransparency(const QImage &picture);

/// Writes the picture with its resolution, its colour profile if it is one for RGB pixels, and the
/// metadata made true for it. The file appears under its name only when it is complete, otherwise
/// nothing is left. picture: any format, upright. PNG and TIFF files keep the alpha channel of a
/// picture that has a pixel which is not opaque, and 16 bits per sample; JPEG files have neither,
/// so there it is laid on white and rounded to 8 bits. Formats for light get the picture's light,
/// in linear floats, and of the metadata what they have words for. Those for bright screens show
/// light 1 as white. Any thread, reentrant.
WriteResult write(const QImage &picture, const QString &path, PictureFormat format,
                  const WriteOptions &options);

/// The same to a device that is open for reading and writing, and seekable. What options says of
/// files has no effect.
WriteResult write(const QImage &picture, QIODevice &device, PictureFormat format,
                  const WriteOptions &options);

} // namespace picture
