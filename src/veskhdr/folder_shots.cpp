#include "folder_shots.h"

#include "natural_order.h"

#include <vesk_raw_type.h>

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

/// IMG_7-edited.jpg and IMG_7_merged.jpg are copies of IMG_7.jpg, IMG_70.jpg is none.
bool isCopyOf(const Shot &original, const Shot &shot)
{
    const QString name = stemOf(original.path);
    const QString longer = stemOf(shot.path);
    return longer.startsWith(name, Qt::CaseInsensitive) &&
           (longer.size() == name.size() || !longer[name.size()].isDigit()) &&
           shot.takenAt == original.takenAt && shot.exposureBias == original.exposureBias &&
           shot.exposureStops() == original.exposureStops();
}

} // namespace

std::vector<Shot> readFolder(const QString &folder, const FolderRules &rules,
                             const std::function<void(const QString &, const QString &)> &leftOut)
{
    std::vector<Shot> shots;
    for (const PictureFile &picture : withoutTwins(picturesIn(folder), rules.preferRaw)) {
        const ShotReading reading = readShot(picture.path);
        // By name, an original stands before its copies and they stand together.
        if (!reading.problem.isEmpty())
            leftOut(picture.path, reading.problem);
        else if (!shots.empty() && isCopyOf(shots.back(), reading.shot))
            leftOut(picture.path, QStringLiteral("it is a copy of ") + shots.back().path);
        else
            shots.push_back(reading.shot);
    }
    return shots;
}
