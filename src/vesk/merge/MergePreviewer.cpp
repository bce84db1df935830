#include "MergePreviewer.h"
#include "clipping_marks.h"

#include <develop.h>
#include <picture_set.h>
#include <resample.h>
#include <screen_colours.h>

#include <QColorSpace>

namespace {

QList<qint64> keysOf(const QList<QImage> &shots)
{
    QList<qint64> keys;
    for (const QImage &shot : shots)
        keys.append(shot.cacheKey());
    return keys;
}

/// As the tool reads them.
QList<QImage> forTheMean(QList<QImage> shots)
{
    for (QImage &shot : shots)
        shot = shot.convertToFormat(QImage::Format_RGB32);
    return shots;
}

/// Light as one shot would show it.
QImage forTheScreen(const QImage &merged)
{
    develop::Options how;
    how.method = develop::Method::Exposure;
    return merged.format() == QImage::Format_RGBX32FPx4 ? develop::picture(merged, how).picture
                                                        : merged;
}

exposure::Outcome failed(exposure::Error error)
{
    exposure::Outcome outcome;
    outcome.error = error;
    return outcome;
}

/// To that area of the reference.
void cut(QList<QImage> &pictures, exposure::Options &options, const QRect &area)
{
    for (QImage &picture : pictures)
        picture = picture.copy(area);
    for (motion::Take &take : options.takes)
        take.mask = take.mask.copy(area);
    for (motion::ThingTake &thing : options.things)
        thing.place -= area.topLeft();
}

QRect commonArea(const exposure::Report &report, const QList<QImage> &shots)
{
    const std::vector<QSize> sizes(size_t(shots.size()), shots.first().size());
    return registration::commonArea(report.transforms, sizes, sizes.front());
}

} // namespace

MergePreviewer::MergePreviewer(QObject *parent)
    : QObject(parent)
{
    worker.setMaxThreadCount(1);
}

MergePreviewer::~MergePreviewer()
{
    cancel();
    worker.clear();
    worker.waitForDone();
}

void MergePreviewer::cancel()
{
    if (current)
        *current = true;
    current.reset();
}

void MergePreviewer::request(const QList<QImage> &shots, const MergeSettings &settings)
{
    cancel();
    worker.clear();
    current = std::make_shared<std::atomic<bool>>(false);
    worker.start([this, asked = Request{shots, settings, current}] {
        const MergePreviewResult result = answer(asked);
        QMetaObject::invokeMethod(
            this,
            [this, result, cancelled = asked.cancelled] {
                if (!*cancelled)
                    Q_EMIT ready(result);
            },
            Qt::QueuedConnection);
        prepare(asked);
    });
}

MergePreviewResult MergePreviewer::answer(const Request &request)
{
    if (*request.cancelled)
        return {};
    const exposure::Outcome &merged = mergedWithoutLook(request);
    MergePreviewResult result;
    result.picture = forTheScreen(merged.picture);
    result.merged = result.picture;
    result.report = merged.report;
    result.ghosts = merged.ghosts;
    result.error = merged.error;
    if (request.settings.hasLook() && !result.picture.isNull()) {
        const QColorSpace space = result.picture.colorSpace();
        exposure::adjust(result.picture, request.settings.options.adjustment);
        result.picture.setColorSpace(space);
    }
    result.clipping = clipping::marks(result.picture);
    result.picture = screen_colours::shown(result.picture);
    return result;
}

void MergePreviewer::requestShots(const QList<QImage> &shots, const MergeSettings &settings)
{
    if (!current)
        current = std::make_shared<std::atomic<bool>>(false);
    worker.start([this, asked = Request{shots, settings, current}] {
        const QList<QImage> laid = shotsFor(asked);
        QMetaObject::invokeMethod(
            this,
            [this, laid, cancelled = asked.cancelled] {
                if (!*cancelled)
                    Q_EMIT shotsReady(laid);
            },
            Qt::QueuedConnection);
    });
}

/// As they are when nothing aligns them.
QList<QImage> MergePreviewer::shotsFor(const Request &request)
{
    prepare(request);
    const bool isLaid = isAlignedFor(request) && !aligned.pictures.isEmpty();
    QList<QImage> shots = isLaid ? aligned.pictures : request.shots;
    for (QImage &shot : shots)
        shot = screen_colours::shown(isLaid && request.settings.options.crop
                                         ? shot.copy(commonArea(aligned.report, request.shots))
                                         : shot);
    return shots;
}

const exposure::Outcome &MergePreviewer::mergedWithoutLook(const Request &request)
{
    const QList<qint64> keys = keysOf(request.shots);
    const bool isKept = !kept.outcome.picture.isNull() && kept.shots == keys &&
                        kept.settings.isSameButLook(request.settings);
    if (isKept)
        return kept.outcome;
    exposure::Control control;
    control.cancelled = request.cancelled.get();
    kept = {keys, request.settings,
            request.settings.isMean()
                ? exposure::mergeSet(exposure::Method::Mean, forTheMean(request.shots),
                                     request.settings.options, control)
                : fused(request, control)};
    return kept.outcome;
}

exposure::Outcome MergePreviewer::fused(const Request &request, const exposure::Control &control)
{
    exposure::Options options = request.settings.optionsFor(request.shots.first().size());
    options.adjustment = {};
    if (request.settings.isLight())
        options.product = exposure::Product::Light;
    if (isAlignedFor(request))
        return layOver(request.shots, control) ? fusedFromAligned(options, control)
                                               : failed(exposure::Error::Cancelled);
    exposure::Outcome outcome =
        exposure::mergeSet(request.settings.method, request.shots, options, control);
    aligned = {keysOf(request.shots), options.alignment, options.reference, {}, {}};
    if (outcome.error == exposure::Error::None)
        aligned.report = outcome.report;
    return outcome;
}

/// The user looks at the answer now: time to get ready for the next request.
void MergePreviewer::prepare(const Request &request)
{
    exposure::Control control;
    control.cancelled = request.cancelled.get();
    if (!request.settings.isMean() && !*request.cancelled && isAlignedFor(request))
        layOver(request.shots, control);
}

bool MergePreviewer::isAlignedFor(const Request &request) const
{
    const exposure::Options &wanted = request.settings.options;
    return !aligned.report.transforms.empty() && aligned.shots == keysOf(request.shots) &&
           aligned.alignment == wanted.alignment && aligned.chosenReference == wanted.reference;
}

/// False when it was cancelled or memory is lacking.
bool MergePreviewer::layOver(const QList<QImage> &shots, const exposure::Control &control)
{
    if (!aligned.pictures.isEmpty())
        return true;
    QList<QImage> pictures = shots;
    if (picture_set::bringToFirst(pictures).isMemoryShort)
        return false;
    for (qsizetype i = 0; i < pictures.size(); ++i) {
        pictures[i] =
            registration::resample(pictures[i], aligned.report.transforms[size_t(i)],
                                   pictures[aligned.report.reference].size(), control.cancelled);
        if (pictures[i].isNull())
            return false;
    }
    aligned.pictures = pictures;
    return true;
}

/// As a merge does it behind its alignment.
exposure::Outcome MergePreviewer::fusedFromAligned(const exposure::Options &wanted,
                                                   const exposure::Control &control)
{
    exposure::Options options = wanted;
    options.alignment = exposure::Alignment::None;
    options.reference = aligned.report.reference;
    options.crop = false;
    exposure::Report report = aligned.report;
    QList<QImage> pictures = aligned.pictures;
    report.area = wanted.crop ? commonArea(report, pictures) : pictures.first().rect();
    if (report.area.isEmpty())
        return failed(exposure::Error::NothingCovered);
    if (wanted.crop)
        cut(pictures, options, report.area);
    exposure::Outcome outcome = exposure::merge(pictures, options, control);
    report.hasGhosts = outcome.report.hasGhosts;
    outcome.report = report;
    return outcome;
}
