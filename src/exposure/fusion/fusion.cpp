#include "fusion.h"

#include "DeepRows.h"
#include "FusionEngine.h"
#include "fusion_rows.h"
#include "fusion_watch.h"
#include "shot_order.h"

#include "large_memory.h"

#include <algorithm>
#include <new>

namespace {

using fusion::Control;
using fusion::Options;
using fusion::Result;
using fusion::Shot;
using fusion::Status;

bool isDeep(const QImage &picture)
{
    return picture.depth() > 32;
}

/// The shots can be fused: a right number of them, all of one size, with fitting masks.
bool canBeFused(const std::vector<Shot> &shots)
{
    if (shots.empty() || shots.size() > fusion::kMostShots || shots.front().picture.isNull())
        return false;
    const QSize size = shots.front().picture.size();
    return std::all_of(shots.begin(), shots.end(), [size](const Shot &shot) {
        const bool maskFits =
            shot.mask.isNull() || (shot.mask.size() == fusion::halfSize(size) &&
                                   shot.mask.format() == QImage::Format_Grayscale8);
        return shot.picture.size() == size && maskFits;
    });
}

QImage inFormat(const QImage &picture, bool deep)
{
    const QImage::Format format = picture.format();
    const bool hasAlpha = picture.hasAlphaChannel();
    if (deep) {
        if (format == QImage::Format_RGBX64 || format == QImage::Format_RGBA64 ||
            format == QImage::Format_RGBA64_Premultiplied)
            return picture;
        return picture.convertToFormat(hasAlpha ? QImage::Format_RGBA64 : QImage::Format_RGBX64);
    }
    if (format == QImage::Format_RGB32 || format == QImage::Format_ARGB32 ||
        format == QImage::Format_ARGB32_Premultiplied)
        return picture;
    return picture.convertToFormat(hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
}

Options inRange(Options options)
{
    for (double *weight :
         {&options.exposureWeight, &options.contrastWeight, &options.saturationWeight})
        *weight = *weight > 0.0 ? std::min(*weight, 4.0) : 0.0;
    return options;
}

template <typename Rows>
Result fuseSorted(std::vector<Shot> &shots, const Options &options, const Control &control,
                  QImage::Format format)
{
    Result result;
    fusion::Watch watch(control);
    QImage picture = memory::largeImage(shots.front().picture.size(), format);
    if (picture.isNull())
        throw std::bad_alloc();
    fusion::FusionEngine<Rows>(shots, options, watch).fuseInto(picture);
    result.status = watch.isCancelled() ? Status::Cancelled : Status::Done;
    if (result.status == Status::Done)
        result.picture = picture;
    return result;
}

Result fuseShots(std::vector<Shot> &shots, const Options &options, const Control &control)
{
    const bool deep = std::any_of(shots.begin(), shots.end(),
                                  [](const Shot &shot) { return isDeep(shot.picture); });
    for (Shot &shot : shots) {
        shot.picture = inFormat(shot.picture, deep);
        if (shot.picture.isNull())
            throw std::bad_alloc();
    }
    fusion::sortByContents(shots);
    return deep ? fuseSorted<fusion::DeepRows>(shots, options, control, QImage::Format_RGBX64)
                : fuseSorted<fusion::ByteRows>(shots, options, control, QImage::Format_RGB32);
}

} // namespace

Result fusion::fuse(std::vector<Shot> shots, const Options &options, const Control &control)
{
    if (!canBeFused(shots))
        return {};
    try {
        return fuseShots(shots, inRange(options), control);
    } catch (const std::bad_alloc &) {
        Result result;
        result.status = Status::OutOfMemory;
        return result;
    }
}
