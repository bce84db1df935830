#pragma once

#include "DecodedPicture.h"
#include "ReadOptions.h"

namespace picture {

/// Decodes a picture file that is no camera raw file, upright (as the orientation in the file
/// says), in the pixel format that Qt chooses for it, with its colour profile. The kind of file is
/// recognised by content, not by suffix. A picture that lacks pixels is an error. Indexes of a
/// palette picture always lie inside its colour table. options.side is a hint here: the picture may
/// be larger than that, but not smaller.
/// Ends with Cancelled soon after *options.cancelled has become true: at the next bytes that it
/// reads. Never blocks on a pipe or device. Any thread, several at once; nothing is thrown.
DecodedPicture decode(const QString &path, const ReadOptions &options = {});

} // namespace picture
