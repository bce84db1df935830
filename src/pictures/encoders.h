#pragma once

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
    QByteArray exif;          ///< EXIF block without its "Exif" signature, or empty
    QByteArray colourProfile; ///< ICC profile, or empty
};

/// Told how much of a picture is written, 0..1, in rising order.
using EncodeProgress = std::function<void(double)>;

/// Writes all bytes, or returns false and leaves the reason with the device: a device may take a
/// part of them first, and say only at the next attempt why it takes no more.
bool writeAll(QIODevice &device, const void *bytes, qint64 length);

/// Samples of a pixel in a file: red, green, blue and, where the picture has it, alpha.
int samplesPerPixel(const QImage &picture);

/// The samples of a row, one byte each and samplesPerPixel() for each pixel. picture: 32 bits per
/// pixel; bytes: width times that many.
void unpackRow(const QImage &picture, int y, unsigned char *bytes);

// The encoders of the formats. picture: Format_RGB32, or Format_ARGB32 where alpha is to be kept
// (PNG and TIFF), or Format_ARGB32_Premultiplied (TIFF, which tells readers so); device: open for
// writing and seekable; progress: may be empty. They return an empty reason, or why the picture
// could not be written; errors of the device itself are the device's to report. Any thread,
// reentrant.

QString encodePng(const QImage &picture, const PictureMetadata &metadata, QIODevice &device,
                  const EncodeProgress &progress);

/// quality: 1..100. From 90 on colours are kept at full resolution.
QString encodeJpeg(const QImage &picture, const PictureMetadata &metadata, int quality,
                   QIODevice &device, const EncodeProgress &progress);

QString encodeTiff(const QImage &picture, const PictureMetadata &metadata, QIODevice &device,
                   const EncodeProgress &progress);
