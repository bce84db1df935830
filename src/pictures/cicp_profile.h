#pragma once

#include <QByteArray>

/// Colours by the code points of ITU-T H.273, as AVIF and other formats tell them. Any thread.
namespace cicp_profile {

/// The ICC profile of pixels in red, green and blue with these primaries and this curve; empty for
/// sRGB, for code points that are not told or not known, and for those of isHighRange().
QByteArray of(int primaries, int transfer);

/// The curves that tell light beyond white: PQ and HLG.
bool isHighRange(int transfer);

} // namespace cicp_profile
