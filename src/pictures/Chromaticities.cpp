#include "Chromaticities.h"

#include "little_cms.h"

#include <cmath>

namespace {

constexpr QPointF kD65(0.3127, 0.3290);
constexpr QPointF kD50(0.3457, 0.3585);

/// Nothing when the profile does not tell.
QPointF chromaticityOf(const little_cms::Profile &profile, cmsTagSignature tag)
{
    const auto *colour =
        static_cast<const cmsCIEXYZ *>(profile ? cmsReadTag(profile.get(), tag) : nullptr);
    const double sum = colour ? colour->X + colour->Y + colour->Z : 0.0;
    return sum > 0.0 ? QPointF(colour->X / sum, colour->Y / sum) : QPointF();
}

/// As far as files that round them tell.
bool isNear(QPointF one, QPointF other)
{
    constexpr double kStep = 0.0006;
    return std::abs(one.x() - other.x()) < kStep && std::abs(one.y() - other.y()) < kStep;
}

bool isNear(const Chromaticities &one, const Chromaticities &other)
{
    return isNear(one.red, other.red) && isNear(one.green, other.green) &&
           isNear(one.blue, other.blue) && isNear(one.white, other.white);
}

Chromaticities rec709()
{
    return {{0.640, 0.330}, {0.300, 0.600}, {0.150, 0.060}, kD65};
}

Chromaticities ofProfile(const QByteArray &bytes)
{
    const little_cms::Context context = little_cms::newContext();
    const little_cms::Profile profile = little_cms::open(context, bytes);
    const Chromaticities found = {chromaticityOf(profile, cmsSigRedColorantTag),
                                  chromaticityOf(profile, cmsSigGreenColorantTag),
                                  chromaticityOf(profile, cmsSigBlueColorantTag), kD50};
    const bool isWhole = !found.red.isNull() && !found.green.isNull() && !found.blue.isNull();
    return isWhole ? found : rec709();
}

} // namespace

QColorSpace Chromaticities::linearSpace() const
{
    using Primaries = QColorSpace::Primaries;
    constexpr auto kLinear = QColorSpace::TransferFunction::Linear;
    for (const Primaries known :
         {Primaries::SRgb, Primaries::AdobeRgb, Primaries::DciP3D65, Primaries::ProPhotoRgb}) {
        const QColorSpace space(known, kLinear);
        if (isNear(*this, of(space)))
            return space;
    }
    return QColorSpace(white, red, green, blue, kLinear);
}

Chromaticities Chromaticities::of(const QColorSpace &space)
{
    switch (space.primaries()) {
    case QColorSpace::Primaries::SRgb:
        return rec709();
    case QColorSpace::Primaries::AdobeRgb:
        return {{0.640, 0.330}, {0.210, 0.710}, {0.150, 0.060}, kD65};
    case QColorSpace::Primaries::DciP3D65:
        return {{0.680, 0.320}, {0.265, 0.690}, {0.150, 0.060}, kD65};
    case QColorSpace::Primaries::ProPhotoRgb:
        return {{0.7347, 0.2653}, {0.1596, 0.8404}, {0.0366, 0.0001}, kD50};
    case QColorSpace::Primaries::Custom:
        break;
    }
    return ofProfile(space.iccProfile());
}
