#include "colour_profile.h"

#include "little_cms.h"

#include <QColorSpace>
#include <QtEndian>

#include <algorithm>
#include <initializer_list>

namespace {

// Places and sizes in the header: ICC.1:2022, 7.2 and 7.3.
constexpr qsizetype kHeaderBytes = 128;
constexpr qsizetype kTagBytes = 12;
constexpr qsizetype kVersionPlace = 8;
constexpr qsizetype kClassPlace = 12;
constexpr qsizetype kSpacePlace = 16;
constexpr qsizetype kConnectionPlace = 20;
constexpr qsizetype kSignaturePlace = 36;
constexpr qsizetype kIntentPlace = 64;
constexpr qsizetype kIlluminantPlace = 68;

quint32 numberAt(const QByteArray &profile, qsizetype place)
{
    return qFromBigEndian<quint32>(profile.constData() + place);
}

bool isOneOf(const QByteArray &profile, qsizetype place,
             std::initializer_list<const char *> signatures)
{
    const QByteArray signature = profile.mid(place, 4);
    return std::any_of(signatures.begin(), signatures.end(),
                       [&](const char *allowed) { return signature == allowed; });
}

/// Readers insist on these, too: libpng and Qt pass over profiles that are wrong here.
bool hasHeaderOf(const char *space, const QByteArray &profile)
{
    constexpr char kLastVersionOfAnyLength = 3;
    constexpr quint32 kLastIntent = 3;
    // D50, in which all profiles meet.
    const QByteArray illuminant = QByteArray::fromHex("0000f6d6000100000000d32d");
    const bool hasSoundLength =
        profile.size() % 4 == 0 || profile[kVersionPlace] <= kLastVersionOfAnyLength;
    return numberAt(profile, 0) == quint32(profile.size()) && hasSoundLength &&
           isOneOf(profile, kClassPlace, {"mntr", "scnr", "prtr", "spac"}) &&
           isOneOf(profile, kSpacePlace, {space}) &&
           isOneOf(profile, kConnectionPlace, {"XYZ ", "Lab "}) &&
           isOneOf(profile, kSignaturePlace, {"acsp"}) &&
           numberAt(profile, kIntentPlace) <= kLastIntent &&
           profile.mid(kIlluminantPlace, illuminant.size()) == illuminant;
}

/// Each tag is: name, place, length.
bool hasSoundTags(const QByteArray &profile)
{
    const qsizetype tableBytes = qsizetype(numberAt(profile, kHeaderBytes)) * kTagBytes;
    const qsizetype tableBegin = kHeaderBytes + 4;
    const qsizetype tableEnd = tableBegin + tableBytes;
    if (tableEnd > profile.size())
        return false;
    for (qsizetype at = tableBegin; at < tableEnd; at += kTagBytes) {
        const quint64 begin = numberAt(profile, at + 4);
        const quint64 end = begin + numberAt(profile, at + 8);
        if (begin < quint64(tableEnd) || end > quint64(profile.size()))
            return false;
    }
    return true;
}

/// Little CMS reads what is needed to show the pixels.
bool canShowPixels(const QByteArray &profile, cmsUInt32Number pixels)
{
    const little_cms::Context context = little_cms::newContext();
    if (!context)
        return false;
    const little_cms::Profile from = little_cms::open(context, profile);
    const little_cms::Profile to(cmsCreate_sRGBProfileTHR(context.get()), &cmsCloseProfile);
    if (!from || !to)
        return false;
    const cmsHTRANSFORM transform = cmsCreateTransformTHR(
        context.get(), from.get(), pixels, to.get(), TYPE_RGB_8, INTENT_PERCEPTUAL, 0);
    if (transform)
        cmsDeleteTransform(transform);
    return transform;
}

/// pixels: in the numbering of Little CMS.
bool fits(const QByteArray &profile, const char *space, cmsUInt32Number pixels)
{
    return profile.size() > kHeaderBytes + 4 && hasHeaderOf(space, profile) &&
           hasSoundTags(profile) && canShowPixels(profile, pixels);
}

QColorSpace::NamedColorSpace namedSpace(colour_profile::Space space)
{
    switch (space) {
    case colour_profile::Space::AdobeRgb:
        return QColorSpace::AdobeRgb;
    case colour_profile::Space::ProPhotoRgb:
        return QColorSpace::ProPhotoRgb;
    case colour_profile::Space::DisplayP3:
        return QColorSpace::DisplayP3;
    case colour_profile::Space::Srgb:
        break;
    }
    return QColorSpace::SRgb;
}

} // namespace

QByteArray colour_profile::of(Space space)
{
    return QColorSpace(namedSpace(space)).iccProfile();
}

bool colour_profile::fitsRgbPixels(const QByteArray &profile)
{
    return fits(profile, "RGB ", TYPE_RGB_8);
}

bool colour_profile::fitsGreyPixels(const QByteArray &profile)
{
    return fits(profile, "GRAY", TYPE_GRAY_8);
}

bool colour_profile::fitsInkPixels(const QByteArray &profile)
{
    return fits(profile, "CMYK", TYPE_CMYK_8);
}

QString colour_profile::nameOf(const QByteArray &profile)
{
    const little_cms::Context context = little_cms::newContext();
    const little_cms::Profile opened = little_cms::open(context, profile);
    char name[256] = "";
    if (opened)
        cmsGetProfileInfoASCII(opened.get(), cmsInfoDescription, "en", "US", name, sizeof name);
    return *name ? QString::fromLatin1(name) : QStringLiteral("sRGB");
}
