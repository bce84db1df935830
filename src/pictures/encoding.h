#pragma once

#include "ExifTags.h"

#include <QCoreApplication>
#include <QIODevice>
#include <QImage>

#include <functional>

/// Translates what the encoders say.
struct PictureEncoder
{
    Q_DECLARE_TR_FUNCTIONS(PictureEncoder)
};

/// What a picture file holds besides its pixels.
struct PictureMetadata
{
    ExifTags exif;               ///< may be empty
    QByteArray colourProfile;    ///< ICC profile that fits the pixels, or empty
    QByteArray xmp = {};         ///< packet, or empty; 65502 bytes at most in JPEG files
    QByteArray iptc = {};        ///< datasets, or empty; PNG files have none
    double whiteLuminance = 0.0; ///< candelas per square metre of light 1; 0: not known
};

/// Told how much of a picture is written, 0..1, in rising order.
using EncodeProgress = std::function<void(double)>;

/// What the encoders of the formats share. They take pictures in Format_RGB32 and Format_ARGB32 (8
/// bits per sample) or Format_RGBX64 and Format_RGBA64 (16 bits per sample), TIFF's also
/// Format_RGBX32FPx4 and
/// premultiplied ones, and write them to a device that is open for writing and seekable. They
/// return an empty reason, or why the picture could not be written; errors of the device itself are
/// the device's to report. Any thread, reentrant.
namespace encoding {

/// Writes all bytes, or returns false and leaves the reason with the device: a device may take a
/// part of them first, and say only at the next attempt why it takes no more.
bool writeAll(QIODevice &device, const void *bytes, qint64 length);

/// Samples of a pixel in a file: red, green, blue and, where the picture has it, alpha.
int samplesPerPixel(const QImage &picture);

/// 8, 16, or 32 of a picture in floats.
int bitsPerSample(const QImage &picture);

/// What the picture's rows need in a file, before compression.
size_t bytesPerRow(const QImage &picture);

/// The samples of a row, samplesPerPixel() for each pixel. bytes: bytesPerRow() of them. Samples of
/// 16 bits are written in this machine's byte order.
void unpackRow(const QImage &picture, int y, unsigned char *bytes);

struct Resolution
{
    double x = 0.0; ///< dots per inch
    double y = 0.0;
};

/// The picture's resolution, which it keeps in whole dots per metre. A whole number of dots per
/// inch is told as such: 72 per inch and not 71.98.
Resolution resolutionOf(const QImage &picture);

} // namespace encoding
