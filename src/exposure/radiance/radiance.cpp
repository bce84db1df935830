#include "radiance.h"

#include "Response.h"
#include "fusion_watch.h"
#include "large_memory.h"
#include "level_samples.h"
#include "radiance_rows.h"
#include "response_fit.h"

#include <QColorSpace>

#include <algorithm>
#include <cmath>
#include <new>
#include <numeric>

namespace radiance {
namespace {

constexpr size_t kFewestShotsForCurve = 3;
constexpr double kLeastRangeForCurve = 4.0; // between the exposures

/// The shots can be merged: a right number of them, all of one size, with fitting masks.
bool canBeMerged(const std::vector<Shot> &shots, int reference)
{
    if (shots.empty() || shots.size() > fusion::kMostShots || reference < 0 ||
        reference >= int(shots.size()) || shots.front().picture.picture.isNull())
        return false;
    const QSize size = shots.front().picture.picture.size();
    return std::all_of(shots.begin(), shots.end(), [size](const Shot &shot) {
        const QImage &mask = shot.picture.mask;
        const bool maskFits = mask.isNull() || (mask.size() == fusion::halfSize(size) &&
                                                mask.format() == QImage::Format_Grayscale8);
        return shot.picture.picture.size() == size && maskFits;
    });
}

bool isDeep(const Shot &shot)
{
    return shot.picture.picture.depth() > 32;
}

/// In a format whose opaque pixels hold the levels as they are.
QImage readable(const QImage &picture, bool deep)
{
    const bool hasAlpha = picture.hasAlphaChannel();
    switch (picture.format()) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
    case QImage::Format_ARGB32_Premultiplied:
        if (!deep)
            return picture;
        break;
    case QImage::Format_RGBX64:
    case QImage::Format_RGBA64:
    case QImage::Format_RGBA64_Premultiplied:
        if (deep)
            return picture;
        break;
    default:
        break;
    }
    if (deep)
        return picture.convertToFormat(hasAlpha ? QImage::Format_RGBA64 : QImage::Format_RGBX64);
    return picture.convertToFormat(hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
}

bool areExposuresKnown(const std::vector<Shot> &shots)
{
    return std::all_of(shots.begin(), shots.end(), [](const Shot &shot) {
        return std::isfinite(shot.exposure) && shot.exposure > 0.0;
    });
}

std::vector<double> exposuresOf(const std::vector<Shot> &shots)
{
    std::vector<double> exposures;
    for (const Shot &shot : shots)
        exposures.push_back(shot.exposure);
    return exposures;
}

/// One merge. The steps run in the order in which they stand here.
class Merge
{
public:
    Merge(std::vector<Shot> &&shotsToMerge, const Options &mergeOptions,
          const fusion::Control &control)
        : shots(std::move(shotsToMerge))
        , options(mergeOptions)
        , watch(control)
    {
    }

    Result run();

private:
    void makeReadable();
    bool recoversCurve() const;
    void findResponse();
    std::vector<ShotRows> shotsInOrder() const;
    void mergeRows();
    void finish();

    std::vector<Shot> shots;
    const Options &options;
    fusion::Watch watch;
    Response response;
    Result result;
};

Result Merge::run()
{
    makeReadable();
    findResponse();
    mergeRows();
    if (watch.isCancelled()) {
        result = {};
        result.status = fusion::Status::Cancelled;
        return result;
    }
    finish();
    return std::move(result);
}

void Merge::makeReadable()
{
    const bool deep = std::any_of(shots.begin(), shots.end(), &isDeep);
    for (Shot &shot : shots) {
        shot.picture.picture = readable(shot.picture.picture, deep);
        if (shot.picture.picture.isNull())
            throw std::bad_alloc();
    }
    response = Response::ofProfile(shots.front().picture.picture.colorSpace().iccProfile(),
                                   deep ? Response::kShortLevels : Response::kByteLevels);
}

/// Files of more than 8 bits come from raw converters, which tag the curve that they applied; the
/// curves of cameras are their makers' secrets.
bool Merge::recoversCurve() const
{
    if (options.curve != Curve::Automatic)
        return options.curve == Curve::Recovered;
    if (!result.areExposuresKnown || shots.size() < kFewestShotsForCurve || isDeep(shots.front()))
        return false;
    const std::vector<double> exposures = exposuresOf(shots);
    const auto [least, most] = std::minmax_element(exposures.begin(), exposures.end());
    return *most >= kLeastRangeForCurve * *least;
}

void Merge::findResponse()
{
    result.areExposuresKnown = areExposuresKnown(shots);
    const std::vector<double> known =
        result.areExposuresKnown ? exposuresOf(shots) : std::vector<double>();
    const ResponseFit fit =
        fitResponse(levelSamples(shots), shots.size(), known, response, recoversCurve());
    result.isCurveRecovered = !fit.light.empty();
    if (result.isCurveRecovered)
        response = Response::ofCurve(fit.light, response.levels());
    for (const double exposure : fit.exposures)
        result.exposures.push_back(exposure / fit.exposures[size_t(options.reference)]);
}

std::vector<ShotRows> Merge::shotsInOrder() const
{
    std::vector<size_t> order(shots.size());
    std::iota(order.begin(), order.end(), size_t(0));
    std::stable_sort(order.begin(), order.end(), [this](size_t a, size_t b) {
        return result.exposures[a] < result.exposures[b];
    });
    std::vector<ShotRows> rows;
    for (const size_t i : order)
        rows.push_back({&shots[i].picture.picture, &shots[i].picture.mask,
                        static_cast<float>(result.exposures[i])});
    return rows;
}

void Merge::mergeRows()
{
    const QSize size = shots.front().picture.picture.size();
    result.picture = memory::largeImage(size, QImage::Format_RGBX32FPx4);
    result.bounds = QImage(size, QImage::Format_Grayscale8);
    if (result.picture.isNull() || result.bounds.isNull())
        throw std::bad_alloc();
    result.bounds.fill(kMeasured);
    const std::vector<ShotRows> order = shotsInOrder();
    const RadianceRows rows(order, response);
    // Threads write beside each other: nothing may detach.
    uchar *pixels = result.picture.bits();
    uchar *bounds = result.bounds.bits();
    const qsizetype pixelStride = result.picture.bytesPerLine();
    const qsizetype boundStride = result.bounds.bytesPerLine();
    watch.rows(size, 1.0, [&](int) {
        return [&](int y) {
            rows.makeRow(y, reinterpret_cast<float *>(pixels + y * pixelStride),
                         bounds + y * boundStride);
        };
    });
}

void Merge::finish()
{
    watch.finish();
    const QImage &first = shots.front().picture.picture;
    const QColorSpace space =
        first.colorSpace().isValid() ? first.colorSpace() : QColorSpace(QColorSpace::SRgb);
    result.picture.setColorSpace(space.withTransferFunction(QColorSpace::TransferFunction::Linear));
    const QImage &bounds = result.bounds;
    const auto isMeasured = [&bounds](int y) {
        const uchar *row = bounds.constScanLine(y);
        return std::all_of(row, row + bounds.width(),
                           [](uchar bound) { return bound == kMeasured; });
    };
    bool allMeasured = true;
    for (int y = 0; y < bounds.height() && allMeasured; ++y)
        allMeasured = isMeasured(y);
    if (allMeasured)
        result.bounds = QImage();
    result.status = fusion::Status::Done;
}

} // namespace

Result merge(std::vector<Shot> shots, const Options &options, const fusion::Control &control)
{
    if (!canBeMerged(shots, options.reference))
        return {};
    try {
        return Merge(std::move(shots), options, control).run();
    } catch (const std::bad_alloc &) {
        Result failed;
        failed.status = fusion::Status::OutOfMemory;
        return failed;
    }
}

} // namespace radiance
