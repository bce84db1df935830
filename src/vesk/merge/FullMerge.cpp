#include "FullMerge.h"

FullMerge::FullMerge(SharpMerge &sharpMerge, QObject *parent)
    : QObject(parent)
    , sharp(sharpMerge)
{
    connect(&job, &MergeJob::progressed, this, &FullMerge::progressed);
    connect(&job, &MergeJob::finished, this, &FullMerge::finished);
    connect(&sharp, &SharpMerge::progressed, this, [this](const QString &what, double done) {
        if (isJoining)
            Q_EMIT progressed(what, done);
    });
    connect(&sharp, &SharpMerge::ready, this, [this] {
        if (isJoining)
            mergeNow();
    });
    connect(&sharp, &SharpMerge::failed, this, &FullMerge::fail);
}

void FullMerge::start(const QStringList &paths, const MergeSettings &settings)
{
    task = {};
    task.paths = paths;
    task.settings = settings;
    isJoining = sharp.isRunningFor(paths, settings);
    if (!isJoining)
        mergeNow();
}

void FullMerge::cancel()
{
    isJoining = false;
    sharp.cancel();
    job.cancel();
}

void FullMerge::mergeNow()
{
    isJoining = false;
    task.merged = sharp.keptFor(task.paths, task.settings);
    sharp.cancel();
    job.start(task);
}

void FullMerge::fail(const QString &problem)
{
    if (!isJoining)
        return;
    isJoining = false;
    MergeResult none;
    none.problem = problem;
    Q_EMIT finished(none);
}
