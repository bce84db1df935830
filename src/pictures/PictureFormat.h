#pragma once

#include <QString>

#include <optional>

/// The kinds of file that pictures are written as. The last two hold linear light.
enum class PictureFormat { Png, Jpeg, Tiff, OpenExr, RadianceHdr };

namespace picture {

/// The format that a file name's suffix asks for (png, jpg, jpeg, tif, tiff, exr, hdr, in any
/// case), or nothing when it asks for another one or has none.
std::optional<PictureFormat> formatOfSuffix(const QString &path);

/// Whether files of the format hold light in the place of levels for a screen.
bool isForLight(PictureFormat format);

} // namespace picture
