#include "MergeJob.h"
#include "merge_texts.h"

#include <VeskGlobalSettings.h>
#include <parallel_rows.h>
#include <picture_reader.h>
#include <resample.h>
#include <shot_exposures.h>

#include <QColorSpace>
#include <QFileInfo>

namespace {

// Where the bar stands after each step.
constexpr double kRead = 0.35;
constexpr double kAligned = 0.65;
constexpr double kSearched = 0.8;

double doneAfter(exposure::Step step, double done)
{
    switch (step) {
    case exposure::Step::Register:
        return kRead + 0.5 * (kAligned - kRead) * done;
    case exposure::Step::Resample:
        return kRead + 0.5 * (kAligned - kRead) * (1 + done);
    case exposure::Step::FindGhosts:
        return kAligned + (kSearched - kAligned) * done;
    case exposure::Step::Fuse:
        return kSearched + (1 - kSearched) * done;
    }
    return 1;
}

struct Shots
{
    QList<QImage> pictures;
    QString problem; ///< the first that there is; empty when all could be read
};

/// Side by side, with a size that all share.
Shots checked(const QStringList &paths, const std::vector<DecodedPicture> &decoded)
{
    Shots shots;
    for (int i = 0; i < paths.size(); ++i) {
        const DecodedPicture &picture = decoded[size_t(i)];
        if (picture.image.isNull())
            return {{}, merge_texts::notRead(paths[i], picture.reason)};
        if (!shots.pictures.isEmpty() && picture.image.size() != shots.pictures.first().size())
            return {{},
                    merge_texts::otherSize(paths[i], picture.image.size(), paths.first(),
                                           shots.pictures.first().size())};
        shots.pictures.append(picture.image);
    }
    return shots;
}

/// A cancelled call reads no more of them.
Shots readAll(const QStringList &paths, const ReadOptions &how,
              const std::function<void(int)> &onRead)
{
    std::vector<DecodedPicture> decoded(size_t(paths.size()));
    parallel::each(
        int(paths.size()),
        [&](int i) {
            if (!*how.cancelled)
                decoded[size_t(i)] = picture::read(paths[i], how);
        },
        onRead);
    return *how.cancelled ? Shots() : checked(paths, decoded);
}

/// Strokes are on the pictures themselves, whatever was shown while they were painted.
exposure::SetOptions setOptions(const MergeTask &task, QSize size)
{
    MergeSettings settings = task.settings;
    settings.paintedOn = {};
    exposure::SetOptions options = settings.optionsFor(size);
    if (settings.isLight())
        options.exposures = brackets::shotExposures(task.paths).relative;
    return options;
}

/// Of the picture: what shots of this size cover once they are placed.
QRect coveredArea(const exposure::Report &report, QSize size)
{
    if (report.transforms.empty())
        return {};
    const std::vector<QSize> sizes(report.transforms.size(), size);
    return (registration::commonArea(report.transforms, sizes, size) & report.area)
        .translated(-report.area.topLeft());
}

} // namespace

MergeJob::MergeJob(QObject *parent)
    : QObject(parent)
{
    worker.setMaxThreadCount(1);
}

MergeJob::~MergeJob()
{
    cancel();
    worker.waitForDone();
}

void MergeJob::start(const MergeTask &task)
{
    current = std::make_shared<std::atomic<bool>>(false);
    worker.start([this, task, cancelled = current] {
        const MergeResult result = run(task, cancelled);
        QMetaObject::invokeMethod(
            this, [=] { take(result, cancelled); }, Qt::QueuedConnection);
    });
}

void MergeJob::cancel()
{
    if (current)
        *current = true;
    current.reset();
}

void MergeJob::tell(const QString &what, double done, const Flag &cancelled)
{
    QMetaObject::invokeMethod(
        this,
        [=] {
            if (!*cancelled)
                Q_EMIT progressed(what, done);
        },
        Qt::QueuedConnection);
}

void MergeJob::take(const MergeResult &result, const Flag &cancelled)
{
    if (*cancelled)
        return;
    current.reset();
    Q_EMIT finished(result);
}

MergeResult MergeJob::run(const MergeTask &task, const Flag &cancelled)
{
    if (!task.merged)
        return merge(task, cancelled);
    tell(merge_texts::doing(exposure::Step::Fuse), kSearched, cancelled);
    MergeResult result = *task.merged;
    const QColorSpace space = result.picture.colorSpace();
    if (task.settings.hasLook())
        exposure::adjust(result.picture, task.settings.options.adjustment);
    result.picture.setColorSpace(space);
    return result;
}

MergeResult MergeJob::merge(const MergeTask &task, const Flag &cancelled)
{
    const QStringList &paths = task.paths;
    ReadOptions how = exposure::readOptionsFor(task.settings.method, paths);
    how.pixelLimit = VeskGlobalSettings::pixelLimit();
    how.cancelled = cancelled.get();
    Shots shots = readAll(paths, how, [&](int count) {
        tell(merge_texts::reading(), kRead * count / int(paths.size()), cancelled);
    });
    if (*cancelled || !shots.problem.isEmpty())
        return {{}, {}, {}, {}, shots.problem};
    MergeResult result = merge(task, std::move(shots.pictures), cancelled);
    // Read again: all shots together are more than what the merge has room for.
    if (task.wantsReference && !result.picture.isNull() && !*cancelled)
        result.reference =
            picture::read(paths[result.report.reference], how).image.copy(result.report.area);
    return result;
}

MergeResult MergeJob::merge(const MergeTask &task, QList<QImage> &&shots, const Flag &cancelled)
{
    exposure::Control control;
    control.cancelled = cancelled.get();
    control.progress = [&](exposure::Step step, double done) {
        tell(merge_texts::doing(step), doneAfter(step, done), cancelled);
    };
    const QSize size = shots.first().size();
    const exposure::Outcome outcome =
        exposure::mergeSet(task.settings.method, std::move(shots), setOptions(task, size), control);
    return {outcome.picture,
            {},
            outcome.report,
            coveredArea(outcome.report, size),
            merge_texts::problem(outcome.error)};
}
