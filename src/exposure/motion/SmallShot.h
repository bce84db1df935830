#pragma once

#include <QImage>

#include <array>
#include <cstdint>
#include <vector>

namespace motion {

/// A shot at the size at which movement is looked for: means over blocks of pixels, levels 0..255.
struct SmallShot
{
    using Levels = std::vector<uint8_t>; ///< width x height
    using Channels = std::array<Levels, 3>;

    int width = 0;
    int height = 0;
    Channels levels;
    Channels lowest;  ///< halfway to the lowest of the 3 x 3 around: half a place is no movement
    Channels highest; ///< likewise
    Channels darkest; ///< of the block's own pixels
    Channels brightest;
    Levels covered; ///< 1 where all pixels of the block are opaque
};

/// Side of the blocks for pictures of this size, a power of two from 2 to 16: what is left has at
/// most 1000 pixels on the longer side, up to pictures of 16000.
int blockSide(QSize size);

/// The picture in one of the formats that shrink() takes. Throws std::bad_alloc.
QImage readable(const QImage &picture);

/// The blocks at the right and the bottom hold what there is.
/// picture: Format_RGB32, ARGB32(_Premultiplied), RGBX64 or RGBA64(_Premultiplied).
/// Throws std::bad_alloc. Any thread, reentrant; uses all cores inside the call.
SmallShot shrink(const QImage &picture, int side);

} // namespace motion
