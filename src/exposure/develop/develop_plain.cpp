#include "develop_plain.h"

#include "DisplayCode.h"
#include "LightRange.h"
#include "fusion.h"
#include "virtual_exposures.h"

#include <algorithm>
#include <cmath>

namespace develop {
namespace {

float channelOf(const QImage &light, int x, int y, int channel)
{
    return reinterpret_cast<const float *>(light.constScanLine(y))[4 * x + channel];
}

/// gain(luminance) is what each channel is multiplied by.
template <typename Gain>
QImage shown(const QImage &light, const Gain &gain)
{
    const DisplayCode code;
    const std::array<float, 3> weights = luminanceWeights(light.colorSpace());
    QImage result(light.size(), QImage::Format_RGBX64);
    for (int y = 0; y < light.height(); ++y) {
        for (int x = 0; x < light.width(); ++x) {
            const float pixel[] = {channelOf(light, x, y, 0), channelOf(light, x, y, 1),
                                   channelOf(light, x, y, 2)};
            const float factor = gain(luminanceOf(pixel, weights));
            const QRgba64 levels = QRgba64::fromRgba64(
                code.levelOfPlain(pixel[0] * factor), code.levelOfPlain(pixel[1] * factor),
                code.levelOfPlain(pixel[2] * factor), DisplayCode::kTop);
            reinterpret_cast<QRgba64 *>(result.scanLine(y))[x] = levels;
        }
    }
    return result;
}

QImage exposed(const QImage &light, float gain)
{
    return shown(light, [gain](float) { return gain; });
}

QImage globally(const QImage &light, double exposure)
{
    const LightRange range = LightRange::of(light);
    const auto key = static_cast<float>(0.18 * std::exp2(exposure - range.middle));
    const auto white = static_cast<float>(std::exp2(range.bright));
    const float whiteScaled = key * white;
    const float whiteSquared = whiteScaled * whiteScaled;
    return shown(light, [=](float luminance) {
        const float scaled = key * luminance;
        const float compressed = (1.0F + scaled / whiteSquared) / (1.0F + scaled);
        return key * compressed;
    });
}

QImage locally(const QImage &light, double exposure)
{
    std::vector<fusion::Shot> shots;
    for (const float gain : virtualExposures(LightRange::of(light), exposure))
        shots.push_back({exposed(light, gain), {}});
    return shots.size() == 1 ? shots.front().picture : fusion::fuse(shots).picture;
}

} // namespace

QImage picturePlain(const QImage &light, const Options &options)
{
    const double exposure = std::clamp(options.exposure, -16.0, 16.0);
    QImage result = options.method == Method::Exposure
                        ? exposed(light, static_cast<float>(std::exp2(exposure)))
                    : options.method == Method::Global ? globally(light, exposure)
                                                       : locally(light, exposure);
    const QColorSpace space =
        light.colorSpace().isValid() ? light.colorSpace() : QColorSpace(QColorSpace::SRgbLinear);
    result.setColorSpace(space.withTransferFunction(QColorSpace::TransferFunction::SRgb));
    return result;
}

} // namespace develop
