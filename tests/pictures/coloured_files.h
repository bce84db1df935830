#pragma once

#include <QByteArray>
#include <QList>
#include <QSize>

/// Files with the colours and profiles that Qt does not write.
namespace coloured_files {

/// A JPEG file of grey, or of inks (4 channels), at the best quality. exif: a block without "Exif".
struct Jpeg
{
    QSize size;
    int channels = 3;
    QByteArray numbers; ///< rows without padding
    QByteArray profile;
    QByteArray exif;
    bool hasAdobeMark = false;
};
QByteArray made(const Jpeg &jpeg);

/// A TIFF file, uncompressed.
struct Tiff
{
    QSize size;
    int photometric = 0;
    int bits = 8;
    int channels = 3;
    QByteArray numbers; ///< rows without padding
    QByteArray profile;
};
QByteArray made(const Tiff &tiff);

/// A PNG chunk with its length and checksum.
QByteArray chunk(const char *name, const QByteArray &bytes);
/// An iCCP chunk.
QByteArray profileChunk(const QByteArray &profile);
/// The PNG file with them behind its header.
QByteArray withChunks(const QByteArray &png, const QList<QByteArray> &chunks);

} // namespace coloured_files
