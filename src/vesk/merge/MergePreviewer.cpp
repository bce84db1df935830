#include "MergePreviewer.h"

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

/// The mean takes pictures as the tool reads them.
QList<QImage> asRead(QList<QImage> shots, exposure::Method method)
{
    if (method == exposure::Method::Fusion)
        return shots;
    for (QImage &shot : shots)
        shot = shot.convertToFormat(QImage::Format_RGB32);
    return shots;
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
    });
}

MergePreviewResult MergePreviewer::answer(const Request &request)
{
    if (*request.cancelled)
        return {};
    const exposure::Outcome &merged = mergedWithoutLook(request);
    MergePreviewResult result{merged.picture, merged.report, merged.error};
    if (!request.settings.isMean() && !result.picture.isNull()) {
        const QColorSpace space = result.picture.colorSpace();
        exposure::adjust(result.picture, request.settings.options.adjustment);
        result.picture.setColorSpace(space);
    }
    result.picture = screen_colours::shown(result.picture);
    return result;
}

const exposure::Outcome &MergePreviewer::mergedWithoutLook(const Request &request)
{
    const QList<qint64> keys = keysOf(request.shots);
    const bool isKept = !kept.outcome.picture.isNull() && kept.shots == keys &&
                        kept.settings.isSameButLook(request.settings);
    if (isKept)
        return kept.outcome;
    exposure::Options options = request.settings.options;
    options.adjustment = {};
    exposure::Control control;
    control.cancelled = request.cancelled.get();
    kept = {keys, request.settings,
            exposure::mergeSet(request.settings.method,
                               asRead(request.shots, request.settings.method), options, control)};
    return kept.outcome;
}
