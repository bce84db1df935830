#pragma once

#include "MergeJob.h"
#include "MergePreview.h"

#include <QTimer>

#include <optional>

/// The merge at full size that the preview shows where one looks closely: made beside the GUI
/// thread when it is asked for, without a look, and kept, so that the merge itself need not be done
/// again. Asked for ahead of time it makes a merge that one need not wait for. GUI thread.
class SharpMerge : public QObject
{
    Q_OBJECT

public:
    explicit SharpMerge(QObject *parent = nullptr);

    enum class Need {
        Now,  ///< somebody looks closely
        Ahead ///< perhaps later: when the settings have been left alone for a while
    };

    /// Nothing happens when it is kept or under way already; what is of other shots or settings is
    /// dropped. Waits for a moment, as settings change in bursts.
    void ask(const QStringList &paths, const MergeSettings &settings, Need need = Need::Now);
    /// Ends what is under way, and drops what is of other shots or settings; looks do not count.
    void keepOnlyFor(const QStringList &paths, const MergeSettings &settings);
    void cancel();
    bool isUnderWay() const { return delay.isActive() || job.isRunning(); }
    /// Not only waiting for its time.
    bool isRunningFor(const QStringList &paths, const MergeSettings &settings) const;

    /// What is kept, without its look; nothing when it is of others.
    std::optional<MergeResult> keptFor(const QStringList &paths,
                                       const MergeSettings &settings) const;

Q_SIGNALS:
    /// As MergeJob's.
    void progressed(const QString &what, double done);
    void ready(const SharpPicture &picture);
    /// It could not be made.
    void failed(const QString &problem);

private:
    bool isFor(const QStringList &paths, const MergeSettings &settings) const;
    void take(const MergeResult &result);

    QStringList askedPaths;
    MergeSettings asked;
    MergeResult kept;
    QTimer delay;
    MergeJob job;
};
