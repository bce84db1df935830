#include "SharpMerge.h"

namespace {

constexpr int kSoonMs = 200;
constexpr int kAheadMs = 1000;

} // namespace

SharpMerge::SharpMerge(QObject *parent)
    : QObject(parent)
{
    delay.setSingleShot(true);
    connect(&delay, &QTimer::timeout, this, [this] {
        MergeTask task;
        task.paths = askedPaths;
        task.settings = asked.withoutLook();
        task.wantsReference = true;
        job.start(task);
    });
    connect(&job, &MergeJob::progressed, this, &SharpMerge::progressed);
    connect(&job, &MergeJob::finished, this, &SharpMerge::take);
}

bool SharpMerge::isFor(const QStringList &paths, const MergeSettings &settings) const
{
    return askedPaths == paths && asked.isSameButLook(settings);
}

void SharpMerge::ask(const QStringList &paths, const MergeSettings &settings, Need need)
{
    const int wait = need == Need::Now ? kSoonMs : kAheadMs;
    keepOnlyFor(paths, settings);
    const bool isSoonEnough = delay.isActive() && delay.remainingTime() <= wait;
    if (job.isRunning() || isSoonEnough || !kept.picture.isNull())
        return;
    askedPaths = paths;
    asked = settings;
    delay.start(wait);
}

bool SharpMerge::isRunningFor(const QStringList &paths, const MergeSettings &settings) const
{
    return job.isRunning() && isFor(paths, settings);
}

void SharpMerge::keepOnlyFor(const QStringList &paths, const MergeSettings &settings)
{
    if (isFor(paths, settings))
        return;
    cancel();
    kept = {};
    askedPaths.clear();
}

void SharpMerge::cancel()
{
    delay.stop();
    job.cancel();
}

std::optional<MergeResult> SharpMerge::keptFor(const QStringList &paths,
                                               const MergeSettings &settings) const
{
    return !kept.picture.isNull() && isFor(paths, settings) ? std::optional(kept) : std::nullopt;
}

void SharpMerge::take(const MergeResult &result)
{
    if (result.picture.isNull()) {
        askedPaths.clear();
        Q_EMIT failed(result.problem);
        return;
    }
    kept = result;
    Q_EMIT ready({kept.picture, kept.reference});
}
