#pragma once

#include "BracketSearch.h"
#include "ContactSheet.h"
#include "FolderRest.h"

#include <QElapsedTimer>
#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <vector>

/// Looks into folders that fill while one shoots: searches them for brackets when files have come
/// that have stopped growing. Main thread, with an event loop.
class BatchWatch : public QObject
{
    Q_OBJECT

public:
    /// options: borrowed. restSeconds: how long a bracket must have been as it is to be complete.
    BatchWatch(const SearchOptions &options, int restSeconds);

    void start();

    /// Of the last search.
    const std::vector<Bracket> &found() const { return brackets; }
    const QList<ContactSheet::LeftOut> &leftOut() const { return others; }
    bool isComplete(const Bracket &bracket) const;

Q_SIGNALS:
    /// Some time has passed, or something has changed.
    void looked();

private:
    void look();
    void search();
    void follow(const QStringList &folders);

    SearchOptions options;
    const qint64 restMs;
    ShotCache cache;
    FolderRest rest;
    QFileSystemWatcher watcher;
    QTimer timer;
    QElapsedTimer clock;
    bool isToSearch = true;
    std::vector<Bracket> brackets;
    QList<ContactSheet::LeftOut> others;
};
