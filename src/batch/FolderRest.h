#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <limits>

/// Watches files come to rest: when each was last seen to appear, grow or change. Times are
/// milliseconds of any clock that runs on, given by the caller. One thread at a time.
class FolderRest
{
public:
    /// Looks at the files of the folders, not below them. Files that are there at the first look
    /// have rested as long as their own time says. True when something is new, changed or gone.
    bool look(const QStringList &folders, qint64 now);

    /// How long one file has rested; 0 for one that was not seen.
    qint64 restOf(const QString &path, qint64 now) const;

    /// How long all have rested.
    qint64 rest(qint64 now) const { return now - lastChange; }

private:
    struct Seen
    {
        qint64 size = 0;
        qint64 time = 0; ///< of the file
        qint64 since = 0;
        int round = 0;
    };

    bool lookAt(const QString &path, qint64 now);
    bool forgetOthers();

    QHash<QString, Seen> files;
    qint64 lastChange = std::numeric_limits<qint64>::min() / 2;
    int round = 0;
};
