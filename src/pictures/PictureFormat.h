#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// The kinds of file that pictures are written as. The last two hold linear light.
enum class PictureFormat { Png, Jpeg, Tiff, OpenExr, RadianceHdr };

namespace picture {

/// The format that a word names, or nothing: png, jpg, jpeg, tif, tiff, exr, hdr.
std::optional<PictureFormat> formatOfWord(const QString &word);

/// The format that a file name's suffix asks for, in any case, or nothing when it asks for another
/// one or has none.
std::optional<PictureFormat> formatOfSuffix(const QString &path);

/// Suffixes of the files that this build reads by itself, without Qt: lower case, without dot.
QStringList ownSuffixes();

/// Whether files of the format hold light in the place of levels for a screen.
bool isForLight(PictureFormat format);

} // namespace picture
