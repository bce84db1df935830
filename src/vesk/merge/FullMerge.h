#pragma once

#include "MergeJob.h"
#include "SharpMerge.h"

/// The merge that one gets: takes over what was made at full size for the preview or ahead of time,
/// waits for it where it is under way, and else does all itself; the pixels are the same. One at a
/// time. GUI thread.
class FullMerge : public QObject
{
    Q_OBJECT

public:
    /// sharp: outlives this.
    explicit FullMerge(SharpMerge &sharp, QObject *parent = nullptr);

    void start(const QStringList &paths, const MergeSettings &settings);
    /// Nobody hears of it again.
    void cancel();
    bool isRunning() const { return isJoining || job.isRunning(); }

Q_SIGNALS:
    /// As MergeJob's.
    void progressed(const QString &what, double done);
    void finished(const MergeResult &result);

private:
    void mergeNow();
    void fail(const QString &problem);

    SharpMerge &sharp;
    MergeJob job;
    MergeTask task;
    bool isJoining = false; ///< waits for what sharp makes already
};
