#pragma once

#include <QByteArray>

/// ICC profiles, as files hold them. Any thread, reentrant.
namespace colour_profile {

/// True when the profile is sound and describes pixels of red, green and blue, so that a file of
/// such pixels may carry it: profiles for grey, CMYK and Lab pixels, for links and effects, and
/// damaged ones do not fit.
bool fitsRgbPixels(const QByteArray &profile);

} // namespace colour_profile
