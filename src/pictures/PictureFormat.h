#pragma once

#include <QString>

#include <optional>

/// The kinds of file that pictures are written as.
enum class PictureFormat { Png, Jpeg, Tiff };

namespace picture {

/// The format that a file name's suffix asks for (png, jpg, jpeg, tif, tiff, in any case), or
/// nothing when it asks for another one or has none.
std::optional<PictureFormat> formatOfSuffix(const QString &path);

} // namespace picture
