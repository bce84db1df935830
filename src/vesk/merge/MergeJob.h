#pragma once

#include "MergeSettings.h"

#include <QObject>
#include <QStringList>
#include <QThreadPool>

#include <atomic>
#include <memory>
#include <optional>

/// What a merge at full size gives.
struct MergeResult
{
    QImage picture;   ///< null when there is a problem
    QImage reference; ///< as it was taken, cut to what the picture shows; null unless wanted
    exposure::Report report;
    QRect covered;   ///< of the picture: what every shot covers
    QString problem; ///< in words, with the names of the files concerned
};

/// What is to be merged.
struct MergeTask
{
    QStringList paths; ///< in merge order
    MergeSettings settings;
    bool wantsReference = false;
    /// What a merge of the same with another look gave without it: only the look is left to do.
    std::optional<MergeResult> merged;
};

/// The merge at full size beside the GUI thread: reads the files, merges them. One at a time.
/// Destroying it cancels and waits. GUI thread.
class MergeJob : public QObject
{
    Q_OBJECT

public:
    explicit MergeJob(QObject *parent = nullptr);
    ~MergeJob() override;

    /// Not while it is running.
    void start(const MergeTask &task);
    /// Nobody hears of the job again; the worker lets go of its pictures at its next look.
    void cancel();
    bool isRunning() const { return bool(current); }

Q_SIGNALS:
    /// What is being done, in words, and how much of the whole is done, 0..1.
    void progressed(const QString &what, double done);
    void finished(const MergeResult &result);

private:
    using Flag = std::shared_ptr<std::atomic<bool>>;

    MergeResult run(const MergeTask &task, const Flag &cancelled);
    MergeResult merge(const MergeTask &task, const Flag &cancelled);
    MergeResult merge(const MergeTask &task, QList<QImage> &&shots, const Flag &cancelled);
    void tell(const QString &what, double done, const Flag &cancelled);
    void take(const MergeResult &result, const Flag &cancelled);

    QThreadPool worker; // one thread
    Flag current;       // of the job under way, null while there is none
};
