#include "set_merge.h"

#include "merge_pictures.h"

#include <VeskRawType.h>

#include <QElapsedTimer>

#include <algorithm>
#include <new>

namespace exposure {
namespace {

bool isCancelled(const Control &control)
{
    return control.cancelled && *control.cancelled;
}

SetOutcome failed(Error error)
{
    SetOutcome outcome;
    outcome.error = error;
    return outcome;
}

/// The result has the depth of the deepest shot.
void deepen(QList<QImage> &shots)
{
    const auto isDeep = [](const QImage &shot) { return shot.depth() == 64; };
    if (std::none_of(shots.begin(), shots.end(), isDeep))
        shots.first() = std::move(shots.first()).convertToFormat(QImage::Format_RGBX64);
}

SetOutcome mergeInOneSpace(Product product, QList<QImage> &&shots, const SetOptions &options,
                           const Control &control)
{
    SetOutcome outcome;
    outcome.colours = picture_set::bringToFirst(shots);
    if (outcome.colours.isMemoryShort)
        return failed(Error::NoMemory);
    if (options.isDeepWanted && !shots.isEmpty())
        deepen(shots);
    Options how = options;
    how.product = product;
    static_cast<Outcome &>(outcome) = merge(std::move(shots), how, control);
    return outcome;
}

Error errorOf(merge::Error error)
{
    switch (error) {
    case merge::Error::None:
        return Error::None;
    case merge::Error::NoPictures:
        return Error::NoPictures;
    case merge::Error::DifferentSizes:
        return Error::DifferentSizes;
    case merge::Error::NoMemory:
        break;
    }
    return Error::NoMemory;
}

registration::Transform shifted(QPoint by)
{
    const auto kind = by.isNull() ? registration::Kind::Identity : registration::Kind::Shift;
    return {kind, registration::shiftMatrix(by.x(), by.y()), 1.0, 0.0, registration::Reason::None};
}

/// One merge by the tool's mean, which deletes the pictures that it is given.
class MeanMerge
{
public:
    MeanMerge(QList<QImage> &&shots, const SetOptions &setOptions, const Control &jobControl)
        : options(setOptions)
        , control(jobControl)
        , size(shots.first().size())
        , count(size_t(shots.size()))
    {
        how.align = options.alignment != Alignment::None && count > 1;
        how.onDevice = options.device;
        how.device = options.device;
        how.mayReusePixels = true;
        how.beforeStep = [this](merge::Step step) { begin(step); };
        for (QImage &shot : shots) {
            how.mayReusePixels = how.mayReusePixels && shot.isDetached();
            pictures.append(new QImage(std::move(shot)));
        }
    }
    ~MeanMerge() { qDeleteAll(pictures); }
    MeanMerge(const MeanMerge &) = delete;
    MeanMerge &operator=(const MeanMerge &) = delete;

    SetOutcome run()
    {
        timer.start();
        merge::Outcome merged = merge::mergePictures(pictures, how);
        outcome.report.fuseMs = timer.elapsed();
        outcome.isDeviceComplete = merged.isDeviceComplete;
        outcome.error = isCancelled(control) ? Error::Cancelled : errorOf(merged.error);
        if (outcome.error == Error::None)
            take(std::move(merged));
        return std::move(outcome);
    }

private:
    void begin(merge::Step step)
    {
        const bool isAligning = step == merge::Step::Align;
        if (!isAligning && how.align)
            outcome.report.registerMs = timer.elapsed();
        timer.start();
        if (control.progress)
            control.progress(isAligning ? Step::Register : Step::Fuse, 0);
    }

    void take(merge::Outcome &&merged)
    {
        Report &report = outcome.report;
        report.area = QRect(QPoint(), size);
        report.transforms.assign(count, shifted({}));
        for (size_t i = 0; i < merged.summedShifts.size(); ++i) {
            report.transforms[i + 1] = shifted(merged.summedShifts[i]);
            if (options.crop)
                report.area &= QRect(merged.summedShifts[i], size);
        }
        outcome.pairShifts = std::move(merged.pairShifts);
        outcome.summedShifts = std::move(merged.summedShifts);
        if (report.area.isEmpty())
            outcome.error = Error::NothingCovered;
        else
            outcome.picture = report.area.size() == size ? std::move(*merged.picture)
                                                         : merged.picture->copy(report.area);
    }

    const SetOptions &options;
    const Control &control;
    const QSize size;
    const size_t count;
    merge::Options how;
    QList<QImage *> pictures;
    QElapsedTimer timer;
    SetOutcome outcome;
};

SetOutcome meanOfSet(QList<QImage> &&shots, const SetOptions &options, const Control &control)
{
    if (shots.isEmpty() || shots.first().isNull())
        return failed(Error::NoPictures);
    return MeanMerge(std::move(shots), options, control).run();
}

} // namespace

ReadOptions readOptionsFor(Method method, const QStringList &paths)
{
    ReadOptions options;
    if (method == Method::Mean)
        return options;
    options.depth = ReadOptions::Depth::AsStored;
    options.colours = ReadOptions::Colours::True;
    options.light = ReadOptions::Light::Shown;
    options.isRawLinear = method == Method::Radiance && !paths.isEmpty() &&
                          std::all_of(paths.begin(), paths.end(), &VeskRawType::isRaw);
    return options;
}

SetOutcome mergeSet(Method method, QList<QImage> shots, const SetOptions &options,
                    const Control &control)
{
    try {
        switch (method) {
        case Method::Mean:
            return meanOfSet(std::move(shots), options, control);
        case Method::Radiance:
            return mergeInOneSpace(Product::Light, std::move(shots), options, control);
        case Method::Fusion:
            break;
        }
        return mergeInOneSpace(options.product == Product::Both ? Product::Both : Product::Picture,
                               std::move(shots), options, control);
    } catch (const std::bad_alloc &) {
        return failed(Error::NoMemory);
    }
}

} // namespace exposure
