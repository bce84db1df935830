#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Colours by the code points of ITU-T H.273, as AVIF and other formats tell them. Any thread.
namespace cicp_profile {

/// The ICC profile of pixels in red, green and blue with these primaries and this curve; empty for
/// sRGB, for code points that are not told or not known, and for those of isHighRange().
QByteArray of(int primaries, int transfer);

/// The curves that tell light beyond white: PQ and HLG.
bool isHighRange(int transfer);

/// Whether these code points say what of() makes of them, sRGB included.
bool isKnown(int primaries, int transfer);

/// The same in words, such as "Rec. 2020 PQ", or in numbers where there is no usual name; empty
/// when neither is told.
QString nameOf(int primaries, int transfer);

struct Codes
{
    int primaries;
    int transfer;
};

/// The code points that say the same as the profile; nothing where there are none, and for an empty
/// profile. Of the spaces that screens have: sRGB and Display P3, with their curve or linear.
std::optional<Codes> codesOf(const QByteArray &profile);

} // namespace cicp_profile
