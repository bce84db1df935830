#pragma once

#include <QByteArray>
#include <QIODevice>

/// What a PNG file says of its colours. Any thread, one per device.
namespace png_colours {

struct Colours
{
    QByteArray profile;       ///< ICC profile for its pixels, grey or RGB; empty: none
    bool isDamaged = false;   ///< there is one, but not a sound one that fits the pixels
    bool isHighRange = false; ///< the file tells light beyond white, which profiles do not
};

/// The first of these that is there counts (PNG, third edition, 4.3): code points (cICP), an ICC
/// profile (iCCP), sRGB, primaries and gamma (cHRM, gAMA), of which a profile is made. A damaged
/// one is passed over, and code points that are not known or tell light beyond white.
/// file: a PNG file, open and seekable; is left at its start.
Colours read(QIODevice &file);

} // namespace png_colours
