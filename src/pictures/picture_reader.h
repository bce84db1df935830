#pragma once

#include "DecodedPicture.h"
#include "ReadOptions.h"

#include <functional>

/// The one road from a path to a picture. Any thread, several at once; nothing is thrown.
namespace picture {

/// Makes a picture of the camera raw file at path.
using RawConverter = std::function<DecodedPicture(const QString &path, const ReadOptions &options)>;

/// By VeskRaw, with the error that fits best: damage, lack of memory, too many pixels, cancelled.
DecodedPicture convertRaw(const QString &path, const ReadOptions &options);

/// Reads a picture of any kind, upright, with its colour profile: camera raw files by convert, all
/// others as decode() does (see picture_decoder.h). The kind goes by content, not by suffix.
DecodedPicture read(const QString &path, const ReadOptions &options, const RawConverter &convert);

/// With convertRaw. Inline, so that who brings a converter of its own needs no other.
inline DecodedPicture read(const QString &path, const ReadOptions &options = {})
{
    return read(path, options, &convertRaw);
}

} // namespace picture
