#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// The kinds of file that pictures are written as. OpenExr and RadianceHdr hold linear light; Avif
/// and JpegXl are written for screens beyond white only.
enum class PictureFormat { Png, Jpeg, Tiff, OpenExr, RadianceHdr, Avif, JpegXl };

namespace picture {

/// The format that a word names, or nothing: png, jpg, jpeg, tif, tiff, exr, hdr.
std::optional<PictureFormat> formatOfWord(const QString &word);

/// The format that a file name's suffix asks for, in any case, or nothing when it asks for another
/// one or has none.
std::optional<PictureFormat> formatOfSuffix(const QString &path);

/// Suffixes of the files that this build reads by itself, without Qt: lower case, without dot.
QStringList ownSuffixes();

/// The format for screens beyond white that a file name's suffix asks for (jpg, jpeg, avif, jxl),
/// or nothing.
std::optional<PictureFormat> brightFormatOfSuffix(const QString &path);

/// Whether files of the format are for screens beyond white, and hold nothing else.
bool isForBrightScreens(PictureFormat format);

/// Whether this build writes files of the format.
bool isWritable(PictureFormat format);

/// Whether files of the format hold light in the place of levels for a screen.
bool isForLight(PictureFormat format);

} // namespace picture
