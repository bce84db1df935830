#include "folder_shots.h"

#include "natural_order.h"

#include <VeskRawType.h>

#include <QDir>
#include <QMap>
#include <QMimeDatabase>

#include <algorithm>

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
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files)) {
        const bool isRaw = VeskRawType::isRaw(file.filePath());
        if (isRaw || types.mimeTypeForFile(file).name().startsWith(QLatin1String("image/")))
            pictures.push_back({file.filePath(), isRaw});
    }
    std::sort(pictures.begin(), pictures.end(),
              [](const PictureFile &one, const PictureFile &other) {
                  return isBeforeNaturally(stemOf(one.path), stemOf(other.path));
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

/// IMG_7-edited.jpg goes on where IMG_7.jpg ends, IMG_70.jpg does not.
bool goesOn(const QString &longer, const QString &name)
{
    return longer.startsWith(name, Qt::CaseInsensitive) &&
           (longer.size() == name.size() || !longer[name.size()].isDigit());
}

/// No camera takes two pictures in one millisecond. Where it tells the second only, the names must
/// tell, too: there are several brackets in a second.
bool isCopyOf(const Shot &original, const Shot &shot)
{
    const bool isSameExposure = shot.takenAt == original.takenAt && shot.model == original.model &&
                                shot.exposureBias == original.exposureBias &&
                                shot.exposureStops() == original.exposureStops();
    const bool tellsMilliseconds = shot.takenAt.time().msec() != 0;
    return isSameExposure &&
           (tellsMilliseconds || goesOn(stemOf(shot.path), stemOf(original.path)));
}

/// By time; of copies the original first, which is older than what was made of it.
bool isBefore(const Shot &one, const Shot &other)
{
    if (one.takenAt != other.takenAt)
        return one.takenAt < other.takenAt;
    const QDateTime oneWritten = QFileInfo(one.path).lastModified();
    const QDateTime otherWritten = QFileInfo(other.path).lastModified();
    return oneWritten != otherWritten ? oneWritten < otherWritten
                                      : isBeforeNaturally(stemOf(one.path), stemOf(other.path));
}

} // namespace

std::vector<Shot> readFolder(const QString &folder, const FolderRules &rules,
                             const std::function<void(const QString &, const QString &)> &leftOut)
{
    std::vector<Shot> shots;
    for (const PictureFile &picture : withoutTwins(picturesIn(folder), rules.preferRaw)) {
        const ShotReading reading = readShot(picture.path);
        if (reading.problem.isEmpty())
            shots.push_back(reading.shot);
        else
            leftOut(picture.path, reading.problem);
    }
    std::sort(shots.begin(), shots.end(), isBefore);
    std::vector<Shot> originals;
    for (const Shot &shot : shots) {
        const auto original =
            std::find_if(originals.rbegin(), originals.rend(), [&shot](const Shot &earlier) {
                return earlier.takenAt != shot.takenAt || isCopyOf(earlier, shot);
            });
        if (original != originals.rend() && original->takenAt == shot.takenAt)
            leftOut(shot.path, QStringLiteral("it is a copy of ") + original->path);
        else
            originals.push_back(shot);
    }
    return originals;
}
