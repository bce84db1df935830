#pragma once

#include "MergeShot.h"

#include <QObject>
#include <QStringList>
#include <QThreadPool>

/// Reads the shots of a set beside the GUI thread, two at a time. Destroying it drops those that
/// wait and waits for those under way. GUI thread.
class MergeShotLoader : public QObject
{
    Q_OBJECT

public:
    explicit MergeShotLoader(QObject *parent = nullptr);
    ~MergeShotLoader() override;

    void load(const QStringList &paths);
    /// Nobody hears of what has been asked for so far.
    void drop();
    bool isBusy() const { return underWay > 0; }

Q_SIGNALS:
    void loaded(const MergeShot &shot);
    /// Nothing is waiting any more.
    void finished();

private:
    void take(const MergeShot &shot, int set);

    QThreadPool workers;
    std::atomic<bool> cancelled{false};
    int underWay = 0;
    int currentSet = 0; // answers for others are stale
};
