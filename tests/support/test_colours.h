#pragma once

#include <QByteArray>
#include <QImage>

#include <lcms2.h>

/// Colours of pictures, by Little CMS alone and exactly, as a yardstick for what the program does.
namespace test_colours {

/// Closes the profile.
QByteArray saved(cmsHPROFILE profile);

/// Grey of that gamma.
QByteArray greyProfile(double gamma);

/// Of four inks that swell on the paper, black included as far as it can; holds all of sRGB.
QByteArray inkProfile();

/// A picture of soft colours within sRGB, Format_RGBX64, without profile.
QImage softScene(int width, int height);

/// The picture's pixels in the space of that profile, row after row without padding. layout: one
/// of Little CMS, such as TYPE_CMYK_16.
QByteArray numbersIn(const QImage &picture, const QByteArray &profile, cmsUInt32Number layout);

/// The picture in another space, tagged with its profile; of the same format.
QImage brought(const QImage &picture, const QByteArray &profile);

/// CIEDE2000 between two pictures of one size, each by its own profile (none: sRGB), mean.
double meanDifference(const QImage &one, const QImage &other);

} // namespace test_colours
