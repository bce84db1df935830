#include "cicp_profile.h"

#include "little_cms.h"

#include <QColorSpace>

#include <algorithm>
#include <iterator>

namespace {

enum Transfer {
    Bt709 = 1,
    Gamma22 = 4,
    Gamma28 = 5,
    Bt601 = 6,
    Linear = 8,
    Xvycc = 11,
    Bt1361 = 12,
    Srgb = 13,
    Bt2020Ten = 14,
    Bt2020Twelve = 15,
    Pq = 16,
    Hlg = 18
};

/// x and y of white and of the primaries: H.273, table 2.
struct Primaries
{
    int code;
    cmsCIExyY white;
    cmsCIExyYTRIPLE colours;
};

constexpr cmsCIExyY kD65 = {0.3127, 0.3290, 1};
constexpr cmsCIExyY kC = {0.310, 0.316, 1};

constexpr Primaries kPrimaries[] = {
    {1, kD65, {{0.64, 0.33, 1}, {0.30, 0.60, 1}, {0.15, 0.06, 1}}},
    {4, kC, {{0.67, 0.33, 1}, {0.21, 0.71, 1}, {0.14, 0.08, 1}}},
    {5, kD65, {{0.64, 0.33, 1}, {0.29, 0.60, 1}, {0.15, 0.06, 1}}},
    {6, kD65, {{0.630, 0.340, 1}, {0.310, 0.595, 1}, {0.155, 0.070, 1}}},
    {7, kD65, {{0.630, 0.340, 1}, {0.310, 0.595, 1}, {0.155, 0.070, 1}}},
    {8, kC, {{0.681, 0.319, 1}, {0.243, 0.692, 1}, {0.145, 0.049, 1}}},
    {9, kD65, {{0.708, 0.292, 1}, {0.170, 0.797, 1}, {0.131, 0.046, 1}}},
    {11, {0.314, 0.351, 1}, {{0.680, 0.320, 1}, {0.265, 0.690, 1}, {0.150, 0.060, 1}}},
    {12, kD65, {{0.680, 0.320, 1}, {0.265, 0.690, 1}, {0.150, 0.060, 1}}},
    {22, kD65, {{0.630, 0.340, 1}, {0.295, 0.605, 1}, {0.155, 0.077, 1}}},
};

/// H.273, table 3, from number to light; null where the code is not known.
cmsToneCurve *curveOf(int transfer, cmsContext context)
{
    const cmsFloat64Number bt709[] = {1 / 0.45, 1 / 1.099, 0.099 / 1.099, 1 / 4.5, 0.081};
    const cmsFloat64Number srgb[] = {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
    switch (transfer) {
    case Bt709:
    case Bt601:
    case Xvycc:
    case Bt1361:
    case Bt2020Ten:
    case Bt2020Twelve:
        return cmsBuildParametricToneCurve(context, 4, bt709);
    case Gamma22:
        return cmsBuildGamma(context, 2.2);
    case Gamma28:
        return cmsBuildGamma(context, 2.8);
    case Linear:
        return cmsBuildGamma(context, 1);
    case Srgb:
        return cmsBuildParametricToneCurve(context, 4, srgb);
    default:
        return nullptr;
    }
}

} // namespace

QByteArray cicp_profile::of(int primaries, int transfer)
{
    constexpr int kStandardPrimaries = 1;
    const little_cms::Context context = little_cms::newContext();
    const little_cms::Curve curve(context ? curveOf(transfer, context.get()) : nullptr,
                                  &cmsFreeToneCurve);
    if (!curve || (primaries == kStandardPrimaries && transfer == Srgb))
        return {};
    cmsToneCurve *const curves[] = {curve.get(), curve.get(), curve.get()};
    for (const Primaries &known : kPrimaries) {
        if (known.code != primaries)
            continue;
        return little_cms::saved(
            {cmsCreateRGBProfileTHR(context.get(), &known.white, &known.colours, curves),
             &cmsCloseProfile});
    }
    return {};
}

bool cicp_profile::isHighRange(int transfer)
{
    return transfer == Pq || transfer == Hlg;
}

bool cicp_profile::isKnown(int primaries, int transfer)
{
    const auto *const known = std::find_if(
        std::begin(kPrimaries), std::end(kPrimaries),
        [primaries](const Primaries &candidate) { return candidate.code == primaries; });
    return known != std::end(kPrimaries) &&
           little_cms::Curve(curveOf(transfer, nullptr), &cmsFreeToneCurve);
}

QString cicp_profile::nameOf(int primaries, int transfer)
{
    struct Name
    {
        int primaries;
        int transfer;
        const char *words;
    };
    constexpr Name kNames[] = {
        {1, Srgb, "sRGB"},        {1, Bt709, "Rec. 709"},    {1, Linear, "linear sRGB"},
        {12, Srgb, "Display P3"}, {12, Pq, "Display P3 PQ"}, {12, Hlg, "Display P3 HLG"},
        {9, Pq, "Rec. 2020 PQ"},  {9, Hlg, "Rec. 2020 HLG"},
    };
    constexpr int kUnspecified = 2;
    if (primaries == kUnspecified && transfer == kUnspecified)
        return {};
    for (const Name &name : kNames) {
        if (name.primaries == primaries && name.transfer == transfer)
            return QLatin1String(name.words);
    }
    return QStringLiteral("code points %1, %2").arg(primaries).arg(transfer);
}

std::optional<cicp_profile::Codes> cicp_profile::codesOf(const QByteArray &profile)
{
    const QColorSpace space =
        profile.isEmpty() ? QColorSpace() : QColorSpace::fromIccProfile(profile);
    const bool isSrgb = space.primaries() == QColorSpace::Primaries::SRgb;
    const bool isLinear = space.transferFunction() == QColorSpace::TransferFunction::Linear;
    const bool isScreen = isSrgb || space.primaries() == QColorSpace::Primaries::DciP3D65;
    if (!isScreen || !(isLinear || space.transferFunction() == QColorSpace::TransferFunction::SRgb))
        return std::nullopt;
    return Codes{isSrgb ? 1 : 12, isLinear ? Linear : Srgb};
}
