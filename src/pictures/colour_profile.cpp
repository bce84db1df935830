#include "colour_profile.h"

#include <QtEndian>

#include <algorithm>
#include <initializer_list>
#include <memory>

#include <lcms2.h>

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
bool hasRgbHeader(const QByteArray &profile)
{
    constexpr char kLastVersionOfAnyLength = 3;
    constexpr quint32 kLastIntent = 3;
    // D50, in which all profiles meet.
    const QByteArray illuminant = QByteArray::fromHex("0000f6d6000100000000d32d");
    const bool hasSoundLength =
        profile.size() % 4 == 0 || profile[kVersionPlace] <= kLastVersionOfAnyLength;
    return numberAt(profile, 0) == quint32(profile.size()) && hasSoundLength &&
           isOneOf(profile, kClassPlace, {"mntr", "scnr", "prtr", "spac"}) &&
           isOneOf(profile, kSpacePlace, {"RGB "}) &&
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
bool canShowPixels(const QByteArray &profile)
{
    const std::unique_ptr<_cmsContext_struct, decltype(&cmsDeleteContext)> context(
        cmsCreateContext(nullptr, nullptr), &cmsDeleteContext);
    if (!context)
        return false;
    using Profile = std::unique_ptr<void, decltype(&cmsCloseProfile)>;
    const Profile from(cmsOpenProfileFromMemTHR(context.get(), profile.constData(),
                                                static_cast<cmsUInt32Number>(profile.size())),
                       &cmsCloseProfile);
    const Profile to(cmsCreate_sRGBProfileTHR(context.get()), &cmsCloseProfile);
    if (!from || !to)
        return false;
    const cmsHTRANSFORM transform = cmsCreateTransformTHR(
        context.get(), from.get(), TYPE_RGB_8, to.get(), TYPE_RGB_8, INTENT_PERCEPTUAL, 0);
    if (transform)
        cmsDeleteTransform(transform);
    return transform;
}

} // namespace

bool colour_profile::fitsRgbPixels(const QByteArray &profile)
{
    return profile.size() > kHeaderBytes + 4 && hasRgbHeader(profile) && hasSoundTags(profile) &&
           canShowPixels(profile);
}
