#include "develop.h"

#include "DisplayCode.h"
#include "LightRange.h"
#include "fusion.h"
#include "fusion_watch.h"
#include "large_memory.h"
#include "virtual_exposures.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace develop {
namespace {

constexpr double kMostStops = 16.0;
constexpr double kFusionShare = 0.5; // of the time

const DisplayCode &displayCode()
{
    static const DisplayCode code;
    return code;
}

/// The same gain everywhere.
struct ExposureGain
{
    float gain;

    float operator()(float) const { return gain; }
};

/// Section 3.1, equation 4, over the luminance itself: what each channel is multiplied by.
struct PhotographicGain
{
    float key;          ///< from light to the paper's L
    float whiteSquared; ///< of the least L that is white

    float operator()(float luminance) const
    {
        const float scaled = key * luminance;
        return key * ((1.0F + scaled / whiteSquared) / (1.0F + scaled));
    }
};

PhotographicGain photographicGain(const LightRange &range, double exposure)
{
    constexpr double kMiddleGrey = 0.18;
    const auto key = static_cast<float>(kMiddleGrey * std::exp2(exposure - range.middle));
    const float white = key * static_cast<float>(std::exp2(range.bright));
    return {key, white * white};
}

template <typename Gain>
void showRow(const float *light, int width, const std::array<float, 3> &weights, const Gain &gain,
             QRgba64 *levels)
{
    const DisplayCode &code = displayCode();
    for (int x = 0; x < width; ++x, light += 4) {
        const float factor = gain(luminanceOf(light, weights));
        levels[x] =
            QRgba64::fromRgba64(code.levelOf(light[0] * factor), code.levelOf(light[1] * factor),
                                code.levelOf(light[2] * factor), DisplayCode::kTop);
    }
}

/// Null when cancelled.
template <typename Gain>
QImage shown(const QImage &light, const Gain &gain, fusion::Watch &watch, double share)
{
    QImage result = memory::largeImage(light.size(), QImage::Format_RGBX64);
    if (result.isNull())
        throw std::bad_alloc();
    const std::array<float, 3> weights = luminanceWeights(light.colorSpace());
    // Threads write beside each other: nothing may detach.
    uchar *const bits = result.bits();
    const qsizetype stride = result.bytesPerLine();
    watch.rows(light.size(), share, [&](int) {
        return [&](int y) {
            showRow(reinterpret_cast<const float *>(light.constScanLine(y)), light.width(), weights,
                    gain, reinterpret_cast<QRgba64 *>(bits + y * stride));
        };
    });
    return watch.isCancelled() ? QImage() : result;
}

Result done(QImage picture)
{
    const auto status = picture.isNull() ? fusion::Status::Cancelled : fusion::Status::Done;
    return {std::move(picture), status};
}

Result locally(const QImage &light, double exposure, const fusion::Control &control)
{
    fusion::Watch watch(control);
    const std::vector<float> gains = virtualExposures(LightRange::of(light), exposure);
    std::vector<fusion::Shot> shots;
    for (const float gain : gains) {
        const double share = (gains.size() > 1 ? 1 - kFusionShare : 1.0) / double(gains.size());
        shots.push_back({shown(light, ExposureGain{gain}, watch, share), {}});
        if (watch.isCancelled())
            return {{}, fusion::Status::Cancelled};
    }
    if (shots.size() == 1)
        return done(std::move(shots.front().picture));
    fusion::Control rest = control;
    if (control.progress)
        rest.progress = [&control](double part) {
            control.progress(1 - kFusionShare + kFusionShare * part);
        };
    fusion::Result fused = fusion::fuse(shots, {}, rest);
    return {std::move(fused.picture), fused.status};
}

Result developed(const QImage &light, const Options &options, const fusion::Control &control)
{
    const double exposure = std::clamp(options.exposure, -kMostStops, kMostStops);
    if (options.method == Method::Local)
        return locally(light, exposure, control);
    fusion::Watch watch(control);
    if (options.method == Method::Global)
        return done(shown(light, photographicGain(LightRange::of(light), exposure), watch, 1.0));
    const ExposureGain gain{static_cast<float>(std::exp2(exposure))};
    return done(shown(light, gain, watch, 1.0));
}

QColorSpace displaySpace(const QImage &light)
{
    const QColorSpace space =
        light.colorSpace().isValid() ? light.colorSpace() : QColorSpace(QColorSpace::SRgbLinear);
    return space.withTransferFunction(QColorSpace::TransferFunction::SRgb);
}

} // namespace

Result picture(const QImage &light, const Options &options, const fusion::Control &control)
{
    if (light.isNull() || light.format() != QImage::Format_RGBX32FPx4)
        return {};
    try {
        Result result = developed(light, options, control);
        if (!result.picture.isNull())
            result.picture.setColorSpace(displaySpace(light));
        return result;
    } catch (const std::bad_alloc &) {
        return {{}, fusion::Status::OutOfMemory};
    }
}

} // namespace develop
