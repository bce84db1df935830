#pragma once

#include <QByteArray>

#include <memory>

#include <lcms2.h>

/// Owners for what Little CMS gives out. A context of its own keeps one caller's errors, which
/// nobody hears, from another's. Any thread; what was made in a context belongs to one at a time,
/// but transforms may run on several.
namespace little_cms {

using Context = std::unique_ptr<_cmsContext_struct, decltype(&cmsDeleteContext)>;
using Profile = std::unique_ptr<void, decltype(&cmsCloseProfile)>;
using Transform = std::unique_ptr<void, decltype(&cmsDeleteTransform)>;
using Curve = std::unique_ptr<cmsToneCurve, decltype(&cmsFreeToneCurve)>;

inline Context newContext()
{
    return {cmsCreateContext(nullptr, nullptr), &cmsDeleteContext};
}

/// Null when the bytes are no profile. bytes are copied.
inline Profile open(const Context &context, const QByteArray &bytes)
{
    return {context ? cmsOpenProfileFromMemTHR(context.get(), bytes.constData(),
                                               static_cast<cmsUInt32Number>(bytes.size()))
                    : nullptr,
            &cmsCloseProfile};
}

/// The profile's bytes; none when that fails, or it is null.
inline QByteArray saved(const Profile &profile)
{
    cmsUInt32Number length = 0;
    if (!profile || !cmsSaveProfileToMem(profile.get(), nullptr, &length))
        return {};
    QByteArray bytes(qsizetype(length), '\0');
    return cmsSaveProfileToMem(profile.get(), bytes.data(), &length) ? bytes : QByteArray();
}

} // namespace little_cms
