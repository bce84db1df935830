#pragma once

#include <QByteArray>
#include <QString>

/// ICC profiles, as files hold them. Any thread, reentrant.
namespace colour_profile {

/// Spaces whose profiles are built in.
enum class Space { Srgb, AdobeRgb, ProPhotoRgb, DisplayP3 };

/// The profile of that space; the same bytes each time. Those that converted raw files carry.
QByteArray of(Space space);

/// True when the profile is sound and describes pixels of red, green and blue, so that a file of
/// such pixels may carry it: profiles for grey, CMYK and Lab pixels, for links and effects, and
/// damaged ones do not fit.
bool fitsRgbPixels(const QByteArray &profile);

/// The same for one channel of grey, and for the four inks.
bool fitsGreyPixels(const QByteArray &profile);
bool fitsInkPixels(const QByteArray &profile);

/// What the profile calls itself, in English, for reports; "sRGB" for none and for an unsound one.
QString nameOf(const QByteArray &profile);

} // namespace colour_profile
