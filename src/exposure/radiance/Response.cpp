#include "Response.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>

#include <lcms2.h>

namespace radiance {
namespace {

double lightOfSrgb(double level)
{
    return level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
}

/// curve: from a level, 0..1, to its light.
std::vector<float> sampled(const std::function<double(double)> &curve, int levels)
{
    std::vector<float> light(static_cast<size_t>(levels));
    float brightest = 0.0F;
    for (int level = 0; level < levels; ++level) {
        const auto value = static_cast<float>(curve(double(level) / (levels - 1)));
        brightest = std::max(brightest, std::clamp(value, 0.0F, 1.0F));
        light[size_t(level)] = brightest;
    }
    return light;
}

using Profile = std::unique_ptr<void, decltype(&cmsCloseProfile)>;

} // namespace

Response Response::ofProfile(const QByteArray &profile, int levels)
{
    const Profile opened(
        cmsOpenProfileFromMem(profile.constData(), cmsUInt32Number(profile.size())),
        &cmsCloseProfile);
    constexpr cmsTagSignature kCurves[] = {cmsSigRedTRCTag, cmsSigGreenTRCTag, cmsSigBlueTRCTag};
    Response response;
    for (size_t i = 0; i < response.channels.size(); ++i) {
        const auto *curve = static_cast<const cmsToneCurve *>(
            opened ? cmsReadTag(opened.get(), kCurves[i]) : nullptr);
        const auto lightOfCurve = [curve](double level) {
            return double(cmsEvalToneCurveFloat(curve, float(level)));
        };
        response.channels[i] =
            curve ? sampled(lightOfCurve, levels) : sampled(&lightOfSrgb, levels);
    }
    return response;
}

Response Response::ofCurve(const std::vector<double> &light, int levels)
{
    const auto between = [&light](double level) {
        const double place = level * double(light.size() - 1);
        const size_t below = std::min(size_t(place), light.size() - 2);
        const double share = place - double(below);
        return ((1.0 - share) * light[below] + share * light[below + 1]) / light.back();
    };
    Response response;
    response.channels.fill(sampled(between, levels));
    return response;
}

} // namespace radiance
