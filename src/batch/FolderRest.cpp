#include "FolderRest.h"

#include "file_names.h"

#include <QDateTime>
#include <QDir>

#include <algorithm>

#include <sys/stat.h>

namespace {

constexpr qint64 kThousand = 1000;

/// Milliseconds since 1970.
qint64 changedAt(const struct stat &info)
{
#ifdef __APPLE__
    const timespec &time = info.st_mtimespec;
#else
    const timespec &time = info.st_mtim;
#endif
    return qint64(time.tv_sec) * kThousand + time.tv_nsec / (kThousand * kThousand);
}

} // namespace

bool FolderRest::look(const QStringList &folders, qint64 now)
{
    ++round;
    bool isChanged = false;
    for (const QString &folder : folders) {
        for (const QString &name : file_names::entriesOf(folder)) {
            if (!name.startsWith(QLatin1Char('.')) && lookAt(QDir(folder).filePath(name), now))
                isChanged = true;
        }
    }
    isChanged = forgetOthers() || isChanged;
    if (isChanged && round > 1)
        lastChange = now;
    return isChanged;
}

bool FolderRest::lookAt(const QString &path, qint64 now)
{
    struct stat info = {};
    if (::stat(file_names::toBytes(path).constData(), &info) != 0 || !S_ISREG(info.st_mode))
        return false;
    Seen &seen = files[path];
    const bool isKnown = seen.round > 0;
    seen.round = round;
    if (isKnown && seen.size == info.st_size && seen.time == changedAt(info))
        return false;
    seen.size = info.st_size;
    seen.time = changedAt(info);
    const qint64 age = QDateTime::currentMSecsSinceEpoch() - seen.time;
    seen.since = round == 1 ? now - std::max<qint64>(0, age) : now;
    if (round == 1)
        lastChange = std::max(lastChange, seen.since);
    return true;
}

bool FolderRest::forgetOthers()
{
    const qsizetype before = files.size();
    for (auto file = files.begin(); file != files.end();)
        file = file->round == round ? ++file : files.erase(file);
    return files.size() != before;
}

qint64 FolderRest::restOf(const QString &path, qint64 now) const
{
    const auto seen = files.constFind(path);
    return seen == files.cend() ? 0 : now - seen->since;
}
