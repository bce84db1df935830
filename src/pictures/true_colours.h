#pragma once

#include "DecodedPicture.h"

#include <QFile>

/// The last step of reading with ReadOptions::Colours::True. Any thread.
namespace true_colours {

/// What is said of a profile that does not count.
QString damagedProfileWarning();

/// Makes a decoded picture words of red, green and blue with the profile that they are of: grey
/// becomes sRGB by its profile, palettes become words, a profile that is damaged or for other
/// pixels goes with a warning, and where there is none, what the file says elsewhere counts: PNG's
/// chunks, EXIF's colour space. No profile stands for sRGB. file: the one that was decoded, open.
void settle(DecodedPicture &picture, QFile &file);

} // namespace true_colours
