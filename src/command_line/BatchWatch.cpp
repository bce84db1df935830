#include "BatchWatch.h"

#include <algorithm>

namespace {

constexpr int kBusyMs = 500;  ///< while something is to come
constexpr int kIdleMs = 5000; ///< network folders tell nothing of themselves
/// A file that has not grown for so long is whole.
constexpr qint64 kGrowingMs = 2000;

} // namespace

BatchWatch::BatchWatch(const SearchOptions &searchOptions, int restSeconds)
    : options(searchOptions)
    , restMs(qint64(restSeconds) * 1000)
{
    options.folder.cache = &cache;
    connect(&watcher, &QFileSystemWatcher::directoryChanged, this, &BatchWatch::look);
    connect(&timer, &QTimer::timeout, this, &BatchWatch::look);
}

void BatchWatch::start()
{
    clock.start();
    timer.start(kBusyMs);
    QTimer::singleShot(0, this, &BatchWatch::look);
}

void BatchWatch::follow(const QStringList &folders)
{
    const QStringList followed = watcher.directories();
    for (const QString &folder : folders) {
        if (!followed.contains(folder))
            watcher.addPath(folder);
    }
}

void BatchWatch::look()
{
    const QStringList folders = BracketSearch::foldersOf(options);
    follow(folders);
    const qint64 now = clock.elapsed();
    isToSearch = rest.look(folders, now) || isToSearch;
    if (isToSearch && rest.rest(now) >= std::min(kGrowingMs, restMs))
        search();
    const bool isWaiting =
        isToSearch || !std::all_of(brackets.begin(), brackets.end(),
                                   [this](const Bracket &bracket) { return isComplete(bracket); });
    timer.start(isWaiting ? kBusyMs : kIdleMs);
    Q_EMIT looked();
}

void BatchWatch::search()
{
    isToSearch = false;
    brackets.clear();
    others.clear();
    BracketSearch::run(
        options, [this](const Bracket &bracket) { brackets.push_back(bracket); },
        [this](const QString &path, const QString &reason) {
            others.append({path, reason});
        });
}

bool BatchWatch::isComplete(const Bracket &bracket) const
{
    const qint64 now = clock.elapsed();
    return std::all_of(bracket.shots.begin(), bracket.shots.end(),
                       [&](const Shot &shot) { return rest.restOf(shot.path, now) >= restMs; });
}
