#include "folder_shots.h"

#include "file_names.h"
#include "natural_order.h"
#include "parallel_rows.h"

#include <VeskRawType.h>

#include <QDir>
#include <QHash>
#include <QMap>
#include <QMimeDatabase>

#include <algorithm>
#include <iterator>

namespace {

/// A file that holds a picture, as its name and its first bytes say.
struct PictureFile
{
    QString path;
    bool isRaw = false;
};

/// The name without its last suffix, as cameras name a raw file and its developed twin.
QString stemOf(const QString &path)
{
    return QFileInfo(path).completeBaseName();
}

std::vector<PictureFile> picturesIn(const QString &folder)
{
    const QMimeDatabase types;
    std::vector<PictureFile> pictures;
    QStringList names = file_names::entriesOf(folder);
    names.sort();
    for (const QString &name : std::as_const(names)) {
        const QString path = QDir(folder).filePath(name);
        const file_names::ReadablePath readable(path);
        const QFileInfo file(readable.path());
        if (name.startsWith(QLatin1Char('.')) || !file.isFile())
            continue;
        const bool isRaw = VeskRawType::isRaw(readable.path());
        if (isRaw || types.mimeTypeForFile(file).name().startsWith(QLatin1String("image/")))
            pictures.push_back({path, isRaw});
    }
    std::stable_sort(pictures.begin(), pictures.end(),
                     [](const PictureFile &one, const PictureFile &other) {
                         return brackets::isBeforeNaturally(stemOf(one.path), stemOf(other.path));
                     });
    return pictures;
}

/// Takes away one file of each pair.
std::vector<PictureFile> withoutTwins(std::vector<PictureFile> pictures, bool preferRaw)
{
    QMap<QString, int> kinds; // bit 0: a developed file, bit 1: a raw file
    for (const PictureFile &picture : pictures)
        kinds[stemOf(picture.path).toLower()] |= picture.isRaw ? 2 : 1;
    const auto isTwin = [&](const PictureFile &picture) {
        return picture.isRaw != preferRaw && kinds[stemOf(picture.path).toLower()] == 3;
    };
    pictures.erase(std::remove_if(pictures.begin(), pictures.end(), isTwin), pictures.end());
    return pictures;
}

/// What is not known yet on all cores. Nothing when it was cancelled.
std::vector<ShotReading> readAll(const std::vector<PictureFile> &pictures, const FolderRules &rules)
{
    const auto isCancelled = [&rules] { return rules.cancelled && *rules.cancelled; };
    std::vector<ShotReading> readings(pictures.size());
    std::vector<size_t> unknown;
    for (size_t i = 0; i < pictures.size(); ++i) {
        const auto known = rules.cache ? rules.cache->find(pictures[i].path) : std::nullopt;
        if (known)
            readings[i] = *known;
        else
            unknown.push_back(i);
    }
    parallel::each(int(unknown.size()), [&](int i) {
        const size_t place = unknown[size_t(i)];
        if (!isCancelled())
            readings[place] = brackets::readShot(pictures[place].path);
    });
    if (isCancelled())
        return {};
    for (const size_t place : unknown) {
        if (rules.cache)
            rules.cache->insert(pictures[place].path, readings[place]);
    }
    return readings;
}

/// By time; of copies the original first, which is older than what was made of it.
void sortByTime(std::vector<Shot> &shots)
{
    struct Key
    {
        QDateTime written;
        QString stem;
    };
    QHash<QString, Key> keys;
    for (const Shot &shot : shots) {
        const file_names::ReadablePath file(shot.path);
        keys.insert(shot.path, {QFileInfo(file.path()).lastModified(), stemOf(shot.path)});
    }
    std::stable_sort(shots.begin(), shots.end(), [&keys](const Shot &one, const Shot &other) {
        if (one.takenAt != other.takenAt)
            return one.takenAt < other.takenAt;
        const Key oneKey = keys.value(one.path);
        const Key otherKey = keys.value(other.path);
        return oneKey.written != otherKey.written
                   ? oneKey.written < otherKey.written
                   : brackets::isBeforeNaturally(oneKey.stem, otherKey.stem);
    });
}

/// The originals so far, found by what their copies share with them.
class Originals
{
public:
    void add(const Shot &shot) { pathsOf[exposureOf(shot)].insert(nameOf(shot), shot.path); }

    /// Path of the shot that this one is a copy of; empty when it is none. No camera takes two
    /// pictures in one millisecond. Where it tells the second only, the names must tell, too: there
    /// are several brackets in a second.
    QString originalOf(const Shot &shot) const
    {
        const QHash<QString, QString> paths = pathsOf.value(exposureOf(shot));
        const bool tellsMilliseconds = shot.takenAt.time().msec() != 0;
        if (tellsMilliseconds || paths.isEmpty())
            return paths.isEmpty() ? QString() : *paths.cbegin();
        const QString name = nameOf(shot);
        for (int length = int(name.size()); length > 0; --length) {
            const auto path = paths.constFind(name.left(length));
            if (path != paths.cend() && goesOn(name, length))
                return *path;
        }
        return {};
    }

private:
    static QString nameOf(const Shot &shot) { return stemOf(shot.path).toLower(); }

    /// IMG_7-edited goes on where IMG_7 ends, IMG_70 does not.
    static bool goesOn(const QString &name, int length)
    {
        return name.size() == length || !name[length].isDigit();
    }

    static QString exposureOf(const Shot &shot)
    {
        const auto text = [](std::optional<double> stops) {
            return stops ? QString::number(*stops, 'g', 17) : QString();
        };
        return QStringList{QString::number(shot.takenAt.toMSecsSinceEpoch()),
                           text(shot.exposureBias), text(shot.exposureStops()), shot.model}
            .join(QLatin1Char('|'));
    }

    QHash<QString, QHash<QString, QString>> pathsOf; // by exposure, then by name
};

} // namespace

std::vector<Shot>
brackets::readFolder(const QString &folder, const FolderRules &rules,
                     const std::function<void(const QString &, const QString &)> &leftOut)
{
    std::vector<Shot> shots;
    const std::vector<PictureFile> files = withoutTwins(picturesIn(folder), rules.preferRaw);
    for (ShotReading &reading : readAll(files, rules)) {
        if (reading.problem.isEmpty())
            shots.push_back(std::move(reading.shot));
        else
            leftOut(reading.shot.path, reading.problem);
    }
    sortByTime(shots);
    Originals originals;
    const auto isCopy = [&](const Shot &shot) {
        const QString original = originals.originalOf(shot);
        if (original.isEmpty())
            originals.add(shot);
        else
            leftOut(shot.path, QStringLiteral("it is a copy of ") + original);
        return !original.isEmpty();
    };
    std::vector<Shot> kept;
    std::remove_copy_if(shots.cbegin(), shots.cend(), std::back_inserter(kept), isCopy);
    return kept;
}
