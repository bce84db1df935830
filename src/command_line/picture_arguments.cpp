#include "picture_arguments.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace {

/// One name for every way to write a path; the path itself when there is no such file.
QString identity(const QString &path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(path) : canonical;
}

QStringList eachFileOnce(const QStringList &paths)
{
    QSet<QString> seen;
    QStringList once;
    for (const QString &path : paths) {
        const QString file = identity(path);
        if (!seen.contains(file))
            once += path;
        seen += file;
    }
    return once;
}

} // namespace

QStringList command_line::inMergeOrder(const QStringList &paths, bool keepOrder)
{
    QStringList pictures = eachFileOnce(paths);
    if (!keepOrder)
        std::sort(pictures.begin(), pictures.end());
    return pictures;
}

int command_line::indexOfPicture(const QString &path, const QStringList &pictures)
{
    const auto isIt = [&path](const QString &picture) {
        return identity(picture) == identity(path);
    };
    const auto found = std::find_if(pictures.begin(), pictures.end(), isIt);
    return found == pictures.end() ? -1 : int(found - pictures.begin());
}

qint64 command_line::pixelLimitOf(const QString &megapixels)
{
    const qint64 limit = qint64(megapixels.toInt()) * kMegapixel;
    return limit >= kMegapixel && limit <= kLargestPixelLimit ? limit : 0;
}
