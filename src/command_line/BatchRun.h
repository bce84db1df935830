#pragma once

#include "BatchLog.h"
#include "BatchOptions.h"
#include "BatchPlan.h"
#include "BatchWatch.h"
#include "ContactSheet.h"
#include "MemoryBudget.h"
#include "MergeProcess.h"
#include "ProgressBar.h"
#include "RemainingTime.h"
#include "ResultClaim.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <list>
#include <memory>

/// Merges what is to be merged, several brackets at a time: each in a process of its own, as many
/// as fit into the memory. Main thread only.
class BatchRun : public QObject
{
    Q_OBJECT

public:
    /// Borrowed.
    explicit BatchRun(const BatchOptions &options);

    ExitCode run();

private:
    /// A bracket on its way.
    struct Work
    {
        BatchJob job;
        qint64 estimate = 0; ///< bytes
        qint64 taken = 0;    ///< of the budget
        ResultClaim claim;
        std::unique_ptr<MergeProcess> process;
    };
    using WorkList = std::list<std::unique_ptr<Work>>;

    void search();
    void add(const Bracket &bracket);
    bool settle(const BatchJob &job);
    void refuse(const BatchJob &job);
    void planDry(const BatchJob &job);
    qint64 estimateOf(const BatchJob &job) const;
    bool makeFolder();
    void workAll();
    void startMore();
    void startOne(WorkList::iterator place);
    void finish(const BatchJob &job);
    void launch(Work &work);
    int threadsFor(qint64 taken) const;
    void readAhead() const;
    void end(Work &work, const MergeProcess::End &how);
    void tellEnd(BatchJob &job, qint64 estimate, const MergeProcess::End &how);
    void tryPostponed();
    void stop();
    void quitWhenIdle();
    void look();
    bool isUnderWay(const Bracket &bracket) const;
    void tell(const BatchJob &job, const QJsonObject &record);
    void say(const QString &file, const QString &reason);
    void showProgress();
    void showInSheet(const BatchJob &job, const QJsonObject &record);
    void writeSheet();
    void keep(ExitCode other) { code = code == ExitCode::Ok ? other : code; }

    const BatchOptions &options;
    const BatchLog log;
    QHash<QString, QJsonObject> records; ///< what the report tells, by the names of results
    BatchPlan plan;
    MemoryBudget budget;
    WorkList queue;
    WorkList running;
    WorkList postponed; ///< another process is at these
    QEventLoop loop;
    QTimer retry;
    QTimer second;
    std::unique_ptr<BatchWatch> watch;
    QHash<QString, QStringList> handled; ///< while watching: stamps by first shot
    ContactSheet sheet;
    QHash<QString, qsizetype> placeInSheet; ///< by first shot
    ProgressBar bar;
    RemainingTime remaining;
    QElapsedTimer clock;
    int all = 0;
    int done = 0;
    bool isStopping = false;
    ExitCode code = ExitCode::Ok;
};
